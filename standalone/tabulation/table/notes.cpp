#include "standalone/tabulation/table/notes.h"

#include <fmt/format.h>

#include <algorithm>

#include "standalone/text/counted.h"

namespace standalone {
namespace {

constexpr std::int64_t kSmallBase = 30;
constexpr std::size_t kMostListed = 10;

std::string CountedCases(std::int64_t cases) {
  return Counted(static_cast<std::size_t>(cases), "case");
}

/// The text for one, or that for several.
std::string OneOr(std::int64_t number, const std::string& one, const std::string& several) {
  return number == 1 ? one : several;
}

/// As Listed; of more than kMostListed texts, so many and how many there are besides.
std::string ListedShort(std::vector<std::string> texts) {
  if (texts.size() > kMostListed) {
    const std::size_t more = texts.size() - kMostListed;
    texts.resize(kMostListed);
    texts.push_back(fmt::format("{} more", more));
  }
  return Listed(texts);
}

void NoteLostVariables(const CountedSet& set, std::vector<std::string>& notes) {
  if (!set.lostVariables.empty()) {
    const auto lost = static_cast<std::int64_t>(set.lostVariables.size());
    notes.push_back(fmt::format("{} of {} {} not in the dataset any more: {}.",
                                Counted(set.lostVariables.size(), "variable"), set.name, OneOr(lost, "is", "are"),
                                ListedShort(set.lostVariables)));
  }
}

void NoteNoneChosen(const Tabulation& table, std::vector<std::string>& notes) {
  const TabulatedCases& cases = table.columns.front().cases;
  if (table.base == TabulationBase::kAnswered && cases.noneChosen > 0) {
    notes.push_back(fmt::format("{} chose none and {} not in the base; with BASE=ASKED it is {}.",
                                CountedCases(cases.noneChosen), OneOr(cases.noneChosen, "is", "are"),
                                cases.answered + cases.noneChosen));
  }
}

void NoteWeights(std::int64_t withoutWeight, std::vector<std::string>& notes) {
  if (withoutWeight > 0) {
    notes.push_back(fmt::format("{} not counted: the weight is missing, zero or negative.",
                                CountedCases(withoutWeight) + OneOr(withoutWeight, " is", " are")));
  }
}

void NoteAnswers(const SetReader& set, const TabulationRequest& request, std::vector<std::string>& notes) {
  if (const std::int64_t cases = set.RepeatedCases(); cases > 0) {
    notes.push_back(
        fmt::format("{} gave one category of {} more than once; it counts once.", CountedCases(cases), set.Set().name));
  }
  if (const std::int64_t cases = set.CombinedCases(); cases > 0) {
    notes.push_back(fmt::format("{} {} {} (NONE) of {} with other categories, and {} as answered.", CountedCases(cases),
                                OneOr(cases, "combines", "combine"), request.none->text, set.Set().name,
                                OneOr(cases, "counts", "count")));
  }
}

std::string NameOf(const TabulationColumn& column) {
  std::string name = Listed(column.labels);
  if (column.labels.size() == 2) {
    name = column.labels[0] + ", " + column.labels[1];
  }
  return column.by.empty() ? name : column.by + " " + name;
}

void NoteSmallBases(const Tabulation& table, std::vector<std::string>& notes) {
  std::vector<std::string> small;
  for (const TabulationColumn& column : table.columns) {
    if (column.cases.base < kSmallBase && table.minBase == 0) {
      small.push_back(fmt::format("{} ({})", NameOf(column), column.cases.base));
    }
  }
  if (!small.empty()) {
    notes.push_back(fmt::format("The base is under {} in {}: {}.", kSmallBase, Counted(small.size(), "column"),
                                ListedShort(small)));
  }
}

/// The set, then the sets of the BYs, each once.
std::vector<const SetReader*> SetsOf(const SetCount& count) {
  std::vector<const SetReader*> sets = {&count.Set()};
  for (const std::unique_ptr<ByReader>& by : count.By()) {
    if (by->Set() != nullptr && std::find(sets.begin(), sets.end(), by->Set()) == sets.end()) {
      sets.push_back(by->Set());
    }
  }
  return sets;
}

}  // namespace

std::vector<std::string> NotesOn(const Tabulation& table, const SetCount& count, const TabulationRequest& request,
                                 std::int64_t withoutWeight) {
  std::vector<std::string> notes;
  const std::vector<const SetReader*> sets = SetsOf(count);
  std::for_each(sets.begin(), sets.end(), [&](const SetReader* set) { NoteLostVariables(set->Set(), notes); });
  NoteWeights(withoutWeight, notes);
  NoteNoneChosen(table, notes);
  std::for_each(sets.begin(), sets.end(), [&](const SetReader* set) { NoteAnswers(*set, request, notes); });
  NoteSmallBases(table, notes);
  return notes;
}

std::string NoteOnNoTest(const std::string& by, Testability testability) {
  const char* reason = "it has no category";
  if (testability == Testability::kSmallBase) {
    reason = "its base is under 2";
  } else if (testability == Testability::kOneCategory) {
    reason = "only one of its categories has cases in the base";
  } else if (testability == Testability::kEqualCategories) {
    reason = "all cases in its base chose the same of its members";
  } else if (testability == Testability::kEqualMembers) {
    reason = "all cases in its base chose the same members of the set";
  }
  return fmt::format("There is no test by {}: {}.", by, reason);
}

std::string NoteOnNoCorrection(const std::string& by, bool isTooLarge) {
  return fmt::format(
      "The test by {} is not corrected: {}.", by,
      isTooLarge ? "there are too many members and categories" : "the estimated covariance of its members is 0");
}

}  // namespace standalone
