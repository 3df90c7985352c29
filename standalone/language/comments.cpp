#include "standalone/language/comments.h"

namespace standalone {

bool IsBlank(char c) {
  return kBlanks.find(c) != std::string_view::npos;
}

bool BeginsCommentAt(std::string_view text, std::size_t offset) {
  return text[offset] == '/' && offset + 1 < text.size() && text[offset + 1] == '*';
}

std::size_t EndOfComment(std::string_view text, std::size_t offset) {
  for (offset += 2; offset < text.size() && text[offset] != '\n'; ++offset) {
    if (text[offset] == '*' && offset + 1 < text.size() && text[offset + 1] == '/') {
      return offset + 2;
    }
  }
  return offset;
}

}  // namespace standalone
