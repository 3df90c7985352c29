#include "standalone/run/worker.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <future>
#include <iostream>
#include <memory>
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
                   R"({"done":[4,false]})"}));
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
  EXPECT_EQ(ReceiveAll(worker), (Lines{R"({"procedure":"first"})", R"({"done":[0,false]})"}));
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
  EXPECT_EQ(ReceiveAll(worker), (Lines{R"({"procedure":"second try"})", R"({"done":[0,false]})"}));
}

TEST(Worker, SendsAFailureAtOnce) {
  Worker worker([](const Worker::Tell& tell) { tell(RunFailed{"A sentence."}); });
  EXPECT_EQ(ReceiveAll(worker), Lines{R"({"failed":"A sentence."})"});
}

TEST(Worker, ShowsANoticeAtOnceOnTheStandardErrorOfItsParent) {
  testing::internal::CaptureStderr();
  {
    Worker worker([](const Worker::Tell& tell) {
      tell(ProcedureOpened{"title"});
      tell(Noticed{"waiting\x1b"});
      std::cerr << "words" << std::flush;
      std::abort();
    });
    EXPECT_EQ(ReceiveAll(worker), Lines{});
    EXPECT_EQ(ToLines(worker.EventsOfLastCommand()), Lines{R"({"procedure":"title"})"});
    EXPECT_EQ(worker.LastWords(), "words");
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "mrset: waiting\\x1b\n");
}

TEST(Worker, OutlivesAReaderOfItsNotices) {
  int ends[2] = {};
  ASSERT_EQ(pipe(ends), 0);
  close(ends[0]);
  const int own = dup(STDERR_FILENO);
  dup2(ends[1], STDERR_FILENO);
  Worker worker([](const Worker::Tell& tell) {
    tell(Noticed{"to nobody"});
    tell(CommandDone{0});
  });
  dup2(own, STDERR_FILENO);
  close(own);
  close(ends[1]);
  EXPECT_EQ(ReceiveAll(worker), Lines{R"({"done":[0,false]})"});
}

TEST(Worker, TellsTheSignalOfAChildThatSaidNothing) {
  Worker worker([](const Worker::Tell&) { raise(SIGKILL); });
  EXPECT_EQ(ReceiveAll(worker), Lines{});
  EXPECT_EQ(worker.LastWords(), "The command's process was ended by signal 9 (Killed).");
}

[[noreturn]] void TellTheProcessAndStay(const Worker::Tell& tell) {
  tell(RunFailed{std::to_string(getpid())});  // sent at once
  while (true) {
    pause();
  }
}

TEST(Worker, EndsAChildThatStillRuns) {
  auto worker = std::make_unique<Worker>(TellTheProcessAndStay);
  const std::optional<Event> event = worker->Receive();
  ASSERT_TRUE(event && std::holds_alternative<RunFailed>(*event));
  const pid_t child = std::stoi(std::get<RunFailed>(*event).sentence);

  // Elsewhere, so that a destructor that waits for ever fails the test and does not hold it up.
  const std::future<void> ended = std::async(std::launch::async, [&] { worker.reset(); });
  const bool returned = ended.wait_for(std::chrono::seconds(20)) == std::future_status::ready;
  EXPECT_TRUE(returned) << "the destructor waits for a child that it has not ended";
  const bool runs = kill(child, 0) == 0;
  EXPECT_FALSE(runs) << "process " << child << " was left behind";
  if (runs) {
    kill(child, SIGKILL);
  }
}

}  // namespace
}  // namespace standalone
