// The life of a project: what lies where, what is refused and with which words, and that no step of it costs
// the user what was saved before.

#include <fcntl.h>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "engine/base/project/KVXEPrjMgr.h"
#include "engine/base/project/KVXEProject.h"
#include "engine/base/tabs/KVXEClockTab.h"
#include "tests/kit/Captured.h"
#include "tests/kit/DeviceBook.h"
#include "tests/kit/InChild.h"
#include "tests/kit/Messages.h"
#include "tests/kit/ProjectDirectory.h"

namespace fs = std::filesystem;

using KVXEEnums::TabType;

namespace {

class Project : public ::testing::Test {
 protected:
  Project() { m_book.trim(4); }

  KVXECell* clockName(unsigned int row) {
    return m_book.book()
        ->getTable(TabType::CLOCK, &KVXEClockTab::m_ClockConfigTable)
        ->getCellAt(row, &KVXEClockTab::m_Name);
  }
  /// A project at the path with a clock of that name.
  void save(KVXEProject& project, const std::string& path, const std::string& clock) {
    m_book.edit(clockName(1), clock);
    ASSERT_TRUE(project.newProject(path)) << takeMessages();
    ASSERT_TRUE(project.saveProject("")) << takeMessages();
  }
  /// The name of the first clock in the file of that path, or what is wrong with the file.
  std::string savedClock(const std::string& path) {
    KVXEProject project;
    if (!project.openProject(path)) return takeMessages();
    const std::string name = textIn(clockName(1));
    project.closeProject();
    return name;
  }

