#include "tests/traces/rows.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "tests/traces/golden.h"

namespace traces {
namespace {

constexpr char kSeparator[] = " | ";

std::vector<std::string> Fields(const std::string& line) {
  std::vector<std::string> fields;
  std::size_t begin = 0;
  for (std::size_t end = line.find(kSeparator); end != std::string::npos; end = line.find(kSeparator, begin)) {
    fields.push_back(line.substr(begin, end - begin));
    begin = end + sizeof kSeparator - 1;
  }
  fields.push_back(line.substr(begin));
  return fields;
}

}  // namespace

std::vector<std::vector<std::string>> ReadRows(const std::string& path, std::size_t fields) {
  std::vector<std::vector<std::string>> rows;
  for (const std::string& line : ReadLines(ProjectPath(path))) {
    if (line.empty() || line.front() == '#') {
      continue;
    }
    rows.push_back(Fields(line));
    if (rows.back().size() != fields) {
      throw std::runtime_error(path + ": not understood: " + line);
    }
  }
  return rows;
}

std::vector<std::string> SourceFiles(const std::string& folder) {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(ProjectPath(folder))) {
    const std::string extension = entry.path().extension().string();
    if (extension == ".cpp" || extension == ".h") {
      files.push_back(folder + "/" + entry.path().filename().string());
    }
  }
  std::sort(files.begin(), files.end());
  return files;
}

}  // namespace traces
