#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "clients/cli/EstimateCommand.h"

/// A directory that goes with its test.
class TemporaryDirectory {
 public:
  TemporaryDirectory();
  ~TemporaryDirectory();
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

  std::string path(const std::string& name) const { return (m_path / name).string(); }
  /// Writes a file; returns its path.
  std::string write(const std::string& name, const std::string& text) const;

 private:
  std::filesystem::path m_path;
};

/// What a run of the program left.
struct ProgramRun {
  int status = -1;
  std::string output, errors;
};

/// Runs `kvx` with arguments as a shell would take them; `environment` stands in front of the command.
ProgramRun runKvx(const std::string& arguments, const std::string& environment = "");

std::string readFile(const std::string& path);
std::vector<std::string> linesOf(const std::string& text);

/// The estimate of a sheet that is given as text, and the mistakes in it with "sheet" for the file's name.
struct SheetResult {
  std::optional<kvx::Estimate> estimate;
  std::string mistakes;
};
SheetResult estimateText(const std::string& sheet, const std::vector<std::string>& overrides = {});

/// The head that a sheet needs.
inline const std::string SheetHead = "part = \"AK1020-VSVA1024-2-MP-E-S\"\nprocess = \"Typical\"\n";
