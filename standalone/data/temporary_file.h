#ifndef STANDALONE_DATA_TEMPORARY_FILE_H
#define STANDALONE_DATA_TEMPORARY_FILE_H

#include <string>

namespace standalone {

/// A new empty file in the folder of the path that it is meant for, with the permissions of a file made there; removed
/// again unless it is put in place. Failures are DatasetErrors that name that path.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& destination);
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile();

  const std::string& Path() const { return fPath; }

  /// Syncs the file and gives it the destination's name, on the disk as well. A file that has that name is kept: then
  /// an error says that it exists already. No descriptor of the file may be open that holds a lock.
  void PutInPlace();

  /// The same, but takes the place of a file that has that name, and its permissions.
  void Replace();

 private:
  void SyncFolder() const;

  std::string fDestination;
  std::string fPath;  // empty once in place
};

}  // namespace standalone

#endif  // STANDALONE_DATA_TEMPORARY_FILE_H
