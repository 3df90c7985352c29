#ifndef STANDALONE_FILES_LOCKED_FILE_H
#define STANDALONE_FILES_LOCKED_FILE_H

#include <string>

#include "standalone/files/descriptor.h"

namespace standalone {

/// A file of the user's own that several programs share, open and locked as long as this lives. Nothing fails: a file
/// that cannot be had is empty, and takes nothing.
class LockedFile {
 public:
  /// Opens the file with the flags of open(). One that is made can be read by nobody but the user.
  LockedFile(const std::string& path, int flags);

  std::string Contents() const;
  void Write(const std::string& text) const;

  /// Puts a file with these contents in its place, for whoever waits for the lock.
  void ReplaceBy(const std::string& contents) const;

 private:
  bool TryOpen(int flags);

  std::string fPath;
  Descriptor fFile;
};

}  // namespace standalone

#endif  // STANDALONE_FILES_LOCKED_FILE_H
