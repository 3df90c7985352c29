#include "bench/module/commands.h"

namespace bench {
namespace {

std::string VariableListOf(const Workload& workload) {
  if (workload.asRange) {
    return VariableName(0) + " TO " + VariableName(workload.variables - 1);
  }
  std::string list;
  for (std::size_t variable = 0; variable < workload.variables; ++variable) {
    list += (variable == 0 ? "" : " ") + VariableName(variable);
  }
  return list;
}

}  // namespace

std::string SetName(std::size_t set) {
  return "$drinks" + std::to_string(set + 1);
}

std::string VariableName(std::size_t variable) {
  return "q" + std::to_string(variable + 1);
}

std::vector<scripted::Variable> DictionaryOf(const Workload& workload) {
  std::vector<scripted::Variable> dictionary;
  dictionary.reserve(workload.variables);
  for (std::size_t variable = 0; variable < workload.variables; ++variable) {
    dictionary.push_back(scripted::Numeric(VariableName(variable)));
    if (workload.labels == Labels::kEach) {
      dictionary.back().label = "Drinks at breakfast: number " + std::to_string(variable + 1);
      dictionary.back().valueLabels = {{0.0, "No"}, {1.0, "Yes"}};
    }
  }
  return dictionary;
}

std::string CommandOf(const Workload& workload) {
  const std::string rest =
      std::string(" LABEL='") + kSetLabel + "' VARIABLES=" + VariableListOf(workload) + " VALUE=" + kCountedValue;
  std::string command = "MRSET";
  for (std::size_t set = 0; set < workload.sets; ++set) {
    command += " /MDGROUP NAME=" + SetName(set) + rest;
  }
  return workload.display ? command + " /DISPLAY NAME=[" + SetName(0) + "]" : command;
}

}  // namespace bench
