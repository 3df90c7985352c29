#include "tests/reference/variable_check.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

#include "tests/host/letters.h"

namespace reference {
namespace {

/// A variable of the list, and what follows of it and those before it.
struct Member {
  const scripted::Variable& variable;
  int widthBefore;                ///< the narrowest of those before it: 0 for numbers, -1 for none
  int width;                      ///< the narrowest with it
  const std::string* valueLabel;  ///< its label for the counted value; null where it has none
};

/// The last of the members is the one that is checked.
struct Check {
  const std::string& countedValue;
  std::vector<Member> members;

  const Member& Last() const { return members.back(); }

  /// Whether one of the members before the last is as said.
  template <typename IsSo>
  bool HasBefore(IsSo isSo) const {
    return std::any_of(members.begin(), members.end() - 1, isSo);
  }
};

bool AreEqual(const std::string& first, const std::string& second) {
  return scripted::CompareNoCase(first, second) == 0;
}

std::size_t TrimmedLength(const std::string& text) {
  const std::size_t begin = text.find_first_not_of(' ');
  return begin == std::string::npos ? 0 : text.find_last_not_of(' ') + 1 - begin;
}

// ---------------------------------------------------------------------------------------------------------------------
// What a variable must not be.

bool DiffersInType(const Check& check) {
  const int before = check.Last().widthBefore;
  const int type = check.Last().variable.type;
  return (before == 0 && type > 0) || (before > 0 && type == 0);
}

bool HasNoType(const Check& check) {
  return check.Last().widthBefore > 0 && check.Last().variable.type < 0;
}

bool RepeatsVariableLabel(const Check& check) {
  const std::optional<std::string>& label = check.Last().variable.label;
  return label && check.HasBefore([&](const Member& member) {
    return member.variable.label && AreEqual(*member.variable.label, *label);
  });
}

bool IsTooNarrow(const Check& check) {
  return check.Last().width > 0 && static_cast<std::size_t>(check.Last().width) < TrimmedLength(check.countedValue);
}

bool HasNoValueLabel(const Check& check) {
  return check.Last().valueLabel == nullptr;
}

bool RepeatsValueLabel(const Check& check) {
  return check.HasBefore([&](const Member& member) { return AreEqual(*member.valueLabel, *check.Last().valueLabel); });
}

/// From the first label that is not empty.
bool DiffersInValueLabel(const Check& check) {
  const std::string* label = check.Last().valueLabel;
  const auto first = std::find_if(check.members.begin(), check.members.end() - 1, [](const Member& member) {
    return member.valueLabel != nullptr && !member.valueLabel->empty();
  });
  return label != nullptr && &*first != &check.Last() && !AreEqual(*first->valueLabel, *label);
}

enum class Where { kAlways, kWithCountedValue, kWithoutItsLabels, kWithItsLabels };
enum class Argument { kVariable, kCountedValue };
enum class Outcome { kStops, kWarns, kFailsAssertion };

struct Rule {
  Where where;
  bool (*isBroken)(const Check& check);
  const char* message;
  Argument argument;
  Outcome outcome;
};

/// In the order in which they are looked at, for each variable.
const std::vector<Rule> kRules = {
    {Where::kAlways, DiffersInType, "^1 variable has a different type.", Argument::kVariable, Outcome::kStops},
    {Where::kAlways, HasNoType, "var.GetType() > 0", Argument::kVariable, Outcome::kFailsAssertion},
    {Where::kWithoutItsLabels, RepeatsVariableLabel, "Duplicate label found for variable ^1.", Argument::kVariable,
     Outcome::kWarns},
    {Where::kWithCountedValue, IsTooNarrow, "CountVal ^1 is wider than the narrowest variable.",
     Argument::kCountedValue, Outcome::kStops},
    {Where::kWithItsLabels, HasNoValueLabel, "No countedval label for variable ^1...", Argument::kVariable,
     Outcome::kStops},
    {Where::kWithItsLabels, RepeatsValueLabel, "CountedVal label of variable ^1 is not unique...", Argument::kVariable,
     Outcome::kStops},
    {Where::kWithoutItsLabels, DiffersInValueLabel, "CountVal ^1 label different in the variables.",
     Argument::kCountedValue, Outcome::kWarns},
};

// ---------------------------------------------------------------------------------------------------------------------

bool Holds(Where where, bool hasCountedValue, bool countedValueLabels) {
  return where == Where::kAlways || (hasCountedValue && (where == Where::kWithCountedValue ||
                                                         countedValueLabels == (where == Where::kWithItsLabels)));
}

Member MemberAfter(int widthBefore, const scripted::Variable& variable, const std::string& countedValue) {
  const bool isFirst = widthBefore == -1;
  const bool isNarrower = widthBefore > 0 && variable.type > 0 && variable.type < widthBefore;
  const int width = isFirst || isNarrower ? variable.type : widthBefore;
  const std::string* label = width != 0 ? LabelOfText(variable, countedValue)
                                        : LabelOfNumber(variable, std::strtod(countedValue.c_str(), nullptr));
  return {variable, widthBefore, width, label};
}

bool Keeps(const Check& check, bool countedValueLabels, Report& report) {
  for (const Rule& rule : kRules) {
    if (!Holds(rule.where, !check.countedValue.empty(), countedValueLabels) || !rule.isBroken(check)) {
      continue;
    }
    Require(rule.outcome != Outcome::kFailsAssertion, rule.message);
    const bool isOfVariable = rule.argument == Argument::kVariable;
    const std::string& argument = isOfVariable ? check.Last().variable.name : check.countedValue;
    if (rule.outcome == Outcome::kStops) {
      report.Error(rule.message, argument);
      return false;
    }
    report.Warning(rule.message, argument);
  }
  return true;
}

}  // namespace

bool AreValidVariables(const std::vector<std::string>& variableNames, const Variables& dictionary,
                       const std::string& countedValue, bool countedValueLabels, int& narrowestWidth, Report& report) {
  narrowestWidth = -1;
  if (variableNames.size() < 2) {
    report.Error(variableNames.empty() ? "No variable was found." : "Only one variable ^1 was found.",
                 variableNames.empty() ? "" : variableNames[0]);
    return false;
  }
  Check check{countedValue, {}};
  for (const std::string& name : variableNames) {
    const int index = FindVariable(dictionary, name);
    if (index == -1) {
      report.Error("^1 variable not in the dataset.", name);
      return false;
    }
    check.members.push_back(MemberAfter(narrowestWidth, dictionary[static_cast<std::size_t>(index)], countedValue));
    narrowestWidth = check.Last().width;
    if (!Keeps(check, countedValueLabels, report)) {
      return false;
    }
  }
  return true;
}

}  // namespace reference
