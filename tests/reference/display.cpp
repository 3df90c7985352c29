#include "tests/reference/display.h"

#include "tests/host/letters.h"

namespace reference {
namespace {

using scripted::SetData;

bool IsSameName(const std::string& first, const std::string& second) {
  return scripted::CompareNoCase(first, second) == 0;
}

bool IsNamed(const std::vector<std::string>& names, const std::string& name) {
  for (const std::string& listed : names) {
    if (IsSameName(name, listed)) {
      return true;
    }
  }
  return false;
}

/// Removes the first entry that equals the name.
void StrikeOut(std::vector<std::string>& names, const std::string& name) {
  for (std::size_t index = 0; index < names.size(); ++index) {
    if (IsSameName(name, names[index])) {
      names.erase(names.begin() + static_cast<std::ptrdiff_t>(index));
      return;
    }
  }
}

std::string Joined(const std::vector<std::string>& texts, const std::string& separator) {
  std::string joined;
  for (std::size_t index = 0; index < texts.size(); ++index) {
    joined += (index == 0 ? "" : separator) + texts[index];
  }
  return joined;
}

std::vector<SetData> ChosenSets(const Record& subcmd, const std::vector<SetData>& sets, Report& report) {
  if (subcmd.fAll) {
    return sets;
  }
  std::vector<SetData> chosen;
  std::vector<std::string> outstanding = subcmd.fNames;
  for (const SetData& set : sets) {
    if (IsNamed(subcmd.fNames, set.name)) {
      StrikeOut(outstanding, set.name);
      chosen.push_back(set);
    }
  }
  if (!outstanding.empty()) {
    report.Add("warning: One or more of the sets specified do not exist... " + Joined(outstanding, ", "));
  }
  return chosen;
}

std::string DataType(const SetData& set, const Variables& dictionary) {
  for (const std::string& name : set.variables) {
    const int index = FindVariable(dictionary, name);
    if (index != -1) {
      return dictionary[static_cast<std::size_t>(index)].type == 0 ? "Numeric" : "String";
    }
  }
  return "Unknown";
}

std::string LabelCell(const SetData& set) {
  if (set.labelSetByVariable) {
    return "(use variable label)";
  }
  return set.label.empty() ? "-" : set.label;
}

std::string CountedValueCell(const SetData& set) {
  if (set.type == VariableSet::kMCSet) {
    return "N/A";
  }
  return set.value + (set.useVariableCategoryLabels ? " {Using variable value labels}" : "");
}

std::string VariableLine(const std::string& name, bool byName, const Variables& dictionary) {
  const int index = FindVariable(dictionary, name);
  if (index == -1) {
    return name + "(no longer exists)";
  }
  const scripted::Variable& variable = dictionary[static_cast<std::size_t>(index)];
  const std::string label = variable.label.value_or("");
  return byName || label.empty() ? variable.name : label;
}

std::string VariablesCell(const SetData& set, const Variables& dictionary) {
  const bool byName = set.type != VariableSet::kMCSet && set.useVariableCategoryLabels;
  std::vector<std::string> lines;
  for (const std::string& name : set.variables) {
    lines.push_back(VariableLine(name, byName, dictionary));
  }
  return Joined(lines, "; ");
}

}  // namespace

std::vector<std::string> DisplayMRSets(const Record& subcmd, const Variables& dictionary,
                                       const std::vector<SetData>& sets, Report& report) {
  Require(subcmd.fType == Record::kDISPLAY, "subcmd.fType == MRSetSubcommand::kDISPLAY");
  std::vector<std::string> lines{"Multiple Response Sets: Name by Attributes",
                                 "Label | Coded As | Counted Value | Data Type | Elementary Variables"};
  for (const SetData& set : ChosenSets(subcmd, sets, report)) {
    Require(set.type != VariableSet::kVarSet, "iter->GetType() != VariableSet::kVarSet");
    const std::string codedAs = set.type == VariableSet::kMCSet ? "Categories" : "Dichotomies";
    lines.push_back(Joined({set.name, LabelCell(set), codedAs, CountedValueCell(set), DataType(set, dictionary),
                            VariablesCell(set, dictionary)},
                           " | "));
  }
  return lines;
}

}  // namespace reference
