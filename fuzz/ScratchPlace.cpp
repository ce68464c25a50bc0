#include "fuzz/ScratchPlace.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace fs = std::filesystem;

namespace kvxe::fuzz {

ScratchPlace::ScratchPlace() {
  const fs::path base = fs::is_directory("/dev/shm") ? fs::path("/dev/shm") : fs::temp_directory_path();
  m_path = base / ("kvx-fuzz-" + std::to_string(getpid()));
  fs::create_directories(m_path);
  fs::current_path(m_path);
}

ScratchPlace::~ScratchPlace() {
  std::error_code ignored;
  fs::current_path("/", ignored);
  fs::remove_all(m_path, ignored);
}

void ScratchPlace::clear() const {
  for (const auto& entry : fs::directory_iterator(m_path)) fs::remove_all(entry);
}

void writeFile(const fs::path& file, std::span<const char> bytes) {
  std::ofstream(file, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

std::string readFile(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

void stop(const char* what, const std::string& detail) {
  std::fprintf(stderr, "%s\n%s\n", what, detail.c_str());
  std::abort();
}

}  // namespace kvxe::fuzz
