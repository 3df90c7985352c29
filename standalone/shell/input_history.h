#ifndef STANDALONE_SHELL_INPUT_HISTORY_H
#define STANDALONE_SHELL_INPUT_HISTORY_H

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace standalone {

/// Where the user's history is kept: $XDG_STATE_HOME/mrset/history, else ~/.local/state/mrset/history. Empty where the
/// environment names neither folder.
std::string HistoryPath();

/// What was typed into shells, kept for later ones. Several shells may add at once. Nobody but the user can read it.
/// Nothing here ever fails: what cannot be read is not there, what cannot be written is not kept.
class HistoryFile {
 public:
  static constexpr std::size_t kMaxEntries = 1000;
  static constexpr std::size_t kMaxEntryBytes = 65'536;  ///< bytes; a longer one is not kept

  /// `path` may be empty: then nothing is kept.
  explicit HistoryFile(std::string path) : fPath(std::move(path)) {}

  /// The last entries, kMaxEntries at most, the newest last. A file that holds many more is cut to these.
  std::vector<std::string> Load() const;

  /// Adds an entry, which may have several lines.
  void Add(const std::string& entry) const;

 private:
  std::string fPath;
};

}  // namespace standalone

#endif  // STANDALONE_SHELL_INPUT_HISTORY_H
