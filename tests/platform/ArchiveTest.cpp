// What is packed comes back, the same files give the same bytes, and no changed byte passes for a whole file.

#include <sys/stat.h>

#include <random>

#include "engine/base/project/KVXEZip.h"
#include "platform/wyr_common/NDUZip.h"
#include "tests/kit/ProjectDirectory.h"
#include "tests/kit/ThrownText.h"
#include "tests/platform/FullDisk.h"

namespace fs = std::filesystem;

using ::testing::HasSubstr;

namespace {

using Files = std::map<std::string, std::string>;

void writeFiles(const fs::path& directory, const Files& files) {
  for (const auto& [name, content] : files) {
    fs::create_directories((directory / name).parent_path());
    ProjectDirectory::write(directory / name, content);
  }
}

Files filesIn(const fs::path& directory) {
  Files files;
  for (const auto& entry : fs::recursive_directory_iterator(directory))
    if (entry.is_regular_file())
      files[entry.path().lexically_relative(directory).string()] = ProjectDirectory::read(entry.path());
  return files;
}

void pack(const std::string& directory, const std::string& archive, const std::string& prefix = "") {
  NDUZip::compressDir(NDUFile(archive), directory, prefix, NDUZip::ZIP_OPTIONS(64));
  NDUZip::attachDigest(NDUFile(archive));
}

void unpack(const std::string& archive, const std::string& directory) {
  NDUZip::uncompress(NDUFile(archive), directory, NDUZip::UNZIP_OPTIONS(1), nullptr);
}

int integrityOf(const std::string& path) {
  return NDUZip::checkIntegrity(NDUFile(path));
}

std::string noise(std::size_t count) {
  std::mt19937 random(3);
  std::string bytes(count, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  return bytes;
}

const Files someFiles = {
    {"kvx.xml", "<KVX/>"},
    {"versions/topVersion/version.xml", std::string(300'000, 'x')},
    {"empty", ""},
    {"with blank, \"quote\" & 'more'", "1"},
    {"\u00fc\u4e2d/\U0001F600", noise(200'000)},
    {"..hidden/a..b", "dots are no way out by themselves"},
};

class Archive : public ::testing::Test {
 protected:
  Archive() { fs::create_directory("out"); }

  ProjectDirectory m_directory;
};

TEST_F(Archive, BringsBackWhatWasPacked) {
  writeFiles("in", someFiles);
  for (const std::string directory : {"in", "in/", "./in", "./in/."}) {
    pack(directory, "a.zip");
    EXPECT_EQ(integrityOf("a.zip"), 0);
    unpack("a.zip", "out");
    EXPECT_TRUE(filesIn("out") == someFiles) << directory;
    fs::remove_all("out");
    fs::create_directory("out");
  }
  pack("in", "a.zip", "deep/er");
  unpack("a.zip", "out");
  EXPECT_TRUE(filesIn("out/deep/er") == someFiles);
}

TEST_F(Archive, OfTheSameFilesHasTheSameBytes) {
  writeFiles("first", someFiles);
  for (auto file = someFiles.rbegin(); file != someFiles.rend(); ++file) writeFiles("second", {*file});
  for (const auto& entry : fs::recursive_directory_iterator("second"))
    fs::last_write_time(entry, fs::file_time_type::min() + std::chrono::years(30));
  pack("first", "1.zip");
  pack("second", "2.zip");
  EXPECT_TRUE(ProjectDirectory::read("1.zip") == ProjectDirectory::read("2.zip"));
  std::vector<std::string> names;
  KVXEZip::getPathsInZip("1.zip", names);
  EXPECT_TRUE(names.size() == someFiles.size() && std::is_sorted(names.begin(), names.end()))
      << "in whatever order the file system lists them";
}

TEST_F(Archive, WithAnyByteChangedOrMissingIsNotWhole) {
  writeFiles("in", {{"kvx.xml", "<KVX/>"}});
  pack("in", "a.zip");
  const std::string whole = ProjectDirectory::read("a.zip");
  std::string bytes = whole;
  for (std::size_t at = 0; at < whole.size(); ++at)
    for (const char change : {'\x01', '\x20'}) {  // the latter: another case of a letter
      bytes[at] = static_cast<char>(whole[at] ^ change);
      ProjectDirectory::write("b.zip", bytes);
      EXPECT_NE(integrityOf("b.zip"), 0) << "byte " << at;
      bytes[at] = whole[at];
    }
  for (std::size_t length = 0; length < whole.size(); ++length) {
    ProjectDirectory::write("b.zip", whole.substr(0, length));
    EXPECT_NE(integrityOf("b.zip"), 0) << length << " bytes";
  }
  for (const std::string& longer : {whole + '\0', whole + '\n', '\0' + whole, whole + whole}) {
    ProjectDirectory::write("b.zip", longer);
    EXPECT_NE(integrityOf("b.zip"), 0);
  }
}

TEST_F(Archive, ThatCannotBeReadIsNotWhole) {
  ASSERT_EQ(mkfifo("pipe", 0600), 0);
  for (const std::string path : {"", "missing", ".", "pipe", "/dev/zero", "missing/a.zip"})
    EXPECT_NE(integrityOf(path), 0) << path;
}

TEST_F(Archive, TellsWhatIsInItsWay) {
  writeFiles("in", {{"a/b", "new"}});
  EXPECT_THAT(thrownBy([] { pack("missing", "a.zip"); }), HasSubstr("missing: No such file"));
  EXPECT_THAT(thrownBy([] { pack("in", "missing/a.zip"); }), HasSubstr("missing/a.zip: No such file"));
  EXPECT_THAT(thrownBy([] { pack("in", "out"); }), HasSubstr("out: Is a directory"));
  EXPECT_NE(thrownBy([] { NDUZip::attachDigest(NDUFile("in/a/b")); }), "");
  EXPECT_NE(thrownBy([] { NDUZip::attachDigest(NDUFile("missing")); }), "");

  pack("in", "a.zip");
  EXPECT_NE(thrownBy([] { NDUZip::attachDigest(NDUFile("a.zip")); }), "") << "it has one already";
  EXPECT_EQ(integrityOf("a.zip"), 0);
  writeFiles("out", {{"a/b", "old"}});
  EXPECT_THAT(thrownBy([] { unpack("a.zip", "out"); }), HasSubstr("out/a/b: File exists"));
  EXPECT_EQ(ProjectDirectory::read("out/a/b"), "old");
  fs::remove("out/a/b");
  ProjectDirectory::write("outside", "old");
  fs::create_symlink("../../outside", "out/a/b");
  EXPECT_NE(thrownBy([] { unpack("a.zip", "out"); }), "") << "a link is not followed";
  EXPECT_EQ(ProjectDirectory::read("outside"), "old");
  fs::remove_all("out/a");
  ProjectDirectory::write("out/a", "a file");
  EXPECT_THAT(thrownBy([] { unpack("a.zip", "out"); }), HasSubstr("Not a directory"));
}

TEST_F(Archive, OnAFullDiskIsNoSuccess) {
  writeFiles("in", {{"kvx.xml", noise(150'000)}, {"small", "1"}});
  pack("in", "a.zip");
  const std::size_t size = fs::file_size("a.zip");
  for (const std::size_t room : {std::size_t{0}, std::size_t{10}, std::size_t{4096}, std::size_t{100'000},
                                 size - 300, size - 77, size - 76, size - 1})
    withRoomFor(room, [&] {
      EXPECT_THAT(thrownBy([] { pack("in", "b.zip"); }), HasSubstr("b.zip: File too large")) << room;
    });
  withRoomFor(size, [] { EXPECT_EQ(thrownBy([] { pack("in", "b.zip"); }), ""); });
  EXPECT_EQ(integrityOf("b.zip"), 0);
  withRoomFor(100'000, [] {
    EXPECT_THAT(thrownBy([] { unpack("a.zip", "out"); }), HasSubstr("out/kvx.xml: File too large"));
  });
}

}  // namespace
