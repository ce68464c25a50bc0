#pragma once

#include <exception>
#include <memory>
#include <string>

#include "platform/wyr_common/BulletinMgr.h"

/// An error with bulletins for the user. Copies share the bulletins, so that copying never throws.
class NException : public std::exception {
 public:
  NException() = default;
  explicit NException(BulletinMgr bulletins);
  explicit NException(const std::string& bulletin);

  /// Null when the error came without a word.
  const BulletinMgr* getBulletinMgr() const { return m_bulletins.get(); }
  const char* what() const noexcept override;

 private:
  std::shared_ptr<const BulletinMgr> m_bulletins;
  std::shared_ptr<const std::string> m_message;
};
