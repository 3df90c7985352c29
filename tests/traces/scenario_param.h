#ifndef TESTS_TRACES_SCENARIO_PARAM_H
#define TESTS_TRACES_SCENARIO_PARAM_H

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "tests/traces/scenarios.h"

namespace traces {

/// For tests that run with each scenario.
inline std::string NameOfScenario(const testing::TestParamInfo<Scenario>& info) {
  return info.param.name;
}

inline void PrintTo(const Scenario& scenario, std::ostream* stream) {
  *stream << scenario.command;
}

}  // namespace traces

#endif  // TESTS_TRACES_SCENARIO_PARAM_H
