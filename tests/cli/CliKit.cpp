#include "tests/cli/CliKit.h"

#include <sys/wait.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

#include "tests/kit/Captured.h"

TemporaryDirectory::TemporaryDirectory() {
  std::string name = (std::filesystem::temp_directory_path() / "kvx_cli_XXXXXX").string();
  m_path = mkdtemp(name.data());
}

TemporaryDirectory::~TemporaryDirectory() {
  std::error_code ignored;
  std::filesystem::remove_all(m_path, ignored);
}

std::string TemporaryDirectory::write(const std::string& name, const std::string& text) const {
  std::ofstream(path(name), std::ios::binary) << text;
  return path(name);
}

std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

ProgramRun runKvx(const std::string& arguments, const std::string& environment) {
  const TemporaryDirectory directory;
  const std::string command =
      environment + " '" KVX_PROGRAM "' " + arguments + " 2>'" + directory.path("err") + "'";
  const bool hasTarget = arguments.find(" >") != std::string::npos;
  const int status = std::system((command + (hasTarget ? "" : " >'" + directory.path("out") + "'")).c_str());
  return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, readFile(directory.path("out")),
          readFile(directory.path("err"))};
}

SheetResult estimateText(const std::string& sheet, const std::vector<std::string>& overrides) {
  const TemporaryDirectory directory;
  const std::string path = directory.write("sheet", sheet);
  const Captured engineOutput;
  kvx::Diagnostics diagnostics;
  SheetResult result{kvx::estimateDesign({path, overrides, std::nullopt, false}, diagnostics), ""};
  std::ostringstream mistakes;
  diagnostics.print(mistakes);
  result.mistakes = mistakes.str();
  for (std::size_t at; (at = result.mistakes.find(path)) != std::string::npos;)
    result.mistakes.replace(at, path.size(), "sheet");
  return result;
}
