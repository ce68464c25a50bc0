// The code that a document shows is code that is compiled: a fenced block whose opening line names a file is
// that file to the letter, and one that names "part of" a file stands in it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <set>

namespace {

const std::string root = KVX_SOURCE_DIR "/";

std::string contentsOf(const std::string& path) {
  std::ifstream stream(root + path, std::ios::binary);
  EXPECT_TRUE(stream) << path << " cannot be read";
  return {std::istreambuf_iterator<char>(stream), {}};
}

struct Block {
  std::string file;
  bool isPart = false;
  std::string text;
};

/// The blocks of a document that name a file.
std::vector<Block> blocksOf(const std::string& document) {
  const std::string partOf = "part of ";
  std::vector<Block> blocks;
  std::istringstream lines(contentsOf(document));
  for (std::string line; std::getline(lines, line);) {
    if (!line.starts_with("```")) continue;
    const std::size_t blank = line.find(' ');
    Block block;
    if (blank != std::string::npos) block.file = line.substr(blank + 1);
    block.isPart = block.file.starts_with(partOf);
    if (block.isPart) block.file.erase(0, partOf.size());
    while (std::getline(lines, line) && line != "```") block.text += line + '\n';
    if (!block.file.empty()) blocks.push_back(std::move(block));
  }
  return blocks;
}

TEST(NewTabDocument, ShowsTheCodeThatIsCompiled) {
  for (const Block& block : blocksOf("docs/new-tab.md")) {
    if (block.isPart) {
      EXPECT_THAT(contentsOf(block.file), testing::HasSubstr(block.text));
    } else {
      EXPECT_EQ(block.text, contentsOf(block.file)) << "docs/new-tab.md shows another " << block.file;
    }
  }
}

TEST(NewTabDocument, ShowsEveryFileOfTheTab) {
  std::set<std::string> shown, files;
  for (const Block& block : blocksOf("docs/new-tab.md")) shown.insert(block.file);
  for (const auto& entry : std::filesystem::directory_iterator(root + "tests/docs/new_tab"))
    files.insert("tests/docs/new_tab/" + entry.path().filename().string());
  EXPECT_FALSE(files.empty());
  for (const std::string& file : files) EXPECT_EQ(shown.count(file), 1u) << file << " is not in the document";
}

}  // namespace
