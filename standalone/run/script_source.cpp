#include "standalone/run/script_source.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstring>
#include <utility>

namespace standalone {
namespace {

constexpr const char* kOnStandardInput = "on standard input";

[[noreturn]] void ThrowCannotRead(const std::string& name) {
  throw ScriptError(
      fmt::format("The script {} cannot be read: {}.", name.empty() ? "of no name" : name, std::strerror(errno)));
}

/// Appends what can be read now, or waits for it; false at the end.
bool ReadMore(int descriptor, const std::string& name, std::string& text) {
  std::array<char, 65536> buffer{};
  while (true) {
    const ssize_t count = read(descriptor, buffer.data(), buffer.size());
    if (count >= 0) {
      text.append(buffer.data(), static_cast<std::size_t>(count));
      return count > 0;
    }
    if (errno != EINTR) {
      ThrowCannotRead(name);
    }
  }
}

std::string ReadAll(int descriptor, const std::string& name) {
  std::string text;
  while (ReadMore(descriptor, name, text)) {
  }
  return text;
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
    return ReadAll(STDIN_FILENO, kOnStandardInput);
  }
  const OpenFile file(path);
  return ReadAll(file.Descriptor(), path);
}

std::optional<std::string> StandardInputLines::Next() {
  std::size_t end = 0;
  while ((end = fRead.find('\n', fSearched)) == std::string::npos) {
    fRead.erase(0, std::exchange(fBegin, 0));
    fSearched = fRead.size();
    if (!ReadMore(STDIN_FILENO, kOnStandardInput, fRead)) {
      break;
    }
  }
  if (end == std::string::npos && fRead.empty()) {
    return std::nullopt;
  }
  const std::string line = fRead.substr(fBegin, end == std::string::npos ? end : end - fBegin);
  fBegin = fSearched = end == std::string::npos ? fRead.size() : end + 1;
  return line;
}

}  // namespace standalone
