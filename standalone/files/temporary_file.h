#ifndef STANDALONE_FILES_TEMPORARY_FILE_H
#define STANDALONE_FILES_TEMPORARY_FILE_H

#include <optional>
#include <string>

#include "standalone/files/descriptor.h"

namespace standalone {

/// Throws: the file cannot be written, for the reason that errno gave; an Error of kind kNoPermission where there is no
/// permission.
[[noreturn]] void FailToWrite(const std::string& name, int number);

/// A new empty file in the folder of the path that it is meant for, with the permissions of a file made there, or fewer
/// where the path names a file that gives fewer; removed again unless it is put in place. Files that programs which
/// were killed left in that folder are removed as well: a lock tells those that are in use. Failures are Errors
/// that name the path it is meant for, of kind kNoPermission where there is none to write.
class TemporaryFile {
 public:
  explicit TemporaryFile(const std::string& destination) : TemporaryFile(destination, destination) {}

  /// `name` is what failures call the destination.
  TemporaryFile(const std::string& destination, std::string name);
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile();

  /// Whether the path has a name as temporary files have: what has it is removed as one that was left behind.
  static bool IsReserved(const std::string& path);

  const std::string& Path() const { return fPath; }

  /// Syncs the file and gives it the destination's name, on the disk as well. A file that has that name is kept: then
  /// an error says that it exists already. No descriptor of the file may be open that holds a lock. Once it has the
  /// name nothing fails any more: where its folder cannot be synchronised then, returns the sentence on that.
  std::optional<std::string> PutInPlace();

  /// The same, but takes the place of a file that has that name, and its permissions.
  std::optional<std::string> Replace();

  /// Removes every temporary file of this process, for a handler of a signal that ends it.
  static void RemoveAllOnSignal() noexcept;

  /// In a process that was forked: the files that exist are those of the process that made it.
  static void LeaveAllToParent() noexcept;

 private:
  void Release();

  std::string fDestination;
  std::string fName;
  std::string fPath;  // empty once in place
  Descriptor fLock;   // keeps other programs from taking the file for one that was left behind
};

}  // namespace standalone

#endif  // STANDALONE_FILES_TEMPORARY_FILE_H
