#include <fmt/format.h>
#include <unistd.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "standalone/commands/command_status.h"
#include "standalone/commands/subcommands.h"
#include "standalone/console/delivery.h"
#include "standalone/console/progress.h"
#include "standalone/console/terminal.h"
#include "standalone/dataset/dataset.h"
#include "standalone/files/output_file.h"
#include "standalone/files/same_file.h"
#include "standalone/hints/vanished_name.h"
#include "standalone/options/dataset_options.h"
#include "standalone/options/format_option.h"
#include "standalone/options/output_option.h"
#include "standalone/options/value_type.h"
#include "standalone/output/formats.h"
#include "standalone/run/script_source.h"
#include "standalone/run/supervisor.h"
#include "standalone/storage/companions.h"
#include "standalone/text/counted.h"
#include "standalone/text/error.h"
#include "standalone/text/notice.h"

namespace standalone {
namespace {

struct RunOptions {
  std::string datasetPath;
  std::optional<std::string> scriptPath;
  std::vector<std::string> commands;
  FormatOptions format;
  std::optional<std::string> outputPath;
  bool dryRun = false;
  bool stopOnError = false;
  DatasetOptions datasetOptions;
};

struct RunCommandList {
  std::vector<ScriptCommand> commands;
  std::size_t fromScript = 0;  ///< how many of them, the first, came from the script
};

/// The commands of the script, then those of each -c.
RunCommandList ReadCommands(const RunOptions& options) {
  const auto remark = [](const std::string& sentence) { std::cerr << NoticeLine(sentence); };
  std::vector<ScriptCommand> commands;
  if (options.scriptPath) {
    const std::string& path = *options.scriptPath;
    commands = SplitScript(ReadScript(path), path == "-" ? "standard input" : path, remark);
  }
  const std::size_t fromScript = commands.size();
  for (std::size_t index = 0; index < options.commands.size(); ++index) {
    const std::vector<ScriptCommand> more =
        SplitScript(options.commands[index], fmt::format("-c {}", index + 1), remark);
    commands.insert(commands.end(), more.begin(), more.end());
  }
  return {std::move(commands), fromScript};
}

/// Results never take the place of what they come from.
void CheckOutputPath(const RunOptions& options, const std::string& outputPath) {
  if (IsSameFile(outputPath, options.datasetPath) || IsSameFile(outputPath, options.scriptPath.value_or(""))) {
    throw Error(fmt::format("The output file {} is what the run reads; give another one.", outputPath));
  }
}

/// Where progress is shown: not among results on a terminal, which show it themselves.
std::optional<ProgressScreen> ScreenBesideResults(const RunOptions& options) {
  const bool areOnTerminal = !options.outputPath && TerminalWidth(STDOUT_FILENO).has_value();
  return areOnTerminal ? std::nullopt : ErrorScreen();
}

/// Where the results of a run go.
struct Target {
  std::ostream& stream;
  OutputLook look;
};

std::unique_ptr<Renderer> MakeRenderer(const OutputFormat& format, const RunOptions& options, Target target) {
  if (target.look.isTerminal && format.refusalOfTerminal != nullptr) {
    throw Error(format.refusalOfTerminal);
  }
  target.look.dataset = std::filesystem::path(options.datasetPath).filename().string();
  target.look.isDryRun = options.dryRun;
  return format.makeRenderer(target.stream, target.look);
}

/// What the commands have done so far.
struct Outcome {
  ExitStatus status = kSuccess;
  std::size_t saved = 0;  ///< how many commands changed the dataset
  std::size_t told = 0;   ///< of how many of these the result was written
};

/// What is to be run, and how.
struct Job {
  const RunOptions& options;
  const RunCommandList& list;
};

/// What a shell may have done to a command is told only of those that came as arguments.
CommandResult WithShellHint(CommandResult result, bool isArgument) {
  if (const auto hint = isArgument ? HintOnVanishedName(result) : std::nullopt) {
    result.hints.push_back(*hint);
  }
  return result;
}

/// No command is run once results cannot be written, nor after an error where none is to be.
void RunAndRender(const Job& job, const Target& target, Outcome& outcome) {
  const RunOptions& options = job.options;
  const std::vector<ScriptCommand>& commands = job.list.commands;
  if (commands.empty()) {
    const Dataset usable(options.datasetPath);  // or else this throws
  }
  const OutputFormat& format = FormatNamed(options.format.format);
  const std::unique_ptr<Renderer> renderer = MakeRenderer(format, options, target);
  Progress progress(ScreenBesideResults(options));
  progress.Begin({"Running", "commands", commands.size()});
  Supervisor supervisor({options.datasetPath, options.dryRun, options.datasetOptions});
  for (std::size_t index = 0; index < commands.size() && target.stream; ++index) {
    CommandResult result = supervisor.Run(commands[index]);
    outcome.saved += result.isSaved ? 1 : 0;
    result = WithShellHint(std::move(result), index >= job.list.fromScript);
    outcome.status = std::max(outcome.status, StatusOf(result));
    progress.Update(index + 1);
    if (format.isTablesAlone) {
      progress.Clear();  // messages go to standard error
    }
    renderer->Write(result);
    // What a terminal cannot show is written as a whole, at its end.
    outcome.told = format.refusalOfTerminal != nullptr ? 0 : outcome.saved;
    if (options.stopOnError && result.status != Status::kOk) {
      break;
    }
  }
  supervisor.Finish();
  renderer->Finish();
  outcome.told = outcome.saved;
}

void RunIntoFile(const Job& job, Outcome& outcome) {
  CheckOutputPath(job.options, *job.options.outputPath);
  OutputFile file(*job.options.outputPath, ComplaintOnReservedName);
  RunAndRender(job, {file.Stream(), LookOfFile(job.options.format)}, outcome);
  file.Commit();
}

void RunOnStandardOutput(const Job& job, Outcome& outcome) {
  RunAndRender(job, {std::cout, LookOfOutput(job.options.format)}, outcome);
  std::cout.flush();
  if (!std::cout && outcome.saved > 0) {
    throw Error("Standard output cannot be written.");
  }
}

ExitStatus Run(const RunOptions& options) {
  if (!options.scriptPath && options.commands.empty()) {
    throw Error(ErrorKind::kNothingToRun,
                "There is nothing to run: give a SCRIPT, - for commands on standard input, or -c with a command.");
  }
  const RunCommandList list = ReadCommands(options);
  OutliveReader();
  Outcome outcome;
  try {
    (options.outputPath ? RunIntoFile : RunOnStandardOutput)({options, list}, outcome);
  } catch (...) {
    const bool areAllLost = options.outputPath || !std::cout.flush();
    if (const std::size_t lost = outcome.saved - (areAllLost ? 0 : outcome.told); lost > 0) {
      SayAtEnd(SentenceOfSaved(lost));
    }
    throw;
  }
  return outcome.status;
}

}  // namespace

Action DeclareRun(CLI::App& app) {
  const auto options = std::make_shared<RunOptions>();
  AddDatasetArgument(app, options->datasetPath);
  app.add_option("SCRIPT", options->scriptPath, "File of commands; - for standard input")->type_name(kScriptType);
  app.add_option("-c,--command", options->commands, "Command to run, after SCRIPT; may lack its period")
      ->type_name("COMMAND")
      ->allow_extra_args(false);
  AddFormatOptions(app, RunFormatNames(), options->format);
  AddOutputOption(app, "Write results to this file; its ending sets the format", options->outputPath);
  app.add_flag("--dry-run", options->dryRun, "Show what would be done; leave the dataset as it is");
  app.add_flag("--stop-on-error", options->stopOnError, "Run no command after one that fails");
  app.add_flag("--relaxed", options->datasetOptions.relaxed,
               "Faster, but a power failure or a crash of the system can damage the dataset beyond repair");
  AddLockTimeoutOption(app, options->datasetOptions);
  app.footer(
      "json writes a line for each command (JSON Lines). Exit status: 0 no error,\n"
      "1 an error message, 2 wrong usage or an unusable file, 3 an aborted command.\n"
      "Example:\n"
      "  mrset run survey.mrset -c 'MRSET /DISPLAY NAME=ALL'\n");
  return [options, &app] {
    if (options->outputPath && app.count("--format") == 0) {
      options->format.format = FormatOfFile(*options->outputPath).name;
    }
    return Run(*options);
  };
}

}  // namespace standalone
