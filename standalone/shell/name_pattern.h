#ifndef STANDALONE_SHELL_NAME_PATTERN_H
#define STANDALONE_SHELL_NAME_PATTERN_H

#include <string>
#include <string_view>

namespace standalone {

/// Names without regard to case: in a pattern, "*" stands for any characters and "?" for one. Without these a pattern
/// stands for the names that begin so.
class NamePattern {
 public:
  explicit NamePattern(std::string_view pattern);

  /// What every name that matches begins with, in upper case.
  std::string_view Beginning() const;

  bool Matches(std::string_view name) const;

 private:
  std::string fPattern;  // in upper case
};

}  // namespace standalone

#endif  // STANDALONE_SHELL_NAME_PATTERN_H
