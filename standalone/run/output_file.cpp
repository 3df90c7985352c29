#include "standalone/run/output_file.h"

#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <utility>

namespace standalone {
namespace {

[[noreturn]] void ThrowCannotWrite(const std::string& path, const char* reason) {
  throw OutputError(fmt::format("The output file {} cannot be written: {}.", path, reason));
}

mode_t CurrentUmask() {
  const mode_t mask = umask(0);
  umask(mask);
  return mask;
}

/// Makes an empty file beside `path`, with the rights that a new file has, and returns its path.
std::string MakeTemporaryFile(const std::string& path) {
  std::string name = path + ".XXXXXX";
  const int descriptor = mkstemp(name.data());
  if (descriptor < 0) {
    ThrowCannotWrite(path, std::strerror(errno));
  }
  fchmod(descriptor, static_cast<mode_t>(0666) & ~CurrentUmask());
  close(descriptor);
  return name;
}

}  // namespace

OutputFile::OutputFile(std::string path) : fPath(std::move(path)) {
  if (std::filesystem::is_directory(fPath)) {
    ThrowCannotWrite(fPath, "it is a directory");
  }
  fTemporaryPath = MakeTemporaryFile(fPath);
  fStream.open(fTemporaryPath, std::ios::binary);
}

OutputFile::~OutputFile() {
  if (!fTemporaryPath.empty()) {
    std::remove(fTemporaryPath.c_str());
  }
}

void OutputFile::Commit() {
  errno = 0;
  fStream.close();
  if (!fStream || std::rename(fTemporaryPath.c_str(), fPath.c_str()) != 0) {
    ThrowCannotWrite(fPath, errno == 0 ? "writing failed" : std::strerror(errno));
  }
  fTemporaryPath.clear();
}

}  // namespace standalone
