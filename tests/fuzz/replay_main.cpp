// Runs a fuzz target on every file of a corpus folder.

#include <algorithm>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <vector>

#include "tests/fuzz/target.h"

namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FilesIn(const fs::path& folder) {
  std::vector<fs::path> files;
  for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
    files.push_back(entry.path());
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::vector<char> Read(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    throw std::runtime_error(path.string() + " cannot be read.");
  }
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// The name goes out first: when the target ends the process, it is the last one shown.
void Replay(const fs::path& path) {
  std::cout << path.filename().string() << std::endl;
  const std::vector<char> input = Read(path);
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

int ReplayFolder(const fs::path& folder) {
  const std::vector<fs::path> files = FilesIn(folder);
  if (files.empty()) {
    std::cerr << folder.string() << " holds no input.\n";
    return 1;
  }
  for (const fs::path& path : files) {
    Replay(path);
  }
  std::cout << files.size() << " inputs.\n";
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "Usage: " << argv[0] << " FOLDER\n";
    return 2;
  }
  try {
    return ReplayFolder(argv[1]);
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
