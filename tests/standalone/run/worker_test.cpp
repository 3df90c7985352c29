#include "standalone/run/worker.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <future>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "standalone/text/error.h"
#include "tests/host/allocation.h"

namespace standalone {
namespace {

using Texts = std::vector<std::string>;
using Notify = std::function<void(const std::string&)>;

/// The texts of procedures and messages.
Texts TextsIn(const std::vector<Event>& events) {
  Texts texts;
  for (const Event& event : events) {
    const auto* procedure = std::get_if<ProcedureOpened>(&event);
    texts.push_back(procedure != nullptr ? procedure->title : std::get<Message>(event).text);
  }
  return texts;
}

/// A worker that does what the function says, whatever the command.
template <typename Function>
Worker MakeWorker(const Function& function) {
  return Worker([&function](const Tell& tell, const Notify& notify) {
    return [&function, tell, notify](const ScriptCommand& command) { return function(command, tell, notify); };
  });
}

const ScriptCommand kAny{"any", 1};

TEST(Worker, RunsOneCommandAfterTheOther) {
  const auto echo = [](const ScriptCommand& command, const Tell& tell, const Notify&) {
    tell(ProcedureOpened{command.text});
    tell(Message{Level::kWarning, command.source});
    return command.text == "changes";
  };
  Worker worker = MakeWorker(echo);
  EXPECT_EQ(worker.Run({"changes", 1, "", "", "first"}), true);
  EXPECT_EQ(TextsIn(worker.Output()), (Texts{"changes", "first"}));
  EXPECT_EQ(worker.Run({"reads", 2, "", "", "second"}), false);
  EXPECT_EQ(TextsIn(worker.Output()), (Texts{"reads", "second"}));
  worker.Finish();
  EXPECT_EQ(worker.LastWords(), "");
  EXPECT_FALSE(worker.HasGivenUp());
}

TEST(Worker, KeepsWhatACommandToldInWhichTheChildEnded) {
  const auto abortAtSecond = [](const ScriptCommand& command, const Tell& tell, const Notify&) {
    tell(ProcedureOpened{command.text});
    if (command.line == 2) {
      tell(Message{Level::kError, "said"});
      std::cerr << "a report\n\n" << std::flush;
      std::abort();
    }
    return false;
  };
  Worker worker = MakeWorker(abortAtSecond);
  EXPECT_EQ(worker.Run({"first", 1}), false);
  EXPECT_EQ(worker.Run({"second", 2}), std::nullopt);
  EXPECT_EQ(TextsIn(worker.Output()), (Texts{"second", "said"}));
  EXPECT_EQ(worker.LastWords(), "a report");
  EXPECT_FALSE(worker.HasGivenUp());
}

TEST(Worker, ForgetsWhatWasToldBeforeARestart) {
  const auto restart = [](const ScriptCommand&, const Tell& tell, const Notify&) {
    tell(ProcedureOpened{"first try, which tells more"});
    tell(CommandRestarted{});
    tell(ProcedureOpened{"second try"});
    return true;
  };
  Worker worker = MakeWorker(restart);
  EXPECT_EQ(worker.Run(kAny), true);
  EXPECT_EQ(TextsIn(worker.Output()), Texts{"second try"});
}

std::string SentenceOfRun(Worker& worker) {
  try {
    worker.Run(kAny);
  } catch (const Error& error) {
    return error.what();
  }
  return "";
}

TEST(Worker, PassesOnWhyNoCommandCanBeRun) {
  const auto fail = [](const ScriptCommand&, const Tell&, const Notify&) -> bool {
    throw std::runtime_error("A sentence.");
  };
  Worker running = MakeWorker(fail);
  EXPECT_EQ(SentenceOfRun(running), "A sentence.");
  Worker beginning([](const Tell&, const Notify&) -> Worker::RunCommand { throw std::runtime_error("Another one."); });
  EXPECT_EQ(SentenceOfRun(beginning), "Another one.");
}

/// Makes a worker and lets it run; what happens in the child must not come back here.
template <typename Function, typename Use>
void UseWorker(const Function& function, const Use& use) {
  const pid_t own = getpid();
  try {
    Worker worker = MakeWorker(function);
    use(worker);
  } catch (...) {
    if (getpid() == own) {
      throw;
    }
    constexpr std::string_view kWords = "the child came back";
    _exit(write(STDERR_FILENO, kWords.data(), kWords.size()) < 0 ? EXIT_FAILURE : EXIT_SUCCESS);
  }
}

TEST(Worker, EndsAtWhateverElseIsThrownAsAtAFailedAssertion) {
  const auto throwNumber = [](const ScriptCommand&, const Tell&, const Notify&) -> bool { throw 1; };
  UseWorker(throwNumber, [](Worker& worker) {
    EXPECT_EQ(worker.Run(kAny), std::nullopt);
    EXPECT_EQ(worker.LastWords(), "The command's process was ended by signal 6 (Aborted).");
  });
}

TEST(Worker, SaysThatNothingIsKnownWhereThereIsNoMemoryToPassOnWhy) {
  const auto failWithoutMemory = [](const ScriptCommand&, const Tell&, const Notify&) -> bool {
    const Error error("A sentence.");
    static const scripted::AllocationScope kNoMemory(1, scripted::FaultMode::kFromThenOn);
    throw error;
  };
  UseWorker(failWithoutMemory, [](Worker& worker) {
    EXPECT_EQ(SentenceOfRun(worker),
              "The command cannot be run: its process ended. Whether its change was saved is not known.");
    worker.Finish();
    EXPECT_EQ(worker.LastWords().find("the child came back"), std::string::npos);
    EXPECT_TRUE(worker.HasGivenUp());
  });
}

TEST(Worker, ShowsANoticeAtOnceOnTheStandardErrorOfItsParent) {
  testing::internal::CaptureStderr();
  {
    const auto notify = [](const ScriptCommand&, const Tell& tell, const Notify& show) -> bool {
      tell(ProcedureOpened{"title"});
      show("waiting\x1b");
      std::cerr << "words" << std::flush;
      std::abort();
    };
    Worker worker = MakeWorker(notify);
    EXPECT_EQ(worker.Run(kAny), std::nullopt);
    EXPECT_EQ(TextsIn(worker.Output()), Texts{"title"});
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
  const auto notify = [](const ScriptCommand&, const Tell&, const Notify& show) {
    show("to nobody");
    return true;
  };
  Worker worker = MakeWorker(notify);
  dup2(own, STDERR_FILENO);
  close(own);
  close(ends[1]);
  EXPECT_EQ(worker.Run(kAny), true);
}

TEST(Worker, TellsTheSignalOfAChildThatSaidNothing) {
  const auto end = [](const ScriptCommand&, const Tell&, const Notify&) { return raise(SIGKILL) == 0; };
  Worker worker = MakeWorker(end);
  EXPECT_EQ(worker.Run(kAny), std::nullopt);
  EXPECT_EQ(worker.LastWords(), "The command's process was ended by signal 9 (Killed).");
}

TEST(Worker, TellsOfAChildThatEndedWithoutAWord) {
  const auto end = [](const ScriptCommand&, const Tell&, const Notify&) -> bool { _exit(EXIT_SUCCESS); };
  Worker worker = MakeWorker(end);
  EXPECT_EQ(worker.Run(kAny), std::nullopt);
  EXPECT_EQ(worker.LastWords(), "The command's process ended before the command did.");
  EXPECT_EQ(worker.Run(kAny), std::nullopt) << "its end was waited for already";
  EXPECT_EQ(worker.LastWords(), "The command's process ended before the command did.");
}

TEST(Worker, ThatWasEndedBetweenTwoCommandsRunsNoOther) {
  const auto tellTheProcess = [](const ScriptCommand&, const Tell& tell, const Notify&) {
    tell(ProcedureOpened{std::to_string(getpid())});
    return false;
  };
  Worker worker = MakeWorker(tellTheProcess);
  worker.Run(kAny);
  kill(std::stoi(TextsIn(worker.Output()).front()), SIGKILL);
  EXPECT_EQ(worker.Run({std::string(5000000, 'x'), 2}), std::nullopt);
  EXPECT_EQ(TextsIn(worker.Output()), Texts());
}

TEST(Worker, ThatEndsBeforeItTookTheCommandRunsNone) {
  int ends[2] = {};
  ASSERT_EQ(pipe(ends), 0);
  Worker worker([&ends](const Tell&, const Notify&) -> Worker::RunCommand {
    const pid_t own = getpid();
    EXPECT_EQ(write(ends[1], &own, sizeof own), static_cast<ssize_t>(sizeof own));
    pause();
    return {};
  });
  pid_t child = 0;
  ASSERT_EQ(read(ends[0], &child, sizeof child), static_cast<ssize_t>(sizeof child));
  const std::future<void> killed = std::async(std::launch::async, [&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    kill(child, SIGKILL);
  });
  EXPECT_EQ(worker.Run(kAny), std::nullopt);
  EXPECT_EQ(worker.LastWords(), "The command's process was ended by signal 9 (Killed).");
  close(ends[0]);
  close(ends[1]);
}

TEST(Worker, EndsAChildThatStillRuns) {
  const auto tellTheProcess = [](const ScriptCommand&, const Tell& tell, const Notify&) {
    tell(ProcedureOpened{std::to_string(getpid())});
    return false;
  };
  auto worker = std::make_unique<Worker>([&](const Tell& tell, const Notify& notify) {
    return
        [&tellTheProcess, tell, notify](const ScriptCommand& command) { return tellTheProcess(command, tell, notify); };
  });
  worker->Run(kAny);
  const pid_t child = std::stoi(TextsIn(worker->Output()).front());

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
