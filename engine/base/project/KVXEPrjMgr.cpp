#include "engine/base/project/KVXEPrjMgr.h"

#include "engine/base/project/KVXEProject.h"

KVXEPrjMgr& KVXEPrjMgr::getGlobal() {
  static KVXEPrjMgr manager;
  return manager;
}

KVXEPrjMgr::KVXEPrjMgr() : m_project(std::make_unique<KVXEProject>()) {}

KVXEPrjMgr::~KVXEPrjMgr() = default;

bool KVXEPrjMgr::newProject(std::string path) {
  return m_project->newProject(path);
}

bool KVXEPrjMgr::openProject(std::string path) {
  return m_project->openProject(path);
}

bool KVXEPrjMgr::saveProject(std::string path) {
  return m_project->saveProject(path);
}

bool KVXEPrjMgr::closeProject() {
  return m_project->closeProject();
}

bool KVXEPrjMgr::isOpen() const {
  return m_project->isOpen();
}

std::string KVXEPrjMgr::getProjectPath() const {
  return m_project->getProjectPath();
}

std::string KVXEPrjMgr::getProjectFileName() const {
  return m_project->getProjectFileName();
}

std::string KVXEPrjMgr::getProjectName() const {
  return m_project->getProjectName();
}

std::string KVXEPrjMgr::getBuildInfo() const {
  return m_project->getBuildInfo();
}
