#include "backend/mrset/mrsetapply.h"

#include <algorithm>

#include "backend/mrset/assertion.h"
#include "backend/mrset/diagnostics.h"
#include "host/text.h"

namespace {

std::string UpperCaseName(const std::string& name) {
  std::vector<char> buffer(name.c_str(), name.c_str() + name.length() + 1);
  ZEVAMBstrupr_A(buffer.data());
  return buffer.data();
}

void AddAllVariables(const ZEVA_DataSource& dataSource, VariableSet& set) {
  for (int index = 0; index < dataSource.ColumnCount(); ++index) {
    set.AddVariableName(dataSource.GetVariable(index)->GetName());
  }
}

void AddListedVariables(const MRSetSubcommand& subcmd, VariableSet& set) {
  for (const std::string& variable : subcmd.fVariables) {
    set.AddVariableName(variable);
  }
}

void DisplaySortedSets(const MRSetSubcommand& subcmd, const ZEVA_DataSource& dataSource, VARIABLESETS& sets,
                       BpProcedure& procedure) {
  if (sets.empty()) {
    GenerateWarning("No MRSET to display", "", "");
    return;
  }
  std::sort(sets.begin(), sets.end(), SortVarSetNamePred());
  DisplayMRSets(subcmd, dataSource, sets, procedure);
}

void ApplySubcommand(const MRSetSubcommand& subcmd, const ZEVA_DataSource& dataSource, VARIABLESETS& sets,
                     BpProcedure& procedure) {
  switch (subcmd.fType) {
    case MRSetSubcommand::kMDGROUP:
      AddMDGroup(subcmd, dataSource, sets);
      break;
    case MRSetSubcommand::kMCGROUP:
      AddMCGroup(subcmd, dataSource, sets);
      break;
    case MRSetSubcommand::kDISPLAY:
      DisplaySortedSets(subcmd, dataSource, sets, procedure);
      break;
    case MRSetSubcommand::kDELETE:
      DeleteMRSets(subcmd, sets);
      break;
    case MRSetSubcommand::kNONE:
      break;
  }
}

/// Finds the first of `names` that is the set's name without regard to case.
template <typename Names>
auto FindName(Names& names, const std::string& setName) {
  return std::find_if(names.begin(), names.end(),
                      [&](const std::string& name) { return ZEVAMBstricmp_A(setName.c_str(), name.c_str()) == 0; });
}

/// The sets that the record names, in list order. Each strikes one of its mentions from `outstandingNames`.
VARIABLESETS ChooseSets(const MRSetSubcommand& subcmd, const VARIABLESETS& sets,
                        std::vector<std::string>& outstandingNames) {
  if (subcmd.fAll) {
    return sets;
  }
  outstandingNames = subcmd.fNames;
  VARIABLESETS chosen;
  for (const VariableSet& set : sets) {
    const std::string setName = set.GetName(VariableSet::kAsStored);
    if (FindName(subcmd.fNames, setName) == subcmd.fNames.end()) {
      continue;
    }
    const auto outstanding = FindName(outstandingNames, setName);
    if (outstanding != outstandingNames.end()) {
      outstandingNames.erase(outstanding);
    }
    chosen.push_back(set);
  }
  return chosen;
}

void WarnOfMissingSets(const std::vector<std::string>& names) {
  BpComposite message("One or more of the sets specified do not exist...", true);
  message.Sublist();
  for (const std::string& name : names) {
    message.Add(BpString(name, false));
  }
  message.EndSublist();
  BpError(message, kBpErrorShow, kBpErrorLevelWarning);
}

/// The columns of the table, and the footnote that its rows share. The order of the members is that of the columns.
struct AttributeColumns {
  explicit AttributeColumns(BpDimension& attributes)
      : label(attributes.Category(BpString("Label", true))),
        codedAs(attributes.Category(BpString("Coded As", true))),
        countedValue(attributes.Category(BpString("Counted Value", true))),
        dataType(attributes.Category(BpString("Data Type", true))),
        elementaryVariables(attributes.Category(BpString("Elementary Variables", true))),
        usingValueLabels(BpString("Using variable value labels", true).Replicate()) {}

