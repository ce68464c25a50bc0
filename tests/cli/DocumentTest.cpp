// The sheets in the documents work, and the documents name what there is.

#include <algorithm>
#include <nlohmann/json.hpp>

#include "clients/cli/DiffCommand.h"
#include "clients/cli/JsonEstimate.h"
#include "tests/cli/CliKit.h"

namespace {

/// The code blocks that follow a comment line of the document.
std::vector<std::string> blocksBehind(const std::string& document, const std::string& comment) {
  std::vector<std::string> blocks;
  for (std::size_t at = 0; (at = document.find(comment, at)) != std::string::npos; ++at) {
    const std::size_t begin = document.find('\n', document.find("```", at)) + 1;
    blocks.push_back(document.substr(begin, document.find("```", begin) - begin));
  }
  return blocks;
}

TEST(DesignSheetDocument, SheetsDoWhatItSays) {
  const std::string document = readFile(KVX_SOURCE_DIR "/docs/design-sheet.md");
  const auto sheets = blocksBehind(document, "<!-- sheet: estimates -->");
  EXPECT_EQ(sheets.size(), 4u);
  for (const std::string& sheet : sheets) EXPECT_EQ(estimateText(sheet).mistakes, "") << sheet;
  const auto wrong = blocksBehind(document, "<!-- sheet: mistakes -->");
  auto mistakes = blocksBehind(document, "<!-- mistakes -->");
  ASSERT_EQ(wrong.size(), 1u);
  ASSERT_EQ(mistakes.size(), 1u);
  for (std::size_t at; (at = mistakes[0].find("design.toml")) != std::string::npos;)
    mistakes[0].replace(at, 11, "sheet");
  EXPECT_EQ(estimateText(wrong[0]).mistakes, mistakes[0]);
}

TEST(Readme, ShowsWhatTheDemoPrints) {
  const auto shown = blocksBehind(readFile(KVX_SOURCE_DIR "/README.md"), "<!-- demo -->");
  ASSERT_EQ(shown.size(), 1u);
  EXPECT_EQ(runKvx("estimate " KVX_SOURCE_DIR "/examples/video_pipeline.toml").output, shown[0]);
}

/// The names of all members in the order of the text, "rails[].name".
void collectMembers(const nlohmann::json& value, const std::string& path, std::vector<std::string>& members) {
  if (value.is_array() && !value.empty()) return collectMembers(value[0], path + "[]", members);
  if (!value.is_object()) return members.push_back(path);
  for (const auto& [key, child] : value.items())
    collectMembers(child, path.empty() ? key : path + "." + key, members);
}

TEST(JsonDocument, NamesEveryMember) {
  kvx::Estimate full;
  full.budget = 1.0;
  full.blocks.emplace_back();
  full.rails.emplace_back();
  full.supplies.emplace_back();
  full.resources.emplace_back();
  full.components.emplace_back();
  full.messages.emplace_back();
  const kvx::DesignDifference difference{{kvx::Difference()}, {kvx::Difference()}};
  std::vector<std::string> members;
  collectMembers(nlohmann::json::parse(kvx::jsonEstimate(full)), "", members);
  collectMembers(nlohmann::json::parse(kvx::jsonDifference({}, difference)), "", members);
  const std::string document = readFile(KVX_SOURCE_DIR "/docs/json.md");
  for (const std::string& member : members) {
    const std::string last = member.substr(member.find_last_of('.') + 1);
    EXPECT_TRUE(document.find("`" + member + "`") != std::string::npos ||
                document.find("`" + last + "`") != std::string::npos)
        << member;
  }
}

}  // namespace
