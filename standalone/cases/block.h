#ifndef STANDALONE_CASES_BLOCK_H
#define STANDALONE_CASES_BLOCK_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace standalone {

/// How the cells of a block are kept.
enum class BlockForm {
  kConstant = 0,   ///< every cell is the one value, or every cell is missing where there is none
  kByteCodes = 1,  ///< a code of one byte for each case
  kWordCodes = 2,  ///< a code of two bytes for each case
  kNumbers = 3,    ///< a number for each case
  kTexts = 4       ///< a text for each case
};

/// The cells of one variable in consecutive cases. Of a numeric variable the vectors of numbers are used, else those of
/// texts.
struct Block {
  BlockForm form = BlockForm::kConstant;
  bool isNumeric = true;
  std::size_t cases = 0;

  /// The different values of the forms with codes, and the one value of a constant, ascending (texts by bytes). None
  /// is missing: no number is NaN, no text is empty.
  std::vector<double> numbers;
  std::vector<std::string_view> texts;

  /// One for each case, of the form that it is named after: 0 is missing, else the index of the value plus 1.
  std::vector<std::uint8_t> byteCodes;
  std::vector<std::uint16_t> wordCodes;

  /// One for each case, of the form kNumbers; NaN is missing.
  std::vector<double> cellNumbers;
  /// One for each case, of the form kTexts; empty is missing.
  std::vector<std::string_view> cellTexts;

  std::string bytes;  ///< what the views point into
};

/// What stands at the head of a block: the values of the forms with codes, with the number of cases that hold each.
struct BlockHead {
  BlockForm form = BlockForm::kConstant;
  bool isNumeric = true;
  std::size_t cases = 0;
  std::size_t missing = 0;  ///< cases without a value
  /// As in Block; empty of the forms kNumbers and kTexts.
  std::vector<double> numbers;
  std::vector<std::string> texts;
  std::vector<std::size_t> counts;  ///< one for each value
};

}  // namespace standalone

#endif  // STANDALONE_CASES_BLOCK_H
