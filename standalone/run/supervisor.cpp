#include "standalone/run/supervisor.h"

#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "standalone/data/interrupt.h"
#include "standalone/run/abort_hint.h"
#include "standalone/run/command_channel.h"
#include "standalone/run/command_runner.h"
#include "standalone/run/worker.h"
#include "standalone/text/failure.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

/// Runs the commands from `first` on, in the worker's process. The sets that a dry run has come to are lost with the
/// process that ended, so its commands run again, unheard and without those that were aborted. The commands that are
/// not there yet come through the channel, if there is one.
class Work {
 public:
  Work(const RunRequest& request, std::size_t first, const std::set<std::size_t>& aborted, CommandChannel* channel,
       const Worker::Tell& tell)
      : fRequest(request), fFirst(first), fAborted(aborted), fChannel(channel), fTell(tell) {}

  void operator()() const {
    try {
      RunAll();
    } catch (const std::exception& error) {
      fTell(RunFailed{SentenceOf(error)});
    }
  }

 private:
  void RunAll() const {
    bool isHeard = false;
    const auto tellWhatIsHeard = [&](const Event& event) {
      if (isHeard) {
        fTell(event);
      }
    };
    DatasetOptions options = fRequest.datasetOptions;
    std::set<std::string> told;  // while the command runs: it may wait several times
    options.notify = [&](const std::string& sentence) {
      if (told.insert(sentence).second) {
        fTell(Noticed{sentence});
      }
    };
    CommandRunner runner(fRequest.datasetPath, fRequest.dryRun, tellWhatIsHeard, options);
    for (std::size_t index = fRequest.dryRun ? 0 : fFirst; index < fRequest.commands.size(); ++index) {
      isHeard = index >= fFirst;
      told.clear();
      if (fAborted.count(index) != 0) {
        continue;
      }
      const bool succeeded = runner.Run(fRequest.commands[index], index);
      if (fRequest.stopOnError && !succeeded) {
        return;  // here, since this process does not wait for the other one
      }
    }
    if (fChannel != nullptr) {
      RunWhatComes(runner);
    }
  }

  void RunWhatComes(CommandRunner& runner) const {
    fChannel->EndSending();
    std::size_t index = fRequest.commands.size();
    while (const std::optional<ScriptCommand> command = fChannel->Receive()) {
      isInterruptRequested = false;
      runner.Run(*command, index++);
    }
  }

  const RunRequest& fRequest;
  std::size_t fFirst;
  const std::set<std::size_t>& fAborted;
  CommandChannel* fChannel;
  const Worker::Tell& fTell;
};

class Supervisor {
 public:
  /// `isLive` where the request gets more commands as time goes on.
  Supervisor(const RunRequest& request, bool isLive) : fRequest(request), fIsLive(isLive) {}

  /// The result of the command at `index`; commands are asked for in their order.
  CommandResult Result(std::size_t index) {
    if (!fWorker) {
      StartWorker(index);
    } else if (fIsLive) {
      fChannel->Send(fRequest.commands[index]);
    }
    CommandResult result = Begin(index);
    while (const std::optional<Event> event = fWorker->Receive()) {
      if (const auto* done = std::get_if<CommandDone>(&*event)) {
        result.isSaved = done->hasSaved;
        return result;
      }
      Take(*event, result);
    }
    return ResultOfEndedWorker(index);
  }

  /// Lets the worker end, and passes on what it wrote to standard error.
  void Finish() {
    if (!fWorker) {
      return;
    }
    fChannel.reset();
    while (fWorker->Receive()) {
    }
    if (const std::string words = fWorker->LastWords(); !words.empty()) {
      std::cerr << Visible(words) << '\n';
    }
  }

  /// Runs no further command. Returns how many were saved meanwhile.
  std::size_t Stop() {
    std::size_t saved = 0;
    if (fWorker) {
      fWorker->Interrupt();
      while (const std::optional<Event> event = fWorker->Receive()) {
        const auto* done = std::get_if<CommandDone>(&*event);
        saved += done != nullptr && done->hasSaved ? 1 : 0;
      }
    }
    return saved;
  }

  /// Does without the worker that there is.
  void DropWorker() { fWorker.reset(); }

 private:
  /// The commands that are there already, from `first` on, are the worker's from the beginning.
  void StartWorker(std::size_t first) {
    fChannel = fIsLive ? std::make_unique<CommandChannel>() : nullptr;
    fWorker = std::make_unique<Worker>(
        [&](const Worker::Tell& tell) { Work(fRequest, first, fAborted, fChannel.get(), tell)(); });
    if (fChannel) {
      fChannel->EndReceiving();
    }
  }

