#include "standalone/output/html/html_text.h"

#include <fmt/format.h>

#include <vector>

#include "standalone/text/visible.h"

namespace standalone {
namespace {

std::string Escaped(std::string_view text) {
  std::string html;
  html.reserve(text.size());
  for (const char c : text) {
    switch (c) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '"':
        html += "&quot;";
        break;
      case '\'':
        html += "&#39;";
        break;
      default:
        html += c;
    }
  }
  return html;
}

std::string Joined(std::string_view text, std::string_view separator) {
  std::vector<std::string> lines = VisibleLines(text);
  for (std::string& line : lines) {
    line = Escaped(line);
  }
  return fmt::format("{}", fmt::join(lines, separator));
}

std::string WithoutTabs(std::string_view text) {
  constexpr std::string_view kTab = "    ";
  std::string blanks;
  for (const char c : text) {
    blanks += c == '\t' ? kTab : std::string_view(&c, 1);
  }
  return blanks;
}

}  // namespace

std::string HtmlText(std::string_view text) {
  return Escaped(Visible(text));
}

std::string HtmlLines(std::string_view text) {
  return Joined(text, "<br>");
}

std::string HtmlCode(std::string_view text) {
  return Joined(WithoutTabs(text), "\n");
}

}  // namespace standalone
