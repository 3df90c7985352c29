#include "standalone/files/output_file.h"

#include <fmt/format.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iostream>
#include <optional>
#include <string>
#include <system_error>

#include "standalone/text/error.h"
#include "standalone/text/notice.h"

namespace standalone {
namespace {

namespace fs = std::filesystem;

std::string NameOf(const std::string& path) {
  return "The output file " + path;
}

[[noreturn]] void ThrowCannotWrite(const std::string& path, const std::string& reason) {
  throw Error(fmt::format("{} cannot be written: {}.", NameOf(path), reason));
}

bool IsOpenAs(int descriptor, const std::string& path) {
  struct stat named = {};
  struct stat opened = {};
  return stat(path.c_str(), &named) == 0 && fstat(descriptor, &opened) == 0 && named.st_dev == opened.st_dev &&
         named.st_ino == opened.st_ino;
}

/// The stream of this program that the path names, as /dev/stdout does; null when it names none.
std::ostream* OwnStreamAt(const std::string& path) {
  return IsOpenAs(STDOUT_FILENO, path) ? &std::cout : IsOpenAs(STDERR_FILENO, path) ? &std::cerr : nullptr;
}

/// The path to which symbolic links lead. The links stay: else the file would take the place of the link.
std::string WhereLinksLead(const std::string& path) {
  std::error_code error;
  if (!fs::is_symlink(path, error)) {
    return path;
  }
  const fs::path target = fs::canonical(path, error);
  if (error) {
    ThrowCannotWrite(path, "it is a link that leads nowhere");
  }
  return target.string();
}

}  // namespace

OutputFile::OutputFile(const std::string& path, const ComplaintOn& complaintOn) : fPath(path) {
  if (std::ostream* own = OwnStreamAt(path)) {
    fStream = own;
    return;
  }
  const std::string target = WhereLinksLead(path);
  if (const std::optional<std::string> complaint = complaintOn(target)) {
    throw Error(*complaint);
  }
  std::error_code error;
  const fs::file_status status = fs::status(target, error);
  if (fs::is_directory(status)) {
    ThrowCannotWrite(path, "it is a directory");
  }
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    OpenAsItIs();
  } else {
    OpenBesideIt(target);
  }
}

void OutputFile::OpenBesideIt(const std::string& target) {
  fTemporary = std::make_unique<TemporaryFile>(target, NameOf(fPath));
  fFile.open(fTemporary->Path(), std::ios::binary);
  if (!fFile) {
    FailToWrite(NameOf(fPath), errno);
  }
}

void OutputFile::OpenAsItIs() {
  fFile.open(fPath, std::ios::binary);
  if (!fFile) {
    FailToWrite(NameOf(fPath), errno);
  }
}

void OutputFile::Commit() {
  errno = 0;
  const bool hasFailed = !*fStream;
  if (hasFailed) {
    fStream->clear();  // to write what is left once more tells why it could not be
  }
  fStream->flush();
  if (hasFailed || !*fStream) {
    ThrowCannotWrite(fPath, errno == 0 ? "writing failed" : std::strerror(errno));
  }
  if (fTemporary) {
    fFile.close();
    if (const std::optional<std::string> unsynced = fTemporary->Replace()) {
      std::cerr << NoticeLine(*unsynced);
    }
  }
}

}  // namespace standalone
