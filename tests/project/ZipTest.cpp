// Plain archives for tools: what goes in comes out, and stays where it was asked to be.

#include "engine/base/project/KVXEZip.h"
#include "platform/wyr_common/ArchiveLimits.h"
#include "tests/kit/ForgedZip.h"
#include "tests/kit/ProjectDirectory.h"

namespace fs = std::filesystem;

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

namespace {

std::vector<std::string> pathsIn(const std::string& archive) {
  std::vector<std::string> paths;
  KVXEZip().getPathsInZip(archive, paths);
  return paths;
}

TEST(Zip, PacksADirectoryAndBack) {
  const ProjectDirectory directory;
  KVXEZip zip;
  fs::create_directories("src/src/deep");
  EXPECT_FALSE(zip.kvxCompress("src", "a.zip") || fs::exists("a.zip")) << "no files";
  ProjectDirectory::write("src/src/deep/b", std::string(100'000, 'b'));
  ProjectDirectory::write("src/a", "");
  EXPECT_FALSE(zip.kvxCompress("", "a.zip") || zip.kvxCompress("src", "") || zip.kvxCompress("no", "a.zip"));
  for (const std::string& source :
       {std::string("src"), std::string("src/"), std::string("./src"), (directory.path() / "src").string()}) {
    ASSERT_TRUE(zip.kvxCompress(source, "a.zip")) << source;
    EXPECT_THAT(pathsIn("a.zip"), UnorderedElementsAre("a", "src/deep/b")) << source;
    ASSERT_TRUE(zip.kvxUncompress("a.zip", "new/target")) << source;
    EXPECT_EQ(ProjectDirectory::read("new/target/src/deep/b"), std::string(100'000, 'b'));
    EXPECT_TRUE(fs::exists("new/target/a"));
  }
  ProjectDirectory::write("src/own.zip", "");
  EXPECT_TRUE(zip.kvxCompress("src", "src/own.zip"));
  EXPECT_EQ(pathsIn("src/own.zip").size(), 2u) << "not itself";
  EXPECT_FALSE(zip.kvxCompress("src", "src/a/b.zip"));
  EXPECT_FALSE(zip.kvxUncompress("missing", "t") || zip.kvxUncompress("src/a", "t") ||
               zip.kvxUncompress("", "t") || zip.kvxUncompress("a.zip", ""));
  EXPECT_THAT(pathsIn("missing"), ElementsAre());
  EXPECT_THAT(pathsIn("src/a"), ElementsAre());
}

TEST(Zip, KeepsEntriesInTheTarget) {
  const std::string longest = std::string(200, 'd') + "/" + std::string(55, 'f');
  const struct {
    std::string name, path;
    bool isUnpacked;
  } cases[] = {
      {"a,b\\c/d", "a/b/c/d", true},      {longest + "tail", longest, true},
      {longest, longest, true},           {std::string("a\0b", 3), "a", true},
      {"a/../b", "a/../b", true},         {"../x", "../x", false},
      {"a,..\\..,x", "a/../../x", false}, {"/x", "x", false},
      {"link/x", "link/x", false},        {"linked", "linked", false},
      {"file/x", "file/x", false},
  };
  for (const auto& [name, path, isUnpacked] : cases) {
    const ProjectDirectory directory;
    ProjectDirectory::write("x", "old");
    fs::create_directory("target");
    fs::create_directory_symlink("..", "target/link");
    fs::create_symlink("../x", "target/linked");
    ProjectDirectory::write("target/file", "old");
    ProjectDirectory::write("a.zip", ForgedZip{{{.name = name}, {.name = "last"}}}.bytes());
    EXPECT_THAT(pathsIn("a.zip"), ElementsAre(path, "last"));
    EXPECT_EQ(KVXEZip().kvxUncompress("a.zip", "target"), isUnpacked) << name;
    EXPECT_EQ(ProjectDirectory::read("target/last"), "text") << "the others are unpacked: " << name;
    EXPECT_EQ(ProjectDirectory::read("x") + ProjectDirectory::read("target/file"), "oldold") << name;
    EXPECT_EQ(directory.list().size(), 3u) << name;
    const fs::path file = ("target" / fs::path(path)).lexically_normal();
    EXPECT_EQ(isUnpacked, fs::is_regular_file(file) && ProjectDirectory::read(file) == "text") << name;
  }
}

TEST(Zip, TellsOfDamageAndBoundsWhatItUnpacks) {
  ForgedZip many;
  for (int i = 0; i < 100'000; ++i) many.entries.push_back({.name = std::to_string(i)});
  const std::size_t size = 200u << 20;
  const ForgedZip::Entry bomb{
      .name = "bomb", .packed = ForgedZip::deflatedZeros(size), .method = 8, .size = std::uint32_t{size}};
  const struct {
    const char* label;
    std::string bytes;
  } cases[] = {
      {"wrong checksum", ForgedZip{{{.name = "a", .crc = 1}}}.bytes()},
      {"unknown method", ForgedZip{{{.name = "a", .method = 99}}}.bytes()},
      {"bzip2", ForgedZip{{{.name = "a", .method = 12}}}.bytes()},
      {"100,000 entries", many.bytes()},
      {"200 MiB", ForgedZip{{bomb}}.bytes()},
  };
  for (const auto& [label, bytes] : cases) {
    const ProjectDirectory directory;
    ProjectDirectory::write("a.zip", bytes);
    EXPECT_FALSE(KVXEZip().kvxUncompress("a.zip", "target")) << label;
    EXPECT_LE(directory.list("target").size(), ArchiveLimits::maxEntries) << label;
    std::error_code absent;
    const auto unpacked = fs::file_size("target/bomb", absent);
    EXPECT_TRUE(absent || unpacked <= ArchiveLimits::maxEntrySize) << label;
  }
}

}  // namespace
