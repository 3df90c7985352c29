#include "standalone/import/input_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "standalone/data/temporary_file.h"
#include "standalone/import/importer.h"

namespace standalone {

namespace {

bool IsSeekable(int descriptor) {
  return lseek(descriptor, 0, SEEK_CUR) >= 0;
}

}  // namespace

std::string SurveyName(const std::string& path) {
  return path == "-" ? "standard input" : path;
}

InputFile::InputFile(const std::string& path) : InputFile(path, open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}

InputFile::InputFile(std::string name, int descriptor) : fPath(std::move(name)), fDescriptor(descriptor) {
  if (fDescriptor < 0) {
    Fail(errno == ENOENT ? "does not exist" : std::string("cannot be read: ") + std::strerror(errno));
  }
  struct stat status = {};
  if (fstat(fDescriptor, &status) == 0 && S_ISDIR(status.st_mode)) {
    close(fDescriptor);
    Fail("is a directory");
  }
  fBegin = std::max<std::int64_t>(lseek(fDescriptor, 0, SEEK_CUR), 0);
  if (S_ISREG(status.st_mode)) {
    fSize = static_cast<std::uint64_t>(std::max<std::int64_t>(status.st_size - fBegin, 0));
  }
}

InputFile::~InputFile() {
  close(fDescriptor);
  if (fCopy >= 0) {
    close(fCopy);
  }
}

std::size_t InputFile::Read(char* buffer, std::size_t size) {
  const std::size_t count = ReadNext(buffer, size);
  fBytesRead += count;
  return count;
}

std::size_t InputFile::ReadNext(char* buffer, std::size_t size) {
  if (fFromCopy) {
    const std::size_t count = ReadFrom(fCopy, buffer, size);
    if (count != 0) {
      return count;
    }
    fFromCopy = false;
  }
  const std::size_t count = ReadFrom(fDescriptor, buffer, size);
  if (fCopying) {
    CopyAside(buffer, count);
  }
  return count;
}

void InputFile::AllowRewind(const std::string& neighbour) {
  if (IsSeekable(fDescriptor)) {
    return;
  }
  const TemporaryFile file(neighbour);  // its name goes at once, the open file stays
  fCopy = open(file.Path().c_str(), O_RDWR | O_CLOEXEC);
  if (fCopy < 0) {
    Fail(std::string("cannot be copied aside: ") + std::strerror(errno));
  }
  fCopying = true;
}

void InputFile::Rewind() {
  fFromCopy = fCopy >= 0;
  fBytesRead = 0;
  if ((fFromCopy ? lseek(fCopy, 0, SEEK_SET) : lseek(fDescriptor, fBegin, SEEK_SET)) < 0) {
    Fail(std::string("cannot be read twice: ") + std::strerror(errno));
  }
}

std::size_t InputFile::ReadFrom(int descriptor, char* buffer, std::size_t size) {
  ssize_t count = 0;
  do {
    count = read(descriptor, buffer, size);
  } while (count < 0 && errno == EINTR);
  if (count < 0) {
    Fail(std::string("cannot be read: ") + std::strerror(errno));
  }
  return static_cast<std::size_t>(count);
}

void InputFile::CopyAside(const char* data, std::size_t size) {
  while (size > 0) {
    const ssize_t count = write(fCopy, data, size);
    if (count < 0 && errno != EINTR) {
      Fail(std::string("cannot be copied aside: ") + std::strerror(errno));
    }
    const std::size_t written = count < 0 ? 0 : static_cast<std::size_t>(count);
    data += written;
    size -= written;
  }
}

void InputFile::Fail(const std::string& what) const {
  throw ImportError(fPath + " " + what + ".");
}

}  // namespace standalone
