// Archives made to do harm, each with a valid digest: anybody can compute one. All of them are refused before
// a file is written, but for lies that only unpacking shows.

#include <sys/stat.h>

#include "platform/wyr_common/ArchiveLimits.h"
#include "platform/wyr_common/NDUZip.h"
#include "tests/kit/ForgedZip.h"
#include "tests/kit/ProjectDirectory.h"
#include "tests/kit/ThrownText.h"

namespace fs = std::filesystem;

using ::testing::HasSubstr;

namespace {

constexpr std::uint16_t Deflated = 8;
constexpr std::uint32_t MiB = 1 << 20;

class HostileArchive : public ::testing::Test {
 protected:
  HostileArchive() { fs::create_directories("deep/out"); }

  /// What the archive is refused with; nothing is written but, perhaps, the file of that name.
  std::string refusal(const ForgedZip& archive, const std::string& written = "") {
    ProjectDirectory::write("a.kvx", archive.bytes());
    NDUZip::attachDigest(NDUFile("a.kvx"));
    EXPECT_EQ(NDUZip::checkIntegrity(NDUFile("a.kvx")), 0);
    const std::string message = unpack();
    for (const std::string& name : m_directory.list("deep/out")) EXPECT_EQ(name, written) << message;
    EXPECT_EQ(m_directory.list("deep"), std::vector<std::string>{"out"}) << message;
    EXPECT_EQ(m_directory.list(), (std::vector<std::string>{"a.kvx", "deep"})) << message;
    return message;
  }
  static std::string unpack() {
    return thrownBy(
        [] { NDUZip::uncompress(NDUFile("a.kvx"), "deep/out", NDUZip::UNZIP_OPTIONS(1), nullptr); });
  }
  /// Of an archive whose second entry it is.
  std::string refusal(const ForgedZip::Entry& entry) {
    return refusal(ForgedZip{{{.name = "first"}, entry}});
  }

  static ForgedZip::Entry withMode(std::uint32_t mode) {
    return {.name = "a", .madeBy = 0x0300, .attributes = mode << 16};
  }

