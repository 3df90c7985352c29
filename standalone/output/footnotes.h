#ifndef STANDALONE_OUTPUT_FOOTNOTES_H
#define STANDALONE_OUTPUT_FOOTNOTES_H

#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

namespace standalone {

/// The footnotes of one table in the order in which they first occur; the same text is one note.
class Notes {
 public:
  /// The place of a note, from 0.
  std::size_t IndexOf(const std::string& text);

  const std::vector<std::string>& Texts() const { return fTexts; }

 private:
  std::vector<std::string> fTexts;
  std::unordered_map<std::string, std::size_t> fIndices;
};

/// What marks the note at a place: a to z, aa, ab, ...
std::string NoteLetters(std::size_t index);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_FOOTNOTES_H
