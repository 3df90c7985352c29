#ifndef STANDALONE_IMPORT_COLUMNS_H
#define STANDALONE_IMPORT_COLUMNS_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/import/codebook.h"

namespace standalone {

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

  /// Turns a cell into what DatasetWriter::AddCase() takes, valid until the next call. Otherwise says what is wrong
  /// with it, as the end of a sentence. Only after the type is settled.
  std::optional<std::string> Convert(std::string_view& cell);

 private:
  std::optional<std::string> ConvertString(std::string_view cell) const;
  std::optional<std::string> ConvertNumber(std::string_view& cell);
  std::optional<std::string> ConvertBoolean(std::string_view& cell) const;

  CodebookField fField;
  bool fHasNumber = false;
  std::string fScratch;
};

/// The columns of a header in its order, with what the codebook says of them. Throws Error when a name is invalid
/// or occurs twice, or the codebook names a column that is not there.
std::vector<Column> MakeColumns(const std::vector<std::string>& header, const std::string& dataPath,
                                std::vector<CodebookField> fields, const std::string& codebookPath);

}  // namespace standalone

#endif  // STANDALONE_IMPORT_COLUMNS_H
