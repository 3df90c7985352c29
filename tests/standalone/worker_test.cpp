#include "standalone/run/worker.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

namespace standalone {
namespace {

using Lines = std::vector<std::string>;

Lines ToLines(const std::vector<Event>& events) {
  Lines lines;
  for (const Event& event : events) {
    lines.push_back(ToLine(event));
  }
  return lines;
}

Lines ReceiveAll(Worker& worker) {
  std::vector<Event> events;
  while (const std::optional<Event> event = worker.Receive()) {
    events.push_back(*event);
  }
  return ToLines(events);
}

TEST(Worker, SendsTheEventsOfACommandWhenItIsDone) {
  Worker worker([](const Worker::Tell& tell) {
    tell(ProcedureOpened{"title"});
    tell(ItemIssued{Message{Level::kWarning, "one\ntwo"}});
    tell(CommandDone{4});
  });
  EXPECT_EQ(ReceiveAll(worker),
            (Lines{R"({"procedure":"title"})", R"({"item":{"kind":"message","level":"warning","text":"one\ntwo"}})",
                   R"({"done":4})"}));
  EXPECT_EQ(ToLines(worker.EventsOfLastCommand()), Lines{});
  EXPECT_EQ(worker.LastWords(), "");
}

TEST(Worker, KeepsTheEventsOfACommandInWhichTheChildEnded) {
  Worker worker([](const Worker::Tell& tell) {
    tell(ProcedureOpened{"first"});
    tell(CommandDone{0});
    tell(ProcedureOpened{"second"});
    tell(ItemIssued{Message{Level::kError, "said"}});
    std::cerr << "a report\n\n" << std::flush;
    std::abort();
  });
  EXPECT_EQ(ReceiveAll(worker), (Lines{R"({"procedure":"first"})", R"({"done":0})"}));
  EXPECT_EQ(ToLines(worker.EventsOfLastCommand()),
            (Lines{R"({"procedure":"second"})", R"({"item":{"kind":"message","level":"error","text":"said"}})"}));
  EXPECT_EQ(worker.LastWords(), "a report");
}

TEST(Worker, ForgetsTheEventsBeforeARestart) {
  Worker worker([](const Worker::Tell& tell) {
    tell(ProcedureOpened{"first try"});
    tell(CommandRestarted{});
    tell(ProcedureOpened{"second try"});
    tell(CommandDone{0});
  });
  EXPECT_EQ(ReceiveAll(worker), (Lines{R"({"procedure":"second try"})", R"({"done":0})"}));
}

TEST(Worker, SendsAFailureAtOnce) {
  Worker worker([](const Worker::Tell& tell) { tell(RunFailed{"A sentence."}); });
  EXPECT_EQ(ReceiveAll(worker), Lines{R"({"failed":"A sentence."})"});
}

TEST(Worker, TellsTheSignalOfAChildThatSaidNothing) {
  Worker worker([](const Worker::Tell&) { raise(SIGKILL); });
  EXPECT_EQ(ReceiveAll(worker), Lines{});
  EXPECT_EQ(worker.LastWords(), "The command's process was ended by signal 9 (Killed).");
}

TEST(Worker, EndsAChildThatStillRuns) {
  {
    Worker worker([](const Worker::Tell&) { pause(); });
  }
  SUCCEED() << "the destructor returned";
}

}  // namespace
}  // namespace standalone
