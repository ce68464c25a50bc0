#pragma once

#include <boost/filesystem/path.hpp>
#include <boost/thread/mutex.hpp>
#include <memory>
#include <random>
#include <string>

#include "engine/base/project/FileStamp.h"
#include "engine/base/project/StagingDirectory.h"

class KVXEPrjContentMgr;

/// A project: one file with the extension ".kvx" and, while it is open, a private staging directory with the
/// file's contents. Saving packs the directory into the file, opening unpacks the file into a new directory.
///
/// What fails is told to the user (KVXEHandshakeDialog) and gives false. Errors of the file system library
/// pass through as its exceptions, and so does what a damaged XML file throws; the project stays as far as it
/// got, and can still be closed, or saved elsewhere. A save replaces the file in one step or not at all.
class KVXEProject {
 public:
  KVXEProject();
  KVXEProject(const KVXEProject&) = delete;
  KVXEProject& operator=(const KVXEProject&) = delete;
  /// The staging directory of a project that was not closed stays on disk, for the next sweep.
  ~KVXEProject();

  /// Starts a project that the first save will write to the path, which must end in ".kvx" exactly so.
  bool newProject(const std::string& path);
  /// Once the path has the right extension it is the project's path, also when reading fails: the caller
  /// decides what becomes of it. The book becomes that of the file.
  bool openProject(const std::string& path);
  /// Saves under the path, which becomes the project's; with an empty one where the project is, unless
  /// another instance has written the file since. A file that this process has neither read nor written is
  /// kept beside the new one under a name of its own.
  bool saveProject(const std::string& path);
  /// Removes the staging directory; false if it is still there.
  bool closeProject();

  bool isOpen() const { return !m_prjPath.empty(); }
  // Empty without a project.
  std::string getProjectPath() const { return m_prjPath.string(); }
  std::string getProjectFileName() const { return m_prjPath.filename().string(); }
  std::string getProjectName() const { return m_prjPath.stem().string(); }
  /// The version of the program that wrote the open project; empty when the project does not say.
  std::string getBuildInfo() const;

  // The steps of the above.

  /// Takes the path if its extension is right, else keeps the old one and tells.
  bool validateAndSetPrjPath(const std::string& path);
  bool createStagingDirectory();
  bool removeStagingDirectory();
  /// Packs the staging directory into the project file, and verifies what was written before it takes the
  /// file's place.
  bool zipProject();
  /// Unpacks the project file, if its digest holds, into the staging directory.
  bool unzipProject();
  /// Remembers when the project file was written last.
  void setTimeStamp();
  /// The file has been written since the time was remembered.
  bool hasTimeStampConflict() const;
  void reset();

 private:
  void setTimeStamp(const kvxe::FileStamp& stamp);
  bool createParentDirectory() const;
  bool replaceProjectFile();
  void setUnknownFileAside(const boost::filesystem::path& target) const;

  boost::filesystem::path m_prjPath;      // empty means that no project is open
  boost::filesystem::path m_stagingPath;  // empty when there is none
  boost::mutex m_mutex;                   // serialises new, open, save and close
  std::mt19937 m_randomEngine;            // of the names of staging directories
  boost::filesystem::path m_stampedPath;  // the file of m_stamp
  std::int64_t m_stamp = 0;               // its last write time when it was saved or opened
  std::unique_ptr<KVXEPrjContentMgr> m_contentMgr;
  kvxe::StagingLock m_stagingLock;
};
