#include "standalone/shell/name_pattern.h"

#include <cstddef>

#include "standalone/text/unicode.h"

namespace standalone {
namespace {

constexpr const char* kWildcards = "*?";

/// Goes back to the last "*" alone: what an earlier one stands for need not change.
bool Fits(std::string_view name, std::string_view pattern) {
  std::size_t at = 0;
  std::size_t next = 0;
  std::size_t star = std::string_view::npos;
  std::size_t afterStar = 0;
  while (at < name.size()) {
    if (next < pattern.size() && pattern[next] == '*') {
      star = next++;
      afterStar = at;
    } else if (next < pattern.size() && pattern[next] == '?') {
      ++next;
      at += CharacterLength(name, at);
    } else if (next < pattern.size() && pattern[next] == name[at]) {
      ++next;
      ++at;
    } else if (star != std::string_view::npos) {
      afterStar += CharacterLength(name, afterStar);
      at = afterStar;
      next = star + 1;
    } else {
      return false;
    }
  }
  return pattern.find_first_not_of('*', next) == std::string_view::npos;
}

}  // namespace

NamePattern::NamePattern(std::string_view pattern) : fPattern(ToUpper(pattern)) {
  if (fPattern.find_first_of(kWildcards) == std::string::npos) {
    fPattern += '*';
  }
}

std::string_view NamePattern::Beginning() const {
  return std::string_view(fPattern).substr(0, fPattern.find_first_of(kWildcards));
}

bool NamePattern::Matches(std::string_view name) const {
  return Fits(ToUpper(name), fPattern);
}

}  // namespace standalone
