#include "clients/cli/ConvertCommand.h"

#include <filesystem>
#include <stdexcept>

#include "clients/cli/BookEntries.h"
#include "clients/cli/Design.h"
#include "clients/cli/ProjectFile.h"
#include "clients/cli/ScratchDirectory.h"
#include "clients/cli/SheetReader.h"
#include "clients/cli/SheetWriter.h"
#include "clients/cli/Spelling.h"

namespace kvx {

namespace {

namespace fs = std::filesystem;

constexpr const char* StandardOutput = "-";

void checkRequest(const ConvertRequest& request, Diagnostics& diagnostics) {
  if (isProjectPath(request.source) == isProjectPath(request.target))
    return diagnostics.add(
        {request.target, 0},
        std::string("both files are ") + (isProjectPath(request.target) ? "projects" : "sheets"),
        "a project ends in \".kvx\", and one of the two has to be one");
  if (request.target == StandardOutput || request.isForced) return;
  std::error_code ignored;
  if (fs::symlink_status(request.target, ignored).type() != fs::file_type::not_found)
    diagnostics.add({request.target, 0}, "exists already", "give --force to replace it");
}

/// A name is the sheet's own: a project goes by that of its file.
void noteLostName(const Design& design, const ConvertRequest& request, Diagnostics& diagnostics) {
  const std::string name = fs::path(request.target).stem().string();
  if (design.name != name && design.name != fs::path(request.source).stem().string())
    diagnostics.note({request.source, 0}, "a project goes by the name of its file: " + inQuotes(design.name) +
                                              " becomes " + inQuotes(name));
}

/// Whether the design comes back from a project; if not, the diagnostics say where it fails. Its book is that
/// of such a project then.
bool isProjectOf(const Design& design, const ConvertRequest& request, Diagnostics& diagnostics) {
  const ScratchDirectory scratch;
  const std::string path = (scratch.path() / fs::path(request.target).filename()).string();
  const BookEntries entries = readEntries(*design.book);
  writeProject(path, diagnostics);
  const auto trial = loadDesign(path, {}, diagnostics);
  if (!trial) return false;
  const std::string difference = findDifference(entries, readEntries(*trial->book));
  if (!difference.empty())
    diagnostics.add({request.source, 0}, "a project cannot hold " + difference,
                    "change it in the sheet first");
  return difference.empty();
}

/// Whether the text is the design of the entries; if not, the diagnostics say where it fails.
bool isSameDesign(const std::string& text, const BookEntries& entries, const std::string& target,
                  Diagnostics& diagnostics) {
  const Sheet sheet = readSheetText(text, target, diagnostics);
  const auto design = diagnostics.isEmpty() ? loadSheet(sheet, diagnostics) : std::nullopt;
  if (!design) return false;
  const std::string difference = findDifference(entries, readEntries(*design->book));
  if (!difference.empty())
    diagnostics.add({target, 0}, "the sheet would not give the same " + difference,
                    "change it in the project first");
  return difference.empty();
}

/// The sheet of the design in the book; nothing for a design that no sheet can say.
std::optional<std::string> composeSheet(const Design& design, const ConvertRequest& request,
                                        Diagnostics& diagnostics) {
  std::string text;
  BookEntries entries;
  try {
    entries = readEntries(*design.book);
    text = writeSheetText(makeSheet(entries, request.source));
  } catch (const std::runtime_error& reason) {
    diagnostics.add({request.source, 0}, std::string("a sheet cannot hold ") + reason.what(),
                    "change it in the project first");
    return std::nullopt;
  }
  if (text.size() > LargestSheetBytes) {
    diagnostics.add({request.source, 0}, "the sheet would be larger than a sheet may be",
                    "16 MB is the limit");
    return std::nullopt;
  }
  return isSameDesign(text, entries, request.target, diagnostics) ? std::optional(text) : std::nullopt;
}

/// What a link names is the file to replace.
std::string behindLinks(const std::string& path) {
  std::error_code error;
  const fs::path file = fs::canonical(path, error);
  return error ? path : file.string();
}

}  // namespace

Outcome runConvert(const ConvertRequest& request, Diagnostics& diagnostics) {
  const Outcome refused{ExitStatus::BadInput, ""};
  checkRequest(request, diagnostics);
  if (!diagnostics.isEmpty()) return refused;
  const auto design = loadDesign(request.source, {}, diagnostics);
  if (!design) return refused;
  if (isProjectPath(request.target)) {
    if (!isProjectOf(*design, request, diagnostics)) return refused;
    noteLostName(*design, request, diagnostics);
    writeProject(request.target, diagnostics);
    return {};
  }
  const auto text = composeSheet(*design, request, diagnostics);
  if (!text) return refused;
  if (request.target == StandardOutput) return {ExitStatus::Success, *text};
  replaceFile(behindLinks(request.target), *text);
  return {};
}

}  // namespace kvx
