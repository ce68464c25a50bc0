#pragma once

#include <string>

/// Names a file; nothing is opened.
class NDUFile {
 public:
  explicit NDUFile(std::string path) : m_path(std::move(path)) {}

  const std::string& path() const { return m_path; }

 private:
  std::string m_path;
};
