#include "standalone/dataset/variable.h"

#include <algorithm>

#include "standalone/text/number_text.h"

namespace standalone {
namespace {

template <typename IsValue>
const std::string* FindLabel(const Variable& variable, IsValue isValue) {
  const auto found = std::find_if(variable.valueLabels.begin(), variable.valueLabels.end(),
                                  [&](const ValueLabel& entry) { return isValue(entry.value); });
  return found == variable.valueLabels.end() ? nullptr : &found->label;
}

}  // namespace

const std::string* LabelOf(const Variable& variable, const std::string& value) {
  if (variable.width != 0) {
    return FindLabel(variable, [&](const std::string& labelled) { return labelled == value; });
  }
  const std::optional<double> number = NumberValue(value);
  return number ? LabelOf(variable, *number) : nullptr;
}

const std::string* LabelOf(const Variable& variable, double value) {
  return FindLabel(variable, [&](const std::string& labelled) { return NumberValue(labelled) == value; });
}

}  // namespace standalone
