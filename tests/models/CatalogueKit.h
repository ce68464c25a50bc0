#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "models/catalogue/ModelData.h"

/// A directory of model data for one test; the built-in data comes back at its end.
class ModelDataDirectory {
 public:
  ModelDataDirectory() {
    std::string name = (std::filesystem::temp_directory_path() / "kvx-model-data-XXXXXX").string();
    m_path = mkdtemp(name.data());
  }
  ModelDataDirectory(const ModelDataDirectory&) = delete;
  ModelDataDirectory& operator=(const ModelDataDirectory&) = delete;
  ~ModelDataDirectory() {
    use("");
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
  }

  /// Writes a file at a path below the directory.
  void write(const std::string& name, const std::string& text) {
    const std::filesystem::path path = m_path / name;
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << text;
  }
  /// Loads the model data with this directory.
  void load() { use(m_path.string()); }
  std::string path(const std::string& name = {}) const { return (m_path / name).string(); }

  static void use(const std::string& directory) {
    if (directory.empty()) {
      unsetenv("KVX_MODEL_DATA");
    } else {
      setenv("KVX_MODEL_DATA", directory.c_str(), 1);
    }
    kvxm::reloadModelData();
  }

 private:
  std::filesystem::path m_path;
};
