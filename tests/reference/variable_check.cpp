#include "tests/reference/variable_check.h"

#include <cstdlib>

#include "tests/host/letters.h"

namespace reference {
namespace {

/// One check of the variables of a set.
struct Check {
  const std::string& countedValue;
  const bool countedValueLabels;
  int& narrowestWidth;
  Report& report;
  std::vector<std::string> labels;
  std::string firstCountedValueLabel;

  bool Fail(const std::string& pattern, const std::string& first) const {
    report.Error(pattern, first);
    return false;
  }
};

/// False when an equal label is there already.
bool Insert(std::vector<std::string>& labels, const std::string& label) {
  for (const std::string& seen : labels) {
    if (scripted::CompareNoCase(seen, label) == 0) {
      return false;
    }
  }
  labels.push_back(label);
  return true;
}

std::size_t TrimmedLength(std::string text) {
  while (!text.empty() && text.front() == ' ') {
    text.erase(text.begin());
  }
  while (!text.empty() && text.back() == ' ') {
    text.pop_back();
  }
  return text.size();
}

bool CheckType(Check& check, const scripted::Variable& var) {
  if (check.narrowestWidth == -1) {
    check.narrowestWidth = var.type;
  } else if (check.narrowestWidth == 0) {
    if (var.type > 0) {
      return check.Fail("^1 variable has a different type.", var.name);
    }
  } else if (check.narrowestWidth > 0) {
    if (var.type == 0) {
      return check.Fail("^1 variable has a different type.", var.name);
    }
    Require(var.type > 0, "var.GetType() > 0");
    if (check.narrowestWidth >= var.type) {
      check.narrowestWidth = var.type;
    }
  }
  return true;
}

void CheckVariableLabel(Check& check, const scripted::Variable& var) {
  if (!check.countedValueLabels && var.label.has_value() && !Insert(check.labels, *var.label)) {
    check.report.Warning("Duplicate label found for variable ^1.", var.name);
  }
}

bool CheckWidth(Check& check) {
  if (check.narrowestWidth > 0 && static_cast<std::size_t>(check.narrowestWidth) < TrimmedLength(check.countedValue)) {
    return check.Fail("CountVal ^1 is wider than the narrowest variable.", check.countedValue);
  }
  return true;
}

bool CheckUniqueLabel(Check& check, const scripted::Variable& var, const std::string* label) {
  if (label == nullptr) {
    return check.Fail("No countedval label for variable ^1...", var.name);
  }
  if (!Insert(check.labels, *label)) {
    return check.Fail("CountedVal label of variable ^1 is not unique...", var.name);
  }
  return true;
}

void CheckSameLabel(Check& check, const std::string* label) {
  if (label == nullptr) {
    return;
  }
  if (check.firstCountedValueLabel.empty()) {
    check.firstCountedValueLabel = *label;
  } else if (scripted::CompareNoCase(check.firstCountedValueLabel, *label) != 0) {
    check.report.Warning("CountVal ^1 label different in the variables.", check.countedValue);
  }
}

bool CheckVariable(Check& check, const scripted::Variable& var) {
  if (!CheckType(check, var)) {
    return false;
  }
  if (check.countedValue.empty()) {
    return true;
  }
  CheckVariableLabel(check, var);
  if (!CheckWidth(check)) {
    return false;
  }
  const std::string* label = check.narrowestWidth != 0
                                 ? LabelOfText(var, check.countedValue)
                                 : LabelOfNumber(var, std::strtod(check.countedValue.c_str(), nullptr));
  if (check.countedValueLabels) {
    return CheckUniqueLabel(check, var, label);
  }
  CheckSameLabel(check, label);
  return true;
}

}  // namespace

bool AreValidVariables(const std::vector<std::string>& variableNames, const Variables& dictionary,
                       const std::string& countedValue, bool countedValueLabels, int& narrowestWidth, Report& report) {
  narrowestWidth = -1;
  Check check{countedValue, countedValueLabels, narrowestWidth, report, {}, {}};
  if (variableNames.size() == 1) {
    return check.Fail("Only one variable ^1 was found.", variableNames[0]);
  }
  if (variableNames.empty()) {
    return check.Fail("No variable was found.", "");
  }
  for (const std::string& name : variableNames) {
    const int index = FindVariable(dictionary, name);
    if (index == -1) {
      return check.Fail("^1 variable not in the dataset.", name);
    }
    if (!CheckVariable(check, dictionary[static_cast<std::size_t>(index)])) {
      return false;
    }
  }
  return true;
}

}  // namespace reference
