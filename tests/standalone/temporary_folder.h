#ifndef TESTS_STANDALONE_TEMPORARY_FOLDER_H
#define TESTS_STANDALONE_TEMPORARY_FOLDER_H

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace standalone {

/// A test with a folder of its own, which is the current one, so that sentences name files without a path.
class TemporaryFolderTest : public ::testing::Test {
 protected:
  TemporaryFolderTest() {
    fHome = std::filesystem::current_path();
    std::string name = (std::filesystem::temp_directory_path() / "mrset-test-XXXXXX").string();
    fFolder = mkdtemp(name.data());
    std::filesystem::current_path(fFolder);
    chmod(".", 0755);
  }

  ~TemporaryFolderTest() override {
    std::filesystem::current_path(fHome);
    chmod(fFolder.c_str(), 0755);
    std::filesystem::remove_all(fFolder);
  }

  static void Write(const std::string& path, std::string_view text) {
    std::ofstream(path, std::ios::binary).write(text.data(), static_cast<std::streamsize>(text.size()));
  }

  static std::string Read(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  }

  static std::vector<std::string> Files() {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(".")) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }

  /// The sentence of the exception that the action throws, "" when it throws none.
  template <typename Action>
  static std::string SentenceOf(Action action) {
    try {
      action();
    } catch (const std::exception& error) {
      return error.what();
    }
    return "";
  }

  /// Runs the action in a child whom permissions bind, also when the tests run as root, and returns its text.
  template <typename Action>
  static std::string WithoutPrivileges(Action action) {
    int ends[2] = {};
    EXPECT_EQ(pipe(ends), 0);
    const pid_t child = fork();
    if (child == 0) {
      constexpr unsigned kNobody = 65534;
      const bool bound = geteuid() != 0 || (setegid(kNobody) == 0 && seteuid(kNobody) == 0);
      const std::string text = bound ? action() : "the privileges could not be given up";
      const bool written = write(ends[1], text.data(), text.size()) == static_cast<ssize_t>(text.size());
      _exit(written ? 0 : 1);
    }
    close(ends[1]);
    std::string text;
    char buffer[4096];
    for (ssize_t count = 0; (count = read(ends[0], buffer, sizeof buffer)) > 0;) {
      text.append(buffer, static_cast<std::size_t>(count));
    }
    close(ends[0]);
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    return text;
  }

 private:
  std::filesystem::path fHome;
  std::filesystem::path fFolder;
};

}  // namespace standalone

#endif  // TESTS_STANDALONE_TEMPORARY_FOLDER_H
