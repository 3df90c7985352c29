#ifndef STANDALONE_FILES_INPUT_FILE_H
#define STANDALONE_FILES_INPUT_FILE_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "standalone/files/descriptor.h"

namespace standalone {

/// A file that is read from where it stands, a pipe too. Failures are Errors that name it.
class InputFile {
 public:
  explicit InputFile(const std::string& path);

  /// A file that is open already, which goes over to this.
  InputFile(std::string name, Descriptor file);
  InputFile(const InputFile&) = delete;
  InputFile& operator=(const InputFile&) = delete;

  /// The path, or the name, that it was given.
  const std::string& Path() const { return fPath; }

  /// Reads up to `size` bytes, one at least; 0 at the end of the file.
  std::size_t Read(char* buffer, std::size_t size);

  /// How much was read since the beginning, of how much; nothing where that cannot be known.
  std::uint64_t BytesRead() const { return fBytesRead; }
  std::optional<std::uint64_t> Size() const { return fSize; }

  /// Makes Rewind() possible; before the first Read(). What a pipe gives is then copied to a nameless file in the
  /// folder of `neighbour`.
  void AllowRewind(const std::string& neighbour);

  /// What is read from now on need not be read again: it is not copied any more.
  void ForbidRewind() { fCopying = false; }

  /// Goes back to where reading began.
  void Rewind();

 private:
  std::size_t ReadNext(char* buffer, std::size_t size);
  std::size_t ReadFrom(const Descriptor& file, char* buffer, std::size_t size) const;
  void CopyAside(const char* data, std::size_t size);
  [[noreturn]] void Fail(const std::string& what) const;

  std::string fPath;
  Descriptor fFile;
  std::optional<std::uint64_t> fSize;
  std::uint64_t fBytesRead = 0;
  std::int64_t fBegin = 0;  // where reading began
  Descriptor fCopy;         // of what a pipe gave
  bool fCopying = false;    // a pipe is read and may be rewound
  bool fFromCopy = false;   // the copy is read before the rest of the pipe
};

}  // namespace standalone

#endif  // STANDALONE_FILES_INPUT_FILE_H
