#pragma once

#include <string>
#include <vector>

/// What went wrong, told by each level that an error passed, the innermost first.
class BulletinMgr {
 public:
  void append(std::string bulletin) { m_bulletins.push_back(std::move(bulletin)); }

  /// The bulletins in the order in which they came, one a line; empty when there are none.
  std::string getMessage() const;

 private:
  std::vector<std::string> m_bulletins;
};
