#include "standalone/check/counted_value_check.h"

#include <fmt/format.h>

#include <algorithm>

#include "standalone/text/number_text.h"
#include "standalone/text/trim.h"

namespace standalone {
namespace {

bool IsValue(const CaseCell& cell, const CaseCell& value) {
  const auto* text = std::get_if<std::string>(&cell);
  const auto* wanted = std::get_if<std::string>(&value);
  return text != nullptr && wanted != nullptr ? Trimmed(*text) == *wanted : cell == value;
}

}  // namespace

void CountedValueCheck::Add(const StoredSet& set, bool isNumeric, const std::vector<std::size_t>& positions) {
  CaseCell value = std::string(Trimmed(set.countedValue));
  if (isNumeric) {
    value = NumberValue(set.countedValue).value_or(0);
  }
  for (const std::size_t position : positions) {
    fPlaces.emplace_back(position, fWanted.size());
  }
  fWanted.push_back({&set, std::move(value)});
}

void CountedValueCheck::Look(std::string_view cells) {
  if (!fHasCases) {
    fHasCases = true;
    std::sort(fPlaces.begin(), fPlaces.end());
  }
  auto next = fPlaces.cbegin();
  bool hasFound = false;
  const auto look = [&](std::size_t position, const CaseCell& cell) {
    for (; next != fPlaces.cend() && next->first == position; ++next) {
      Wanted& wanted = fWanted[next->second];
      wanted.isFound = wanted.isFound || IsValue(cell, wanted.value);
      hasFound = hasFound || wanted.isFound;
    }
    return next != fPlaces.cend();
  };
  if (!fPlaces.empty()) {
    ReadCase(cells, look);
  }
  if (hasFound) {
    DropFound();
  }
}

void CountedValueCheck::DropFound() {
  const auto isFound = [this](const auto& place) { return fWanted[place.second].isFound; };
  fPlaces.erase(std::remove_if(fPlaces.begin(), fPlaces.end(), isFound), fPlaces.end());
}

std::vector<std::string> CountedValueCheck::Sentences() const {
  std::vector<std::string> sentences;
  for (const Wanted& wanted : fWanted) {
    if (fHasCases && !wanted.isFound) {
      const char* type = std::holds_alternative<double>(wanted.value) ? "number" : "text";
      sentences.push_back(fmt::format("The set {} counts the {} {}, which no case has in its variables.",
                                      wanted.set->name, type, wanted.set->countedValue));
    }
  }
  return sentences;
}

}  // namespace standalone
