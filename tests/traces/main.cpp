#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/traces/golden.h"
#include "tests/traces/options.h"

int main(int argc, char** argv) {
  testing::InitGoogleMock(&argc, argv);
  traces::Options& options = traces::RunOptions();
  if (!traces::ReadOptions(argc, argv, options) || !traces::NamesAScenario(options)) {
    return 2;
  }
  if (options.updateGoldens) {
    traces::UpdateGoldens();
    return 0;
  }
  if (const std::string filter = Filter(options); !filter.empty()) {
    testing::GTEST_FLAG(filter) = filter;
  }
  return RUN_ALL_TESTS();
}
