#include "standalone/hints/case_values.h"

#include <algorithm>

namespace standalone {
namespace {

constexpr std::size_t kMaxKept = 12;

}  // namespace

CaseValues::Answer CaseValues::Tally(Dataset& dataset, std::vector<SetTally>& tallies, std::size_t& bytesLeft) {
  fValues.resize(static_cast<std::size_t>(dataset.VariableCount()));
  std::vector<OpenVariable> open = OpenVariables(tallies);
  if (!TallyKnown(open)) {
    return Answer::kUnknown;
  }
  if (open.empty()) {
    return Answer::kGood;
  }
  if (const Answer answer = ReadOn(dataset, open, bytesLeft); answer != Answer::kGood) {
    return answer;
  }
  for (const OpenVariable& one : open) {
    one.variable->values = ValuesOf(one).ShortenedTo(kMaxShownValues);
  }
  return fNextCase > 0 ? Answer::kGood : Answer::kNone;
}

/// False where a variable may have been chosen in a value that was not kept.
bool CaseValues::TallyKnown(std::vector<OpenVariable>& open) const {
  for (const OpenVariable& one : open) {
    const std::vector<CaseCell>& values = ValuesOf(one).Values();
    one.variable->isChosen =
        std::any_of(values.begin(), values.end(), [&one](const CaseCell& value) { return one.set->IsCounted(value); });
  }
  DropChosen(open);
  return std::none_of(open.begin(), open.end(), [this](const OpenVariable& one) { return ValuesOf(one).HasMore(); });
}

CaseValues::Answer CaseValues::ReadOn(Dataset& dataset, std::vector<OpenVariable>& open, std::size_t& bytesLeft) {
  if (fHasAllCases || fIsAtLimit) {
    return fHasAllCases ? Answer::kGood : Answer::kNone;
  }
  Answer answer = Answer::kGood;
  dataset.VisitCases(fNextCase, [&](std::int64_t position, std::string_view cells) {
    fIsAtLimit = fBytes + cells.size() > kMaxBytesOfCases;
    const bool isInBounds = !fIsAtLimit && cells.size() <= bytesLeft;
    bytesLeft -= std::min(cells.size(), bytesLeft);
    if (!isInBounds || !AddCase(cells, open)) {
      answer = isInBounds ? Answer::kUnknown : Answer::kNone;
      return false;
    }
    fBytes += cells.size();
    fNextCase = position + 1;
    return !open.empty();
  });
  fHasAllCases = answer == Answer::kGood && !open.empty();
  return answer;
}

/// False where the case cannot be read or has not a cell for each variable. Its first cells are kept then, to no harm:
/// it fails again when it is read again.
bool CaseValues::AddCase(std::string_view cells, std::vector<OpenVariable>& open) {
  auto next = open.begin();
  std::size_t count = 0;
  const bool isRead = ReadCase(cells, [&](std::size_t position, const CaseCell& cell) {
    count = position + 1;
    if (position >= fValues.size()) {
      return false;
    }
    fValues[position].Add(cell, kMaxKept);
    for (; next != open.end() && next->position == static_cast<int>(position); ++next) {
      next->variable->isChosen = next->set->IsCounted(cell);
    }
    return true;
  });
  DropChosen(open);
  return isRead && count == fValues.size();
}

const ValueList& CaseValues::ValuesOf(const OpenVariable& variable) const {
  return fValues[static_cast<std::size_t>(variable.position)];
}

}  // namespace standalone
