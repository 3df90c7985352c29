#include "tests/standalone/shell/shell_dataset.h"

#include <cstdlib>
#include <optional>
#include <vector>

#include "standalone/dataset/dataset_writer.h"
#include "standalone/dataset/variable.h"

namespace standalone {

ShellDatasetTest::ShellDatasetTest() {
  setenv("MRSET_MODULE", MRSET_TEST_MODULE, 1);
  Make(kFile);
}

ShellDatasetTest::~ShellDatasetTest() {
  unsetenv("MRSET_MODULE");
}

void ShellDatasetTest::Make(const char* path) {
  const std::vector<ValueLabel> labels = {{"0", "No"}, {"1", "Yes"}};
  DatasetWriter writer(path, false);
  writer.SetVariables({{"q1", 0, "One", labels},
                       {"q2", 0, "Two", labels},
                       {"q3", 0, "Three", labels},
                       {"colour", 8, std::nullopt, {{"red", "Red"}}}});
  writer.Commit();
}

}  // namespace standalone
