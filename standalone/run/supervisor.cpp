#include "standalone/run/supervisor.h"

#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "standalone/run/command_runner.h"
#include "standalone/run/worker.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

/// Runs the commands from `first` on, in the worker's process. The sets that a dry run has come to are lost with the
/// process that ended, so its commands run again, unheard and without those that were aborted.
class Work {
 public:
  Work(const RunRequest& request, std::size_t first, const std::set<std::size_t>& aborted, const Worker::Tell& tell)
      : fRequest(request), fFirst(first), fAborted(aborted), fTell(tell) {}

  void operator()() const {
    try {
      RunAll();
    } catch (const std::exception& error) {
      fTell(RunFailed{error.what()});
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
  }

  const RunRequest& fRequest;
  std::size_t fFirst;
  const std::set<std::size_t>& fAborted;
  const Worker::Tell& fTell;
};

class Supervisor {
 public:
  explicit Supervisor(const RunRequest& request) : fRequest(request) {}

  /// The result of the command at `index`; commands are asked for in their order.
  CommandResult Result(std::size_t index) {
    if (!fWorker) {
      fWorker = std::make_unique<Worker>([&](const Worker::Tell& tell) { Work(fRequest, index, fAborted, tell)(); });
    }
    CommandResult result = Begin(index);
    while (const std::optional<Event> event = fWorker->Receive()) {
      if (std::holds_alternative<CommandDone>(*event)) {
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
    while (fWorker->Receive()) {
    }
    if (const std::string words = fWorker->LastWords(); !words.empty()) {
      std::cerr << Visible(words) << '\n';
    }
  }

 private:
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
        return result;
      }
      if (done != nullptr) {
        result = Begin(index);  // that was the command before
        continue;
      }
      Take(event, result);
    }
    fAborted.insert(index);
    result.status = Status::kAborted;
    result.items.push_back(Message{Level::kFatal, ended->LastWords()});
    return result;
  }

  const RunRequest& fRequest;
  std::unique_ptr<Worker> fWorker;
  std::set<std::size_t> fAborted;
};

}  // namespace

void RunCommands(const RunRequest& request, const std::function<void(const CommandResult&)>& handOver) {
  if (request.commands.empty()) {
    const Dataset usable(request.datasetPath);  // or else this throws
  }
  Supervisor supervisor(request);
  for (std::size_t index = 0; index < request.commands.size(); ++index) {
    const CommandResult result = supervisor.Result(index);
    handOver(result);
    if (request.stopOnError && result.status != Status::kOk) {
      break;
    }
  }
  supervisor.Finish();
}

}  // namespace standalone
