#include "standalone/dataset/cell_values.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "standalone/text/trim.h"

namespace standalone {

namespace {

using Visit = std::function<bool(const CellValue& value, std::size_t cases)>;

bool VisitText(std::string_view text, std::size_t cases, const Visit& visit) {
  const std::string_view trimmed = Trimmed(text);
  return trimmed.empty() || visit(trimmed, cases);
}

bool VisitHead(const BlockHead& head, const Visit& visit) {
  for (std::size_t index = 0; index < head.counts.size(); ++index) {
    if (!(head.isNumeric ? visit(head.numbers[index], head.counts[index])
                         : VisitText(head.texts[index], head.counts[index], visit))) {
      return false;
    }
  }
  return true;
}

bool VisitCells(const Block& block, const Visit& visit) {
  return std::all_of(block.cellNumbers.begin(), block.cellNumbers.end(),
                     [&](double number) { return std::isnan(number) || visit(number, 1); }) &&
         std::all_of(block.cellTexts.begin(), block.cellTexts.end(),
                     [&](std::string_view text) { return VisitText(text, 1, visit); });
}

ValueCounts::Value Kept(const CellValue& value) {
  if (const auto* text = std::get_if<std::string_view>(&value)) {
    return std::string(*text);
  }
  return std::get<double>(value);
}

}  // namespace

void VisitValues(Dataset& dataset, int variable, const Visit& visit) {
  Block block;
  bool goesOn = true;
  for (std::size_t number = 0; goesOn && number < dataset.BlockCount(); ++number) {
    const BlockHead head = dataset.ReadHead(variable, number);
    if (head.form == BlockForm::kNumbers || head.form == BlockForm::kTexts) {
      dataset.ReadBlock(variable, number, block);
      goesOn = VisitCells(block, visit);
    } else {
      goesOn = VisitHead(head, visit);
    }
  }
}

ValueCounts::ValueCounts(Dataset& dataset, int variable, std::size_t most) : fMost(most) {
  std::size_t valid = 0;
  VisitValues(dataset, variable, [&](const CellValue& value, std::size_t cases) {
    Add(value, cases);
    valid += cases;
    return true;
  });
  std::size_t all = 0;
  for (std::size_t number = 0; number < dataset.BlockCount(); ++number) {
    all += dataset.CasesOfBlock(number);
  }
  fMissing = all - valid;
}

/// What is pushed out is greater than all that is kept, then and ever after.
void ValueCounts::Add(const CellValue& value, std::size_t cases) {
  Value kept = Kept(value);
  if (fValues.size() == fMost && (fMost == 0 || std::prev(fValues.end())->first < kept)) {
    fOthers += cases;
    return;
  }
  fValues[std::move(kept)] += cases;
  if (fValues.size() > fMost) {
    const auto greatest = std::prev(fValues.end());
    fOthers += greatest->second;
    fValues.erase(greatest);
  }
}

}  // namespace standalone
