#include "standalone/shell/input_history.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "tests/standalone/temporary_folder.h"

namespace standalone {
namespace {

using Texts = std::vector<std::string>;

class HistoryFileTest : public TemporaryFolderTest {
 protected:
  static unsigned ModeOf(const std::string& path) {
    struct stat status = {};
    EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 0777U;
  }
};

TEST_F(HistoryFileTest, LiesInTheFolderForState) {
  setenv("HOME", "/home/a", 1);
  setenv("XDG_STATE_HOME", "/state", 1);
  EXPECT_EQ(HistoryPath(), "/state/mrset/history");
  setenv("XDG_STATE_HOME", "relative", 1);  // to be ignored
  EXPECT_EQ(HistoryPath(), "/home/a/.local/state/mrset/history");
  unsetenv("XDG_STATE_HOME");
  EXPECT_EQ(HistoryPath(), "/home/a/.local/state/mrset/history");
  unsetenv("HOME");
  EXPECT_EQ(HistoryPath(), "");
}

TEST_F(HistoryFileTest, GivesTheEntriesBack) {
  const Texts entries = {"sets", "MRSET\n  /DISPLAY NAME=ALL.", "a\\nb \\", "\xC3\xA9\xFF\t\x01", "\n"};
  const HistoryFile file("a/b/history");
  EXPECT_EQ(file.Load(), Texts{});
  for (const std::string& entry : entries) {
    file.Add(entry);
  }
  EXPECT_EQ(file.Load(), entries);
  EXPECT_EQ(HistoryFile("a/b/history").Load(), entries);
}

TEST_F(HistoryFileTest, IsTheUsersAlone) {
  umask(0);
  HistoryFile("a/b/history").Add("x");
  umask(022);
  EXPECT_EQ(ModeOf("a"), 0700U);
  EXPECT_EQ(ModeOf("a/b"), 0700U);
  EXPECT_EQ(ModeOf("a/b/history"), 0600U);
}

TEST_F(HistoryFileTest, KeepsTheLastEntries) {
  const HistoryFile file("history");
  std::string contents;
  for (std::size_t number = 1; number <= 2 * HistoryFile::kMaxEntries; ++number) {
    contents += std::to_string(number) + "\n";
  }
  Write("history", contents);
  EXPECT_EQ(file.Load().size(), HistoryFile::kMaxEntries);
  EXPECT_EQ(Read("history"), contents) << "not long enough to be cut";
  file.Add("the last");
  const Texts entries = file.Load();
  EXPECT_EQ(entries.size(), HistoryFile::kMaxEntries);
  EXPECT_EQ(entries.front(), "1002");
  EXPECT_EQ(entries.back(), "the last");
  EXPECT_EQ(Read("history").substr(0, 10), "1002\n1003\n");
  EXPECT_EQ(ModeOf("history"), 0600U);
  EXPECT_EQ(Files(), Texts{"history"});
  EXPECT_EQ(file.Load(), entries);
}

TEST_F(HistoryFileTest, DoesNotKeepAnEntryThatIsTooLong) {
  const HistoryFile file("history");
  file.Add(std::string(HistoryFile::kMaxEntryBytes + 1, 'x'));
  file.Add("");
  EXPECT_EQ(file.Load(), Texts{});
  file.Add(std::string(HistoryFile::kMaxEntryBytes, 'x'));
  EXPECT_EQ(file.Load().size(), 1U);
}

TEST_F(HistoryFileTest, IsNeverAFailure) {
  HistoryFile("").Add("x");
  EXPECT_EQ(HistoryFile("").Load(), Texts{});
  mkdir("folder", 0755);
  HistoryFile("folder").Add("x");
  EXPECT_EQ(HistoryFile("folder").Load(), Texts{});
  Write("file", "");
  HistoryFile("file/history").Add("x");
  EXPECT_EQ(HistoryFile("file/history").Load(), Texts{});
  ASSERT_EQ(mkfifo("pipe", 0600), 0);
  HistoryFile("pipe").Add("x");
  EXPECT_EQ(HistoryFile("pipe").Load(), Texts{});
  HistoryFile("/dev/full").Add("x");
  EXPECT_EQ(Files().size(), 3U);
}

TEST_F(HistoryFileTest, LosesNoEntryOfSeveralShells) {
  constexpr int kShells = 4;
  constexpr int kEntries = 100;
  std::string contents;
  for (std::size_t number = 0; number <= 2 * HistoryFile::kMaxEntries; ++number) {
    contents += "old\n";
  }
  Write("history", contents);  // so that one of them cuts the file while the others add
  for (int shell = 0; shell < kShells; ++shell) {
    if (fork() == 0) {
      const HistoryFile file("history");
      for (int entry = 0; entry < kEntries; ++entry) {
        file.Add("new");
        file.Load();
      }
      _exit(0);
    }
  }
  for (int shell = 0; shell < kShells; ++shell) {
    wait(nullptr);
  }
  Texts entries = HistoryFile("history").Load();
  EXPECT_EQ(std::count(entries.begin(), entries.end(), "new"), kShells * kEntries);
}

}  // namespace
}  // namespace standalone
