#include "standalone/run/supervisor.h"

#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <utility>

#include "standalone/data/dataset.h"
#include "standalone/run/command_runner.h"
#include "standalone/run/worker.h"

namespace standalone {
namespace {

using Tell = std::function<void(const Event&)>;

/// Runs the commands from `first` on, in the worker's process.
void Work(const RunRequest& request, std::size_t first, const std::optional<std::vector<StoredSet>>& dryRunSets,
          const Tell& tell) {
  try {
    CommandRunner runner(request.datasetPath, request.dryRun, dryRunSets, tell);
    for (std::size_t index = first; index < request.commands.size(); ++index) {
      const bool succeeded = runner.Run(request.commands[index]);
      if (request.stopOnError && !succeeded) {
        return;  // here, since this process does not wait for the other one
      }
    }
  } catch (const std::exception& error) {
    tell(RunFailed{error.what()});
  }
}

class Supervisor {
 public:
  explicit Supervisor(const RunRequest& request) : fRequest(request) {}

  /// The result of the command at `index`; commands are asked for in their order.
  CommandResult Result(std::size_t index) {
    if (!fWorker) {
      fWorker = std::make_unique<Worker>([&](const Tell& tell) { Work(fRequest, index, fDryRunSets, tell); });
    }
    CommandResult result;
    result.number = index + 1;
    result.line = fRequest.commands[index].line;
    result.text = fRequest.commands[index].text;
    while (const std::optional<Event> event = fWorker->Receive()) {
      if (const auto* done = std::get_if<CommandDone>(&*event)) {
        fDryRunSets = done->sets;
        return result;
      }
      std::visit([&](const auto& told) { Take(told, result); }, *event);
    }
    Abort(result);
    return result;
  }

  /// Lets the worker end, and passes on what it wrote to standard error.
  void Finish() {
    if (!fWorker) {
      return;
    }
    while (fWorker->Receive()) {
    }
    if (const std::string words = fWorker->LastWords(); !words.empty()) {
      std::cerr << words << '\n';
    }
  }

 private:
  void Take(const ProcedureOpened& event, CommandResult& result) { result.procedure = event.title; }

  void Take(const ItemIssued& event, CommandResult& result) {
    if (IsErrorMessage(event.item)) {
      result.status = Status::kError;
    }
    result.items.push_back(event.item);
  }

  void Take(const CommandRestarted&, CommandResult& result) {
    result.procedure.reset();
    result.items.clear();
    result.status = Status::kOk;
  }

  void Take(const CommandDone&, CommandResult&) {}

  [[noreturn]] void Take(const RunFailed& event, CommandResult&) { throw RunError(event.sentence); }

  void Abort(CommandResult& result) {
    result.status = Status::kAborted;
    result.items.push_back(Message{Level::kFatal, fWorker->LastWords()});
    fWorker.reset();
  }

  const RunRequest& fRequest;
  std::unique_ptr<Worker> fWorker;
  std::optional<std::vector<StoredSet>> fDryRunSets;
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
