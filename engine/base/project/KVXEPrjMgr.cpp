#include "engine/base/project/KVXEPrjMgr.h"

#include "engine/base/services/KVXEHandshakeDialog.h"

namespace {

constexpr const char* ProjectExtension = ".kvx";
constexpr int Error = 3;

/// Tells the user; false, for the operation that failed.
bool fail(int line, const std::string& text) {
  KVXEHandshakeDialog::getGlobal().appendHSMsg("engine/base/project/KVXEProject", line, Error, text);
  return false;
}

}  // namespace

KVXEPrjMgr& KVXEPrjMgr::getGlobal() {
  static KVXEPrjMgr manager;
  return manager;
}

bool KVXEPrjMgr::validateAndSetPrjPath(const std::string& path) {
  // The system would take the name to end there, and so another file.
  if (path.find('\0') != std::string::npos) return fail(__LINE__, "Project path holds a NUL character");
  const std::filesystem::path candidate(path);
  // The file that is named is the one that stays open.
  if (candidate.extension() != ProjectExtension)
    return fail(__LINE__, getProjectFileName() + " do not have a .kvx file extension.");
  m_prjPath = candidate;
  return true;
}

bool KVXEPrjMgr::newProject(const std::string& path) {
  if (path.empty()) return fail(__LINE__, "Project path cannot be empty");
  return validateAndSetPrjPath(path);
}

bool KVXEPrjMgr::openProject(const std::string& path) {
  if (path.empty()) return fail(__LINE__, "Project path cannot be empty");
  if (!validateAndSetPrjPath(path)) return false;
  if (!std::filesystem::exists(m_prjPath)) return fail(__LINE__, getProjectFileName() + " do not exist.");
  return fail(__LINE__, getProjectFileName() +
                            " cannot be opened: project files cannot be read yet. Create a new project.");
}

bool KVXEPrjMgr::saveProject(const std::string& path) {
  if (!path.empty() && !validateAndSetPrjPath(path)) return false;
  if (!isOpen()) return false;
  return fail(__LINE__,
              getProjectFileName() +
                  " cannot be saved: project files cannot be written yet. The project stays open in "
                  "memory.");
}

bool KVXEPrjMgr::closeProject() {
  m_prjPath.clear();
  return true;
}
