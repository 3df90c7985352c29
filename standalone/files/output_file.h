#ifndef STANDALONE_FILES_OUTPUT_FILE_H
#define STANDALONE_FILES_OUTPUT_FILE_H

#include <fstream>
#include <functional>
#include <memory>
#include <optional>
#include <ostream>
#include <string>

#include "standalone/files/temporary_file.h"

namespace standalone {

/// A file that is complete or absent: what is written goes to a file beside it, which takes its place at the end. What
/// is no regular file, such as a pipe, is written as it is; so is the program's own standard output or error.
class OutputFile {
 public:
  /// Why nothing may be written at a path, as a sentence; nothing where it may.
  using ComplaintOn = std::function<std::optional<std::string>(const std::string& path)>;

  /// Begins to write; throws Error. `complaintOn` is asked for the path to which symbolic links lead.
  explicit OutputFile(const std::string& path, const ComplaintOn& complaintOn);
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  std::ostream& Stream() { return *fStream; }

  /// Puts the file in place; without it what stood at the path stays. Throws Error.
  void Commit();

 private:
  void OpenBesideIt(const std::string& target);
  void OpenAsItIs();

  std::string fPath;  // as the user gave it
  std::unique_ptr<TemporaryFile> fTemporary;
  std::ofstream fFile;
  std::ostream* fStream = &fFile;
};

}  // namespace standalone

#endif  // STANDALONE_FILES_OUTPUT_FILE_H
