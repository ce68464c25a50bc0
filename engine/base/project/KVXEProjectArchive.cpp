// Between the staging directory and the project file.

#include <sys/stat.h>
#include <unistd.h>

#include <boost/filesystem/operations.hpp>
#include <cerrno>
#include <system_error>

#include "engine/base/project/KVXEProject.h"
#include "engine/base/project/ProjectMessages.h"
#include "platform/wyr_common/NDUFile.h"
#include "platform/wyr_common/NDUZip.h"
#include "platform/wyr_common/NException.h"
#include "platform/wyr_common/TemporaryFile.h"

namespace fs = boost::filesystem;

using kvxe::FileStamp;
using kvxe::KnownFiles;
using kvxe::reportError;

namespace {

std::string reasonOf(int error) {
  return std::generic_category().message(error);
}

/// A link to a project stays a link: what is replaced is the file that it names.
fs::path fileBehindLinks(const fs::path& path) {
  boost::system::error_code error;
  const fs::path file = fs::canonical(path, error);
  return error ? path : file;
}

/// The first name of that kind which is free: "<name>.kvx.orig", "<name>.kvx.orig.2", ...
fs::path keptName(const fs::path& file, unsigned int number) {
  return file.string() + ".orig" + (number == 1 ? std::string() : "." + std::to_string(number));
}

/// Gives the file a second name. The first one still works, so that at no moment there is no file there.
void keepUnderAnotherName(const fs::path& file, fs::path& kept) {
  for (unsigned int number = 1;; ++number) {
    kept = keptName(file, number);
    if (link(file.c_str(), kept.c_str()) == 0) return;
    if (errno == EEXIST) continue;
    // Not every file system has second names; a copy serves as well.
    boost::system::error_code error;
    if (!fs::copy_file(file, kept, fs::copy_options::skip_existing, error) && !error) continue;
    if (!error) return;
    throw NException("Could not keep a copy as " + kept.filename().string() + ": " + error.message());
  }
}

}  // namespace

bool KVXEProject::createParentDirectory() const {
  const fs::path parent = m_prjPath.parent_path();
  try {
    if (!parent.empty() && !fs::exists(parent)) fs::create_directories(parent);
    return true;
  } catch (const fs::filesystem_error& error) {
    return reportError(__LINE__, std::string("Could not create directories: ") + error.what());
  }
}

bool KVXEProject::zipProject() {
  if (m_stagingPath.empty() || m_prjPath.empty() || !fs::exists(m_stagingPath)) return false;
  if (!createParentDirectory()) return false;
  try {
    return replaceProjectFile();
  } catch (const NException& exception) {
    return reportError(__LINE__, "Could not create " + getProjectFileName() + ": " + exception.what());
  }
}

/// The archive is written beside the project file, read back and only then given the file's name, so that
/// there is a whole file under that name at every moment.
bool KVXEProject::replaceProjectFile() {
  const fs::path target = fileBehindLinks(m_prjPath);
  boost::system::error_code ignored;  // what is wrong with the name, the temporary file tells
  if (fs::is_directory(target, ignored)) throw NException("There is a directory of that name");
  if (access(target.c_str(), W_OK) != 0 && errno != ENOENT) throw NException(reasonOf(errno));

  TemporaryFile temporary(target.string());
  const NDUFile archive(temporary.path());
  NDUZip::compressDir(archive, m_stagingPath.string(), "", NDUZip::ZIP_OPTIONS(64));
  if (!fs::exists(temporary.path())) return reportError(__LINE__, "Could not create " + getProjectFileName());
  NDUZip::attachDigest(archive);
  if (NDUZip::checkIntegrity(archive) != 0) return false;
  temporary.flush();

  const FileStamp written = FileStamp::of(temporary.path());
  setUnknownFileAside(target);
  temporary.replaceTarget();
  setTimeStamp(written);
  return true;
}

void KVXEProject::setUnknownFileAside(const fs::path& target) const {
  if (!FileStamp::of(target).isOfFile() || KnownFiles::getGlobal().holds(m_prjPath)) return;
  fs::path kept;
  keepUnderAnotherName(target, kept);
  kvxe::reportWarning(__LINE__, getProjectFileName() +
                                    " was there before and had not been opened: it is kept as " +
                                    kept.filename().string() + ".");
}

bool KVXEProject::unzipProject() {
  if (m_stagingPath.empty() || m_prjPath.empty() || !fs::exists(m_stagingPath) || !fs::exists(m_prjPath))
    return false;
  const NDUFile archive(m_prjPath.string());
  if (NDUZip::checkIntegrity(archive) != 0)
    return reportError(__LINE__, getProjectFileName() + " failed during integrity check");
  try {
    NDUZip::uncompress(archive, m_stagingPath.string(), NDUZip::UNZIP_OPTIONS(1), nullptr);
    return true;
  } catch (const NException& exception) {
    return reportError(__LINE__, getProjectFileName() + " cannot be unpacked: " + exception.what());
  }
}
