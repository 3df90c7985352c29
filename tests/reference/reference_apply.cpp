#include "tests/reference/reference_apply.h"

#include <algorithm>

#include "tests/host/letters.h"
#include "tests/reference/display.h"
#include "tests/reference/report.h"

namespace reference {
namespace {

using scripted::SetData;
using Sets = std::vector<SetData>;

/// What one command works on.
struct Run {
  const Variables& dictionary;
  Sets sets;
  Report report;
  std::vector<std::vector<std::string>> tables;
};

bool HasKey(const SetData& set, const std::string& key) {
  return scripted::UpperCase(set.name) == key;
}

void ReplaceVarSet(const SetData& newSet, Sets& sets) {
  const std::string key = scripted::UpperCase(newSet.name);
  for (SetData& set : sets) {
    if (HasKey(set, key)) {
      set = newSet;
      return;
    }
  }
  sets.push_back(newSet);
}

std::vector<std::string> VariablesOf(const Record& subcmd, const Variables& dictionary) {
  if (!subcmd.fAll) {
    Require(!subcmd.fVariables.empty(), "!subcmd.fVariables.empty()");
    return subcmd.fVariables;
  }
  std::vector<std::string> names;
  for (const scripted::Variable& variable : dictionary) {
    names.push_back(variable.name);
  }
  return names;
}

void RequireName(const Record& subcmd) {
  Require(!subcmd.fName.empty(), "!subcmd.fName.empty()");
  Require(subcmd.fName[0] == '$', "subcmd.fName[0] == '$'");
}

void AddMDGroup(const Record& subcmd, Run& run) {
  RequireName(subcmd);
  Require(subcmd.fType == Record::kMDGROUP, "subcmd.fType == MRSetSubcommand::kMDGROUP");
  Require(!subcmd.fValue.empty(), "!subcmd.fValue.empty()");
  SetData set;
  set.name = subcmd.fName;
  set.type = VariableSet::kMDSet;
  set.label = subcmd.fLabel;
  set.value = subcmd.fValue;
  set.useVariableCategoryLabels = subcmd.fCategoryLabelsCountedValues;
  set.labelSetByVariable = subcmd.fLabelSourceVarLabel;
  set.variables = VariablesOf(subcmd, run.dictionary);
  ReplaceVarSet(set, run.sets);
}

void AddMCGroup(const Record& subcmd, Run& run) {
  RequireName(subcmd);
  Require(subcmd.fType == Record::kMCGROUP, "subcmd.fType == MRSetSubcommand::kMCGROUP");
  SetData set;
  set.name = subcmd.fName;
  set.type = VariableSet::kMCSet;
  set.label = subcmd.fLabel;
  set.variables = VariablesOf(subcmd, run.dictionary);
  ReplaceVarSet(set, run.sets);
}

void RemoveVarSet(const std::string& name, Run& run) {
  const std::string key = scripted::UpperCase(name);
  Sets others;
  for (const SetData& set : run.sets) {
    if (!HasKey(set, key)) {
      others.push_back(set);
    }
  }
  if (others.size() == run.sets.size()) {
    run.report.Warning("^1 MRSET can not be found in the dataset.", name);
    return;
  }
  Require(others.size() + 1 == run.sets.size(), "(end - 1) == last");
  run.sets = others;
}

void DeleteMRSets(const Record& subcmd, Run& run) {
  Require(subcmd.fType == Record::kDELETE, "subcmd.fType == MRSetSubcommand::kDELETE");
  if (subcmd.fAll) {
    if (run.sets.empty()) {
      run.report.Warning("No MRSETs to delete");
    }
    run.sets.clear();
    return;
  }
  Require(!subcmd.fNames.empty(), "!subcmd.fNames.empty()");
  for (const std::string& name : subcmd.fNames) {
    Require(!name.empty() && name[0] == '$', "(*namesIter)[0] == '$'");
    RemoveVarSet(name, run);
  }
}

void Display(const Record& subcmd, Run& run) {
  if (run.sets.empty()) {
    run.report.Warning("No MRSET to display");
    return;
  }
  std::stable_sort(run.sets.begin(), run.sets.end(), [](const SetData& first, const SetData& second) {
    return scripted::UpperCase(first.name) < scripted::UpperCase(second.name);
  });
  run.tables.push_back(DisplayMRSets(subcmd, run.dictionary, run.sets, run.report));
}

void ApplyRecord(const Record& subcmd, Run& run) {
  switch (subcmd.fType) {
    case Record::kMDGROUP:
      AddMDGroup(subcmd, run);
      break;
    case Record::kMCGROUP:
      AddMCGroup(subcmd, run);
      break;
    case Record::kDISPLAY:
      Display(subcmd, run);
      break;
    case Record::kDELETE:
      DeleteMRSets(subcmd, run);
      break;
    default:
      break;
  }
}

}  // namespace

ApplyResult Apply(const std::vector<Record>& records, const std::vector<scripted::Variable>& dictionary,
                  const std::vector<SetData>& storedSets) {
  Run run{dictionary, storedSets, {}, {}};
  ApplyResult result;
  try {
    for (const Record& record : records) {
      ApplyRecord(record, run);
      result.editedSets.push_back(run.sets);
    }
    result.saved = run.sets;
  } catch (const AssertionFailed& failure) {
    result.assertion = failure.expression;
  }
  result.messages = run.report.Lines();
  result.tables = run.tables;
  return result;
}

}  // namespace reference
