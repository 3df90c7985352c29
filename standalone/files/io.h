#ifndef STANDALONE_FILES_IO_H
#define STANDALONE_FILES_IO_H

#include <sys/types.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "standalone/files/descriptor.h"

namespace standalone {

// Opening, reading and writing. A call that a signal interrupts is made again. What fails leaves its reason in
// errno.

/// Opens a file with the flags of open(); no child inherits it. Nothing is open where that fails.
Descriptor OpenFile(const std::string& path, int flags, mode_t mode = 0);

/// Opens the standard descriptors that are closed: the next file that is opened would get their numbers, and take in
/// the results or errors.
void OccupyStandardDescriptors();

/// A second descriptor of the same open file.
Descriptor Duplicate(int descriptor);

/// Reads up to `size` bytes, at least one; 0 at the end, negative on failure.
ssize_t ReadSome(int descriptor, char* buffer, std::size_t size);

/// Appends what can be read at once, waiting for the first byte; 0 at the end, negative on failure.
ssize_t AppendSome(int descriptor, std::string& text);

/// Appends all that can be read up to the end; false on failure.
bool AppendAll(int descriptor, std::string& text);

/// The last `size` bytes of a regular file; nothing where it has no more than these or cannot be read.
std::optional<std::string> LastBytes(int descriptor, std::size_t size);

/// False where not all could be written.
bool WriteAll(int descriptor, std::string_view bytes);

}  // namespace standalone

#endif  // STANDALONE_FILES_IO_H
