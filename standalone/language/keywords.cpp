#include "standalone/language/keywords.h"

#include <cstddef>

namespace standalone {

bool NamesKeyword(std::string_view upperCaseToken, std::string_view keyword) {
  constexpr std::size_t kShortestAbbreviation = 3;
  return upperCaseToken == keyword ||
         (upperCaseToken.size() >= kShortestAbbreviation && keyword.substr(0, upperCaseToken.size()) == upperCaseToken);
}

}  // namespace standalone
