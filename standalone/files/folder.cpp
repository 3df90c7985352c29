#include "standalone/files/folder.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "standalone/files/io.h"

namespace standalone {

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

bool IsThere(const std::string& path) {
  struct stat status = {};
  return lstat(path.c_str(), &status) == 0;
}

int SyncFolderOf(const std::string& path) {
  const Descriptor folder = OpenFile(FolderOf(path), O_RDONLY | O_DIRECTORY);
  const int number = folder.Number() >= 0 && fsync(folder.Number()) == 0 ? 0 : errno;
  return number == EINVAL ? 0 : number;
}

std::string UnsyncedSentence(const std::string& name, const std::string& reason) {
  return name + ": done; the folder could not be synchronised: " + reason + ".";
}

}  // namespace standalone
