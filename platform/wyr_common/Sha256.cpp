#include "platform/wyr_common/Sha256.h"

#include <openssl/evp.h>
#include <unistd.h>

#include <array>
#include <memory>

namespace {

constexpr std::size_t BlockSize = 1 << 16;

std::string hexOf(const unsigned char* bytes, unsigned int count) {
  constexpr char digits[] = "0123456789abcdef";
  std::string text;
  for (unsigned int i = 0; i < count; ++i) {
    text += digits[bytes[i] >> 4];
    text += digits[bytes[i] & 15];
  }
  return text;
}

}  // namespace

std::string sha256OfFile(int descriptor, std::uint64_t length) {
  const std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> context(EVP_MD_CTX_new(), &EVP_MD_CTX_free);
  if (!context || EVP_DigestInit_ex(context.get(), EVP_sha256(), nullptr) != 1) return {};
  const auto block = std::make_unique<std::array<char, BlockSize>>();
  for (std::uint64_t at = 0; at < length;) {
    const std::size_t step = static_cast<std::size_t>(std::min<std::uint64_t>(BlockSize, length - at));
    const ssize_t got = pread(descriptor, block->data(), step, static_cast<off_t>(at));
    if (got <= 0) return {};
    if (EVP_DigestUpdate(context.get(), block->data(), static_cast<std::size_t>(got)) != 1) return {};
    at += static_cast<std::uint64_t>(got);
  }
  std::array<unsigned char, EVP_MAX_MD_SIZE> digest;
  unsigned int size = 0;
  if (EVP_DigestFinal_ex(context.get(), digest.data(), &size) != 1) return {};
  return hexOf(digest.data(), size);
}
