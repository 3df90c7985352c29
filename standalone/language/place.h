#ifndef STANDALONE_LANGUAGE_PLACE_H
#define STANDALONE_LANGUAGE_PLACE_H

#include <cstddef>
#include <string_view>
#include <vector>

namespace standalone {

/// A stretch of a script that lies on one line. Lines and columns count from 1. Columns and lengths are characters,
/// that is Unicode code points; a byte that belongs to no valid character counts as one.
struct Place {
  int line = 1;
  std::size_t column = 1;
  std::size_t length = 0;  ///< 0 at the end of a command, after its last character
  std::size_t offset = 0;  ///< the same stretch in the command's text, in bytes
  std::size_t size = 0;
};

/// Finds the places of stretches of one command, whatever their number and order, without reading the command anew for
/// each.
class PlaceFinder {
 public:
  /// `text` stands in the script from `line` and, there, from after `before` on; it must outlive the finder.
  PlaceFinder(std::string_view text, int line, std::string_view before);

  /// The place of `size` bytes from `offset` on, which lie within the text and on one line of it.
  Place At(std::size_t offset, std::size_t size) const;

 private:
  struct Mark {
    std::size_t offset;
    int line;
    std::size_t column;
  };

  void Advance(Mark& mark, std::size_t offset) const;

  std::string_view fText;
  std::vector<Mark> fMarks;  // by offset, one every few kilobytes
};

}  // namespace standalone

#endif  // STANDALONE_LANGUAGE_PLACE_H
