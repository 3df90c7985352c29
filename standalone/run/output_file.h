#ifndef STANDALONE_RUN_OUTPUT_FILE_H
#define STANDALONE_RUN_OUTPUT_FILE_H

#include <fstream>
#include <stdexcept>
#include <string>

namespace standalone {

/// An output file that cannot be written; what() is one sentence that names it.
class OutputError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// A file that is complete or absent: what is written goes to a file beside it, which takes its place at the end. What
/// is no regular file, such as a pipe, is written as it is.
class OutputFile {
 public:
  /// Begins to write; throws OutputError.
  explicit OutputFile(const std::string& path);
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  /// Without Commit(), what stood at the path stays.
  ~OutputFile();

  std::ostream& Stream() { return fStream; }

  /// Puts the file in place; throws OutputError.
  void Commit();

 private:
  std::string fPath;
  std::string fTemporaryPath;  // empty where there is none
  std::ofstream fStream;
};

}  // namespace standalone

#endif  // STANDALONE_RUN_OUTPUT_FILE_H
