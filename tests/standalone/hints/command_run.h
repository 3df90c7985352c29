#ifndef TESTS_STANDALONE_HINTS_COMMAND_RUN_H
#define TESTS_STANDALONE_HINTS_COMMAND_RUN_H

#include <string>
#include <vector>

#include "standalone/output/items.h"
#include "tests/standalone/temporary_folder.h"

namespace standalone {

/// Commands on a small dataset in a folder of its own: numeric q1 (0, 1), q2 (0), q3 (0, 1), region (1, 2, missing),
/// satisfaction (missing), and strings t1 ("red", "blue "), t2 ("blue", ""), and numeric labels. The value 1 is
/// labelled One in q1, Two in q2; q1 and q3 have the label Same.
class CommandRunTest : public TemporaryFolderTest {
 protected:
  static constexpr const char* kFile = "survey.mrset";

  struct Told {
    std::vector<Item> items;
    std::vector<std::string> hints;
  };

  CommandRunTest();
  ~CommandRunTest() override;

  static Told Run(const std::string& text, bool dryRun = true);
  static std::vector<Message> MessagesOf(const std::string& text);
};

}  // namespace standalone

#endif  // TESTS_STANDALONE_HINTS_COMMAND_RUN_H
