#ifndef TESTS_CRASH_SHIM_POWER_LOSS_H
#define TESTS_CRASH_SHIM_POWER_LOSS_H

#include <sys/types.h>

#include <cstddef>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <vector>

namespace crash {

/// What this process did to files and folders and did not yet sync, so that part of it can be lost as if the power had
/// failed. All of it is really done at once: other processes see it.
///
/// A file keeps what it held at its last sync; each write after that, in sectors of 512 bytes, may be kept, lost or
/// garbled, and each truncation kept or lost. Of the entries of a folder that were made, removed or renamed after its
/// last sync, the first so many are kept and the others lost, as with a file system that keeps a journal of them.
class PowerLoss {
 public:
  /// Of this process.
  static PowerLoss& Get();

  /// Before the first change of a file since it was opened, and harmless after that.
  void WillChange(int descriptor, const std::string& path);
  void DidWrite(int descriptor, off_t offset, const void* data, std::size_t size);
  void DidTruncate(int descriptor, off_t size);
  void DidSyncFile(int descriptor);

  void DidCreate(const std::string& path);
  void DidLink(const std::string& path);
  void WillDelete(const std::string& path);
  void WillRename(const std::string& from, const std::string& to);
  void DidSyncFolder(const std::string& folder);

  /// Loses what `seed` says. The process must end after that.
  void Lose(unsigned seed);

 private:
  struct Change {
    bool isTruncation;
    std::size_t offset;  // of a truncation, the new size
    std::string data;
  };
  struct File {
    std::string path;
    std::string synced;
    std::vector<Change> changes;
  };
  struct Entry {
    enum { kCreated, kDeleted, kRenamed } kind;
    std::string path;
    std::string target;        // of a renaming
    std::optional<File> lost;  // what was deleted, or what a renaming replaced
  };
  using Random = std::mt19937;

  std::optional<File> Forget(const std::string& path);
  std::string AfterLoss(const File& file, Random& random) const;
  static void LoseWrite(std::string& image, const Change& change, unsigned keptOfTen, Random& random);
  void UndoEntries(Random& random) const;
  void Undo(const Entry& entry, Random& random) const;

  std::map<ino_t, File> fFiles;
  std::map<std::string, std::vector<Entry>> fEntries;  // by folder
};

}  // namespace crash

#endif  // TESTS_CRASH_SHIM_POWER_LOSS_H
