#include "tests/reference/report.h"

namespace reference {
namespace {

std::string UpToNul(const std::string& text) {
  return text.c_str();
}

std::string Fill(const std::string& pattern, const std::string& first, const std::string& second) {
  std::vector<std::string> arguments;
  if (!first.empty()) {
    arguments.push_back(UpToNul(first));
  }
  if (!second.empty()) {
    arguments.push_back(UpToNul(second));
  }
  std::string text;
  std::size_t at = 0;
  while (at < pattern.size()) {
    const std::string next = pattern.substr(at, 2);
    if (next == "^1" || next == "^2") {
      const std::size_t number = next == "^1" ? 0 : 1;
      text += number < arguments.size() ? arguments[number] : "";
      at += 2;
    } else {
      text += pattern[at];
      at += 1;
    }
  }
  return text;
}

}  // namespace

void Require(bool holds, const std::string& expression) {
  if (!holds) {
    throw AssertionFailed{expression};
  }
}

void Report::Error(const std::string& pattern, const std::string& first, const std::string& second) {
  fLines.push_back("error: " + Fill(pattern, first, second));
}

void Report::Warning(const std::string& pattern, const std::string& first, const std::string& second) {
  fLines.push_back("warning: " + Fill(pattern, first, second));
}

}  // namespace reference
