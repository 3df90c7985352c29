#include "tests/fuzz/scratch_folder.h"

#include <cstdlib>
#include <fstream>

#include "tests/fuzz/check.h"

namespace fuzz {

namespace fs = std::filesystem;

ScratchFolder::ScratchFolder() {
  std::string name = (fs::temp_directory_path() / "mrset-fuzz-XXXXXX").string();
  Check(mkdtemp(name.data()) != nullptr, "a temporary folder can be made");
  fFolder = name;
}

ScratchFolder::~ScratchFolder() {
  std::error_code ignored;
  fs::remove_all(fFolder, ignored);
}

void ScratchFolder::Write(const std::string& name, std::string_view bytes) const {
  std::ofstream file(fFolder / name, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  Check(file.good(), "a temporary file can be written");
}

std::string ScratchFolder::Read(const std::string& name) const {
  std::string bytes(fs::file_size(fFolder / name), '\0');
  std::ifstream file(fFolder / name, std::ios::binary);
  file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  Check(file.good() || bytes.empty(), "a temporary file can be read");
  return bytes;
}

std::vector<std::string> ScratchFolder::Names() const {
  std::vector<std::string> names;
  for (const fs::directory_entry& entry : fs::directory_iterator(fFolder)) {
    names.push_back(entry.path().filename().string());
  }
  return names;
}

std::map<std::string, std::string> ScratchFolder::Contents() const {
  std::map<std::string, std::string> contents;
  for (const std::string& name : Names()) {
    contents.emplace(name, Read(name));
  }
  return contents;
}

void ScratchFolder::Clear() const {
  for (const fs::directory_entry& entry : fs::directory_iterator(fFolder)) {
    fs::remove_all(entry.path());
  }
}

}  // namespace fuzz
