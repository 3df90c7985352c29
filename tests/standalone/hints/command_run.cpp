#include "tests/standalone/hints/command_run.h"

#include <cstdlib>
#include <optional>

#include "standalone/dataset/dataset_writer.h"
#include "standalone/run/command_runner.h"

namespace standalone {

CommandRunTest::CommandRunTest() {
  setenv("MRSET_MODULE", MRSET_TEST_MODULE, 1);
  DatasetWriter writer(kFile, false);
  writer.SetVariables({{"q1", 0, "Same", {{"1", "One"}}},
                       {"q2", 0, std::nullopt, {{"1", "Two"}}},
                       {"q3", 0, "Same", {}},
                       {"region", 0, std::nullopt, {}},
                       {"satisfaction", 0, std::nullopt, {}},
                       {"t1", 5, std::nullopt, {}},
                       {"t2", 5, std::nullopt, {}},
                       {"labels", 0, std::nullopt, {}}});
  writer.AddCase({"0", "0", "1", "2", "", "red", "blue", "0"});
  writer.AddCase({"1", "0", "0", "1", "", "blue ", "", "0"});
  writer.AddCase({"1", "0", "0", "", "", "blue ", "", "0"});
  writer.Commit();
}

CommandRunTest::~CommandRunTest() {
  unsetenv("MRSET_MODULE");
}

CommandRunTest::Told CommandRunTest::Run(const std::string& text, bool dryRun) {
  Told told;
  CommandRunner runner(kFile, dryRun, [&](const Event& event) {
    if (const auto* message = std::get_if<Message>(&event)) {
      told.items.emplace_back(*message);
    } else if (const auto* table = std::get_if<Table>(&event)) {
      told.items.emplace_back(*table);
    } else if (const auto* given = std::get_if<HintGiven>(&event)) {
      told.hints.push_back(given->hint);
    }
  });
  runner.Run({text, 1});
  return told;
}

std::vector<Message> CommandRunTest::MessagesOf(const std::string& text) {
  std::vector<Message> messages;
  for (const Item& item : Run(text).items) {
    if (const auto* message = std::get_if<Message>(&item)) {
      messages.push_back(*message);
    }
  }
  return messages;
}

}  // namespace standalone
