#include "standalone/shell/input_history.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>

#include "standalone/files/locked_file.h"

namespace standalone {
namespace {

namespace fs = std::filesystem;

/// The file is rewritten when it holds twice the entries that are kept, so that this is rare.
constexpr std::size_t kEntriesToCut = 2 * HistoryFile::kMaxEntries;

constexpr mode_t kFolderMode = 0700;

/// One entry a line; the line ends within it, and the backslashes, after a backslash.
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

std::string LinesOf(const std::vector<std::string>& entries) {
  std::string lines;
  for (const std::string& entry : entries) {
    lines += ToLine(entry);
  }
  return lines;
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
  std::vector<std::string> entries = Entries(file.Contents());
  const bool isLong = entries.size() > kEntriesToCut;
  if (entries.size() > kMaxEntries) {
    entries.erase(entries.begin(), entries.end() - static_cast<std::ptrdiff_t>(kMaxEntries));
  }
  if (isLong) {
    file.ReplaceBy(LinesOf(entries));
  }
  return entries;
}

void HistoryFile::Add(const std::string& entry) const {
  if (fPath.empty() || entry.empty() || entry.size() > kMaxEntryBytes) {
    return;
  }
  MakeFolders(fs::path(fPath).parent_path());
  LockedFile(fPath, O_WRONLY | O_CREAT | O_APPEND).Write(ToLine(entry));
}

}  // namespace standalone
