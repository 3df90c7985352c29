#include "standalone/cases/case_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>

namespace standalone {

namespace {

bool NeedsEscape(char character) {
  return static_cast<unsigned char>(character) < 0x20 || character == '"' || character == '\\';
}

void AppendEscaped(char character, std::string& out) {
  if (static_cast<unsigned char>(character) < 0x20) {
    fmt::format_to(std::back_inserter(out), "\\u{:04x}", static_cast<unsigned>(character));
  } else {
    out.append({'\\', character});
  }
}

}  // namespace

void AppendJsonString(std::string_view text, std::string& out) {
  out.push_back('"');
  auto position = text.begin();
  while (position != text.end()) {
    const auto escape = std::find_if(position, text.end(), NeedsEscape);
    out.append(position, escape);
    position = escape;
    if (position != text.end()) {
      AppendEscaped(*position++, out);
    }
  }
  out.push_back('"');
}

void AppendCell(std::string_view cell, bool isNumeric, std::string& out) {
  if (!isNumeric) {
    AppendJsonString(cell, out);
  } else {
    out.append(cell.empty() ? "null" : cell);
  }
}

}  // namespace standalone
