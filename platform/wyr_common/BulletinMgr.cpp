#include "platform/wyr_common/BulletinMgr.h"

std::string BulletinMgr::getMessage() const {
  std::string message;
  for (const std::string& bulletin : m_bulletins) {
    if (!message.empty()) message += '\n';
    message += bulletin;
  }
  return message;
}
