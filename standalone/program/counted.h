#ifndef STANDALONE_PROGRAM_COUNTED_H
#define STANDALONE_PROGRAM_COUNTED_H

#include <cstddef>
#include <string>

namespace standalone {

/// A number of things, as in "1 case" and "2 cases".
inline std::string Counted(std::size_t number, const std::string& thing) {
  return std::to_string(number) + " " + thing + (number == 1 ? "" : "s");
}

}  // namespace standalone

#endif  // STANDALONE_PROGRAM_COUNTED_H
