#ifndef STANDALONE_FILES_IO_H
#define STANDALONE_FILES_IO_H

#include <sys/types.h>

#include <cstddef>
#include <string>
#include <string_view>

namespace standalone {

// Reading and writing of open files. A call that a signal interrupts is made again. What fails leaves its reason in
// errno.

/// Reads up to `size` bytes, at least one; 0 at the end, negative on failure.
ssize_t ReadSome(int descriptor, char* buffer, std::size_t size);

/// Appends what can be read at once, waiting for the first byte; 0 at the end, negative on failure.
ssize_t AppendSome(int descriptor, std::string& text);

/// Appends all that can be read up to the end; false on failure.
bool AppendAll(int descriptor, std::string& text);

/// False where not all could be written.
bool WriteAll(int descriptor, std::string_view bytes);

}  // namespace standalone

#endif  // STANDALONE_FILES_IO_H
