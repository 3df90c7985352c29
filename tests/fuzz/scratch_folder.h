#ifndef TESTS_FUZZ_SCRATCH_FOLDER_H
#define TESTS_FUZZ_SCRATCH_FOLDER_H

#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

/// A folder of its own in the system's folder for temporary files (TMPDIR), removed when the process ends well.
class ScratchFolder {
 public:
  ScratchFolder();
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;
  ~ScratchFolder();

  std::string Path(const std::string& name) const { return (fFolder / name).string(); }
  void Write(const std::string& name, std::string_view bytes) const;
  std::string Read(const std::string& name) const;

  std::vector<std::string> Names() const;

  /// All files, by name.
  std::map<std::string, std::string> Contents() const;

  /// Removes all files.
  void Clear() const;

 private:
  std::filesystem::path fFolder;
};

}  // namespace fuzz

#endif  // TESTS_FUZZ_SCRATCH_FOLDER_H
