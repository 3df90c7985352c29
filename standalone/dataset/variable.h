#ifndef STANDALONE_DATASET_VARIABLE_H
#define STANDALONE_DATASET_VARIABLE_H

#include <optional>
#include <string>
#include <vector>

namespace standalone {

struct ValueLabel {
  std::string value;  ///< of a numeric variable, the shortest text that gives the number again
  std::string label;
};

/// One variable of the dictionary.
struct Variable {
  std::string name;
  int width = 0;  ///< 0 for a numeric variable, else the width in bytes
  std::optional<std::string> label;
  std::vector<ValueLabel> valueLabels;  ///< in the order of the codebook
};

/// The label of a value; null where it has none. Values of a numeric variable are compared as numbers.
const std::string* LabelOf(const Variable& variable, const std::string& value);
const std::string* LabelOf(const Variable& variable, double value);

/// Given to DatasetWriter in place of a width: that of the longest value in bytes, at least 1.
inline constexpr int kWidthOfLongestValue = -1;

}  // namespace standalone

#endif  // STANDALONE_DATASET_VARIABLE_H
