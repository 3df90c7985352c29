#include "standalone/files/locked_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <thread>

#include "standalone/files/io.h"

namespace standalone {
namespace {

constexpr mode_t kFileMode = 0600;

}  // namespace

LockedFile::LockedFile(const std::string& path, int flags) : fPath(path) {
  constexpr int kTries = 1000;
  for (int tries = 0; tries < kTries && !TryOpen(flags); ++tries) {
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
}

/// False when it is worth another try. Whoever replaces the file holds the lock, so a file that is no longer at its
/// path once the lock is there is opened anew.
bool LockedFile::TryOpen(int flags) {
  Descriptor file = OpenFile(fPath, flags | O_NONBLOCK, kFileMode);
  struct stat opened = {};
  if (file.Number() < 0 || fstat(file.Number(), &opened) != 0 || !S_ISREG(opened.st_mode)) {
    return true;
  }
  const bool isLocked = flock(file.Number(), LOCK_EX | LOCK_NB) == 0;
  struct stat named = {};
  if (!isLocked || stat(fPath.c_str(), &named) != 0 || named.st_ino != opened.st_ino) {
    return false;
  }
  fFile = std::move(file);
  return true;
}

std::string LockedFile::Contents() const {
  std::string text;
  AppendAll(fFile.Number(), text);
  return text;
}

void LockedFile::Write(const std::string& text) const {
  WriteAll(fFile.Number(), text);
}

void LockedFile::ReplaceBy(const std::string& contents) const {
  const std::string beside = fPath + ".new";
  unlink(beside.c_str());
  const Descriptor file = OpenFile(beside, O_WRONLY | O_CREAT | O_EXCL, kFileMode);
  if (!WriteAll(file.Number(), contents) || rename(beside.c_str(), fPath.c_str()) != 0) {
    unlink(beside.c_str());
  }
}

}  // namespace standalone