  BpCategory label;
  BpCategory codedAs;
  BpCategory countedValue;
  BpCategory dataType;
  BpCategory elementaryVariables;
  BpAnnotation usingValueLabels;
};

void WriteLabel(const VariableSet& set, BpCategory& column) {
  if (set.qLabelSetByVariable()) {
    column.Cell(BpString("(use variable label)", true));
    return;
  }
  const std::string label = set.GetLabel();
  if (!label.empty()) {
    column.Cell(BpString(label, false));
  }
}

/// Returns whether the set's variables are shown by their labels.
bool WriteCoding(const VariableSet& set, AttributeColumns& columns) {
  if (set.GetType() == VariableSet::kMCSet) {
    columns.codedAs.Cell(BpString("Categories", true));
    columns.countedValue.Cell(BpString("N/A", true));
    return true;
  }
  columns.codedAs.Cell(BpString("Dichotomies", true));
  columns.countedValue.Cell(BpString(set.GetValue(), false));
  if (set.qUseVariableCategoryLabels()) {
    columns.countedValue.CellNote(columns.usingValueLabels);
    return false;
  }
  return true;
}

std::string ElementaryVariableText(const std::string& name, const ZEVA_DataSource& dataSource, bool byLabel) {
  const int index = dataSource.FindVarIndex(name.c_str(), 0);
  if (index == -1) {
    return name + "(no longer exists)";
  }
  const ZEVA_Variable& var = *dataSource.GetVariable(index);
  if (byLabel) {
    const char* label = var.GetLabel();
    if (label != nullptr && *label != '\0') {
      return label;
    }
  }
  return var.GetName();
}

void WriteElementaryVariables(const VariableSet& set, const ZEVA_DataSource& dataSource, bool byLabel,
                              BpCategory& column) {
  BpComposite lines("[:^1\r:$1]1", false);
  lines.Sublist();
  for (const std::string& name : set.GetVariableNames(VariableSet::kAsStored)) {
    lines.Add(BpString(ElementaryVariableText(name, dataSource, byLabel), false));
  }
  lines.EndSublist();
  column.Cell(lines);
}

void WriteRow(const VariableSet& set, const ZEVA_DataSource& dataSource, BpDimension& names,
              AttributeColumns& columns) {
  // The row must be alive while its cells are written.
  const BpCategory row = names.Category(BpString(set.GetName(VariableSet::kAsStored), false));
  WriteLabel(set, columns.label);
  const bool byLabel = WriteCoding(set, columns);
  columns.dataType.Cell(BpString(GetVarSetDataType(set.GetVariableNames(VariableSet::kUpperCase), dataSource), true));
  WriteElementaryVariables(set, dataSource, byLabel, columns.elementaryVariables);
}

}  // namespace

void MRSetApply(const MRSETSUBCOMMANDS& subcommands, const ZEVA_DataSource& dataSource, BpProcedure& procedure) {
  VARIABLESETS sets = VariableSets(dataSource, kMRSets);
  for (const MRSetSubcommand& subcmd : subcommands) {
    ApplySubcommand(subcmd, dataSource, sets, procedure);
  }
  // The parent source comes as a constant one and yet is where the sets are kept.
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast)
  SaveVariableSets(sets, const_cast<ZEVA_DataSource&>(dataSource), kMRSets);
}

void AddMDGroup(const MRSetSubcommand& subcmd, const ZEVA_DataSource& dataSource, VARIABLESETS& sets) {
  assert(!subcmd.fName.empty());
  assert(subcmd.fName[0] == '$');
  assert(subcmd.fType == MRSetSubcommand::kMDGROUP);
  assert(!subcmd.fValue.empty());
  VariableSet set(subcmd.fName, VariableSet::kMDSet);
  if (!subcmd.fLabel.empty()) {
    set.SetLabel(subcmd.fLabel);
  }
  set.SetValue(subcmd.fValue);
  set.UseVariableCategoryLabels(subcmd.fCategoryLabelsCountedValues);
  set.LabelSetByVariable(subcmd.fLabelSourceVarLabel);
  if (subcmd.fAll) {
    AddAllVariables(dataSource, set);
  } else {
    assert(!subcmd.fVariables.empty());
    AddListedVariables(subcmd, set);
  }
  ReplaceVarSet(set, sets);
}

