#include "standalone/hints/case_tally.h"

#include <algorithm>
#include <utility>
#include <variant>

#include "standalone/text/number_text.h"
#include "standalone/text/trim.h"

namespace standalone {
namespace {

bool IsSameValue(const CaseCell& kept, const CaseCell& cell) {
  const auto* text = std::get_if<std::string>(&cell);
  const auto* keptText = std::get_if<std::string>(&kept);
  return text != nullptr && keptText != nullptr ? *keptText == TrimmedEnd(*text) : kept == cell;
}

/// False where the case cannot be read or is too short.
bool TallyCase(std::string_view cells, std::vector<OpenVariable>& open) {
  auto next = open.begin();
  const bool isRead = ReadCase(cells, [&](std::size_t position, const CaseCell& cell) {
    for (; next != open.end() && next->position == static_cast<int>(position); ++next) {
      next->variable->isChosen = next->set->IsCounted(cell);
      next->variable->values.Add(cell, kMaxShownValues);
    }
    return next != open.end();
  });
  const bool isGood = isRead && next == open.end();
  DropChosen(open);
  return isGood;
}

}  // namespace

void ValueList::Add(const CaseCell& cell, std::size_t most) {
  const bool isMissing = std::holds_alternative<std::monostate>(cell);
  const auto isSame = [&cell](const CaseCell& kept) { return IsSameValue(kept, cell); };
  if (isMissing || fHasMore || std::any_of(fValues.begin(), fValues.end(), isSame)) {
    return;
  }
  if (fValues.size() == most) {
    fHasMore = true;
    return;
  }
  const auto* text = std::get_if<std::string>(&cell);
  fValues.push_back(text == nullptr ? cell : std::string(TrimmedEnd(*text)));
}

ValueList ValueList::ShortenedTo(std::size_t most) const {
  ValueList shortened;
  for (const CaseCell& value : fValues) {
    shortened.Add(value, most);
  }
  shortened.fHasMore = shortened.fHasMore || fHasMore;
  return shortened;
}

SetTally::SetTally(Dataset& dataset, const StoredSet& tallied)
    : set(tallied), fCountedNumber(NumberValue(tallied.countedValue)), fCountedText(Trimmed(tallied.countedValue)) {
  for (const std::string& name : set.variables) {
    variables.push_back({dataset.FindVariable(name), false, {}});
  }
}

bool SetTally::IsCounted(const CaseCell& cell) const {
  if (const auto* number = std::get_if<double>(&cell)) {
    return *number == fCountedNumber;
  }
  const auto* text = std::get_if<std::string>(&cell);
  return text != nullptr && Trimmed(*text) == fCountedText;
}

std::vector<OpenVariable> OpenVariables(std::vector<SetTally>& tallies) {
  std::vector<OpenVariable> open;
  for (SetTally& tally : tallies) {
    for (VariableTally& variable : tally.variables) {
      open.push_back({variable.position, &tally, &variable});
    }
  }
  DropChosen(open);
  std::sort(open.begin(), open.end(),
            [](const OpenVariable& a, const OpenVariable& b) { return a.position < b.position; });
  return open;
}

void DropChosen(std::vector<OpenVariable>& open) {
  const auto isChosen = [](const OpenVariable& one) { return one.variable->isChosen; };
  open.erase(std::remove_if(open.begin(), open.end(), isChosen), open.end());
}

bool TallyCases(Dataset& dataset, std::vector<SetTally>& tallies, std::size_t& bytesLeft) {
  std::vector<OpenVariable> open = OpenVariables(tallies);
  bool isGood = true;
  bool hasCases = false;
  std::size_t bytes = 0;
  dataset.VisitCases(0, [&](std::int64_t /*position*/, std::string_view cells) {
    hasCases = true;
    bytes += cells.size();
    isGood = bytes <= kMaxBytesOfCases && cells.size() <= bytesLeft && TallyCase(cells, open);
    bytesLeft -= std::min(cells.size(), bytesLeft);
    return isGood && !open.empty();
  });
  return isGood && hasCases;
}

}  // namespace standalone
