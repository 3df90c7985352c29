#ifndef TESTS_STANDALONE_SHELL_DATASET_H
#define TESTS_STANDALONE_SHELL_DATASET_H

#include <cstdlib>
#include <optional>

#include "standalone/data/dataset.h"
#include "tests/standalone/temporary_folder.h"

namespace standalone {

/// A folder with a dataset: numeric q1 to q3, string colour, no set. Commands find the built module.
class ShellDatasetTest : public TemporaryFolderTest {
 protected:
  static constexpr const char* kFile = "survey.mrset";

  ShellDatasetTest() {
    setenv("MRSET_MODULE", MRSET_TEST_MODULE, 1);
    Make(kFile);
  }

  ~ShellDatasetTest() override { unsetenv("MRSET_MODULE"); }

  static void Make(const char* path) {
    const std::vector<ValueLabel> labels = {{"0", "No"}, {"1", "Yes"}};
    DatasetWriter writer(path, false);
    writer.SetVariables({{"q1", 0, "One", labels},
                         {"q2", 0, "Two", labels},
                         {"q3", 0, "Three", labels},
                         {"colour", 8, std::nullopt, {{"red", "Red"}}}});
    writer.Commit();
  }
};

}  // namespace standalone

#endif  // TESTS_STANDALONE_SHELL_DATASET_H
