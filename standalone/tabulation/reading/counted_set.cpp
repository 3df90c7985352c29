#include "standalone/tabulation/reading/counted_set.h"

#include <fmt/format.h>

#include <algorithm>

#include "standalone/language/nearest_name.h"
#include "standalone/tabulation/tabulation_error.h"
#include "standalone/text/number_text.h"

namespace standalone {
namespace {

StoredSet FindSet(const Spoken& name, TabulationSource& source) {
  if (const StoredSet* set = source.FindSet(name.text)) {
    return *set;
  }
  NearestName nearest(name.text);
  source.VisitSetNames([&nearest](std::string_view candidate) { nearest.Offer(candidate); });
  throw TabulationError(fmt::format("Unknown set: {}.", name.text), name.offset, name.size, nearest.Result());
}

/// The label of the counted value in a variable, or else the variable's name.
std::string CountedValueLabel(const Variable& variable, const std::string& countedValue) {
  ValueLabels labels(variable.width == 0);
  labels.Add(variable.valueLabels);
  return labels.HasValue(countedValue) ? labels.LabelOf(countedValue) : variable.name;
}

std::string LabelOrName(const Variable& variable) {
  return variable.label.value_or("").empty() ? variable.name : *variable.label;
}

void AddVariable(const StoredSet& set, const Variable& variable, CountedSet& counted) {
  counted.variableNames.push_back(variable.name);
  if (counted.isCategory) {
    counted.valueLabels.Add(variable.valueLabels);
  } else {
    counted.variableLabels.push_back(set.categoryLabelsFromCountedValue ? CountedValueLabel(variable, set.countedValue)
                                                                        : LabelOrName(variable));
  }
  if (set.labelFromVariable && counted.label.empty()) {
    counted.label = variable.label.value_or("");
  }
}

void RequireOneType(const CountedSet& set, const Spoken& name, TabulationSource& source) {
  if (set.variables.empty()) {
    throw TabulationError(fmt::format("None of the variables of {} is in the dataset any more.", set.name), name.offset,
                          name.size);
  }
  const bool hasOneType = std::all_of(set.variables.begin(), set.variables.end(), [&](int variable) {
    return (source.VariableAt(variable).width == 0) == set.isNumeric;
  });
  if (!hasOneType) {
    throw TabulationError(fmt::format("Some variables of {} are numeric and others are strings now.", set.name),
                          name.offset, name.size);
  }
}

}  // namespace

CountedSet FindCountedSet(const Spoken& name, TabulationSource& source) {
  const StoredSet set = FindSet(name, source);
  CountedSet counted;
  counted.name = set.name;
  counted.isCategory = set.type == SetType::kCategory;
  counted.countedValue = set.countedValue;
  for (const std::string& variable : set.variables) {
    if (const int position = source.FindVariable(variable); position >= 0) {
      counted.variables.push_back(position);
    } else {
      counted.lostVariables.push_back(variable);
    }
  }
  counted.isNumeric = !counted.variables.empty() && source.VariableAt(counted.variables.front()).width == 0;
  RequireOneType(counted, name, source);
  counted.valueLabels = ValueLabels(counted.isNumeric);
  for (const int variable : counted.variables) {
    AddVariable(set, source.VariableAt(variable), counted);
  }
  counted.label = !counted.label.empty() ? counted.label : !set.label.empty() ? set.label : set.name;
  return counted;
}

ValueTest TestOfValue(const std::string& written, bool isNumeric) {
  ValueTest test;
  const std::string_view value = ComparedText(written);
  if (!isNumeric) {
    test.texts.emplace_back(value);
  } else if (const std::optional<double> number = NumberValue(value)) {
    test.numbers.push_back(*number);
  }
  return test;
}

int FindVariable(const Spoken& name, TabulationSource& source) {
  const int position = source.FindVariable(name.text);
  if (position < 0) {
    NearestName nearest(name.text);
    source.VisitVariableNames([&nearest](std::string_view candidate) { nearest.Offer(candidate); });
    throw TabulationError(fmt::format("Unknown variable: {}.", name.text), name.offset, name.size, nearest.Result());
  }
  return position;
}

}  // namespace standalone