void AddMCGroup(const MRSetSubcommand& subcmd, const ZEVA_DataSource& dataSource, VARIABLESETS& sets) {
  assert(!subcmd.fName.empty());
  assert(subcmd.fName[0] == '$');
  assert(subcmd.fType == MRSetSubcommand::kMCGROUP);
  VariableSet set(subcmd.fName, VariableSet::kMCSet);
  if (!subcmd.fLabel.empty()) {
    set.SetLabel(subcmd.fLabel);
  }
  if (subcmd.fAll) {
    AddAllVariables(dataSource, set);
  } else {
    assert(!subcmd.fVariables.empty());
    AddListedVariables(subcmd, set);
  }
  ReplaceVarSet(set, sets);
}

void ReplaceVarSet(const VariableSet& set, VARIABLESETS& sets) {
  const FindVarSetNamePred isSameName(UpperCaseName(set.GetName(VariableSet::kAsStored)));
  const auto end = sets.end();
  const auto location = std::find_if(sets.begin(), end, isSameName);
  if (location == end) {
    sets.push_back(set);
    return;
  }
  assert(location <= end);
  *location = set;
}

void DeleteMRSets(const MRSetSubcommand& subcmd, VARIABLESETS& sets) {
  assert(subcmd.fType == MRSetSubcommand::kDELETE);
  if (subcmd.fAll) {
    if (sets.empty()) {
      GenerateWarning("No MRSETs to delete", "", "");
    }
    sets.clear();
    return;
  }
  assert(!subcmd.fNames.empty());
  // NOLINTNEXTLINE(modernize-loop-convert): the asserted expression names the iterator
  for (auto namesIter = subcmd.fNames.begin(); namesIter != subcmd.fNames.end(); ++namesIter) {
    assert((*namesIter)[0] == '$');
    RemoveVarSet(*namesIter, sets);
  }
}

void RemoveVarSet(const std::string& name, VARIABLESETS& sets) {
  const FindVarSetNamePred isSameName(UpperCaseName(name));
  const auto end = sets.end();
  const auto last = std::remove_if(sets.begin(), end, isSameName);
  if (last == end) {
    GenerateWarning("^1 MRSET can not be found in the dataset.", name, "");
    return;
  }
  assert((end - 1) == last);
  sets.pop_back();
}

void DisplayMRSets(const MRSetSubcommand& subcmd, const ZEVA_DataSource& dataSource, const VARIABLESETS& sets,
                   BpProcedure& procedure) {
  assert(subcmd.fType == MRSetSubcommand::kDISPLAY);
  std::vector<std::string> outstandingNames;
  const VARIABLESETS chosen = ChooseSets(subcmd, sets, outstandingNames);
  if (!outstandingNames.empty()) {
    WarnOfMissingSets(outstandingNames);
  }

  const BpString title("Multiple Response Sets", true);
  BpPivotTable table = procedure.PivotTable(title, title, false);
  BpDimension attributes = table.Dimension(BpString("Attributes", true), BpPivotTable::kAsAdded);
  attributes.Position(BpDimension::kColumns, 1, true, false);
  BpDimension names = table.Dimension(BpString("Name", true), BpPivotTable::kAsAdded);
  AttributeColumns columns(attributes);
  for (auto iter = chosen.begin(); iter != chosen.end(); ++iter) {
    assert(iter->GetType() != VariableSet::kVarSet);
    WriteRow(*iter, dataSource, names, columns);
  }
}

std::string GetVarSetDataType(const std::vector<std::string>& variableNames, const ZEVA_DataSource& dataSource) {
  for (const std::string& name : variableNames) {
    const int index = dataSource.FindVarIndex(name.c_str(), 0);
    if (index != -1) {
      return dataSource.GetVariable(index)->GetType() == 0 ? "Numeric" : "String";
    }
  }
  return "Unknown";
}

FindVarSetNamePred::FindVarSetNamePred(const std::string& upperCaseName) : fUpperCaseName(upperCaseName) {}

bool FindVarSetNamePred::operator()(const VariableSet& set) const {
  return set.GetName(VariableSet::kUpperCase) == fUpperCaseName;
}

bool SortVarSetNamePred::operator()(const VariableSet& first, const VariableSet& second) const {
  // One after the other: the order of the host's calls must not depend on the compiler.
  const std::string firstName = first.GetName(VariableSet::kUpperCase);
  const std::string secondName = second.GetName(VariableSet::kUpperCase);
  return firstName < secondName;
}