  ProjectDirectory m_directory;
  DeviceBook m_book{KVXEPartSelection::m_arkeonArchName};
};

TEST_F(Project, IsAFileAndAStagingDirectory) {
  KVXEProject project;
  EXPECT_FALSE(project.isOpen());
  ASSERT_TRUE(project.newProject("deep/er/design 1.kvx"));
  EXPECT_TRUE(project.isOpen());
  EXPECT_EQ(project.getProjectPath(), "deep/er/design 1.kvx");
  EXPECT_EQ(project.getProjectFileName(), "design 1.kvx");
  EXPECT_EQ(project.getProjectName(), "design 1");
  EXPECT_FALSE(fs::exists("deep")) << "the first save makes the file";
  ASSERT_EQ(m_directory.staging().size(), 1u);
  ASSERT_TRUE(project.saveProject(""));
  EXPECT_EQ(m_directory.list("deep/er"), std::vector<std::string>{"design 1.kvx"});
  EXPECT_FALSE(project.getBuildInfo().empty());

  EXPECT_TRUE(project.closeProject());
  EXPECT_FALSE(project.isOpen());
  EXPECT_EQ(project.getProjectPath() + project.getProjectFileName() + project.getProjectName(), "");
  EXPECT_TRUE(m_directory.staging().empty());
  EXPECT_TRUE(project.closeProject()) << "nothing is there to be removed";
  EXPECT_FALSE(project.saveProject("")) << "there is no project";
  EXPECT_EQ(takeMessages(), "");
}

TEST_F(Project, RefusesWhatIsNoProject) {
  KVXEProject project;
  const std::string old = "a.kvx do not have a .kvx file extension.";
  struct Case {
    bool (KVXEProject::*operation)(const std::string&);
    std::string path, message;
  };
  EXPECT_FALSE(project.newProject("b.txt"));
  EXPECT_EQ(takeMessages(), "3  do not have a .kvx file extension.") << "there was no project before";
  ASSERT_TRUE(project.newProject("a.kvx"));
  for (const Case& refused : {
           Case{&KVXEProject::newProject, "", "3 Project path cannot be empty"},
           Case{&KVXEProject::openProject, "", "3 Project path cannot be empty"},
           Case{&KVXEProject::newProject, "b", "3 " + old},
           Case{&KVXEProject::openProject, "b.KVX", "3 " + old},
           Case{&KVXEProject::saveProject, "b.kvx.txt", "3 " + old},
           Case{&KVXEProject::saveProject, std::string("b\0.kvx", 6), "3 Project path holds a NUL character"},
       }) {
    EXPECT_FALSE((project.*refused.operation)(refused.path)) << refused.path;
    EXPECT_EQ(takeMessages(), refused.message);
    EXPECT_EQ(project.getProjectPath(), "a.kvx") << refused.path;
  }
  EXPECT_FALSE(project.openProject("missing.kvx"));
  EXPECT_EQ(takeMessages(), "3 missing.kvx do not exist.");
  EXPECT_EQ(project.getProjectPath(), "missing.kvx") << "the caller decides what becomes of it";
}

TEST_F(Project, OfAnotherInstanceIsNotOverwritten) {
  KVXEProject first, second;
  save(first, "a.kvx", "one");
  ASSERT_TRUE(second.openProject("a.kvx"));
  m_book.edit(clockName(1), std::string("two"));
  ASSERT_TRUE(second.saveProject(""));

  m_book.edit(clockName(1), std::string("three"));
  EXPECT_FALSE(first.saveProject(""));
  EXPECT_EQ(takeMessages(), "3 a.kvx replaced by another instance, save as a different project name.");
  EXPECT_TRUE(first.saveProject("b.kvx"));
  EXPECT_TRUE(first.saveProject("")) << "there the file is its own";
  EXPECT_EQ(takeMessages(), "");
  EXPECT_EQ(savedClock("a.kvx"), "two");
  EXPECT_EQ(savedClock("b.kvx"), "three");

  struct timespec older[2] = {{1'000'000'000, 0}, {1'000'000'000, 0}};
  ASSERT_EQ(utimensat(AT_FDCWD, "b.kvx", older, 0), 0);
  EXPECT_FALSE(first.saveProject("")) << "an older time is another one, too";
  takeMessages();
  fs::remove("b.kvx");
  EXPECT_TRUE(first.saveProject("")) << "no file, no conflict";
}

TEST_F(Project, SetsAFileAsideThatItDoesNotKnow) {
  const auto say = [](const std::string& name, const std::string& kept) {
    return "2 " + name + " was there before and had not been opened: it is kept as " + kept + ".";
  };
  KVXEProject project;
  ProjectDirectory::write("a.kvx", "no project");
  EXPECT_FALSE(project.openProject("a.kvx"));
  EXPECT_EQ(takeMessages(), "3 a.kvx failed during integrity check");
  EXPECT_TRUE(project.saveProject(""));
  EXPECT_EQ(takeMessages(), say("a.kvx", "a.kvx.orig"));
  EXPECT_TRUE(project.saveProject("")) << "now it does";
  EXPECT_EQ(takeMessages(), "");

  ProjectDirectory::write("b.kvx", "another");
  ProjectDirectory::write("b.kvx.orig", "and its own");
  EXPECT_TRUE(project.saveProject("b.kvx"));
  EXPECT_EQ(takeMessages(), say("b.kvx", "b.kvx.orig.2"));
  EXPECT_EQ(ProjectDirectory::read("a.kvx.orig"), "no project");
  EXPECT_EQ(ProjectDirectory::read("b.kvx.orig"), "and its own");
  EXPECT_EQ(ProjectDirectory::read("b.kvx.orig.2"), "another");
  project.closeProject();
  EXPECT_EQ(m_directory.list(),
            (std::vector<std::string>{".Kvx", "a.kvx", "a.kvx.orig", "b.kvx", "b.kvx.orig", "b.kvx.orig.2"}));
}

TEST_F(Project, SweepsWhatNobodyHolds) {
  const fs::path root = fs::path(".Kvx") / "projects";
  fs::create_directories(root / "kvx123" / "versions");
  fs::create_directories(root / "kvx45x");
  fs::create_directories(root / "kvx");
  fs::create_directory_symlink(m_directory.path(), root / "kvx9");
  ProjectDirectory::write(root / "kvx77", "a file");
  ProjectDirectory::write(".a.kvx.31.tmp", "half of a save");
  ProjectDirectory::write(".b.kvx.31.tmp", "of another project");
  auto held = std::make_unique<KVXEProject>();
  ASSERT_TRUE(held->newProject("b.kvx"));
  const pid_t child = fork();  // another process with a project of its own
  if (child == 0) {
    KVXEProject own;
    own.newProject("c.kvx");
    pause();
  }
  while (m_directory.staging().size() < 6) usleep(1000);  // kvx123 is gone, two are new
  KVXEProject project;
  ASSERT_TRUE(project.newProject("a.kvx"));
  const auto left = m_directory.staging();
  EXPECT_EQ(left.size(), 7u) << "three live ones, and four names that are no staging directories";
  EXPECT_EQ(std::count(left.begin(), left.end(), "kvx123"), 0);
  EXPECT_FALSE(fs::exists(".a.kvx.31.tmp"));

  kill(child, SIGKILL);
  waitpid(child, nullptr, 0);
  held.reset();  // never closed
  ASSERT_TRUE(project.closeProject());
  ASSERT_TRUE(project.newProject("a.kvx"));
  EXPECT_EQ(m_directory.staging().size(), 5u);
}

// What a damaged or hostile disk does.

TEST_F(Project, SurvivesADiskThatTakesNoMore) {
  KVXEProject project;
  save(project, "a.kvx", "one");
  const std::string before = ProjectDirectory::read("a.kvx");
  for (const rlim_t limit : {0ul, 1000ul, 10'000ul, static_cast<unsigned long>(before.size() - 1)}) {
    inChild([&] {
      std::signal(SIGXFSZ, SIG_IGN);
      const rlimit most{limit, limit};
      setrlimit(RLIMIT_FSIZE, &most);
      EXPECT_FALSE(project.saveProject("")) << limit;
      EXPECT_NE(takeMessages().find("a.kvx: "), std::string::npos) << limit;
      EXPECT_TRUE(project.isOpen());
    });
    EXPECT_TRUE(ProjectDirectory::read("a.kvx") == before) << limit;
    EXPECT_EQ(m_directory.list(), (std::vector<std::string>{".Kvx", "a.kvx"})) << limit;
  }
  EXPECT_TRUE(project.saveProject("b.kvx")) << "there is room again";
  EXPECT_EQ(savedClock("b.kvx"), "one");
}

TEST_F(Project, SurvivesAFullFileSystem) {
  fs::create_directory("small");
  if (mount("tmpfs", "small", "tmpfs", 0, "size=64k") != 0)
    GTEST_SKIP() << "no right to mount a small file system: " << strerror(errno);
  KVXEProject project;
  save(project, "small/a.kvx", "one");
  const std::string before = ProjectDirectory::read("small/a.kvx");
  ProjectDirectory::write("small/ballast", std::string(1 << 20, 'x'));
  EXPECT_FALSE(project.saveProject(""));
  EXPECT_NE(takeMessages().find("No space left on device"), std::string::npos);
  EXPECT_TRUE(ProjectDirectory::read("small/a.kvx") == before);
  EXPECT_EQ(m_directory.list("small"), (std::vector<std::string>{"a.kvx", "ballast"}));
  EXPECT_TRUE(project.saveProject("elsewhere.kvx")) << takeMessages();

  fs::remove("small/ballast");
  ASSERT_EQ(mount(nullptr, "small", nullptr, MS_REMOUNT | MS_RDONLY, nullptr), 0);
  EXPECT_FALSE(project.saveProject("small/a.kvx"));
  EXPECT_NE(takeMessages().find("Read-only file system"), std::string::npos);
  EXPECT_TRUE(project.saveProject("elsewhere.kvx")) << takeMessages();
  project.closeProject();
  EXPECT_EQ(savedClock("small/a.kvx") + savedClock("elsewhere.kvx"), "oneone");
  umount("small");
}

TEST_F(Project, TellsOfPlacesWhereItCannotSave) {
  KVXEProject project;
  save(project, "a.kvx", "one");
  fs::create_directory("dir.kvx");
  ProjectDirectory::write("file", "no directory");
  struct Case {
    std::string path, reason;
  };
  for (const Case& place : {
           Case{"dir.kvx", "There is a directory of that name"},
           Case{"file/a.kvx", "Not a directory"},
           Case{"/proc/none/a.kvx", "No such file or directory"},
           Case{std::string(4000, 'n') + ".kvx", "File name too long"},
       }) {
    std::string message;
    try {
      EXPECT_FALSE(project.saveProject(place.path)) << place.path;
      message = takeMessages();
    } catch (const std::exception& exception) {
      message = exception.what();  // of the file system library, on its way to the front end
    }
    EXPECT_NE(message.find(place.reason), std::string::npos) << place.path << ": " << message;
    EXPECT_TRUE(project.isOpen());
  }
  EXPECT_EQ(ProjectDirectory::read("file"), "no directory");
  for (const std::string name :
       {"with blank.kvx", "\u00fc\u4e2d.kvx", "a \"b\" 'c' $d;e.kvx", "-rf.kvx", "a\nb.kvx"}) {
    EXPECT_TRUE(project.saveProject(name)) << takeMessages();
    EXPECT_EQ(savedClock(name), "one") << name;
  }
}

TEST_F(Project, KeepsLinksAndPermissions) {
  KVXEProject project;
  save(project, "real.kvx", "one");
  chmod("real.kvx", 0640);
  fs::create_symlink("real.kvx", "link.kvx");
  ASSERT_TRUE(project.saveProject(""));
  ASSERT_TRUE(project.closeProject());
  ASSERT_TRUE(project.openProject("link.kvx"));
  m_book.edit(clockName(1), std::string("two"));
  ASSERT_TRUE(project.saveProject("")) << takeMessages();
  EXPECT_TRUE(fs::is_symlink("link.kvx"));
  EXPECT_EQ(savedClock("real.kvx"), "two");
  struct stat status {};
  ASSERT_EQ(stat("real.kvx", &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0640u);
  EXPECT_EQ(takeMessages(), "") << "the file is known by its other name";
}

TEST_F(Project, WithAnyByteChangedIsRefused) {
  KVXEProject project;
  std::mt19937 names(4);
  for (unsigned int row = 2; row < 3000; ++row) {
    clockName(1)->getRow()->getTable()->getOrCreateRow(row);
    m_book.put(clockName(row), std::to_string(names()) + std::to_string(names()));
  }
  save(project, "a.kvx", "one");
  project.closeProject();
  std::string bytes = ProjectDirectory::read("a.kvx");
  std::mt19937 random(5);
  for (int i = 0; i < 2000; ++i) {
    const std::size_t at = random() % bytes.size();
    const char before = bytes[at];
    bytes[at] = static_cast<char>(before ^ (1 << random() % 8));
    ProjectDirectory::write("b.kvx", bytes);
    bytes[at] = before;
    ASSERT_FALSE(project.openProject("b.kvx")) << "byte " << at;
    ASSERT_EQ(takeMessages(), "3 b.kvx failed during integrity check");
    ASSERT_TRUE(m_directory.list(fs::path(".Kvx") / "projects" / m_directory.staging().front()).empty());
    project.closeProject();
  }
}

/// A process that saves a full book without end is killed at any moment: the file is whole, of one save or
/// the next, and the next start clears up.
TEST(ProjectOfAFullBook, SurvivesBeingKilledWhileItSaves) {
#ifdef __SANITIZE_ADDRESS__
  constexpr unsigned int rounds = 10, longest = 3'000'000;  // microseconds
#else
  constexpr unsigned int rounds = 200, longest = 150'000;
#endif
  const ProjectDirectory directory;
  DeviceBook book(KVXEPartSelection::m_arkeonArchName);
  const auto clockName = [&] {
    return book.book()
        ->getTable(TabType::CLOCK, &KVXEClockTab::m_ClockConfigTable)
        ->getCellAt(1, &KVXEClockTab::m_Name);
  };
  book.edit(clockName(), std::string("round 0, save 0"));
  {
    KVXEProject project;
    ASSERT_TRUE(project.newProject("a.kvx") && project.saveProject("") && project.closeProject());
  }
  std::mt19937 random(9);
  unsigned int changed = 0;
  for (unsigned int round = 1; round <= rounds; ++round) {
    int saves[2];
    ASSERT_EQ(pipe(saves), 0);
    const pid_t child = fork();
    if (child == 0) {
      KVXEProject project;
      project.newProject("a.kvx");
      for (int save = 1;; ++save) {
        book.put(clockName(), "round " + std::to_string(round) + ", save " + std::to_string(save));
        project.saveProject("");
        if (write(saves[1], "s", 1) != 1) _exit(1);
      }
    }
    // Every other process is killed in a later save than its first.
    if (char done; round % 2 == 0) {
      ASSERT_EQ(read(saves[0], &done, 1), 1);
    }
    usleep(random() % longest);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    close(saves[0]);
    close(saves[1]);
    KVXEProject project;
    ASSERT_TRUE(project.openProject("a.kvx")) << takeMessages();
    const std::string name = textIn(clockName());
    changed += name.starts_with("round " + std::to_string(round) + ",");
    ASSERT_EQ(name.find("round "), 0u) << name;
    ASSERT_TRUE(project.closeProject());
    ASSERT_EQ(directory.list(), (std::vector<std::string>{".Kvx", "a.kvx"})) << "round " << round;
    ASSERT_TRUE(directory.staging().empty()) << "round " << round;
  }
  EXPECT_GE(changed, rounds / 2);
}

}  // namespace
