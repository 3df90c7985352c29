#include "standalone/run/script_source.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <utility>

#include "standalone/files/io.h"
#include "standalone/text/error.h"

namespace standalone {
namespace {

constexpr const char* kOnStandardInput = "on standard input";

[[noreturn]] void ThrowCannotRead(const std::string& name) {
  const int number = errno;
  const bool isMissing = number == ENOENT || number == ENAMETOOLONG || number == ENOTDIR;
  throw Error(
      isMissing ? ErrorKind::kMissingFile : ErrorKind::kFailed,
      fmt::format("The script {} cannot be read: {}.", name.empty() ? "of no name" : name, std::strerror(number)),
      name);
}

/// Appends what can be read now, or waits for it; false at the end.
bool ReadMore(int descriptor, const std::string& name, std::string& text) {
  const ssize_t count = AppendSome(descriptor, text);
  if (count < 0) {
    ThrowCannotRead(name);
  }
  return count > 0;
}

std::string ReadAll(int descriptor, const std::string& name) {
  std::string text;
  while (ReadMore(descriptor, name, text)) {
  }
  return text;
}

}  // namespace

std::string ReadScript(const std::string& path) {
  if (path == "-") {
    return ReadAll(STDIN_FILENO, kOnStandardInput);
  }
  const Descriptor file = OpenFile(path, O_RDONLY);
  if (file.Number() < 0) {
    ThrowCannotRead(path);
  }
  return ReadAll(file.Number(), path);
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
