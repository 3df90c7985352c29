#ifndef STANDALONE_FILES_SPOOL_H
#define STANDALONE_FILES_SPOOL_H

#include <cstddef>
#include <cstdio>
#include <memory>
#include <ostream>
#include <streambuf>
#include <string>
#include <string_view>

namespace standalone {

/// Text that is kept on the disk until what stands before it is known. Its file has no name and goes with the program.
/// Every function throws std::runtime_error with one sentence.
class Spool {
 public:
  /// Begins a file in the folder for temporary files (TMPDIR).
  Spool();

  void Append(std::string_view text);

  /// Makes sure that the folder has room for so many bytes, which are free again afterwards, for those who write to
  /// it without looking whether they could. Nothing may have been appended.
  void CheckRoom(std::size_t bytes);

  /// A path by which the file can be opened as long as this lives, for those who write by themselves.
  std::string Path() const;

  /// The folder for temporary files, for the same.
  static std::string Folder();

  /// Writes all that was appended.
  void CopyTo(std::ostream& stream);

 private:
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> fFile;
};

/// A stream into a spool. Writing throws as Spool::Append() does.
class SpoolStream : public std::ostream {
 public:
  SpoolStream();

  /// Writes all that was written here.
  void CopyTo(std::ostream& stream) { fBuffer.spool.CopyTo(stream); }

 private:
  struct Buffer : std::streambuf {
    int_type overflow(int_type character) override;
    std::streamsize xsputn(const char* text, std::streamsize size) override;

    Spool spool;
  };

  Buffer fBuffer;
};

}  // namespace standalone

#endif  // STANDALONE_FILES_SPOOL_H
