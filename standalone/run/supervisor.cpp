#include "standalone/run/supervisor.h"

#include <iostream>
#include <optional>
#include <set>
#include <utility>

#include "standalone/hints/abort_hint.h"
#include "standalone/run/command_runner.h"
#include "standalone/text/error.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

/// Follows why the results of a command are lost; nothing is known of one in which the process ended.
const char* SentenceOnSaved(std::optional<bool> hasChanged) {
  if (!hasChanged) {
    return " Whether its change was saved is not known.";
  }
  return *hasChanged ? " The change of the command is saved nevertheless." : "";
}

/// Of a process that ended before its command did.
std::string SentenceOnEnd(const Worker& worker) {
  return worker.HasGivenUp() ? "There is not enough memory, or another resource, to run the command."
                             : worker.LastWords();
}

void Take(Event event, CommandResult& result) {
  result.isSaveOpen = std::holds_alternative<SaveBegun>(event);
  if (auto* procedure = std::get_if<ProcedureOpened>(&event)) {
    result.procedure = std::move(procedure->title);
  } else if (auto* message = std::get_if<Message>(&event)) {
    result.status = message->level == Level::kError ? Status::kError : result.status;
    result.items.emplace_back(std::move(*message));
  } else if (auto* table = std::get_if<Table>(&event)) {
    result.items.emplace_back(std::move(*table));
  } else if (auto* tabulation = std::get_if<Tabulation>(&event)) {
    result.items.emplace_back(std::move(*tabulation));
  } else if (auto* given = std::get_if<HintGiven>(&event)) {
    result.hints.push_back(std::move(given->hint));
  } else if (auto* told = std::get_if<DryRunTold>(&event)) {
    result.dryRun = std::move(told->sentence);
  }
}

}  // namespace

CommandResult Supervisor::Run(const ScriptCommand& command) {
  try {
    if (!fWorker) {
      StartWorker();
    }
    CommandResult result = RunInWorker(command);
    ++fCount;
    if (fRequest.dryRun && result.status != Status::kAborted) {
      fRehearsed.push_back(command);
    }
    return result;
  } catch (...) {
    fWorker.reset();
    throw;
  }
}

/// The sets that a dry run has come to are lost with the process that ended, so its commands run again, unheard.
void Supervisor::StartWorker() {
  fWorker = std::make_unique<Worker>([this](const Tell& tell, const auto& notify) {
    const auto told = std::make_shared<std::set<std::string>>();  // by the command that runs: it may wait several times
    DatasetOptions options = fRequest.datasetOptions;
    options.notify = [told, notify](const std::string& sentence) {
      if (told->insert(sentence).second) {
        notify(sentence);
      }
    };
    const auto runner = std::make_shared<CommandRunner>(fRequest.datasetPath, fRequest.dryRun, tell, options);
    return [told, runner](const ScriptCommand& command) {
      told->clear();
      return runner->Run(command);
    };
  });
  for (const ScriptCommand& command : fRehearsed) {
    if (!fWorker->Run(command)) {
      throw Error(SentenceOnEnd(*fWorker));
    }
  }
}

CommandResult Supervisor::RunInWorker(const ScriptCommand& command) {
  const std::optional<bool> hasChanged = fWorker->Run(command);
  CommandResult result;
  try {
    result = Result(command, *fWorker);
  } catch (const std::exception& error) {
    throw Error(SentenceOf(error) + SentenceOnSaved(hasChanged));
  }
  if (!hasChanged) {
    Abort(result);
    return result;
  }
  result.isSaved = *hasChanged;
  result.isSaveOpen = false;
  return result;
}

CommandResult Supervisor::Result(const ScriptCommand& command, const Worker& worker) const {
  CommandResult result;
  result.number = fCount + 1;
  result.line = command.line;
  result.text = command.text;
  result.source = command.source;
  result.before = command.before;
  result.after = command.after;
  for (Event& event : worker.Output()) {
    Take(std::move(event), result);
  }
  return result;
}

/// A command that was being saved, which only a signal from outside can end, may be saved or not.
void Supervisor::Abort(CommandResult& result) {
  const std::unique_ptr<Worker> ended = std::move(fWorker);
  if (ended->HasGivenUp()) {
    throw Error(SentenceOnEnd(*ended) + (result.isSaveOpen ? SentenceOnSaved(std::nullopt) : ""));
  }
  result.status = Status::kAborted;
  result.items.emplace_back(Message{Level::kFatal, SentenceOnEnd(*ended)});
  if (std::optional<std::string> hint = HintOnAbort(result.text)) {
    result.hints.push_back(std::move(*hint));
  }
}

void Supervisor::Finish() {
  if (fWorker) {
    const std::unique_ptr<Worker> ended = std::move(fWorker);
    ended->Finish();
    if (const std::string words = ended->LastWords(); !words.empty()) {
      std::cerr << Visible(words) << '\n';
    }
  }
}

}  // namespace standalone
