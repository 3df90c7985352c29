#include "standalone/text/names.h"

#include "standalone/text/unicode.h"

namespace standalone {
namespace {

constexpr std::size_t kMaxNameBytes = 64;
constexpr std::string_view kBeginningSigns = "@#_";
constexpr std::string_view kContinuingSigns = "_.$@#0123456789";

bool IsOneOf(char c, std::string_view characters) {
  return characters.find(c) != std::string_view::npos;
}

bool ContinuesNameAt(std::string_view text, std::size_t offset) {
  return IsLetterAt(text, offset) || IsOneOf(text[offset], kContinuingSigns);
}

bool IsReservedWord(std::string_view name) {
  return CompareNoCase(name, "ALL") == 0 || CompareNoCase(name, "TO") == 0;
}

}  // namespace

bool IsValidVariableName(std::string_view name) {
  return !name.empty() && name.size() <= kMaxNameBytes && BeginsNameAt(name, 0) && EndOfName(name, 0) == name.size() &&
         name.back() != '.' && !IsReservedWord(name);
}

bool IsValidSetName(std::string_view name) {
  return name.size() <= kMaxNameBytes && name.substr(0, 1) == "$" && IsValidVariableName(name.substr(1));
}

bool BeginsNameAt(std::string_view text, std::size_t offset) {
  return IsLetterAt(text, offset) || IsOneOf(text[offset], kBeginningSigns);
}

std::size_t EndOfName(std::string_view text, std::size_t offset) {
  while (offset < text.size() && ContinuesNameAt(text, offset)) {
    offset += CharacterLength(text, offset);
  }
  return offset;
}

}  // namespace standalone
