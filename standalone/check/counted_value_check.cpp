#include "standalone/check/counted_value_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "standalone/text/number_text.h"
#include "standalone/text/trim.h"

namespace standalone {

void CountedValueCheck::Add(const StoredSet& set, bool isNumeric, const std::vector<std::size_t>& positions) {
  for (const std::size_t position : positions) {
    fPlaces.emplace(position, fWanted.size());
  }
  fWanted.push_back(
      {&set, isNumeric, NumberValue(set.countedValue).value_or(0), std::string(Trimmed(set.countedValue))});
}

void CountedValueCheck::Look(std::size_t position, const Block& block) {
  fHasCases = fHasCases || block.cases > 0;
  const auto [first, end] = fPlaces.equal_range(position);
  for (auto place = first; place != end; ++place) {
    Wanted& wanted = fWanted[place->second];
    wanted.isFound = wanted.isFound || Holds(block, wanted);
  }
}

void CountedValueCheck::PassOver(std::size_t position) {
  const auto [first, end] = fPlaces.equal_range(position);
  for (auto place = first; place != end; ++place) {
    fWanted[place->second].isFound = true;
  }
}

/// A blank cell is missing, so that nobody has a blank value.
bool CountedValueCheck::Holds(const Block& block, const Wanted& wanted) {
  const auto hasNumber = [&wanted](const std::vector<double>& numbers) {
    return std::find(numbers.begin(), numbers.end(), wanted.number) != numbers.end();
  };
  const auto hasText = [&wanted](const std::vector<std::string_view>& texts) {
    return !wanted.text.empty() && std::any_of(texts.begin(), texts.end(), [&wanted](std::string_view text) {
      return Trimmed(text) == wanted.text;
    });
  };
  return wanted.isNumeric ? hasNumber(block.numbers) || hasNumber(block.cellNumbers)
                          : hasText(block.texts) || hasText(block.cellTexts);
}

std::vector<std::string> CountedValueCheck::Sentences() const {
  std::vector<std::string> sentences;
  for (const Wanted& wanted : fWanted) {
    if (fHasCases && !wanted.isFound) {
      const char* type = wanted.isNumeric ? "number" : "text";
      sentences.push_back(fmt::format("The set {} counts the {} {}, which no case has in its variables.",
                                      wanted.set->name, type, wanted.set->countedValue));
    }
  }
  return sentences;
}

}  // namespace standalone
