#include "standalone/files/io.h"

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