  CommandResult Begin(std::size_t index) const {
    CommandResult result;
    result.number = index + 1;
    result.line = fRequest.commands[index].line;
    result.text = fRequest.commands[index].text;
    result.source = fRequest.commands[index].source;
    result.before = fRequest.commands[index].before;
    result.behind = fRequest.commands[index].behind;
    return result;
  }

  static void Take(const Event& event, CommandResult& result) {
    if (const auto* procedure = std::get_if<ProcedureOpened>(&event)) {
      result.procedure = procedure->title;
    } else if (const auto* issued = std::get_if<ItemIssued>(&event)) {
      result.status = IsErrorMessage(issued->item) ? Status::kError : result.status;
      result.items.push_back(issued->item);
    } else if (const auto* given = std::get_if<HintGiven>(&event)) {
      result.hints.push_back(given->hint);
    } else if (const auto* told = std::get_if<DryRunTold>(&event)) {
      result.dryRun = told->sentence;
    } else if (const auto* failed = std::get_if<RunFailed>(&event)) {
      throw RunError(failed->sentence);
    }
  }

  /// A command whose process ended is aborted, unless it had come to its end already. One that was being saved, which
  /// only a signal from outside can end, may be saved or not.
  CommandResult ResultOfEndedWorker(std::size_t index) {
    const std::unique_ptr<Worker> ended = std::move(fWorker);
    CommandResult result = Begin(index);
    for (const Event& event : ended->EventsOfLastCommand()) {
      result.isSaveOpen = std::holds_alternative<CommandSaves>(event);
      const auto* done = std::get_if<CommandDone>(&event);
      if (done != nullptr && done->command == index) {
        result.isSaved = done->hasSaved;
        return result;
      }
      if (done != nullptr) {
        result = Begin(index);  // that was the command before
        continue;
      }
      Take(event, result);
    }
    if (ended->HasGivenUp()) {
      throw RunError(std::string("There is not enough memory, or another resource, to run the command.") +
                     (result.isSaveOpen ? " Whether its change was saved is not known." : ""));
    }
    fAborted.insert(index);
    result.status = Status::kAborted;
    result.items.emplace_back(Message{Level::kFatal, ended->LastWords()});
    if (const std::optional<std::string> hint = HintOnAbort(result.text)) {
      result.hints.push_back(*hint);
    }
    return result;
  }

  const RunRequest& fRequest;
  bool fIsLive;
  std::unique_ptr<CommandChannel> fChannel;
  std::unique_ptr<Worker> fWorker;
  std::set<std::size_t> fAborted;
};

}  // namespace

std::size_t RunCommands(const RunRequest& request, const HandOver& handOver) {
  if (request.commands.empty()) {
    const Dataset usable(request.datasetPath);  // or else this throws
  }
  Supervisor supervisor(request, false);
  std::size_t saved = 0;
  for (std::size_t index = 0; index < request.commands.size(); ++index) {
    const CommandResult result = supervisor.Result(index);
    saved += result.isSaved ? 1 : 0;
    if (!handOver(result)) {
      return saved + supervisor.Stop();
    }
    if (request.stopOnError && result.status != Status::kOk) {
      break;
    }
  }
  supervisor.Finish();
  return saved;
}

class LiveRun::Implementation {
 public:
  explicit Implementation(RunRequest request) : fRequest(std::move(request)), fSupervisor(fRequest, true) {}

  CommandResult Run(const ScriptCommand& command);
  void Finish() { fSupervisor.Finish(); }

 private:
  RunRequest fRequest;
  Supervisor fSupervisor;
};

CommandResult LiveRun::Implementation::Run(const ScriptCommand& command) {
  fRequest.commands.push_back(command);
  try {
    CommandResult result = fSupervisor.Result(fRequest.commands.size() - 1);
    if (!fRequest.dryRun) {
      fRequest.commands.back() = {};  // nobody asks for it again, and there may be many
    }
    return result;
  } catch (...) {
    fSupervisor.DropWorker();
    fRequest.commands.pop_back();
    throw;
  }
}

LiveRun::LiveRun(RunRequest request) : fImplementation(std::make_unique<Implementation>(std::move(request))) {}

LiveRun::~LiveRun() = default;

CommandResult LiveRun::Run(const ScriptCommand& command) {
  return fImplementation->Run(command);
}

void LiveRun::Finish() {
  fImplementation->Finish();
}

}  // namespace standalone