  ProjectDirectory m_directory;
};

TEST_F(HostileArchive, LeavesItsDirectoryByNoName) {
  const struct {
    std::string name, reason;
  } cases[] = {
      {"../x", "'../x' leaves the directory"},
      {"a/../../x", "'a/../../x' leaves the directory"},
      {"a/..", "leaves the directory"},
      {"/x", "'/x' has an absolute name"},
      {"..\\x", "has a backslash in its name"},
      {"C:\\x", "has a backslash in its name"},
      {"", "has no name"},
      {std::string("a\0b", 3), "'a?b' has a NUL character in its name"},
      {"a\x1b[2J/../..", "'a?[2J/../..' leaves the directory"},
      {"./x", "is not a file"},
      {"a//x", "is not a file"},
      {"a/", "'a/' is not a file"},
      {std::string(256, 'n'), "a name of 256 bytes"},
      {std::string(60'000, 'n'), "a name of 60000 bytes"},
      {std::string(200, 'n') + "/../..", "nnn...' leaves the directory"},
  };
  for (const auto& [name, reason] : cases) EXPECT_THAT(refusal({.name = name}), HasSubstr(reason)) << name;
}

TEST_F(HostileArchive, HasNothingButFilesThatCanBeRead) {
  const struct {
    ForgedZip::Entry entry;
    const char* reason;
  } cases[] = {
      {withMode(S_IFLNK | 0777), "'a' is not a plain file"},
      {withMode(S_IFDIR | 0777), "'a' is not a plain file"},
      {withMode(S_IFCHR | 0666), "'a' is not a plain file"},
      {{.name = "a", .flags = 1}, "'a' is encrypted"},
      {{.name = "a", .method = 12}, "'a' is packed with method 12, which is not known"},
      {{.name = "first"}, "'first' is there twice"},
      {{.name = "first/second"}, "'first' is a file and a directory"},
  };
  for (const auto& [entry, reason] : cases) EXPECT_THAT(refusal(entry), HasSubstr(reason));
  EXPECT_THAT(refusal(ForgedZip{{{.name = "a/b/c"}, {.name = "a/b-"}, {.name = "a/b"}}}),
              HasSubstr("'a/b' is a file and a directory"))
      << "whatever comes between the two";
}

TEST_F(HostileArchive, AsksForNoMoreThanItMay) {
  ForgedZip many{std::vector<ForgedZip::Entry>(100'000)};
  for (std::size_t i = 0; i < many.entries.size(); ++i) many.entries[i].name = std::to_string(i);
  EXPECT_THAT(refusal(many), HasSubstr("more than 1000 entries"));
  many.entries.resize(ArchiveLimits::maxEntries + 1);
  EXPECT_THAT(refusal(many), HasSubstr("more than 1000 entries"));
  many.entries.resize(3);
  for (ForgedZip::Entry& entry : many.entries) entry.size = 60 * MiB;
  EXPECT_THAT(refusal(many), HasSubstr("its entries have 188743680 bytes"));

  EXPECT_THAT(refusal({.name = "a", .method = Deflated, .size = 64 * MiB + 1}),
              HasSubstr("'a' has 67108865 bytes"));
  EXPECT_THAT(refusal({.name = "a", .method = Deflated, .size = 0xFFFFFFFE}),
              HasSubstr("'a' has 4294967294 bytes"));
  EXPECT_THAT(refusal({.name = "a", .packed = std::string(2 * MiB, 'x'), .method = Deflated, .size = MiB}),
              HasSubstr("'a' has more bytes than the archive says"));

  fs::resize_file("a.kvx", ArchiveLimits::maxArchiveSize + 1);
  EXPECT_NE(NDUZip::checkIntegrity(NDUFile("a.kvx")), 0);
  EXPECT_THAT(unpack(), HasSubstr("it is larger than"));
}

TEST_F(HostileArchive, HasADirectoryThatHoldsTogether) {
  const struct {
    const char* label;
    int moreEntries;
    std::size_t missingDirectory;
  } cases[] = {
      {"counts one too few", -1, 0}, {"counts none", -2, 0},
      {"counts one too many", 1, 0}, {"counts all that can be counted", 65533, 0},
      {"a name cut short", 0, 3},    {"an entry cut short", 0, 20},
      {"an entry missing", 0, 52},
  };
  for (const auto& [label, moreEntries, missingDirectory] : cases) {
    const ForgedZip archive{{{.name = "first"}, {.name = "second"}}, moreEntries, missingDirectory};
    EXPECT_NE(refusal(archive), "") << label;
  }
  EXPECT_EQ(refusal(ForgedZip{}), "") << "nothing to unpack is no fault";
}

/// What is written before a lie shows is no more than the directory said.
TEST_F(HostileArchive, IsFoundOutWhileItIsUnpacked) {
  const std::string zeros = ForgedZip::deflatedZeros(2 * MiB);
  const struct {
    const char* label;
    ForgedZip::Entry entry;
  } cases[] = {
      {"another checksum", {.name = "a", .size = 4, .crc = 1}},
      {"another length", {.name = "a", .size = 3}},
      {"no deflate stream", {.name = "a", .packed = "\x07gibberish", .method = Deflated, .size = 9}},
      {"cut short", {.name = "a", .packed = zeros.substr(0, 900), .method = Deflated, .size = 2 * MiB}},
      {"less than said", {.name = "a", .packed = zeros, .method = Deflated, .size = 3 * MiB}},
      {"more than said", {.name = "a", .packed = zeros, .method = Deflated, .size = MiB}},
  };
  for (const auto& [label, entry] : cases) {
    EXPECT_THAT(refusal(ForgedZip{{entry}}, "a"), HasSubstr("'a'")) << label;
    EXPECT_LE(ProjectDirectory::read("deep/out/a").size(), *entry.size) << label;
    fs::remove("deep/out/a");
  }
}

}  // namespace
