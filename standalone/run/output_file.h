#ifndef STANDALONE_RUN_OUTPUT_FILE_H
#define STANDALONE_RUN_OUTPUT_FILE_H

#include <fstream>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>

#include "standalone/data/temporary_file.h"

namespace standalone {

/// An output file that cannot be written; what() is one sentence that names it.
class OutputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A file that is complete or absent: what is written goes to a file beside it, which takes its place at the end. What
/// is no regular file, such as a pipe, is written as it is; so is the program's own standard output or error.
class OutputFile {
 public:
  /// Begins to write; throws OutputError.
  explicit OutputFile(const std::string& path);
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  std::ostream& Stream() { return *fStream; }

  /// Puts the file in place; without it what stood at the path stays. Throws OutputError.
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

#endif  // STANDALONE_RUN_OUTPUT_FILE_H
