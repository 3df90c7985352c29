#ifndef TESTS_REFERENCE_REPORT_H
#define TESTS_REFERENCE_REPORT_H

#include <string>
#include <vector>

namespace reference {

/// Thrown where an assertion would end the process.
struct AssertionFailed {
  std::string expression;
};

/// Throws AssertionFailed when `holds` is false.
void Require(bool holds, const std::string& expression);

/// Messages as lines, in order.
class Report {
 public:
  /// "^1" and "^2" of the pattern are filled with the arguments that are not empty, in order.
  void Error(const std::string& pattern, const std::string& first = {}, const std::string& second = {});
  void Warning(const std::string& pattern, const std::string& first = {}, const std::string& second = {});

  /// A line as it stands.
  void Add(const std::string& line) { fLines.push_back(line); }

  const std::vector<std::string>& Lines() const { return fLines; }

 private:
  std::vector<std::string> fLines;
};

}  // namespace reference

#endif  // TESTS_REFERENCE_REPORT_H
