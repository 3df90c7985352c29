#include "standalone/files/input_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <utility>

#include "standalone/files/io.h"
#include "standalone/files/temporary_file.h"
#include "standalone/text/error.h"

namespace standalone {

namespace {

bool IsSeekable(int descriptor) {
  return lseek(descriptor, 0, SEEK_CUR) >= 0;
}

}  // namespace

InputFile::InputFile(const std::string& path) : InputFile(path, OpenFile(path, O_RDONLY)) {}

InputFile::InputFile(std::string name, Descriptor file) : fPath(std::move(name)), fFile(std::move(file)) {
  if (fFile.Number() < 0) {
    Fail(errno == ENOENT ? "does not exist" : std::string("cannot be read: ") + std::strerror(errno));
  }
  struct stat status = {};
  if (fstat(fFile.Number(), &status) == 0 && S_ISDIR(status.st_mode)) {
    Fail("is a directory");
  }
  fBegin = std::max<std::int64_t>(lseek(fFile.Number(), 0, SEEK_CUR), 0);
  if (S_ISREG(status.st_mode)) {
    fSize = static_cast<std::uint64_t>(std::max<std::int64_t>(status.st_size - fBegin, 0));
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
  const std::size_t count = ReadFrom(fFile, buffer, size);
  if (fCopying) {
    CopyAside(buffer, count);
  }
  return count;
}

void InputFile::AllowRewind(const std::string& neighbour) {
  if (IsSeekable(fFile.Number())) {
    return;
  }
  const TemporaryFile file(neighbour);  // its name goes at once, the open file stays
  fCopy = OpenFile(file.Path(), O_RDWR);
  if (fCopy.Number() < 0) {
    Fail(std::string("cannot be copied to a temporary file: ") + std::strerror(errno));
  }
  fCopying = true;
}

void InputFile::Rewind() {
  fFromCopy = fCopy.Number() >= 0;
  fBytesRead = 0;
  if ((fFromCopy ? lseek(fCopy.Number(), 0, SEEK_SET) : lseek(fFile.Number(), fBegin, SEEK_SET)) < 0) {
    Fail(std::string("cannot be read twice: ") + std::strerror(errno));
  }
}

std::size_t InputFile::ReadFrom(const Descriptor& file, char* buffer, std::size_t size) const {
  const ssize_t count = ReadSome(file.Number(), buffer, size);
  if (count < 0) {
    Fail(std::string("cannot be read: ") + std::strerror(errno));
  }
  return static_cast<std::size_t>(count);
}

void InputFile::CopyAside(const char* data, std::size_t size) {
  if (!WriteAll(fCopy.Number(), {data, size})) {
    Fail(std::string("cannot be copied to a temporary file: ") + std::strerror(errno));
  }
}

void InputFile::Fail(const std::string& what) const {
  throw Error(fPath + " " + what + ".");
}

}  // namespace standalone
