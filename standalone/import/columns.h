#ifndef STANDALONE_IMPORT_COLUMNS_H
#define STANDALONE_IMPORT_COLUMNS_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/import/codebook.h"

namespace standalone {

/// Cells that keep a column of numbers from being numeric.
struct OddCells {
  std::size_t count = 0;
  std::size_t inOtherForm = 0;  ///< of these, numbers that would not stay as they are written, such as 007
  std::size_t numbers = 0;      ///< the other cells, without missing ones
  std::size_t line = 0;         ///< of the first
  std::string text;             ///< of the first
};

/// One column of the data, which becomes one variable.
class Column {
 public:
  explicit Column(CodebookField field);

  /// Learns from a cell; only of use while the type comes from the data.
  void Learn(std::string_view cell);

  /// Whether no more cells need be learned from.
  bool IsSettled() const { return fField.type != FieldType::kFromData; }

  /// Takes the type that all cells have shown: numeric where each cell that is not blank is a number as it is written
  /// without loss, so without leading zeros or a plus sign; string otherwise, and where all are blank.
  void Settle();

  /// The variable; of a string without maxLength, with the width of its longest value.
  Variable ToVariable() const;

  /// Where the type came from the data and it became a string although most cells are numbers: how many keep it from
  /// that.
  const OddCells& Odd() const { return fOdd; }
  bool IsStringForFewCells() const;

  /// Turns a cell into what DatasetWriter::AddCase() takes, valid until the next call. Otherwise says what is wrong
  /// with it, as the end of a sentence. Only after the type is settled. `line` is where the cell stands.
  std::optional<std::string> Convert(std::string_view& cell, std::size_t line);

 private:
  bool IsMissing(std::string_view cell) const;
  void CountOdd(std::string_view cell, std::size_t line);
  std::optional<std::string> ConvertString(std::string_view cell) const;
  std::optional<std::string> ConvertNumber(std::string_view& cell);
  std::string_view WithPlainMarks(std::string_view number);
  std::optional<std::string> ConvertBoolean(std::string_view& cell) const;

  CodebookField fField;
  bool fHasNumber = false;
  bool fIsStringByData = false;
  OddCells fOdd;
  std::string fPlain;
  std::string fScratch;
};

/// The columns of a header in its order, with what the codebook says of them. Throws Error when a name is invalid
/// or occurs twice, or the codebook names a column that is not there.
std::vector<Column> MakeColumns(const std::vector<std::string>& header, const std::string& dataPath,
                                std::vector<CodebookField> fields, const std::string& codebookPath);

}  // namespace standalone

#endif  // STANDALONE_IMPORT_COLUMNS_H
