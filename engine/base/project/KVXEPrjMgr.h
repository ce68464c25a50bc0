#pragma once

#include <memory>
#include <string>

class KVXEProject;

/// The front end's door to the one open project; each operation is that of KVXEProject.
class KVXEPrjMgr {
 public:
  static KVXEPrjMgr& getGlobal();
  ~KVXEPrjMgr();

  bool newProject(std::string path);
  bool openProject(std::string path);
  bool saveProject(std::string path);
  bool closeProject();

  bool isOpen() const;
  std::string getProjectPath() const;
  std::string getProjectFileName() const;
  std::string getProjectName() const;
  std::string getBuildInfo() const;

 private:
  KVXEPrjMgr();

  std::unique_ptr<KVXEProject> m_project;
};
