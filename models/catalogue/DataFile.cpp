#include "models/catalogue/DataFile.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <system_error>

#include "models/catalogue/EmbeddedData.h"
#include "models/common/KVXMHelperUtils.h"

namespace kvxm {
namespace {

namespace fs = std::filesystem;

constexpr std::uintmax_t maxFileBytes = 16u << 20;

struct KnownFile {
  std::string_view directory;
  std::string_view name;
  DataKind kind;
};

constexpr std::array knownFiles{
    KnownFile{"tarvek", "families.csv", DataKind::Families},
    KnownFile{"tarvek", "devices.csv", DataKind::Devices},
    KnownFile{"tarvek", "resources.csv", DataKind::Resources},
    KnownFile{"tarvek", "supplies.csv", DataKind::Supplies},
    KnownFile{"tarvek", "leakage.csv", DataKind::Leakage},
    KnownFile{"tarvek", "packages.csv", DataKind::Packages},
    KnownFile{"tarvek", "parts.csv", DataKind::Parts},
    KnownFile{"tarvek", "coefficients.toml", DataKind::Coefficients},
    KnownFile{"tarvek", "io_standards.csv", DataKind::IoStandards},
    KnownFile{"morlan", "families.csv", DataKind::Families},
    KnownFile{"morlan", "devices.csv", DataKind::Devices},
    KnownFile{"morlan", "resources.csv", DataKind::Resources},
    KnownFile{"morlan", "supplies.csv", DataKind::Supplies},
    KnownFile{"morlan", "leakage.csv", DataKind::Leakage},
    KnownFile{"morlan", "packages.csv", DataKind::Packages},
    KnownFile{"morlan", "parts.csv", DataKind::Parts},
    KnownFile{"morlan", "coefficients.toml", DataKind::Coefficients},
    KnownFile{"morlan", "io_standards.csv", DataKind::IoStandards},
    KnownFile{"som", "modules.csv", DataKind::Modules},
    KnownFile{"som", "resources.csv", DataKind::Resources},
    KnownFile{"som", "regulators.csv", DataKind::BoardRegulators},
    KnownFile{"som", "consumers.csv", DataKind::BoardConsumers},
    KnownFile{"common", "parameters.csv", DataKind::Parameters},
    KnownFile{"common", "aliases.csv", DataKind::Aliases},
};

std::string line(const DataFile& file, int number, std::string_view key, std::string_view what,
                 std::string_view expected) {
  std::string text = file.path;
  if (number > 0) text.append(":").append(std::to_string(number));
  text += ": ";
  if (!key.empty()) text.append(key) += ": ";
  text.append(what);
  if (!expected.empty()) text.append("; ").append(expected);
  return text;
}

void readText(DataFile& file, Problems& problems) {
  static constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
  std::error_code failure;
  if (!fs::is_regular_file(file.path, failure)) {
    return problems.error(file, 0, {}, "not a regular file", "expected a text file");
  }
  const std::uintmax_t size = fs::file_size(file.path, failure);
  if (!failure && size > maxFileBytes) {
    return problems.error(file, 0, {}, "larger than 16 MB", "expected a text file of at most 16 MB");
  }
  std::ifstream stream(file.path, std::ios::binary);
  if (stream) file.text.assign(std::istreambuf_iterator<char>(stream), {});
  if (!stream || stream.bad()) {
    file.text.clear();
    return problems.error(file, 0, {}, "cannot be read", "expected a readable text file");
  }
  if (file.text.starts_with(byteOrderMark)) file.text.erase(0, byteOrderMark.size());
  if (!KVXMHelperUtils::isText(file.text)) {
    file.text.clear();
    return problems.error(file, 0, {}, "not a text file", "expected UTF-8 text");
  }
  if (file.text.find_first_not_of(" \t\r\n") == std::string::npos) {
    problems.error(file, 0, {}, "empty", "expected data; remove the file if it has none");
  }
}

const KnownFile* findKnown(std::string_view relativePath) {
  const std::size_t slash = relativePath.find('/');
  if (slash == std::string_view::npos) return nullptr;
  for (const KnownFile& known : knownFiles) {
    if (relativePath.substr(0, slash) == known.directory && relativePath.substr(slash + 1) == known.name) {
      return &known;
    }
  }
  return nullptr;
}

/// True for the names that only a data file would have; notes and editors' leavings are not our business.
bool looksLikeData(const fs::path& path) {
  const std::string name = path.filename().string();
  return !name.starts_with('.') && (path.extension() == ".csv" || path.extension() == ".toml");
}

std::string knownNames() {
  std::string names = "expected one of";
  for (const KnownFile& known : knownFiles) {
    names.append(names.back() == 'f' ? " " : ", ").append(known.directory).append("/").append(known.name);
  }
  return names;
}

}  // namespace

void Problems::error(const DataFile& file, int number, std::string_view key, std::string_view what,
                     std::string_view expected) {
  errors.push_back(line(file, number, key, what, expected));
}

void Problems::warning(const DataFile& file, int number, std::string_view key, std::string_view what,
                       std::string_view expected) {
  warnings.push_back(line(file, number, key, what, expected));
}

std::string quoted(std::string_view text) {
  std::string result;
  result.reserve(text.size() + 2);
  return result.append(1, '"').append(text).append(1, '"');
}

std::vector<DataFile> builtInDataFiles() {
  std::vector<DataFile> files;
  for (const EmbeddedFile& embedded : embeddedFiles()) {
    const KnownFile* known = findKnown(embedded.path);
    if (!known) continue;
    files.push_back({known->kind, std::string(known->directory), "models/data/" + std::string(embedded.path),
                     std::string(embedded.text), false});
  }
  return files;
}

std::vector<DataFile> readDataDirectory(const std::string& directory, Problems& problems) {
  std::vector<DataFile> files;
  DataFile root;
  root.path = directory;
  std::error_code failure;
  if (!fs::exists(directory, failure)) {
    problems.error(root, 0, "KVX_MODEL_DATA", "no such directory", "expected a directory with model data");
    return files;
  }
  if (!fs::is_directory(directory, failure)) {
    problems.error(root, 0, "KVX_MODEL_DATA", "not a directory", "expected a directory with model data");
    return files;
  }
  std::vector<fs::path> paths;
  fs::recursive_directory_iterator entry(directory, fs::directory_options::follow_directory_symlink, failure);
  for (; !failure && entry != fs::recursive_directory_iterator(); entry.increment(failure)) {
    if (entry.depth() > 1) entry.disable_recursion_pending();
    if (looksLikeData(entry->path())) paths.push_back(entry->path());
  }
  if (failure) {
    problems.error(root, 0, "KVX_MODEL_DATA", "cannot be read", "expected a readable directory");
  }
  std::sort(paths.begin(), paths.end());
  for (const fs::path& path : paths) {
    DataFile file;
    file.path = path.string();
    file.isUser = true;
    const KnownFile* known = findKnown(path.lexically_relative(directory).generic_string());
    if (!known) {
      problems.error(file, 0, {}, "not the name of a data file", knownNames());
      continue;
    }
    file.kind = known->kind;
    file.directory = known->directory;
    readText(file, problems);
    if (!file.text.empty()) files.push_back(std::move(file));
  }
  if (files.empty() && problems.errors.empty()) {
    problems.error(root, 0, "KVX_MODEL_DATA", "no data file in it", knownNames());
  }
  return files;
}

std::string_view nearestName(std::string_view name, const std::vector<std::string_view>& candidates) {
  std::string_view nearest;
  std::size_t best = name.size() / 3 + 2;  // a third of the letters wrong is no misspelling any more
  std::vector<std::size_t> row;
  for (const std::string_view candidate : candidates) {
    if (candidate.size() > name.size() + best || name.size() > 64) continue;
    row.resize(candidate.size() + 1);
    for (std::size_t j = 0; j < row.size(); ++j) row[j] = j;
    for (std::size_t i = 1; i <= name.size(); ++i) {
      std::size_t diagonal = row[0]++;
      for (std::size_t j = 1; j < row.size(); ++j) {
        const std::size_t replaced = diagonal + (name[i - 1] == candidate[j - 1] ? 0 : 1);
        diagonal = row[j];
        row[j] = std::min({row[j] + 1, row[j - 1] + 1, replaced});
      }
    }
    if (row.back() < best) {
      best = row.back();
      nearest = candidate;
    }
  }
  return nearest;
}

std::string expectedOneOf(std::string_view name, const std::vector<std::string_view>& candidates) {
  constexpr std::size_t longestList = 16;
  const std::string_view nearest = nearestName(name, candidates);
  if (!nearest.empty()) return "did you mean " + quoted(nearest) + "?";
  if (candidates.empty()) return "expected a name that is defined";
  std::string text = "expected one of";
  const std::size_t count = std::min(candidates.size(), longestList);
  for (std::size_t i = 0; i < count; ++i) text.append(i == 0 ? " " : ", ").append(candidates[i]);
  return count < candidates.size() ? text + ", ..." : text;
}

}  // namespace kvxm
