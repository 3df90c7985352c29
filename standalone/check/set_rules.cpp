#include "standalone/check/set_rules.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "standalone/text/names.h"
#include "standalone/text/number_text.h"
#include "standalone/text/trim.h"
#include "standalone/text/unicode.h"

namespace standalone {

namespace {

using Problems = std::vector<SetProblem>;

bool HasLineEnd(const std::string& text) {
  return text.find('\n') != std::string::npos;
}

void CheckLabel(const StoredSet& set, Problems& problems) {
  if (set.label.size() > kMaxSetLabelBytes) {
    problems.push_back(
        {"label length", fmt::format("has a label of {} bytes; the limit is {}", set.label.size(), kMaxSetLabelBytes)});
  }
  if (HasLineEnd(set.label)) {
    problems.push_back({"label line", "has a label with a line end"});
  }
}

void CheckDichotomy(const StoredSet& set, Problems& problems) {
  if (set.countedValue.empty()) {
    problems.push_back({"no counted value", "is a dichotomy set without a counted value"});
  }
  if (HasLineEnd(set.countedValue)) {
    problems.push_back({"value line", "has a counted value with a line end"});
  }
  if (set.labelFromVariable && !set.categoryLabelsFromCountedValue) {
    problems.push_back(
        {"label source", "takes its label from a variable but not its category labels from the counted value"});
  }
}

void CheckCategory(const StoredSet& set, Problems& problems) {
  if (!set.countedValue.empty()) {
    problems.push_back({"counted value", "is a category set with a counted value"});
  }
  if (set.labelFromVariable || set.categoryLabelsFromCountedValue) {
    problems.push_back({"flags", "is a category set with label options that only a dichotomy set can have"});
  }
}

void CheckVariableNames(const StoredSet& set, Problems& problems) {
  if (set.variables.size() < 2) {
    problems.push_back({"too few variables", set.variables.empty() ? "has no variables" : "has only one variable"});
  }
  std::unordered_map<std::string, int> counts;
  for (const std::string& name : set.variables) {
    if (!IsValidVariableName(name)) {
      problems.push_back({"variable name", fmt::format("has a variable with an invalid name: {}", name)});
    }
    if (++counts[ToUpper(name)] == 2) {
      problems.push_back({"twice", fmt::format("has the variable {} more than once", name)});
    }
  }
}

/// Compares one set with the dictionary.
class Fitting {
 public:
  Fitting(const StoredSet& set, const FindVariable& find)
      : fSet(set), fTakesLabels(set.type == SetType::kDichotomy && set.categoryLabelsFromCountedValue) {
    for (const std::string& name : set.variables) {
      if (const std::optional<Variable> variable = find(name, fTakesLabels)) {
        Compare(*variable);
      } else {
        Add("variable", fmt::format("has the variable {}, which no longer exists", name));
      }
    }
  }

  Problems Take() { return std::move(fProblems); }

 private:
  void Add(std::string_view kind, std::string text) { fProblems.push_back({kind, std::move(text)}); }

  void AddOnce(const char* kind, std::string text) {
    if (fTold.insert(kind).second) {
      Add(kind, std::move(text));
    }
  }

  void Compare(const Variable& variable) {
    const bool isNumeric = variable.width == 0;
    if (fIsNumeric.value_or(isNumeric) != isNumeric) {
      AddOnce("types", "has both numeric and string variables");
      return;
    }
    fIsNumeric = isNumeric;
    if (fSet.type == SetType::kDichotomy && !fSet.countedValue.empty()) {
      CompareCountedValue(variable);
    }
  }

  void CompareCountedValue(const Variable& variable) {
    if (variable.width == 0 && !NumberValue(fSet.countedValue)) {
      AddOnce("value type", fmt::format("counts {} in numeric variables, which is not a number", fSet.countedValue));
    } else if (variable.width != 0 && static_cast<std::size_t>(variable.width) < NeededWidth(fSet.countedValue)) {
      AddOnce("value width",
              fmt::format("counts {}, which is wider than the variable {}", fSet.countedValue, variable.name));
    }
    if (fTakesLabels) {
      CompareLabel(variable);
    }
  }

  void CompareLabel(const Variable& variable) {
    const std::string* label = LabelOf(variable, fSet.countedValue);
    if (label == nullptr) {
      Add(kNoValueLabelProblem, fmt::format("takes its category labels from the counted value {}, which has no label in"
                                            " the variable {}",
                                            fSet.countedValue, variable.name));
    } else if (!fLabels.insert(ToUpper(*label)).second) {
      Add(kSameValueLabelProblem, fmt::format("takes its category labels from the counted value {}, whose label in the"
                                              " variable {} is the same as in another variable",
                                              fSet.countedValue, variable.name));
    }
  }

  const StoredSet& fSet;
  bool fTakesLabels;
  std::optional<bool> fIsNumeric;           // as the first of the variables
  std::unordered_set<std::string> fLabels;  // of the counted value, in upper case
  std::unordered_set<std::string_view> fTold;
  Problems fProblems;
};

}  // namespace

std::size_t NeededWidth(const std::string& countedValue) {
  return Trimmed(countedValue).size();
}

std::vector<SetProblem> FaultsOf(const StoredSet& set) {
  Problems problems;
  if (!IsValidSetName(set.name)) {
    problems.push_back({kSetNameProblem, "has an invalid name"});
  }
  CheckLabel(set, problems);
  if (set.type == SetType::kDichotomy) {
    CheckDichotomy(set, problems);
  } else {
    CheckCategory(set, problems);
  }
  CheckVariableNames(set, problems);
  return problems;
}

std::vector<SetProblem> MisfitsOf(const StoredSet& set, const FindVariable& find) {
  return Fitting(set, find).Take();
}

std::optional<bool> AreNumeric(const StoredSet& set, const FindVariable& find) {
  std::optional<bool> areNumeric;
  for (const std::string& name : set.variables) {
    const std::optional<Variable> variable = find(name, false);
    if (variable && areNumeric.value_or(variable->width == 0) != (variable->width == 0)) {
      return std::nullopt;
    }
    areNumeric = variable ? variable->width == 0 : areNumeric;
  }
  return areNumeric;
}

std::string Sentence(const StoredSet& set, const SetProblem& problem) {
  return fmt::format("The set {} {}.", set.name, problem.text);
}

}  // namespace standalone
