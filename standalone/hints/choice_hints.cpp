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

#include "standalone/dataset/cell_values.h"
#include "standalone/text/error.h"
#include "standalone/text/number_text.h"
#include "standalone/text/trim.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

constexpr std::size_t kMaxNamesShown = 6;

/// Blanks around a text do not count here, so that no hint says that a value is not there when it is, padded.
bool HasChosen(Dataset& dataset, const std::string& name, const std::string& countedValue) {
  const std::string_view countedText = Trimmed(countedValue);
  const std::optional<double> countedNumber = NumberValue(countedText);
  bool isChosen = false;
  VisitValues(dataset, dataset.FindVariable(name), [&](const CellValue& value, std::size_t /*cases*/) {
    const auto* number = std::get_if<double>(&value);
    isChosen = number == nullptr ? std::get<std::string_view>(value) == countedText : *number == countedNumber;
    return !isChosen;
  });
  return isChosen;
}

std::string Shown(const ValueCounts::Value& value) {
  if (const auto* number = std::get_if<double>(&value)) {
    return ShortestNumber(*number);
  }
  constexpr std::size_t kShownBytes = 40;
  const auto& text = std::get<std::string>(value);
  const std::string_view shown = PrefixOfWholeCharacters(text, kShownBytes);
  return fmt::format("'{}{}'", shown, shown.size() < text.size() ? "..." : "");
}

/// Of the first variable that has any.
std::string ValuesOf(Dataset& dataset, const StoredSet& set) {
  constexpr std::size_t kMaxShownValues = 6;
  for (const std::string& name : set.variables) {
    const ValueCounts values(dataset, dataset.FindVariable(name), kMaxShownValues);
    if (values.Values().empty()) {
      continue;
    }
    std::vector<std::string> shown;
    std::transform(values.Values().begin(), values.Values().end(), std::back_inserter(shown),
                   [](const auto& entry) { return Shown(entry.first); });
    return fmt::format("{} has {}{}", name, fmt::join(shown, ", "), values.Others() > 0 ? " and others" : "");
  }
  return "its variables have no values";
}

std::string List(const std::vector<std::string>& names) {
  const auto shown = static_cast<std::ptrdiff_t>(std::min(names.size(), kMaxNamesShown));
  const std::string list = fmt::format("{}", fmt::join(names.begin(), names.begin() + shown, ", "));
  return names.size() > kMaxNamesShown ? fmt::format("{} and {} more", list, names.size() - kMaxNamesShown) : list;
}

std::optional<std::string> HintOn(Dataset& dataset, const StoredSet& set) {
  std::vector<std::string> neverChosen;
  std::copy_if(set.variables.begin(), set.variables.end(), std::back_inserter(neverChosen),
               [&](const std::string& name) { return !HasChosen(dataset, name, set.countedValue); });
  if (neverChosen.empty()) {
    return std::nullopt;
  }
  if (neverChosen.size() == set.variables.size()) {
    return fmt::format("no case has the counted value {} of {}: {}", set.countedValue, set.name,
                       ValuesOf(dataset, set));
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

bool HasItsVariables(Dataset& dataset, const StoredSet& set) {
  return std::all_of(set.variables.begin(), set.variables.end(),
                     [&dataset](const std::string& name) { return dataset.FindVariable(name) >= 0; });
}

std::vector<std::string> HintsOnCases(Dataset& dataset, const std::vector<const StoredSet*>& sets) {
  std::vector<std::string> hints;
  for (const StoredSet* set : sets) {
    if (set->type != SetType::kDichotomy || !HasItsVariables(dataset, *set) || dataset.BlockCount() == 0) {
      continue;
    }
    if (std::optional<std::string> hint = HintOn(dataset, *set)) {
      hints.push_back(std::move(*hint));
    }
  }
  return hints;
}

/// Whether each variable has a label for the counted value, and another one than the others.
bool HasAnswersAsLabels(Dataset& dataset, const StoredSet& set) {
  std::unordered_set<std::string> labels;
  return std::all_of(set.variables.begin(), set.variables.end(), [&](const std::string& name) {
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

std::vector<std::string> HintsOnChoices(Dataset& dataset, const SetList& before, const SetList& after) {
  try {
    const std::vector<const StoredSet*> made = SetsMade(before, after);
    std::vector<std::string> hints = HintsOnLabels(dataset, made);
    const std::vector<std::string> onCases = HintsOnCases(dataset, made);
    hints.insert(hints.end(), onCases.begin(), onCases.end());
    return hints;
  } catch (const Error&) {
    return {};  // no hint is worth a failed command
  }
}

}  // namespace standalone
