#include "standalone/output/footnotes.h"

namespace standalone {

std::size_t Notes::IndexOf(const std::string& text) {
  const auto [entry, isNew] = fIndices.emplace(text, fTexts.size());
  if (isNew) {
    fTexts.push_back(text);
  }
  return entry->second;
}

std::string NoteLetters(std::size_t index) {
  constexpr std::size_t kLetters = 26;
  std::string letters(1, static_cast<char>('a' + index % kLetters));
  return index < kLetters ? letters : NoteLetters(index / kLetters - 1) + letters;
}

}  // namespace standalone
