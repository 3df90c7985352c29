#include "standalone/run/script_source.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>

namespace standalone {
namespace {

[[noreturn]] void ThrowCannotRead(const std::string& name) {
  throw ScriptError(
      fmt::format("The script {} cannot be read: {}.", name.empty() ? "of no name" : name, std::strerror(errno)));
}

std::string ReadAll(int descriptor, const std::string& name) {
  std::string text;
  std::array<char, 65536> buffer{};
  while (true) {
    const ssize_t count = read(descriptor, buffer.data(), buffer.size());
    if (count == 0) {
      return text;
    }
    if (count > 0) {
      text.append(buffer.data(), static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      ThrowCannotRead(name);
    }
  }
}

/// A file that is open for reading as long as this lives.
class OpenFile {
 public:
  explicit OpenFile(const std::string& path) : fDescriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC)) {
    if (fDescriptor < 0) {
      ThrowCannotRead(path);
    }
  }
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() { close(fDescriptor); }

  int Descriptor() const { return fDescriptor; }

 private:
  int fDescriptor;
};

}  // namespace

std::string ReadScript(const std::string& path) {
  if (path == "-") {
    return ReadAll(STDIN_FILENO, "on standard input");
  }
  const OpenFile file(path);
  return ReadAll(file.Descriptor(), path);
}

}  // namespace standalone
