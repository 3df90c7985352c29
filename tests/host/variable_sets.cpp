#include "host/variable_sets.h"

#include <algorithm>

#include "tests/host/call.h"
#include "tests/host/host_access.h"
#include "tests/host/letters.h"
#include "tests/host/lies.h"
#include "tests/host/sources.h"

using scripted::Call;
using scripted::Core;
using scripted::InstalledCore;
using scripted::Lie;
using scripted::Quote;
using scripted::Tells;

namespace {

enum Attribute : std::size_t { kLabelSetByVariable, kUseVariableCategoryLabels, kAttributeCount };

/// A set that was moved from has no attributes left.
void CheckWhole(const std::vector<bool>& attributes) {
  Core* core = InstalledCore();
  if (core != nullptr && attributes.empty()) {
    core->Violate("a set was read that was moved from");
  }
}

Quote Name(const std::string& name) {
  return Quote(std::string_view(name));
}

/// A lie about names as stored concerns those with a capital, so that it leaves the others alone.
bool HasCapital(const std::string& name) {
  return name.find_first_of("DA") < 2;
}

std::string SetNameInCase(const std::string& name, VariableSet::ChangeCase changeCase) {
  const bool isLie = changeCase == VariableSet::kUpperCase ? Tells(Lie::kUpperCaseAsStored)
                                                           : Tells(Lie::kSetNameInUpperCase) && HasCapital(name);
  return (changeCase == VariableSet::kUpperCase) != isLie ? scripted::UpperCase(name) : name;
}

std::string InCase(const std::string& name, VariableSet::ChangeCase changeCase) {
  if (Tells(Lie::kVariablesInUpperCase) && HasCapital(name)) {
    return scripted::UpperCase(name);
  }
  return changeCase == VariableSet::kUpperCase ? scripted::UpperCase(name) : name;
}

void CheckKind(Core& core, VarSetsType type) {
  if (type != kMRSets) {
    core.Violate("variable sets of the unknown kind " + std::to_string(type) + " were asked for");
  }
}

}  // namespace

VariableSet::VariableSet(const std::string& name, VariableSetType type) : fType(type) {
  Call call(InstalledCore(), "VariableSet(", Name(name), ", ", type, ")");
  call.ForCaller([&] {
    fAttributes.assign(kAttributeCount, Tells(Lie::kNewSetHasAFlag));
    fName = name;
  });
}

void VariableSet::AddVariableName(const std::string& name) {
  Call call(InstalledCore(), "set ", Name(fName), ".AddVariableName(", Name(name), ")");
  if (Tells(Lie::kVariablesOnlyOnce) &&
      std::find(fVariableNames.begin(), fVariableNames.end(), name) != fVariableNames.end()) {
    return;
  }
  call.ForCaller([&] { fVariableNames.push_back(name); });
}

void VariableSet::SetLabel(const std::string& label) {
  Call call(InstalledCore(), "set ", Name(fName), ".SetLabel(", Name(label), ")");
  call.ForCaller([&] { fLabel = label; });
  if (Tells(Lie::kLabelInUpperCase)) {
    fLabel = scripted::UpperCase(label);
  }
}

void VariableSet::SetValue(const std::string& value) {
  Call call(InstalledCore(), "set ", Name(fName), ".SetValue(", Name(value), ")");
  call.ForCaller([&] { fValue = value; });
  if (Tells(Lie::kValueWithoutBlanks) && value[0] == ' ') {
    fValue = value.substr(1);
  }
}

void VariableSet::LabelSetByVariable(bool labelSetByVariable) {
  const Call call(InstalledCore(), "set ", Name(fName), ".LabelSetByVariable(", labelSetByVariable, ")");
  fAttributes[kLabelSetByVariable] = labelSetByVariable || Tells(Lie::kLabelFlagStays);
}

void VariableSet::UseVariableCategoryLabels(bool useVariableCategoryLabels) {
  const Call call(InstalledCore(), "set ", Name(fName), ".UseVariableCategoryLabels(", useVariableCategoryLabels, ")");
  fAttributes[kUseVariableCategoryLabels] = useVariableCategoryLabels != Tells(Lie::kCategoryFlagIsTurned);
}

bool VariableSet::qLabelSetByVariable() const {
  Call call(InstalledCore(), "set ", Name(fName), ".qLabelSetByVariable()");
  const bool result = fAttributes[kLabelSetByVariable];
  call.Returns(result);
  return result;
}

bool VariableSet::qUseVariableCategoryLabels() const {
  Call call(InstalledCore(), "set ", Name(fName), ".qUseVariableCategoryLabels()");
  const bool result = fAttributes[kUseVariableCategoryLabels];
  call.Returns(result);
  return result;
}

std::string VariableSet::GetName(ChangeCase changeCase) const {
  CheckWhole(fAttributes);
  Call call(InstalledCore(), "set ", Name(fName), ".GetName(", changeCase, ")");
  const std::string name = SetNameInCase(fName, changeCase);
  std::string result = call.ForCaller([&] { return std::string(name); });
  call.Returns(Name(result));
  return result;
}

VariableSet::VariableSetType VariableSet::GetType() const {
  Call call(InstalledCore(), "set ", Name(fName), ".GetType()");
  call.Returns(fType);
  return fType;
}

std::string VariableSet::GetLabel() const {
  Call call(InstalledCore(), "set ", Name(fName), ".GetLabel()");
  std::string result = call.ForCaller([&] { return std::string(fLabel); });
  call.Returns(Name(result));
  return result;
}

std::string VariableSet::GetValue() const {
  Call call(InstalledCore(), "set ", Name(fName), ".GetValue()");
  std::string result = call.ForCaller([&] { return std::string(fValue); });
  call.Returns(Name(result));
  return result;
}

std::vector<std::string> VariableSet::GetVariableNames(ChangeCase changeCase) const {
  CheckWhole(fAttributes);
  Call call(InstalledCore(), "set ", Name(fName), ".GetVariableNames(", changeCase, ")");
  std::vector<std::string> names;
  std::transform(fVariableNames.begin(), fVariableNames.end(), std::back_inserter(names),
                 [changeCase](const std::string& name) { return InCase(name, changeCase); });
  std::vector<std::string> result = call.ForCaller([&] { return std::vector<std::string>(names); });
  call.Returns(result);
  return result;
}

VARIABLESETS VariableSets(const ZEVA_DataSource& dataSource, VarSetsType type) {
  Core& core = scripted::RequiredCore();
  Call call(core, "VariableSets(", SourceName(core, dataSource), ", ", type, ")");
  CheckSource(core, dataSource);
  CheckKind(core, type);
  VARIABLESETS result = call.ForCaller([&] { return VARIABLESETS(core.sets); });
  if (Tells(Lie::kSetsReversed)) {
    std::reverse(result.begin(), result.end());
  }
  call.Returns(scripted::SetNames{result});
  return result;
}

void SaveVariableSets(const VARIABLESETS& sets, ZEVA_DataSource& dataSource, VarSetsType type) {
  Core& core = scripted::RequiredCore();
  const Call call(core, "SaveVariableSets(", scripted::WholeSets{sets}, ", ", SourceName(core, dataSource), ", ", type,
                  ")");
  CheckSource(core, dataSource);
  CheckKind(core, type);
  if (Tells(Lie::kSaveAppends)) {
    core.sets.insert(core.sets.end(), sets.begin(), sets.end());
    return;
  }
  core.sets = sets;
  core.record->saved = sets;
  ++core.record->saveCount;
}
