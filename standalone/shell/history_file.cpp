#include "standalone/shell/history_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <thread>
#include <utility>

namespace standalone {
namespace {

namespace fs = std::filesystem;

/// The file is rewritten when it holds twice the entries that are kept, so that this is rare.
constexpr std::size_t kEntriesToCut = 2 * HistoryFile::kMostEntries;

constexpr mode_t kFileMode = 0600;
constexpr mode_t kFolderMode = 0700;

/// One entry a line; the line ends within it, and the backslashes, behind a backslash.
std::string ToLine(const std::string& entry) {
  std::string line;
  for (const char c : entry) {
    line += c == '\\' ? "\\\\" : c == '\n' ? "\\n" : std::string(1, c);
  }
  return line + '\n';
}

std::string FromLine(const std::string& line) {
  std::string entry;
  for (std::size_t offset = 0; offset < line.size(); ++offset) {
    const bool isMarked = line[offset] == '\\' && offset + 1 < line.size();
    offset += isMarked ? 1 : 0;
    entry += isMarked && line[offset] == 'n' ? '\n' : line[offset];
  }
  return entry;
}

/// The user's file, open and locked as long as this lives. Whoever replaces the file holds the lock, so a file that is
/// no longer at its path once the lock is there is opened anew.
class LockedFile {
 public:
  LockedFile(const std::string& path, int flags) {
    constexpr int kTries = 1000;
    for (int tries = 0; tries < kTries && !TryOpen(path, flags); ++tries) {
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
  }
  LockedFile(const LockedFile&) = delete;
  LockedFile& operator=(const LockedFile&) = delete;
  ~LockedFile() { Close(); }

  bool IsOpen() const { return fDescriptor >= 0; }
  std::string Contents() const;
  bool Write(const std::string& text) const;

 private:
  /// False when it is worth to try again.
  bool TryOpen(const std::string& path, int flags);
  void Close() {
    if (IsOpen()) {
      close(std::exchange(fDescriptor, -1));
    }
  }

  int fDescriptor = -1;
};

bool LockedFile::TryOpen(const std::string& path, int flags) {
  fDescriptor = open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK, kFileMode);
  struct stat opened = {};
  struct stat named = {};
  if (!IsOpen()) {
    return true;
  }
  if (fstat(fDescriptor, &opened) != 0 || !S_ISREG(opened.st_mode)) {
    Close();
    return true;
  }
  const bool isLocked = flock(fDescriptor, LOCK_EX | LOCK_NB) == 0;
  if (isLocked && stat(path.c_str(), &named) == 0 && named.st_ino == opened.st_ino) {
    return true;
  }
  Close();
  return false;
}

std::string LockedFile::Contents() const {
  std::string text;
  std::array<char, 65536> buffer{};
  ssize_t count = 0;
  while ((count = read(fDescriptor, buffer.data(), buffer.size())) > 0) {
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return text;
}

bool LockedFile::Write(const std::string& text) const {
  return write(fDescriptor, text.data(), text.size()) == static_cast<ssize_t>(text.size());
}

std::vector<std::string> Entries(const std::string& contents) {
  std::vector<std::string> entries;
  for (std::size_t begin = 0; begin < contents.size();) {
    const std::size_t end = std::min(contents.find('\n', begin), contents.size());
    if (end > begin) {
      entries.push_back(FromLine(contents.substr(begin, end - begin)));
    }
    begin = end + 1;
  }
  return entries;
}

void Replace(const std::string& path, const std::vector<std::string>& entries) {
  const std::string beside = path + ".new";
  unlink(beside.c_str());
  const LockedFile file(beside, O_WRONLY | O_CREAT | O_EXCL);
  std::string contents;
  for (const std::string& entry : entries) {
    contents += ToLine(entry);
  }
  if (!file.IsOpen() || !file.Write(contents) || rename(beside.c_str(), path.c_str()) != 0) {
    unlink(beside.c_str());
  }
}

void MakeFolders(const fs::path& folder) {
  if (!folder.has_filename() || mkdir(folder.c_str(), kFolderMode) == 0 || errno != ENOENT) {
    return;
  }
  MakeFolders(folder.parent_path());
  mkdir(folder.c_str(), kFolderMode);
}

std::string FolderIn(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && value[0] == '/' ? value : "";
}

}  // namespace

std::string HistoryPath() {
  if (const std::string state = FolderIn("XDG_STATE_HOME"); !state.empty()) {
    return state + "/mrset/history";
  }
  const std::string home = FolderIn("HOME");
  return home.empty() ? "" : home + "/.local/state/mrset/history";
}

std::vector<std::string> HistoryFile::Load() const {
  const LockedFile file(fPath, O_RDONLY);
  if (!file.IsOpen()) {
    return {};
  }
  std::vector<std::string> entries = Entries(file.Contents());
  const bool isLong = entries.size() > kEntriesToCut;
  if (entries.size() > kMostEntries) {
    entries.erase(entries.begin(), entries.end() - static_cast<std::ptrdiff_t>(kMostEntries));
  }
  if (isLong) {
    Replace(fPath, entries);
  }
  return entries;
}

void HistoryFile::Add(const std::string& entry) const {
  if (fPath.empty() || entry.empty() || entry.size() > kLongestEntry) {
    return;
  }
  MakeFolders(fs::path(fPath).parent_path());
  const LockedFile file(fPath, O_WRONLY | O_CREAT | O_APPEND);
  if (file.IsOpen()) {
    file.Write(ToLine(entry));
  }
}

}  // namespace standalone
