#ifndef STANDALONE_OUTPUT_PLAIN_TEXT_LINE_H
#define STANDALONE_OUTPUT_PLAIN_TEXT_LINE_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace standalone {

/// A line of text made of parts that begin at given terminal columns. Blanks stand only where something follows them.
class TextLine {
 public:
  /// Adds a part; one that would begin before the last one's end follows it after a blank.
  void PutAt(std::size_t column, std::string_view text);

  /// Adds a part that ends where the column after it is `end`.
  void PutBefore(std::size_t end, std::string_view text);

  /// The line with its line end; begins the next one.
  std::string Take();

 private:
  std::string fText;
  std::size_t fWidth = 0;
};

/// Gives the numbers' texts blanks, so that they take the same width and their decimal points stand below each other.
/// Texts without a digit stand where whole numbers end; empty ones stay so.
void AlignAtPoint(std::vector<std::string>& texts);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_PLAIN_TEXT_LINE_H
