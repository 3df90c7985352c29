#ifndef TESTS_STANDALONE_COMMAND_RUN_H
#define TESTS_STANDALONE_COMMAND_RUN_H

#include <cstdlib>
#include <string>
#include <vector>

#include "standalone/run/command_runner.h"
#include "tests/standalone/temporary_folder.h"

namespace standalone {

/// Commands on a small dataset in a folder of its own: numeric q1 (0, 1), q2 (0), q3 (0, 1), region (1, 2, missing),
/// satisfaction (missing), and strings t1 ("red", "blue "), t2 ("blue", ""). The value 1 is labelled One in q1, Two in
/// q2; q1 and q3 have the label Same.
class CommandRunTest : public TemporaryFolderTest {
 protected:
  static constexpr const char* kFile = "survey.mrset";

  struct Told {
    std::vector<Item> items;
    std::vector<std::string> hints;
  };

  CommandRunTest() {
    setenv("MRSET_MODULE", MRSET_TEST_MODULE, 1);
    DatasetWriter writer(kFile, false);
    writer.SetVariables({{"q1", 0, "Same", {{"1", "One"}}},
                         {"q2", 0, std::nullopt, {{"1", "Two"}}},
                         {"q3", 0, "Same", {}},
                         {"region", 0, std::nullopt, {}},
                         {"satisfaction", 0, std::nullopt, {}},
                         {"t1", 5, std::nullopt, {}},
                         {"t2", 5, std::nullopt, {}}});
    writer.AddCase({"0", "0", "1", "2", "", "red", "blue"});
    writer.AddCase({"1", "0", "0", "1", "", "blue ", ""});
    writer.AddCase({"1", "0", "0", "", "", "blue ", ""});
    writer.Commit();
  }

  ~CommandRunTest() override { unsetenv("MRSET_MODULE"); }

  static Told Run(const std::string& text, bool dryRun = true) {
    Told told;
    CommandRunner runner(kFile, dryRun, [&](const Event& event) {
      if (const auto* issued = std::get_if<ItemIssued>(&event)) {
        told.items.push_back(issued->item);
      } else if (const auto* given = std::get_if<HintGiven>(&event)) {
        told.hints.push_back(given->hint);
      }
    });
    runner.Run({text, 1}, 0);
    return told;
  }

  static std::vector<Message> MessagesOf(const std::string& text) {
    std::vector<Message> messages;
    for (const Item& item : Run(text).items) {
      if (const auto* message = std::get_if<Message>(&item)) {
        messages.push_back(*message);
      }
    }
    return messages;
  }
};

}  // namespace standalone

#endif  // TESTS_STANDALONE_COMMAND_RUN_H
