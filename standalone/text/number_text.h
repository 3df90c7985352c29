#ifndef STANDALONE_TEXT_NUMBER_TEXT_H
#define STANDALONE_TEXT_NUMBER_TEXT_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace standalone {

// A number's text is a sign or none, digits with or without a decimal point, and an exponent or none; what it stands
// for is not beyond the greatest double. It has the value of the nearest double, which may be 0.

/// The same number as JSON writes it, digit for digit: `text` itself, or, where it needs another form ("+1", "007",
/// ".5"), a text made in `scratch`. Nothing when `text` is no number.
std::optional<std::string_view> JsonNumber(std::string_view text, std::string& scratch);

/// Whether the text is a number as JSON writes it.
bool IsJsonNumber(std::string_view text);

/// The value of a number's text; nothing when it is none.
std::optional<double> NumberValue(std::string_view text);

inline bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

/// Whether the text is digits, one at least, and nothing else.
bool IsDigits(std::string_view text);

/// The number that digits alone stand for, up to 999,999,999; nothing for any other text. So are numbers of options
/// written.
std::optional<std::int64_t> WholeNumber(std::string_view text);

/// The shortest text that gives the number again.
std::string ShortestNumber(double number);

}  // namespace standalone

#endif  // STANDALONE_TEXT_NUMBER_TEXT_H
