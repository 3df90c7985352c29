#include "tests/traces/options.h"

#include <algorithm>
#include <array>
#include <iostream>
#include <string_view>

#include "tests/traces/scenarios.h"

namespace traces {
namespace {

using scripted::FaultKind;
using scripted::FaultMode;

constexpr std::array kKinds = {FaultKind::kStandard, FaultKind::kOdd};
constexpr std::array kModes = {FaultMode::kOnce, FaultMode::kFromThenOn};

/// The value of `--NAME=VALUE`; none when the argument is another.
std::optional<std::string> ValueOf(std::string_view argument, std::string_view name) {
  const std::string begin = "--" + std::string(name) + "=";
  if (argument.substr(0, begin.size()) != begin) {
    return std::nullopt;
  }
  return std::string(argument.substr(begin.size()));
}

bool ReadNumber(const std::string& text, std::optional<std::size_t>& number) {
  if (text.empty() || text.size() > 9 || text.find_first_not_of("0123456789") != std::string::npos) {
    return false;
  }
  number = std::stoul(text);
  return *number > 0;
}

template <class Choice, std::size_t kCount>
bool ReadChoice(const std::string& text, const std::array<Choice, kCount>& choices, std::optional<Choice>& chosen) {
  for (const Choice choice : choices) {
    if (text == ToText(choice)) {
      chosen = choice;
      return true;
    }
  }
  return false;
}

bool ReadOption(std::string_view argument, Options& options) {
  if (argument == "--update-goldens") {
    return options.updateGoldens = true;
  }
  if (const auto scenario = ValueOf(argument, "scenario")) {
    options.scenario = *scenario;
    return !scenario->empty();
  }
  if (const auto call = ValueOf(argument, "call")) {
    return ReadNumber(*call, options.call);
  }
  if (const auto allocation = ValueOf(argument, "allocation")) {
    return ReadNumber(*allocation, options.allocation);
  }
  if (const auto kind = ValueOf(argument, "kind")) {
    return ReadChoice(*kind, kKinds, options.kind);
  }
  if (const auto mode = ValueOf(argument, "mode")) {
    return ReadChoice(*mode, kModes, options.mode);
  }
  return false;
}

}  // namespace

Options& RunOptions() {
  static Options options;
  return options;
}

bool ReadOptions(int count, char** arguments, Options& options) {
  options.program = arguments[0];
  for (int index = 1; index < count; ++index) {
    if (!ReadOption(arguments[index], options)) {
      std::cerr << "not understood: " << arguments[index] << '\n';
      return false;
    }
  }
  const bool hasFault = options.call || options.allocation || options.kind || options.mode;
  if (hasFault && options.scenario.empty()) {
    std::cerr << "a fault needs a --scenario\n";
    return false;
  }
  return true;
}

bool NamesAScenario(const Options& options) {
  const auto& scenarios = Scenarios();
  const bool known = options.scenario.empty() ||
                     std::any_of(scenarios.begin(), scenarios.end(),
                                 [&](const Scenario& scenario) { return scenario.name == options.scenario; });
  if (!known) {
    std::cerr << "there is no scenario " << options.scenario << "\n";
  }
  return known;
}

std::string Filter(const Options& options) {
  if (options.scenario.empty()) {
    return {};
  }
  if (options.call) {
    return "*FaultsOfCalls*/" + options.scenario;
  }
  return (options.allocation ? "*FaultsOfAllocations*/" : "*/") + options.scenario;
}

const char* ToText(FaultKind kind) {
  return kind == FaultKind::kStandard ? "standard" : "odd";
}

const char* ToText(FaultMode mode) {
  return mode == FaultMode::kOnce ? "once" : "from-then-on";
}

}  // namespace traces
