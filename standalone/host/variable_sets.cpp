#include "host/variable_sets.h"

#include "standalone/host/command_context.h"
#include "standalone/text/unicode.h"

namespace {

enum Attribute : std::size_t { kLabelSetByVariable, kUseVariableCategoryLabels, kAttributeCount };

std::string InCase(const std::string& name, VariableSet::ChangeCase changeCase) {
  return changeCase == VariableSet::kUpperCase ? standalone::ToUpper(name) : name;
}

}  // namespace

VariableSet::VariableSet(const std::string& name, VariableSetType type)
    : fType(type), fAttributes(kAttributeCount, false), fName(name) {}

void VariableSet::AddVariableName(const std::string& name) {
  fVariableNames.push_back(name);
}

void VariableSet::SetLabel(const std::string& label) {
  fLabel = label;
}

void VariableSet::SetValue(const std::string& value) {
  fValue = value;
}

void VariableSet::LabelSetByVariable(bool labelSetByVariable) {
  fAttributes[kLabelSetByVariable] = labelSetByVariable;
}

void VariableSet::UseVariableCategoryLabels(bool useVariableCategoryLabels) {
  fAttributes[kUseVariableCategoryLabels] = useVariableCategoryLabels;
}

bool VariableSet::qLabelSetByVariable() const {
  return fAttributes[kLabelSetByVariable];
}

bool VariableSet::qUseVariableCategoryLabels() const {
  return fAttributes[kUseVariableCategoryLabels];
}

std::string VariableSet::GetName(ChangeCase changeCase) const {
  return InCase(fName, changeCase);
}

VariableSet::VariableSetType VariableSet::GetType() const {
  return fType;
}

std::string VariableSet::GetLabel() const {
  return fLabel;
}

std::string VariableSet::GetValue() const {
  return fValue;
}

std::vector<std::string> VariableSet::GetVariableNames(ChangeCase changeCase) const {
  std::vector<std::string> names;
  names.reserve(fVariableNames.size());
  for (const std::string& name : fVariableNames) {
    names.push_back(InCase(name, changeCase));
  }
  return names;
}

VARIABLESETS VariableSets(const ZEVA_DataSource& /*dataSource*/, VarSetsType /*type*/) {
  return standalone::CommandContext::Current().Sets();
}

void SaveVariableSets(const VARIABLESETS& sets, ZEVA_DataSource& /*dataSource*/, VarSetsType /*type*/) {
  standalone::CommandContext::Current().SaveSets(sets);
}
