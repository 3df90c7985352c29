#include "standalone/text/visible.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>

#include "standalone/text/trim.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

bool IsPrintableAscii(char c) {
  return c >= ' ' && c <= '~';
}

bool IsControl(char32_t code) {
  return code < 0x20 || (code >= 0x7F && code <= 0x9F);
}

/// Line and paragraph separators, and the marks, embeddings, overrides and isolates of bidirectional text.
bool BreaksOrTurnsLines(char32_t code) {
  return code == 0x061C || code == 0x200E || code == 0x200F || (code >= 0x2028 && code <= 0x202E) ||
         (code >= 0x2066 && code <= 0x2069);
}

std::string Escaped(char32_t code) {
  switch (code) {
    case '\n':
      return "\\n";
    case '\r':
      return "\\r";
    case '\t':
      return "\\t";
    default:
      return fmt::format(code < 0x100 ? "\\x{:02x}" : "\\u{:04x}", static_cast<std::uint32_t>(code));
  }
}

}  // namespace

std::string Visible(std::string_view text) {
  if (std::all_of(text.begin(), text.end(), IsPrintableAscii)) {
    return std::string(text);
  }
  const std::string valid = ReplaceInvalidUtf8(text);
  std::string visible;
  visible.reserve(valid.size());
  for (std::size_t offset = 0; offset < valid.size();) {
    const std::size_t length = CharacterLength(valid, offset);
    const char32_t code = CodePointAt(valid, offset);
    if (IsControl(code) || BreaksOrTurnsLines(code)) {
      visible += Escaped(code);
    } else {
      visible.append(valid, offset, length);
    }
    offset += length;
  }
  return visible;
}

std::string VisibleJson(std::string json) {
  constexpr std::string_view kLeadBytes = "\x7F\xC2\xD8\xE2";  // of what is to be escaped
  std::size_t offset = json.find_first_of(kLeadBytes);
  if (offset == std::string::npos) {
    return json;
  }
  std::string visible;
  visible.reserve(json.size());
  std::size_t begin = 0;
  for (; offset != std::string::npos; offset = json.find_first_of(kLeadBytes, offset)) {
    const char32_t code = CodePointAt(json, offset);
    const std::size_t length = CharacterLength(json, offset);
    if (IsControl(code) || BreaksOrTurnsLines(code)) {
      visible.append(json, begin, offset - begin);
      visible += fmt::format("\\u{:04x}", static_cast<std::uint32_t>(code));
      begin = offset + length;
    }
    offset += length;
  }
  return visible.append(json, begin, std::string::npos);
}

std::vector<std::string> VisibleLines(std::string_view text) {
  std::vector<std::string> lines;
  std::size_t end = text.find_first_of("\r\n");
  while (end != std::string_view::npos) {
    lines.push_back(Visible(text.substr(0, end)));
    text.remove_prefix(end + (text.substr(end, 2) == "\r\n" ? 2 : 1));
    end = text.find_first_of("\r\n");
  }
  lines.push_back(Visible(text));
  return lines;
}

std::string VisibleOnOneLine(std::string_view text) {
  std::string joined;
  for (const std::string& line : VisibleLines(text)) {
    const std::string_view part = Trimmed(line);
    joined.append(joined.empty() || part.empty() ? "" : " ").append(part);
  }
  return joined;
}

}  // namespace standalone
