#include "standalone/files/spool.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <ostream>
#include <stdexcept>
#include <string>
#include <system_error>

namespace standalone {
namespace {

namespace fs = std::filesystem;

fs::path TemporaryFolder() {
  std::error_code error;
  const fs::path folder = fs::temp_directory_path(error);
  return error ? "/tmp" : folder;
}

[[noreturn]] void ThrowCannotKeep(int error) {
  throw std::runtime_error(
      fmt::format("The output cannot be kept in {}: {}.", TemporaryFolder().string(), std::strerror(error)));
}

/// A file that is open and has no name any more.
std::FILE* OpenNameless() {
  std::string path = (TemporaryFolder() / "mrset-XXXXXX").string();
  const int descriptor = mkostemp(path.data(), O_CLOEXEC);
  if (descriptor == -1) {
    ThrowCannotKeep(errno);
  }
  unlink(path.c_str());
  return fdopen(descriptor, "w+b");
}

}  // namespace

Spool::Spool() : fFile(OpenNameless(), std::fclose) {}

void Spool::Append(std::string_view text) {
  if (std::fwrite(text.data(), 1, text.size(), fFile.get()) < text.size()) {
    ThrowCannotKeep(errno);
  }
}

void Spool::CheckRoom(std::size_t bytes) {
  const int descriptor = fileno(fFile.get());
  if (const int error = posix_fallocate(descriptor, 0, static_cast<off_t>(bytes))) {
    ThrowCannotKeep(error);
  }
  if (ftruncate(descriptor, 0) != 0) {
    ThrowCannotKeep(errno);
  }
}

std::string Spool::Path() const {
  return fmt::format("/proc/self/fd/{}", fileno(fFile.get()));
}

std::string Spool::Folder() {
  return TemporaryFolder().string();
}

void Spool::CopyTo(std::ostream& stream) {
  if (std::fflush(fFile.get()) != 0 || std::fseek(fFile.get(), 0, SEEK_SET) != 0) {
    ThrowCannotKeep(errno);
  }
  std::array<char, 65536> chunk = {};
  while (const std::size_t size = std::fread(chunk.data(), 1, chunk.size(), fFile.get())) {
    stream.write(chunk.data(), static_cast<std::streamsize>(size));
  }
  if (std::ferror(fFile.get()) != 0) {
    ThrowCannotKeep(errno);
  }
}

/// Failures of the spool reach whoever writes.
SpoolStream::SpoolStream() : std::ostream(nullptr) {
  rdbuf(&fBuffer);
  exceptions(badbit);
}

SpoolStream::Buffer::int_type SpoolStream::Buffer::overflow(int_type character) {
  if (!traits_type::eq_int_type(character, traits_type::eof())) {
    const char c = traits_type::to_char_type(character);
    spool.Append({&c, 1});
  }
  return traits_type::not_eof(character);
}

std::streamsize SpoolStream::Buffer::xsputn(const char* text, std::streamsize size) {
  spool.Append({text, static_cast<std::size_t>(size)});
  return size;
}

}  // namespace standalone
