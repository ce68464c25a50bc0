#include "platform/wyr_common/NException.h"

NException::NException(BulletinMgr bulletins)
    : m_bulletins(std::make_shared<BulletinMgr>(std::move(bulletins))),
      m_message(std::make_shared<std::string>(m_bulletins->getMessage())) {}

namespace {

BulletinMgr single(const std::string& bulletin) {
  BulletinMgr bulletins;
  bulletins.append(bulletin);
  return bulletins;
}

}  // namespace

NException::NException(const std::string& bulletin) : NException(single(bulletin)) {}

const char* NException::what() const noexcept {
  return m_message ? m_message->c_str() : "";
}
