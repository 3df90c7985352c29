#include "tests/traces/line_diff.h"

#include <algorithm>
#include <cstddef>

namespace traces {
namespace {

constexpr std::size_t kContext = 3;
constexpr std::size_t kShown = 12;

void Put(std::string& text, char mark, const std::string& line) {
  text.append(1, mark).append(" ").append(line).append("\n");
}

void PutDiffering(std::string& text, char mark, Lines::const_iterator begin, Lines::const_iterator end) {
  const auto count = static_cast<std::size_t>(end - begin);
  const std::size_t shown = std::min(count, kShown);
  std::for_each(begin, begin + static_cast<std::ptrdiff_t>(shown), [&](const auto& line) { Put(text, mark, line); });
  if (count > shown) {
    Put(text, mark, "... and " + std::to_string(count - shown) + " more lines");
  }
}

std::ptrdiff_t AtMost(std::ptrdiff_t lines) {
  return std::min(lines, static_cast<std::ptrdiff_t>(kContext));
}

}  // namespace

std::string Difference(const Lines& expected, const Lines& actual) {
  if (expected == actual) {
    return {};
  }
  const auto first = std::mismatch(expected.begin(), expected.end(), actual.begin(), actual.end());
  const auto last = std::mismatch(expected.rbegin(), std::make_reverse_iterator(first.first), actual.rbegin(),
                                  std::make_reverse_iterator(first.second));

  std::string text = "at line " + std::to_string(first.first - expected.begin() + 1) + "\n";
  std::for_each(first.first - AtMost(first.first - expected.begin()), first.first,
                [&](const auto& line) { Put(text, ' ', line); });
  PutDiffering(text, '-', first.first, last.first.base());
  PutDiffering(text, '+', first.second, last.second.base());
  const auto behind = last.first.base();
  std::for_each(behind, behind + AtMost(expected.end() - behind), [&](const auto& line) { Put(text, ' ', line); });
  return text;
}

}  // namespace traces
