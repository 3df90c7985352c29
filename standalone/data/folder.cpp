#include "standalone/data/folder.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace standalone {

std::string FolderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == std::string::npos ? "./" : path.substr(0, slash + 1);
}

int SyncFolderOf(const std::string& path) {
  const int descriptor = open(FolderOf(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  const int number = descriptor >= 0 && fsync(descriptor) == 0 ? 0 : errno;
  if (descriptor >= 0) {
    close(descriptor);
  }
  return number == EINVAL ? 0 : number;
}

std::string UnsyncedSentence(const std::string& name, const std::string& reason) {
  return name + ": done; the folder could not be synchronised: " + reason + ".";
}

}  // namespace standalone
