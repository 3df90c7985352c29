#ifndef STANDALONE_CASES_BLOCK_BUILDER_H
#define STANDALONE_CASES_BLOCK_BUILDER_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/cases/block_codec.h"

namespace standalone {

/// Takes the cells of one variable case by case and makes blocks of them. There may be a builder for each of many
/// columns, so an empty one is small.
class BlockBuilder {
 public:
  explicit BlockBuilder(bool isNumeric) : fIsNumeric(isNumeric) {}

  /// The next cell: of a numeric variable a number as JSON writes it, of another one a text without NUL; empty where
  /// it is missing. At most kMaxCasesOfBlock cells make a block.
  void Add(std::string_view cell) {
    std::uint16_t code = 0;
    if (!cell.empty()) {
      code = cell.size() == 1 && cell[0] >= '0' && cell[0] <= '9' ? CodeOfDigit(cell) : CodeOf(cell);
    }
    AddCode(code);
  }

  std::size_t Cases() const { return fIsWide ? fWords.size() : fBytes.size(); }

  /// The bytes that the cells take, in the order of their size.
  std::size_t Memory() const;

  /// The block of the cells that were added, at least one; the next block begins.
  EncodedBlock Finish();

 private:
  /// Recent short texts of cells with their codes: a cache of one place for each hash.
  struct KnownCell {
    std::uint64_t text = 0;
    std::uint16_t code = 0;
  };
  using KnownCells = std::array<KnownCell, 256>;

  std::uint16_t CodeOfDigit(std::string_view cell) {
    std::uint16_t& code = fCodeOfDigit[static_cast<std::size_t>(cell[0] - '0')];
    if (code == 0) {
      code = CodeOfValue(cell);
    }
    return code;
  }
  void AddCode(std::uint16_t code) {
    if (!fIsWide) {
      fBytes.push_back(static_cast<std::uint8_t>(code));
    } else {
      fWords.push_back(code);
    }
  }

  std::uint16_t CodeOf(std::string_view cell);
  std::uint16_t CodeOfValue(std::string_view cell);
  std::uint16_t CodeOfNumber(double number);
  std::uint16_t CodeOfText(std::string_view text);
  template <typename IsSame, typename HashOf>
  std::uint16_t FindOrPlace(std::uint64_t hash, const IsSame& isSame, const HashOf& hashOf);
  std::uint16_t TakeCode();
  template <typename HashOf>
  void GrowIndex(const HashOf& hashOf);
  std::size_t ValueCount() const { return fIsNumeric ? fNumbers.size() : fTextEnds.size(); }
  std::string_view TextAt(std::size_t index) const;
  bool IsPlainSmaller() const;
  EncodedBlock FinishCodes();
  EncodedBlock FinishPlain() const;
  std::uint16_t CodeAt(std::size_t index) const { return fIsWide ? fWords[index] : fBytes[index]; }

  bool fIsNumeric;
  bool fIsWide = false;  // codes take two bytes
  std::array<std::uint16_t, 10> fCodeOfDigit{};
  std::uint16_t fShortCells = 0;  // that were no digits, as long as there is no cache
  std::unique_ptr<KnownCells> fKnownCells;

  // The values in the order in which they came; the code of each is its index plus 1. With all kMaxCasesOfBlock cells
  // different the last one has none, and the code 0.
  std::vector<double> fNumbers;
  std::vector<char> fText;  // a string would keep its memory when it is assigned an empty one
  std::vector<std::uint32_t> fTextEnds;
  std::vector<std::uint16_t> fIndex;  // a hash table of codes

  std::vector<std::uint8_t> fBytes;
  std::vector<std::uint16_t> fWords;
};

}  // namespace standalone

#endif  // STANDALONE_CASES_BLOCK_BUILDER_H
