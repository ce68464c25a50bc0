#pragma once

#include <filesystem>
#include <string>

/// The one open project: where it is, and whether there is one. What fails is told to the user
/// (KVXEHandshakeDialog).
///
/// A project lives in memory so far: its path and names work, reading and writing the file fails with a
/// message.
class KVXEPrjMgr {
 public:
  static KVXEPrjMgr& getGlobal();

  /// Starts a project that will be saved at the path, which must end in ".kvx" exactly so. False for any
  /// other path; the project that was open stays then.
  bool newProject(const std::string& path);
  /// Opens the project of a file. Once the path has the right extension it is the project's path, also when
  /// reading fails: the caller decides what becomes of it.
  bool openProject(const std::string& path);
  /// Saves under the path, which becomes the project's, or with an empty one where the project is.
  bool saveProject(const std::string& path);
  bool closeProject();

  bool isOpen() const { return !m_prjPath.empty(); }
  // Empty without a project.
  std::string getProjectPath() const { return m_prjPath.string(); }
  std::string getProjectFileName() const { return m_prjPath.filename().string(); }
  std::string getProjectName() const { return m_prjPath.stem().string(); }

 private:
  KVXEPrjMgr() = default;

  bool validateAndSetPrjPath(const std::string& path);

  std::filesystem::path m_prjPath;  // empty means that no project is open
};
