#ifndef TESTS_MODULE_ASSERTION_REPORT_H
#define TESTS_MODULE_ASSERTION_REPORT_H

#include <string>
#include <string_view>

namespace module_test {

/// The regular expression of the whole text.
inline std::string Escaped(std::string_view text) {
  constexpr std::string_view kSpecial = "\\^$.|?*+()[]{}";
  std::string escaped;
  for (const char character : text) {
    escaped.append(kSpecial.find(character) == std::string_view::npos ? "" : "\\").append(1, character);
  }
  return escaped;
}

/// The regular expression of the report of a failed assertion; `file` is relative to the project's root.
inline std::string AssertionReport(std::string_view file, std::string_view function, std::string_view expression) {
  return "(^|[^/])" + Escaped(file) + ":[0-9]+: [^`]*" + Escaped(function) + "\\([^`]*: Assertion `" +
         Escaped(expression) + "' failed";
}

}  // namespace module_test

#endif  // TESTS_MODULE_ASSERTION_REPORT_H
