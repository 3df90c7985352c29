#include "tests/standalone/tabulation/memory_source.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <set>

#include "standalone/text/number_text.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

using Texts = std::vector<std::string>;

double NumberOf(const std::string& cell) {
  return cell.empty() ? std::numeric_limits<double>::quiet_NaN() : NumberValue(cell).value();
}

std::string_view TextOf(const std::string& cell) {
  return cell;
}

template <class Value>
std::vector<Value> ValuesOf(const std::vector<Value>& cells, bool (*isMissing)(const Value&)) {
  std::set<Value> values;
  for (const Value& cell : cells) {
    if (!isMissing(cell)) {
      values.insert(cell);
    }
  }
  return {values.begin(), values.end()};
}

template <class Value>
std::size_t CodeOf(const Value& cell, const std::vector<Value>& values) {
  const auto found = std::lower_bound(values.begin(), values.end(), cell);
  return found == values.end() || *found != cell ? 0 : static_cast<std::size_t>(found - values.begin()) + 1;
}

template <class Value>
void Encode(const std::vector<Value>& cells, const std::vector<Value>& values, bool isWide, Block& block) {
  const auto isFirst = [&cells](const Value& cell) { return cell == cells.front(); };
  if (values.empty() || (values.size() == 1 && std::all_of(cells.begin(), cells.end(), isFirst))) {
    block.form = BlockForm::kConstant;
    return;
  }
  block.form = isWide ? BlockForm::kWordCodes : BlockForm::kByteCodes;
  for (const Value& cell : cells) {
    const std::size_t code = CodeOf(cell, values);
    if (isWide) {
      block.wordCodes.push_back(static_cast<std::uint16_t>(code));
    } else {
      block.byteCodes.push_back(static_cast<std::uint8_t>(code));
    }
  }
}

bool IsNan(const double& number) {
  return std::isnan(number);
}

bool IsEmpty(const std::string_view& text) {
  return text.empty();
}

}  // namespace

void MemorySource::AddVariable(const Variable& variable, const Texts& cells) {
  fVariables.push_back(variable);
  fCells.push_back(cells);
}

void MemorySource::AddNumeric(const std::string& name, const Texts& cells, const std::vector<ValueLabel>& labels,
                              const std::string& label) {
  AddVariable({name, 0, label.empty() ? std::nullopt : std::optional(label), labels}, cells);
}

void MemorySource::AddString(const std::string& name, const Texts& cells, const std::vector<ValueLabel>& labels,
                             const std::string& label) {
  AddVariable({name, 8, label.empty() ? std::nullopt : std::optional(label), labels}, cells);
}

void MemorySource::AddDichotomies(const std::string& name, const Texts& variables, const std::string& countedValue) {
  AddSet({name, SetType::kDichotomy, "", countedValue, false, false, variables});
}

void MemorySource::AddCategories(const std::string& name, const Texts& variables) {
  AddSet({name, SetType::kCategory, "", "", false, false, variables});
}

const StoredSet* MemorySource::FindSet(std::string_view name) {
  const auto found = std::find_if(fSets.begin(), fSets.end(),
                                  [name](const StoredSet& set) { return CompareNoCase(set.name, name) == 0; });
  return found == fSets.end() ? nullptr : &*found;
}

void MemorySource::VisitSetNames(const std::function<void(std::string_view name)>& visit) {
  for (const StoredSet& set : fSets) {
    visit(set.name);
  }
}

int MemorySource::FindVariable(std::string_view name) {
  const auto found = std::find_if(fVariables.begin(), fVariables.end(),
                                  [name](const Variable& variable) { return CompareNoCase(variable.name, name) == 0; });
  return found == fVariables.end() ? -1 : static_cast<int>(found - fVariables.begin());
}

void MemorySource::VisitVariableNames(const std::function<void(std::string_view name)>& visit) {
  for (const Variable& variable : fVariables) {
    visit(variable.name);
  }
}

std::size_t MemorySource::BlockCount() {
  const std::size_t cases = fCells.empty() ? 0 : fCells[0].size();
  return (cases + fCasesOfBlock - 1) / fCasesOfBlock;
}

std::size_t MemorySource::CasesOfBlock(std::size_t number) {
  return std::min(fCasesOfBlock, fCells[0].size() - number * fCasesOfBlock);
}

void MemorySource::ReadBlock(int variable, std::size_t number, Block& block) {
  ++fReads;
  block = Block();
  block.isNumeric = VariableAt(variable).width == 0;
  block.cases = CasesOfBlock(number);
  for (std::size_t place = 0; place < block.cases; ++place) {
    const std::string& cell = fCells[static_cast<std::size_t>(variable)][number * fCasesOfBlock + place];
    if (block.isNumeric) {
      block.cellNumbers.push_back(NumberOf(cell));
    } else {
      block.cellTexts.push_back(TextOf(cell));
    }
  }
  block.form = block.isNumeric ? BlockForm::kNumbers : BlockForm::kTexts;
  if (fForm == Form::kPlain) {
    return;
  }
  if (block.isNumeric) {
    block.numbers = ValuesOf<double>(block.cellNumbers, IsNan);
    Encode(block.cellNumbers, block.numbers, fForm == Form::kWideCodes || block.numbers.size() > 255, block);
  } else {
    block.texts = ValuesOf<std::string_view>(block.cellTexts, IsEmpty);
    Encode(block.cellTexts, block.texts, fForm == Form::kWideCodes || block.texts.size() > 255, block);
  }
  block.cellNumbers.clear();
  block.cellTexts.clear();
}

}  // namespace standalone
