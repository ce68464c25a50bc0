#include "engine/base/project/KVXEProject.h"

#include <boost/filesystem/operations.hpp>
#include <filesystem>

#include "engine/base/project/KVXEPrjContentMgr.h"
#include "engine/base/project/ProjectMessages.h"
#include "platform/wyr_common/NException.h"
#include "platform/wyr_common/TemporaryFile.h"

namespace fs = boost::filesystem;

using kvxe::FileStamp;
using kvxe::KnownFiles;
using kvxe::reportError;

namespace {

constexpr const char* ProjectExtension = ".kvx";

}  // namespace

KVXEProject::KVXEProject()
    : m_randomEngine(std::random_device("default")()), m_contentMgr(std::make_unique<KVXEPrjContentMgr>()) {
  reset();
}

KVXEProject::~KVXEProject() {
  reset();
}

void KVXEProject::reset() {
  m_prjPath.clear();
  m_stagingPath.clear();
  m_stampedPath.clear();
  m_stamp = 0;
  m_stagingLock = {};
}

std::string KVXEProject::getBuildInfo() const {
  return m_contentMgr ? m_contentMgr->getBuildInfo() : std::string();
}

// The life of a project.

bool KVXEProject::newProject(const std::string& path) {
  if (path.empty()) return reportError(__LINE__, "Project path cannot be empty");
  const boost::mutex::scoped_lock lock(m_mutex);
  return validateAndSetPrjPath(path) && createStagingDirectory();
}

bool KVXEProject::openProject(const std::string& path) {
  if (path.empty()) return reportError(__LINE__, "Project path cannot be empty");
  const boost::mutex::scoped_lock lock(m_mutex);
  if (!validateAndSetPrjPath(path)) return false;
  if (!fs::exists(m_prjPath)) return reportError(__LINE__, getProjectFileName() + " do not exist.");
  const FileStamp stamp = FileStamp::of(m_prjPath);  // of what is read, should the file change meanwhile
  createStagingDirectory();
  if (!unzipProject() || !m_contentMgr->readProject(m_stagingPath)) return false;
  setTimeStamp(stamp);
  return true;
}

bool KVXEProject::saveProject(const std::string& path) {
  const boost::mutex::scoped_lock lock(m_mutex);
  if (!path.empty()) {
    if (!validateAndSetPrjPath(path)) return false;
  } else {
    if (m_prjPath.empty()) return false;
    if (fs::exists(m_prjPath) && hasTimeStampConflict())
      return reportError(__LINE__, getProjectFileName() +
                                       " replaced by another instance, save as a different project name.");
  }
  if (m_stagingPath.empty() || !fs::exists(m_stagingPath)) return true;  // nothing to save
  try {
    return m_contentMgr->prepProject(m_stagingPath) && zipProject();
  } catch (const NException& exception) {
    return reportError(__LINE__, "Could not save " + getProjectFileName() + ": " + exception.what());
  }
}

bool KVXEProject::closeProject() {
  const boost::mutex::scoped_lock lock(m_mutex);
  const bool isGone = removeStagingDirectory();
  reset();
  return isGone;
}

// The path.

bool KVXEProject::validateAndSetPrjPath(const std::string& path) {
  if (path.empty()) return false;
  // The system would take the name to end there, and so another file.
  if (path.find('\0') != std::string::npos)
    return reportError(__LINE__, "Project path holds a NUL character");
  // The file that is named is the one that stays open. A name of nothing but an extension has none.
  if (std::filesystem::path(path).extension() != ProjectExtension)
    return reportError(__LINE__, getProjectFileName() + " do not have a .kvx file extension.");
  m_prjPath = path;
  return true;
}

// The staging directory.

bool KVXEProject::createStagingDirectory() {
  if (m_prjPath.empty()) return reportError(__LINE__, "Project path cannot be empty");
  const fs::path root = kvxe::stagingRoot();
  kvxe::sweepStagingDirectories(root);
  TemporaryFile::sweep(m_prjPath.string());
  do {
    do {
      m_stagingPath = root / ("kvx" + std::to_string(m_randomEngine()));
    } while (fs::exists(m_stagingPath));
    fs::create_directories(m_stagingPath);
    m_stagingLock = kvxe::StagingLock(m_stagingPath);
  } while (!m_stagingLock.isHeld());  // the sweep of another process came in between
  return fs::exists(m_stagingPath);
}

bool KVXEProject::removeStagingDirectory() {
  if (m_stagingPath.empty()) return true;
  if (fs::exists(m_stagingPath)) fs::remove_all(m_stagingPath);
  return !fs::exists(m_stagingPath);
}

// The time stamp.

void KVXEProject::setTimeStamp() {
  if (!m_prjPath.empty()) setTimeStamp(FileStamp::of(m_prjPath));
}

void KVXEProject::setTimeStamp(const FileStamp& stamp) {
  if (!stamp.isOfFile()) return;
  m_stampedPath = m_prjPath;
  m_stamp = stamp.lastWriteTime;
  KnownFiles::getGlobal().add(m_prjPath, stamp);
}

bool KVXEProject::hasTimeStampConflict() const {
  return m_prjPath == m_stampedPath && FileStamp::of(m_prjPath).lastWriteTime != m_stamp;
}
