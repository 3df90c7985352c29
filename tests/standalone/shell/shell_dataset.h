#ifndef TESTS_STANDALONE_SHELL_SHELL_DATASET_H
#define TESTS_STANDALONE_SHELL_SHELL_DATASET_H

#include "tests/standalone/temporary_folder.h"

namespace standalone {

/// A folder with a dataset: numeric q1 to q3, string colour, no set. Commands find the built module.
class ShellDatasetTest : public TemporaryFolderTest {
 protected:
  static constexpr const char* kFile = "survey.mrset";

  ShellDatasetTest();
  ~ShellDatasetTest() override;

  static void Make(const char* path);
};

}  // namespace standalone

#endif  // TESTS_STANDALONE_SHELL_SHELL_DATASET_H
