#ifndef STANDALONE_FILES_SAME_FILE_H
#define STANDALONE_FILES_SAME_FILE_H

#include <filesystem>
#include <string>
#include <system_error>

namespace standalone {

/// Whether both paths lead to one file that exists.
inline bool IsSameFile(const std::string& first, const std::string& second) {
  std::error_code notThere;
  return std::filesystem::equivalent(first, second, notThere);
}

}  // namespace standalone

#endif  // STANDALONE_FILES_SAME_FILE_H
