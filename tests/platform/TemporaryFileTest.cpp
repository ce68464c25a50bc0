// A file takes another's place in one step or not at all, and what a dead process left is cleared away.

#include "platform/wyr_common/TemporaryFile.h"

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "tests/kit/ProjectDirectory.h"
#include "tests/kit/ThrownText.h"

namespace fs = std::filesystem;

using ::testing::HasSubstr;

namespace {

class Temporary : public ::testing::Test {
 protected:
  using Names = std::vector<std::string>;

  ProjectDirectory m_directory;
};

TEST_F(Temporary, TakesTheTargetsPlaceOrGoes) {
  ProjectDirectory::write("a.kvx", "old");
  chmod("a.kvx", 0640);
  {
    const TemporaryFile left("a.kvx");
    ProjectDirectory::write(left.path(), "half");
    EXPECT_EQ(m_directory.list().size(), 2u);
  }
  EXPECT_EQ(m_directory.list(), Names{"a.kvx"});
  EXPECT_EQ(ProjectDirectory::read("a.kvx"), "old");
  {
    TemporaryFile file("a.kvx"), other("a.kvx");
    EXPECT_NE(file.path(), other.path());
    ProjectDirectory::write(file.path(), "new");
    file.flush();
    file.replaceTarget();
  }
  EXPECT_EQ(m_directory.list(), Names{"a.kvx"});
  EXPECT_EQ(ProjectDirectory::read("a.kvx"), "new");
  struct stat status {};
  ASSERT_EQ(stat("a.kvx", &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0640u);
}

TEST_F(Temporary, StandsBesideTargetsOfAnyName) {
  fs::create_directory("sub dir");
  const std::string names[] = {"a b.kvx",
                               "sub dir/\"q\" 'r' $x.kvx",
                               "./\u00fc\u4e2d.kvx",
                               "noextension",
                               "%s%n",
                               std::string(251, 'n') + ".kvx",
                               (m_directory.path() / "abs.kvx").string()};
  for (const std::string& name : names) {
    TemporaryFile file(name);
    EXPECT_EQ(fs::absolute(file.path()).lexically_normal().parent_path(),
              fs::absolute(name).lexically_normal().parent_path());
    const std::string own = fs::path(file.path()).filename();
    EXPECT_TRUE(own.starts_with("." + fs::path(name).filename().string().substr(0, 200)) &&
                own.ends_with(".tmp"))
        << own;
    ProjectDirectory::write(file.path(), "new");
    file.flush();
    file.replaceTarget();
    EXPECT_EQ(ProjectDirectory::read(name), "new") << name;
  }
}

TEST_F(Temporary, TellsOfPlacesThatTakeNone) {
  ProjectDirectory::write("file", "");
  EXPECT_THAT(thrownBy([] { TemporaryFile("missing/a.kvx"); }), HasSubstr("missing: No such file"));
  EXPECT_THAT(thrownBy([] { TemporaryFile("file/a.kvx"); }), HasSubstr("file: Not a directory"));
  fs::create_directory("directory.kvx");
  TemporaryFile file("directory.kvx");
  EXPECT_THAT(thrownBy([&] { file.replaceTarget(); }), HasSubstr("directory.kvx: Is a directory"));
}

TEST_F(Temporary, IsSweptWhenNobodyHoldsIt) {
  const Names others = {".a.kvx..tmp",   ".a.kvx.12345678901.tmp",
                        ".a.kvx.1x.tmp", ".a.kvx.7.tmp.tmp",
                        ".aa.kvx.1.tmp", "a.kvx.1.tmp",
                        "link"};
  for (const std::string& name : others) ProjectDirectory::write(name, "not of a.kvx");
  fs::create_symlink("link", ".a.kvx.5.tmp");
  ProjectDirectory::write(".a.kvx.31.tmp", "of a dead process");
  const std::size_t stay = others.size() + 1;

  const TemporaryFile held("a.kvx");
  int ready[2];
  ASSERT_EQ(pipe(ready), 0);
  const pid_t child = fork();
  if (child == 0) {
    const TemporaryFile own("a.kvx");
    close(ready[1]);
    pause();
  }
  close(ready[1]);
  char nothing;
  EXPECT_EQ(read(ready[0], &nothing, 1), 0);
  close(ready[0]);

  TemporaryFile::sweep("a.kvx");
  EXPECT_EQ(m_directory.list().size(), stay + 2) << "two live ones stay";
  EXPECT_FALSE(fs::exists(".a.kvx.31.tmp"));
  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  EXPECT_EQ(m_directory.list().size(), stay + 2);
  TemporaryFile::sweep("a.kvx");
  EXPECT_EQ(m_directory.list().size(), stay + 1);
  EXPECT_TRUE(fs::exists(held.path()));
  EXPECT_TRUE(fs::is_symlink(".a.kvx.5.tmp"));
  TemporaryFile::sweep("missing/a.kvx");
}

}  // namespace
