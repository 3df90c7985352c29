#ifndef TESTS_STANDALONE_STORED_CASES_H
#define TESTS_STANDALONE_STORED_CASES_H

#include <cmath>
#include <cstddef>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "standalone/cases/block.h"
#include "standalone/dataset/dataset.h"
#include "standalone/text/number_text.h"

namespace standalone {

/// The cell of a case in a block: a number or a text, null where it is missing.
inline nlohmann::json CellOf(const Block& block, std::size_t index) {
  const auto value = [&block](std::size_t code) -> nlohmann::json {
    if (code == 0) {
      return nullptr;
    }
    return block.isNumeric ? nlohmann::json(block.numbers[code - 1]) : nlohmann::json(block.texts[code - 1]);
  };
  switch (block.form) {
    case BlockForm::kByteCodes:
      return value(block.byteCodes[index]);
    case BlockForm::kWordCodes:
      return value(block.wordCodes[index]);
    case BlockForm::kNumbers:
      return std::isnan(block.cellNumbers[index]) ? nlohmann::json() : nlohmann::json(block.cellNumbers[index]);
    case BlockForm::kTexts:
      return block.cellTexts[index].empty() ? nlohmann::json() : nlohmann::json(block.cellTexts[index]);
    default:
      return value(block.numbers.empty() && block.texts.empty() ? 0 : 1);
  }
}

/// The cases of a dataset, read cell by cell: each a JSON array.
inline std::vector<nlohmann::json> StoredCases(Dataset& dataset) {
  std::vector<nlohmann::json> cases;
  for (std::size_t number = 0; number < dataset.BlockCount(); ++number) {
    const std::size_t first = cases.size();
    cases.resize(first + dataset.CasesOfBlock(number), nlohmann::json::array());
    for (int variable = 0; variable < dataset.VariableCount(); ++variable) {
      Block block;
      dataset.ReadBlock(variable, number, block);
      for (std::size_t index = 0; index < block.cases; ++index) {
        cases[first + index].push_back(CellOf(block, index));
      }
    }
  }
  return cases;
}

inline std::vector<nlohmann::json> StoredCases(const std::string& path) {
  Dataset dataset(path);
  return StoredCases(dataset);
}

/// The same as texts, in which numbers are as short as may be.
inline std::vector<std::string> StoredCaseTexts(const std::string& path) {
  std::vector<std::string> texts;
  for (const nlohmann::json& cells : StoredCases(path)) {
    std::string text;
    for (const nlohmann::json& cell : cells) {
      text += (text.empty() ? "[" : ",") + (cell.is_number() ? ShortestNumber(cell.get<double>()) : cell.dump());
    }
    texts.push_back(text + "]");
  }
  return texts;
}

}  // namespace standalone

#endif  // TESTS_STANDALONE_STORED_CASES_H
