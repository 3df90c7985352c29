#include "standalone/run/choice_hints.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <variant>

#include "standalone/data/case_reader.h"
#include "standalone/data/number_text.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

constexpr std::size_t kBytesForACommand = 2'000'000;
constexpr std::size_t kMostVariables = 10'000;
constexpr int kMostInDictionary = 100'000;  // a case is read whole, whatever the set takes of it
constexpr std::size_t kMostShown = 6;       // values or variables in a hint

/// What the cases hold of one variable of a set.
struct VariableTally {
  int position;  ///< in the dictionary
  bool isChosen = false;
  std::vector<CaseCell> values;  // different ones, as far as they are shown
  bool hasMoreValues = false;
};

struct SetTally {
  const StoredSet& set;
  double countedNumber;
  std::string countedText;
  std::vector<VariableTally> variables;  // as in the set
};

std::string_view Trimmed(std::string_view text) {
  const std::size_t begin = std::min(text.find_first_not_of(' '), text.size());
  return text.substr(begin, text.find_last_not_of(' ') + 1 - begin);
}

/// Blanks around a text do not count here, so that no hint says that a value is not there when it is, padded.
bool IsCounted(const SetTally& tally, const CaseCell& cell) {
  if (const auto* number = std::get_if<double>(&cell)) {
    return *number == tally.countedNumber;
  }
  const auto* text = std::get_if<std::string>(&cell);
  return text != nullptr && Trimmed(*text) == tally.countedText;
}

/// Values that differ only in blanks at their ends are one.
CaseCell WithoutTrailingBlanks(CaseCell cell) {
  if (auto* text = std::get_if<std::string>(&cell)) {
    text->erase(text->find_last_not_of(' ') + 1);
  }
  return cell;
}

void AddValue(VariableTally& variable, const CaseCell& cell) {
  const bool isMissing = std::holds_alternative<std::monostate>(cell);
  if (isMissing || variable.hasMoreValues) {
    return;
  }
  CaseCell value = WithoutTrailingBlanks(cell);
  const auto end = variable.values.end();
  if (std::find(variable.values.begin(), end, value) != end) {
    return;
  }
  variable.hasMoreValues = variable.values.size() == kMostShown;
  if (!variable.hasMoreValues) {
    variable.values.push_back(std::move(value));
  }
}

SetTally TallyOf(Dataset& dataset, const StoredSet& set) {
  SetTally tally{set, std::strtod(set.countedValue.c_str(), nullptr), std::string(Trimmed(set.countedValue)), {}};
  for (const std::string& name : set.variables) {
    tally.variables.push_back(
        {dataset.FindVariable(name), false, {}, false});  // it is there, or the set would not have been made
  }
  return tally;
}

/// Reads the cases for some sets.
class CaseTally {
 public:
  explicit CaseTally(std::vector<SetTally>& tallies) {
    for (SetTally& tally : tallies) {
      for (VariableTally& variable : tally.variables) {
        fOpen.push_back({variable.position, &tally, &variable});
      }
    }
    std::sort(fOpen.begin(), fOpen.end(), [](const Cell& a, const Cell& b) { return a.position < b.position; });
  }

  /// Whether every case was read that may matter. Takes the bytes that it reads from `bytesLeft`.
  bool Read(Dataset& dataset, std::size_t& bytesLeft) {
    bool isGood = true;
    dataset.VisitCases([&](std::string_view cells) {
      fHasCases = true;
      isGood = cells.size() <= bytesLeft && ReadCells(cells);
      bytesLeft -= std::min(cells.size(), bytesLeft);
      return isGood && !fOpen.empty();
    });
    return isGood && fHasCases;
  }

 private:
  /// A variable of a set that no case has chosen yet.
  struct Cell {
    int position;
    SetTally* set;
    VariableTally* variable;
  };

