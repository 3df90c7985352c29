#ifndef STANDALONE_IMPORT_CODEBOOK_H
#define STANDALONE_IMPORT_CODEBOOK_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "standalone/dataset/variable.h"

namespace standalone {

enum class FieldType { kFromData, kString, kInteger, kNumber, kBoolean, kYear };

/// What a codebook says of one column.
struct CodebookField {
  std::string name;
  FieldType type = FieldType::kFromData;
  std::optional<std::string> title;
  std::vector<ValueLabel> categories;      ///< of a numeric field, the values as in ValueLabel
  std::optional<std::size_t> maxLength;    ///< in characters
  std::vector<std::string> missingValues;  ///< cells that hold one of them are missing; so are empty ones
  std::vector<std::string> trueValues;     ///< of a boolean field
  std::vector<std::string> falseValues;    ///< of a boolean field
  std::string decimalChar = ".";
  std::string groupChar;  ///< between digits; empty for none
};

/// Reads the fields of a Table Schema (JSON). A field without a type, or of the type "any", is a string when it has a
/// maxLength or a category that is a string, a number when all its categories are numbers, and else as the data are. A
/// category without a label is labelled by its value. What a Table Schema may say and this program cannot do is
/// refused. Names differ without regard to case. Failures are Errors that name the file and the field.
std::vector<CodebookField> ReadCodebook(const std::string& path);

}  // namespace standalone

#endif  // STANDALONE_IMPORT_CODEBOOK_H
