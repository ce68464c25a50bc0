#include "clients/cli/ScratchDirectory.h"

#include <cerrno>
#include <cstdlib>
#include <string>
#include <system_error>

namespace kvx {

ScratchDirectory::ScratchDirectory() {
  std::string name = (std::filesystem::temp_directory_path() / "kvx-XXXXXX").string();
  if (!mkdtemp(name.data())) throw std::system_error(errno, std::generic_category(), name);
  m_path = name;
}

ScratchDirectory::~ScratchDirectory() {
  std::error_code ignored;
  std::filesystem::remove_all(m_path, ignored);
}

}  // namespace kvx
