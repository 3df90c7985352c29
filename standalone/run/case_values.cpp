#include "standalone/run/case_values.h"

#include <algorithm>

namespace standalone {
namespace {

constexpr std::size_t kMostKept = 12;

}  // namespace

bool CaseValues::Tally(Dataset& dataset, std::vector<SetTally>& tallies, std::size_t& bytesLeft) {
  fValues.resize(static_cast<std::size_t>(dataset.VariableCount()));
  std::vector<OpenVariable> open = OpenVariables(tallies);
  TallyKnown(open);
  if (!ReadOn(dataset, open, bytesLeft)) {
    return false;
  }
  for (const OpenVariable& one : open) {
    const ValueList& values = fValues[static_cast<std::size_t>(one.position)];
    if (values.HasMore()) {
      return false;
    }
    one.variable->values = values.ShortenedTo(kMostShownValues);
  }
  return fNextCase > 0;
}

void CaseValues::TallyKnown(std::vector<OpenVariable>& open) const {
  for (const OpenVariable& one : open) {
    const std::vector<CaseCell>& values = fValues[static_cast<std::size_t>(one.position)].Values();
    one.variable->isChosen =
        std::any_of(values.begin(), values.end(), [&one](const CaseCell& value) { return one.set->IsCounted(value); });
  }
  DropChosen(open);
}

bool CaseValues::ReadOn(Dataset& dataset, std::vector<OpenVariable>& open, std::size_t& bytesLeft) {
  if (open.empty() || fHasAllCases) {
    return true;
  }
  bool isGood = true;
  dataset.VisitCases(fNextCase, [&](std::int64_t position, std::string_view cells) {
    const bool isInBounds = cells.size() <= bytesLeft;
    bytesLeft -= std::min(cells.size(), bytesLeft);
    isGood = isInBounds && AddCase(cells, open);
    fNextCase = isGood ? position + 1 : fNextCase;
    return isGood && !open.empty();
  });
  fHasAllCases = isGood && !open.empty();
  return isGood;
}

/// False where the case cannot be read or has not a cell for each variable. Its first cells may be kept then: it fails
/// again when it is read again.
bool CaseValues::AddCase(std::string_view cells, std::vector<OpenVariable>& open) {
  auto next = open.begin();
  std::size_t count = 0;
  const bool isRead = ReadCase(cells, [&](std::size_t position, const CaseCell& cell) {
    count = position + 1;
    if (position >= fValues.size()) {
      return false;
    }
    fValues[position].Add(cell, kMostKept);
    for (; next != open.end() && next->position == static_cast<int>(position); ++next) {
      next->variable->isChosen = next->set->IsCounted(cell);
    }
    return true;
  });
  DropChosen(open);
  return isRead && count == fValues.size();
}

}  // namespace standalone
