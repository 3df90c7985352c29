#include "standalone/run/output_file.h"

#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace standalone {
namespace {

namespace fs = std::filesystem;

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

/// The path behind symbolic links, which stay: else the file would take the place of the link.
std::string WhereLinksLead(const std::string& path) {
  std::error_code error;
  if (!fs::is_symlink(path, error)) {
    return path;
  }
  const fs::path target = fs::canonical(path, error);
  return error ? path : target.string();
}

}  // namespace

OutputFile::OutputFile(const std::string& path) : fPath(WhereLinksLead(path)) {
  std::error_code error;
  const fs::file_status status = fs::status(fPath, error);
  if (fs::is_directory(status)) {
    ThrowCannotWrite(fPath, "it is a directory");
  }
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    errno = 0;
    fStream.open(fPath, std::ios::binary);
    if (!fStream) {
      ThrowCannotWrite(fPath, std::strerror(errno));
    }
    return;
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
  const bool inPlace = fStream && (fTemporaryPath.empty() || std::rename(fTemporaryPath.c_str(), fPath.c_str()) == 0);
  if (!inPlace) {
    ThrowCannotWrite(fPath, errno == 0 ? "writing failed" : std::strerror(errno));
  }
  fTemporaryPath.clear();
}

}  // namespace standalone
