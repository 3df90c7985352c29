#ifndef TESTS_TRACES_SOURCE_SCAN_H
#define TESTS_TRACES_SOURCE_SCAN_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace traces {

/// A string literal, or several that follow each other, and where it stands.
struct SourceLiteral {
  std::size_t line = 0;      ///< from 1
  std::string text;          ///< without the quotes, escapes resolved
  std::string callee;        ///< what the innermost call or construction around it calls or constructs; may be empty
  std::size_t argument = 0;  ///< which argument of the callee, from 0
  std::string function;      ///< the head of the function around it; empty outside of functions
  std::string assignedTo;    ///< what is defined as it, as in `constexpr const char* kText = "..."`; may be empty
};

struct SourceAssertion {
  std::size_t line = 0;
  std::string expression;  ///< as a report shows it
  std::string function;    ///< the head of the function around it
};

struct SourceFunction {
  std::string head;  ///< as in "bool IsEmpty(const Text& text) const", on one line
  std::string body;
};

/// What is found in the text of a C++ source file. Preprocessor lines and comments are passed over. A conversion to
/// std::string counts as what it converts, and literals within an assertion belong to that alone.
struct Source {
  std::vector<SourceLiteral> literals;
  std::vector<SourceAssertion> assertions;
  std::vector<SourceFunction> functions;
};

Source Scan(std::string_view text);

/// The scan of a file of the project, given relative to its root. Throws std::runtime_error when it cannot be read.
Source ScanFile(const std::string& path);

/// The name of the function whose head it is: the word before the parameters.
std::string NameInHead(const std::string& head);

/// A text with every run of blanks and line ends as one blank, and none at its ends.
std::string OnOneLine(std::string_view text);

}  // namespace traces

#endif  // TESTS_TRACES_SOURCE_SCAN_H