  bool ReadCells(std::string_view cells) {
    auto next = fOpen.begin();
    const bool isRead = ReadCase(cells, [&](std::size_t position, const CaseCell& cell) {
      for (; next != fOpen.end() && next->position == static_cast<int>(position); ++next) {
        next->variable->isChosen = IsCounted(*next->set, cell);
        AddValue(*next->variable, cell);
      }
      return next != fOpen.end();
    });
    const bool isGood = isRead && next == fOpen.end();  // else the case is too short
    const auto isChosen = [](const Cell& cell) { return cell.variable->isChosen; };
    fOpen.erase(std::remove_if(fOpen.begin(), fOpen.end(), isChosen), fOpen.end());
    return isGood;
  }

  std::vector<Cell> fOpen;  // by position
  bool fHasCases = false;
};

std::string Shown(const CaseCell& cell) {
  if (const auto* number = std::get_if<double>(&cell)) {
    return ShortestNumber(*number);
  }
  constexpr std::size_t kShownBytes = 40;
  const std::string& text = std::get<std::string>(cell);
  const std::string_view shown = PrefixOfWholeCharacters(text, kShownBytes);
  return fmt::format("'{}{}'", shown, shown.size() < text.size() ? "..." : "");
}

std::string ValuesOf(const StoredSet& set, const std::vector<VariableTally>& variables) {
  for (std::size_t index = 0; index < variables.size(); ++index) {
    std::vector<CaseCell> values = variables[index].values;
    if (values.empty()) {
      continue;
    }
    std::sort(values.begin(), values.end());
    std::vector<std::string> shown;
    std::transform(values.begin(), values.end(), std::back_inserter(shown), Shown);
    return fmt::format("{} has {}{}", set.variables[index], fmt::join(shown, ", "),
                       variables[index].hasMoreValues ? " and others" : "");
  }
  return "its variables have no values";
}

std::string List(const std::vector<std::string>& names) {
  const auto shown = static_cast<std::ptrdiff_t>(std::min(names.size(), kMostShown));
  const std::string list = fmt::format("{}", fmt::join(names.begin(), names.begin() + shown, ", "));
  return names.size() > kMostShown ? fmt::format("{} and {} more", list, names.size() - kMostShown) : list;
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
std::vector<const StoredSet*> SetsMade(const std::vector<StoredSet>& before, const std::vector<StoredSet>& after) {
  std::unordered_map<std::string_view, const StoredSet*> moved;
  std::vector<const StoredSet*> made;
  for (std::size_t index = 0; index < std::max(before.size(), after.size()); ++index) {
    if (index < before.size() && index < after.size() && before[index] == after[index]) {
      continue;
    }
    if (index < before.size()) {
      moved.emplace(before[index].name, &before[index]);
    }
    if (index < after.size()) {
      made.push_back(&after[index]);
    }
  }
  const auto wasThere = [&moved](const StoredSet* set) {
    const auto found = moved.find(set->name);
    return found != moved.end() && *found->second == *set;
  };
  made.erase(std::remove_if(made.begin(), made.end(), wasThere), made.end());
  return made;
}

std::vector<SetTally> TalliesOf(Dataset& dataset, const std::vector<const StoredSet*>& sets) {
  std::vector<SetTally> tallies;
  for (const StoredSet* set : sets) {
    if (set->type == SetType::kDichotomy && set->variables.size() <= kMostVariables) {
      tallies.push_back(TallyOf(dataset, *set));
    }
  }
  return tallies;
}

}  // namespace

std::vector<std::string> ChoiceHints::On(Dataset& dataset, const std::vector<StoredSet>& before,
                                         const std::vector<StoredSet>& after) {
  std::vector<std::string> hints;
  const std::size_t forCommand = std::min(kBytesForACommand, fBytesLeft);
  std::size_t bytesLeft = forCommand;
  try {
    std::vector<SetTally> tallies = TalliesOf(dataset, SetsMade(before, after));
    if (!tallies.empty() && dataset.VariableCount() <= kMostInDictionary &&
        CaseTally(tallies).Read(dataset, bytesLeft)) {
      for (const SetTally& tally : tallies) {
        if (std::optional<std::string> hint = HintOn(tally)) {
          hints.push_back(std::move(*hint));
        }
      }
    }
  } catch (const DatasetError&) {
    hints.clear();  // no hint is worth a failed command
  }
  fBytesLeft -= forCommand - bytesLeft;
  return hints;
}

}  // namespace standalone
