#include <algorithm>
#include <iterator>
#include <ostream>
#include <tuple>
#include <utility>

#include "tests/host/rendering.h"
#include "tests/host/scripted_host.h"
#include "tests/host/trace.h"

namespace scripted {
namespace {

const char* TypeText(VariableSet::VariableSetType type) {
  switch (type) {
    case VariableSet::kMDSet:
      return "MD";
    case VariableSet::kMCSet:
      return "MC";
    default:
      return "plain";
  }
}

void PutAttribute(std::string& line, const char* name, const std::string& text) {
  if (!text.empty()) {
    Put(line, name);
    Put(line, Quote(std::string_view(text)));
  }
}

}  // namespace

Variable Numeric(std::string name, std::optional<std::string> label, std::vector<ValueLabel> valueLabels) {
  return {std::move(name), 0, std::move(label), std::move(valueLabels)};
}

Variable String(std::string name, int width, std::optional<std::string> label, std::vector<ValueLabel> valueLabels) {
  return {std::move(name), width, std::move(label), std::move(valueLabels)};
}

bool operator==(const SetData& first, const SetData& second) {
  const auto tie = [](const SetData& set) {
    return std::tie(set.name, set.type, set.label, set.value, set.labelSetByVariable, set.useVariableCategoryLabels,
                    set.variables);
  };
  return tie(first) == tie(second);
}

bool operator!=(const SetData& first, const SetData& second) {
  return !(first == second);
}

std::string ToText(const SetData& set) {
  std::string line;
  Put(line, Bare{set.name});
  line.append(" ").append(TypeText(set.type));
  PutAttribute(line, " value ", set.value);
  PutAttribute(line, " label ", set.label);
  line.append(set.labelSetByVariable ? " label-by-variable" : "");
  line.append(set.useVariableCategoryLabels ? " counted-value-labels" : "");
  line += " (";
  Put(line, Bare{Join(set.variables, " ")});
  return line + ")";
}

std::ostream& operator<<(std::ostream& stream, const SetData& set) {
  return stream << ToText(set);
}

SetData Dichotomies(std::string name, std::string value, std::vector<std::string> variables, std::string label) {
  return {std::move(name), VariableSet::kMDSet, std::move(label), std::move(value), false, false, std::move(variables)};
}

SetData Categories(std::string name, std::vector<std::string> variables, std::string label) {
  return {std::move(name), VariableSet::kMCSet, std::move(label), "", false, false, std::move(variables)};
}

VariableSet ToSet(const SetData& data) {
  const Quiet quiet;
  VariableSet set(data.name, data.type);
  set.SetLabel(data.label);
  set.SetValue(data.value);
  set.LabelSetByVariable(data.labelSetByVariable);
  set.UseVariableCategoryLabels(data.useVariableCategoryLabels);
  for (const std::string& variable : data.variables) {
    set.AddVariableName(variable);
  }
  return set;
}

VARIABLESETS ToSets(const std::vector<SetData>& data) {
  VARIABLESETS sets;
  std::transform(data.begin(), data.end(), std::back_inserter(sets), [](const SetData& set) { return ToSet(set); });
  return sets;
}

SetData ToData(const VariableSet& set) {
  const Quiet quiet;
  return {set.GetName(VariableSet::kAsStored),
          set.GetType(),
          set.GetLabel(),
          set.GetValue(),
          set.qLabelSetByVariable(),
          set.qUseVariableCategoryLabels(),
          set.GetVariableNames(VariableSet::kAsStored)};
}

std::vector<SetData> ToData(const VARIABLESETS& sets) {
  std::vector<SetData> data;
  std::transform(sets.begin(), sets.end(), std::back_inserter(data),
                 [](const VariableSet& set) { return ToData(set); });
  return data;
}

}  // namespace scripted
