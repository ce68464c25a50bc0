#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "engine/base/services/KVXEHandshakeDialog.h"
#include "engine/base/services/KVXEMsg.h"

/// An empty directory of its own that is the current one while it lives: staging directories lie there.
class ProjectDirectory {
 public:
  ProjectDirectory() : m_before(std::filesystem::current_path()) {
    std::string name = (std::filesystem::temp_directory_path() / "kvx-project-XXXXXX").string();
    if (!mkdtemp(name.data())) ADD_FAILURE() << "no directory " << name;
    m_path = name;
    std::filesystem::current_path(m_path);
  }
  ~ProjectDirectory() {
    std::filesystem::current_path(m_before);
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
  }
  ProjectDirectory(const ProjectDirectory&) = delete;
  ProjectDirectory& operator=(const ProjectDirectory&) = delete;

  std::filesystem::path path() const { return m_path; }

  /// The names of what lies in the directory, or in one below, sorted.
  std::vector<std::string> list(const std::filesystem::path& below = ".") const {
    std::vector<std::string> names;
    if (std::filesystem::exists(m_path / below))
      for (const auto& entry : std::filesystem::directory_iterator(m_path / below))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }
  /// The staging directories that are there.
  std::vector<std::string> staging() const { return list(std::filesystem::path(".Kvx") / "projects"); }

  static std::string read(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  static void write(const std::filesystem::path& file, const std::string& content) {
    std::ofstream(file, std::ios::binary) << content;
  }

 private:
  std::filesystem::path m_before;
  std::filesystem::path m_path;
};
