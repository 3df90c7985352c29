#include "standalone/output/markdown/markdown_text.h"

#include <fmt/format.h>

#include <algorithm>

#include "standalone/text/visible.h"

namespace standalone {
namespace {

/// What can be markup anywhere in a line; the beginnings of lists, headings and numbers come after other text.
constexpr std::string_view kMarkup = "\\`*_{}[]<>&|~$#@!^=";

bool IsW(char c) {
  return c == 'w' || c == 'W';
}

/// Whether the character would make an address a link: "://" or "www.".
bool MakesLink(std::string_view text, std::size_t at) {
  if (text[at] == ':') {
    return text.substr(at + 1, 1) == "/";
  }
  return text[at] == '.' && at >= 3 && IsW(text[at - 1]) && IsW(text[at - 2]) && IsW(text[at - 3]);
}

/// The longest run of backticks.
std::size_t LongestFence(std::string_view text) {
  std::size_t longest = 0;
  std::size_t run = 0;
  for (const char c : text) {
    run = c == '`' ? run + 1 : 0;
    longest = std::max(longest, run);
  }
  return longest;
}

}  // namespace

std::string MarkdownText(std::string_view text) {
  const std::string visible = Visible(text);
  std::string markdown;
  for (std::size_t i = 0; i < visible.size(); ++i) {
    if (kMarkup.find(visible[i]) != std::string_view::npos || MakesLink(visible, i)) {
      markdown += '\\';
    }
    markdown += visible[i];
  }
  return markdown;
}

std::string MarkdownLines(const std::vector<std::string>& texts) {
  std::vector<std::string> lines;
  for (const std::string& text : texts) {
    for (const std::string& line : VisibleLines(text)) {
      lines.push_back(MarkdownText(line));
    }
  }
  return fmt::format("{}", fmt::join(lines, "<br>"));
}

std::string MarkdownCode(std::string_view text) {
  constexpr std::size_t kShortestFence = 3;
  const std::string fence(std::max(kShortestFence, LongestFence(text) + 1), '`');
  return fmt::format("{}\n{}\n{}\n", fence, fmt::join(VisibleLines(text), "\n"), fence);
}

}  // namespace standalone
