#ifndef TESTS_TRACES_ROWS_H
#define TESTS_TRACES_ROWS_H

#include <cstddef>
#include <string>
#include <vector>

namespace traces {

/// The rows of a committed list: fields with " | " between them, lines that begin with "#" left out. Throws
/// std::runtime_error where a row has another number of fields.
std::vector<std::vector<std::string>> ReadRows(const std::string& path, std::size_t fields);

/// The C++ files of a folder of the project, relative to its root, in the order of their names.
std::vector<std::string> SourceFiles(const std::string& folder);

}  // namespace traces

#endif  // TESTS_TRACES_ROWS_H
