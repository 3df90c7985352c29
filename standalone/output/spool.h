#ifndef STANDALONE_OUTPUT_SPOOL_H
#define STANDALONE_OUTPUT_SPOOL_H

#include <cstdio>
#include <iosfwd>
#include <memory>
#include <string_view>

namespace standalone {

/// Text that is kept on the disk until what stands before it is known. Its file has no name and goes with the program.
/// Every function throws std::runtime_error with one sentence.
class Spool {
 public:
  /// Begins a file in the folder for temporary files (TMPDIR).
  Spool();

  void Append(std::string_view text);

  /// Writes all that was appended.
  void CopyTo(std::ostream& stream);

 private:
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> fFile;
};

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_SPOOL_H
