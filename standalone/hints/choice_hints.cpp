#include "standalone/hints/choice_hints.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <variant>

#include "standalone/hints/case_tally.h"
#include "standalone/text/error.h"
#include "standalone/text/number_text.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

constexpr std::size_t kMaxVariables = 10'000;
constexpr int kMaxInDictionary = 100'000;  // a case is read whole, whatever the set takes of it
constexpr int kMaxWithValues = 20'000;     // more would take too much memory
constexpr std::size_t kMaxNamesShown = 6;

std::string Shown(const CaseCell& cell) {
  if (const auto* number = std::get_if<double>(&cell)) {
    return ShortestNumber(*number);
  }
  constexpr std::size_t kShownBytes = 40;
  const auto& text = std::get<std::string>(cell);
  const std::string_view shown = PrefixOfWholeCharacters(text, kShownBytes);
  return fmt::format("'{}{}'", shown, shown.size() < text.size() ? "..." : "");
}

std::string ValuesOf(const StoredSet& set, const std::vector<VariableTally>& variables) {
  for (std::size_t index = 0; index < variables.size(); ++index) {
    std::vector<CaseCell> values = variables[index].values.Values();
    if (values.empty()) {
      continue;
    }
    std::sort(values.begin(), values.end());
    std::vector<std::string> shown;
    std::transform(values.begin(), values.end(), std::back_inserter(shown), Shown);
    return fmt::format("{} has {}{}", set.variables[index], fmt::join(shown, ", "),
                       variables[index].values.HasMore() ? " and others" : "");
  }
  return "its variables have no values";
}

std::string List(const std::vector<std::string>& names) {
  const auto shown = static_cast<std::ptrdiff_t>(std::min(names.size(), kMaxNamesShown));
  const std::string list = fmt::format("{}", fmt::join(names.begin(), names.begin() + shown, ", "));
  return names.size() > kMaxNamesShown ? fmt::format("{} and {} more", list, names.size() - kMaxNamesShown) : list;
}

std::optional<std::string> HintOn(const SetTally& tally) {
  const StoredSet& set = tally.set;
  std::vector<std::string> neverChosen;
  for (std::size_t index = 0; index < tally.variables.size(); ++index) {
    if (!tally.variables[index].isChosen) {
      neverChosen.push_back(set.variables[index]);
    }
  }
  if (neverChosen.empty()) {
    return std::nullopt;
  }
  if (neverChosen.size() == set.variables.size()) {
    return fmt::format("no case has the counted value {} of {}: {}", set.countedValue, set.name,
                       ValuesOf(set, tally.variables));
  }
  return fmt::format("no case has chosen {} of {}", List(neverChosen), set.name);
}

/// The sets that a command made or changed. Most stay as they are and where they are.
std::vector<const StoredSet*> SetsMade(const SetList& before, const SetList& after) {
  std::unordered_map<std::string_view, const StoredSet*> moved;
  std::vector<const StoredSet*> made;
  for (std::size_t index = 0; index < std::max(before.size(), after.size()); ++index) {
    if (index < before.size() && index < after.size() && AreSame(before[index], after[index])) {
      continue;
    }
    if (index < before.size()) {
      moved.emplace(before[index]->name, before[index].get());
    }
    if (index < after.size()) {
      made.push_back(after[index].get());
    }
  }
  const auto wasThere = [&moved](const StoredSet* set) {
    const auto found = moved.find(set->name);
    return found != moved.end() && *found->second == *set;
  };
  made.erase(std::remove_if(made.begin(), made.end(), wasThere), made.end());
  return made;
}

bool IsOfVariablesThatAre(const SetTally& tally) {
  return std::all_of(tally.variables.begin(), tally.variables.end(),
                     [](const VariableTally& variable) { return variable.position >= 0; });
}

std::vector<SetTally> TalliesOf(Dataset& dataset, const std::vector<const StoredSet*>& sets) {
  std::vector<SetTally> tallies;
  for (const StoredSet* set : sets) {
    if (set->type == SetType::kDichotomy && set->variables.size() <= kMaxVariables) {
      SetTally tally(dataset, *set);
      if (IsOfVariablesThatAre(tally)) {
        tallies.push_back(std::move(tally));
      }
    }
  }
  return tallies;
}

std::vector<std::string> HintsOn(const std::vector<SetTally>& tallies) {
  std::vector<std::string> hints;
  for (const SetTally& tally : tallies) {
    if (std::optional<std::string> hint = HintOn(tally)) {
      hints.push_back(std::move(*hint));
    }
  }
  return hints;
}

/// Whether each variable has a label for the counted value, and another one than the others.
bool HasAnswersAsLabels(Dataset& dataset, const StoredSet& set) {
  std::unordered_set<std::string> labels;
  return set.variables.size() <= kMaxVariables &&
         std::all_of(set.variables.begin(), set.variables.end(), [&](const std::string& name) {
           const Variable* variable = dataset.VariableNamed(name);
           const std::string* label = variable == nullptr ? nullptr : LabelOf(*variable, set.countedValue);
           return label != nullptr && labels.insert(ToUpper(*label)).second;
         });
}

/// The module warns once for each variable; what to do about it is said once for the set.
std::vector<std::string> HintsOnLabels(Dataset& dataset, const std::vector<const StoredSet*>& sets) {
  std::vector<std::string> hints;
  for (const StoredSet* set : sets) {
    if (set->type == SetType::kDichotomy && !set->categoryLabelsFromCountedValue && HasAnswersAsLabels(dataset, *set)) {
      hints.push_back(
          fmt::format("the variables of {} label {} differently, so each label may be an answer:"
                      " CATEGORYLABELS=COUNTEDVALUES names the answers by these labels",
                      set->name, set->countedValue));
    }
  }
  return hints;
}

}  // namespace

std::vector<std::string> ChoiceHints::HintsOnChange(const SetList& before, const SetList& after) {
  std::vector<std::string> hints;
  try {
    const std::vector<const StoredSet*> made = SetsMade(before, after);
    hints = HintsOnLabels(fDataset, made);
    std::vector<SetTally> tallies = TalliesOf(fDataset, made);
    if (!tallies.empty() && fDataset.VariableCount() <= kMaxInDictionary && Tally(tallies)) {
      const std::vector<std::string> onCases = HintsOn(tallies);
      hints.insert(hints.end(), onCases.begin(), onCases.end());
    }
  } catch (const Error&) {
    hints.clear();  // no hint is worth a failed command
  }
  return hints;
}

bool ChoiceHints::Tally(std::vector<SetTally>& tallies) {
  if (const std::uint64_t revision = fDataset.Revision(); revision != fRevision) {
    fRevision = revision;
    fHasRead = false;
    fValues = CaseValues();
  }
  const bool isRepeated = std::exchange(fHasRead, true);
  auto answer = CaseValues::Answer::kUnknown;
  if (isRepeated && fDataset.VariableCount() <= kMaxWithValues) {
    answer = fValues.Tally(fDataset, tallies, fBytesLeft);
  }
  return answer == CaseValues::Answer::kUnknown ? TallyCases(fDataset, tallies, fBytesLeft)
                                                : answer == CaseValues::Answer::kGood;
}

}  // namespace standalone
