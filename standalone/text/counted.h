#ifndef STANDALONE_TEXT_COUNTED_H
#define STANDALONE_TEXT_COUNTED_H

#include <cstddef>
#include <string>
#include <vector>

namespace standalone {

/// A number of things, as in "1 case" and "2 cases".
template <typename Number>
std::string Counted(Number number, const std::string& thing) {
  return std::to_string(number) + " " + thing + (number == 1 ? "" : "s");
}

/// Texts as in "a", "a and b" and "a, b and c".
inline std::string Listed(const std::vector<std::string>& texts) {
  std::string list;
  for (std::size_t index = 0; index < texts.size(); ++index) {
    list += (index == 0 ? "" : index + 1 == texts.size() ? " and " : ", ") + texts[index];
  }
  return list;
}

}  // namespace standalone

#endif  // STANDALONE_TEXT_COUNTED_H
