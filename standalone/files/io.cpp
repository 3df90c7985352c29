#include "standalone/files/io.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>

namespace standalone {
namespace {

/// Makes the call until no signal interrupts it.
template <typename Call>
ssize_t Uninterrupted(const Call& call) {
  ssize_t result = 0;
  do {
    result = call();
  } while (result < 0 && errno == EINTR);
  return result;
}

}  // namespace

Descriptor OpenFile(const std::string& path, int flags, mode_t mode) {
  return Descriptor(static_cast<int>(Uninterrupted([&] { return open(path.c_str(), flags | O_CLOEXEC, mode); })));
}

// The lowest number that is free is taken. What is opened cannot be written, as one that is closed.
void OccupyStandardDescriptors() {
  for (int descriptor = STDIN_FILENO; descriptor <= STDERR_FILENO; ++descriptor) {
    if (fcntl(descriptor, F_GETFD) == -1) {
      open("/dev/null", O_RDONLY);
    }
  }
}

Descriptor Duplicate(int descriptor) {
  return Descriptor(fcntl(descriptor, F_DUPFD_CLOEXEC, 0));
}

ssize_t ReadSome(int descriptor, char* buffer, std::size_t size) {
  return Uninterrupted([&] { return read(descriptor, buffer, size); });
}

ssize_t AppendSome(int descriptor, std::string& text) {
  std::array<char, 65536> buffer{};
  const ssize_t count = ReadSome(descriptor, buffer.data(), buffer.size());
  if (count > 0) {
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return count;
}

bool AppendAll(int descriptor, std::string& text) {
  ssize_t count = 0;
  while ((count = AppendSome(descriptor, text)) > 0) {
  }
  return count == 0;
}

std::optional<std::string> LastBytes(int descriptor, std::size_t size) {
  const off_t end = lseek(descriptor, 0, SEEK_END);
  const auto length = static_cast<off_t>(size);
  std::string bytes(size, '\0');
  const bool isThere = end > length && Uninterrupted([&] {
                                         return pread(descriptor, bytes.data(), size, end - length);
                                       }) == static_cast<ssize_t>(size);
  return isThere ? std::make_optional(bytes) : std::nullopt;
}

bool WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = Uninterrupted([&] { return write(descriptor, bytes.data(), bytes.size()); });
    if (count < 0) {
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(count));
  }
  return true;
}

}  // namespace standalone
