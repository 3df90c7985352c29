#include "standalone/dataset/dataset_operand.h"

#include <filesystem>
#include <string_view>
#include <system_error>

#include "standalone/text/number_text.h"
#include "standalone/text/visible.h"

namespace standalone {

std::string VersionComplaint(const std::string& text) {
  return WholeNumber(text) ? std::string() : ShownValue(text) + " is not a version number";
}

DatasetOperand ReadDatasetOperand(const std::string& text) {
  const std::size_t mark = text.rfind('@');
  std::error_code notThere;
  if (mark == std::string::npos || mark == 0 || std::filesystem::exists(text, notThere)) {
    return {text, std::nullopt};
  }
  const std::optional<std::int64_t> version = WholeNumber(std::string_view(text).substr(mark + 1));
  return version ? DatasetOperand{text.substr(0, mark), version} : DatasetOperand{text, std::nullopt};
}

std::vector<StoredSet> SetsOf(Dataset& dataset, const DatasetOperand& operand) {
  return operand.version ? dataset.SetsOfVersion(*operand.version) : dataset.Sets();
}

}  // namespace standalone
