#include "clients/cli/ProjectFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <boost/filesystem/exception.hpp>
#include <boost/property_tree/exceptions.hpp>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include "engine/base/project/FileStamp.h"
#include "engine/base/project/KVXEPrjMgr.h"
#include "engine/base/services/KVXEHandshakeDialog.h"
#include "messages/handshake.pb.h"
#include "platform/wyr_common/NException.h"

namespace kvx {

namespace {

/// What the engine has to tell about a project.
struct EngineMessages {
  std::vector<std::string> lines;
  bool areWarnings = false;  ///< or worse

  static EngineMessages take() {
    KvxHandshakeData reply;
    KVXEHandshakeDialog::getGlobal().populateMessageDialogData(&reply);
    EngineMessages messages;
    messages.areWarnings = reply.messagedialog().severity() > 1;
    std::string text = reply.messagedialog().text();
    for (std::size_t end; (end = text.find('\n')) != std::string::npos; text.erase(0, end + 1))
      if (end > 0) messages.lines.push_back(text.substr(0, end));
    return messages;
  }

  std::string joined() const {
    std::string text;
    for (const std::string& line : lines) text += (text.empty() ? "" : " ") + line;
    while (text.ends_with('.')) text.pop_back();
    return text;
  }
};

/// The engine's one project while it is open. It works in a directory below the current one, which is gone
/// when this is.
class ProjectSession {
 public:
  ProjectSession() { EngineMessages::take(); }
  ProjectSession(const ProjectSession&) = delete;
  ProjectSession& operator=(const ProjectSession&) = delete;
  ~ProjectSession() {
    try {
      KVXEPrjMgr::getGlobal().closeProject();
    } catch (const std::exception&) {
      // What cannot be removed is swept by the next project that is opened here.
    }
    std::error_code ignored;  // other projects may be in use here
    std::filesystem::remove(".Kvx/projects", ignored);
    std::filesystem::remove(".Kvx", ignored);
  }

  /// Another process that is done may remove the common directory while this one makes its own in it.
  template <class Act>
  static bool attempt(Act act) {
    constexpr int MostAttempts = 20;
    for (int i = 1;; ++i) {
      try {
        return act();
      } catch (const boost::filesystem::filesystem_error& failure) {
        if (failure.code() == boost::system::errc::no_such_file_or_directory && i < MostAttempts) continue;
        throw std::runtime_error(
            "a project cannot be unpacked in \".Kvx/projects\" here: " + failure.code().message() +
            "; run kvx in a directory that you may write to, on a disk that has room");
      }
    }
  }
};

void refuse(const std::string& path, const std::string& what, Diagnostics& diagnostics) {
  diagnostics.add({path, 0}, what, "\"kvx check\" tells what the file holds");
}

/// Whether the disk, not the project, is to blame for what the engine says.
bool isOfTheMachine(const std::string& message) {
  for (const int error : {ENOSPC, EDQUOT, EIO, EROFS, EACCES, EMFILE})
    if (message.ends_with(std::generic_category().message(error))) return true;
  return false;
}

bool openProject(const std::string& path, Diagnostics& diagnostics) {
  KVXEPrjMgr& projects = KVXEPrjMgr::getGlobal();
  bool isOpen = false;
  try {
    isOpen = ProjectSession::attempt([&] {
      projects.closeProject();
      return projects.openProject(path);
    });
  } catch (const NException& damage) {
    refuse(path, damage.what(), diagnostics);
  } catch (const boost::property_tree::ptree_error& damage) {
    refuse(path, damage.what(), diagnostics);
  }
  const EngineMessages messages = EngineMessages::take();
  if (isOpen && !messages.areWarnings) {
    for (const std::string& line : messages.lines) diagnostics.note({path, 0}, line);
    return true;
  }
  if (isOfTheMachine(messages.joined())) throw std::runtime_error(messages.joined());
  if (diagnostics.isEmpty())
    refuse(path, messages.lines.empty() ? "the project names no device" : messages.joined(), diagnostics);
  return false;
}

}  // namespace

bool isProjectPath(const std::string& path) {
  return std::filesystem::path(path).extension() == ".kvx";
}

bool isReadableProject(const std::string& path, Diagnostics& diagnostics) {
  const std::string remedy = "give the path of a project";
  struct stat status {};
  if (stat(path.c_str(), &status) != 0 || (S_ISREG(status.st_mode) && access(path.c_str(), R_OK) != 0))
    diagnostics.add({path, 0}, std::string("cannot be opened: ") + std::strerror(errno), remedy);
  else if (!S_ISREG(status.st_mode))
    diagnostics.add({path, 0}, S_ISDIR(status.st_mode) ? "is a directory" : "is no file", remedy);
  else
    return true;
  return false;
}

bool readProject(const std::string& path, Diagnostics& diagnostics) {
  if (!isReadableProject(path, diagnostics)) return false;
  const ProjectSession session;
  return openProject(path, diagnostics);
}

void writeProject(const std::string& path, Diagnostics& diagnostics) {
  KVXEPrjMgr& projects = KVXEPrjMgr::getGlobal();
  const ProjectSession session;
  // That a file of the name may be replaced has been asked.
  kvxe::KnownFiles::getGlobal().add(path, kvxe::FileStamp::of(path));
  const bool isSaved = ProjectSession::attempt([&] {
    projects.closeProject();
    return projects.newProject(path) && projects.saveProject("");
  });
  const EngineMessages messages = EngineMessages::take();
  if (!isSaved)
    throw std::runtime_error(messages.lines.empty() ? path + " cannot be written" : messages.joined());
  for (const std::string& line : messages.lines) diagnostics.note({path, 0}, line);
}

}  // namespace kvx
