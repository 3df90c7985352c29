#include <fmt/format.h>
#include <signal.h>
#include <unistd.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <iostream>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "standalone/commands/command_status.h"
#include "standalone/commands/history_actions.h"
#include "standalone/commands/list_tables.h"
#include "standalone/commands/subcommands.h"
#include "standalone/console/delivery.h"
#include "standalone/console/terminal.h"
#include "standalone/dataset/dataset_operand.h"
#include "standalone/files/output_file.h"
#include "standalone/language/comments.h"
#include "standalone/language/nearest_name.h"
#include "standalone/options/dataset_options.h"
#include "standalone/options/format_option.h"
#include "standalone/run/supervisor.h"
#include "standalone/shell/dataset_completion_source.h"
#include "standalone/shell/help.h"
#include "standalone/shell/piped_input.h"
#include "standalone/shell/shell.h"
#include "standalone/shell/terminal_input.h"
#include "standalone/storage/interrupt.h"
#include "standalone/text/counted.h"
#include "standalone/text/error.h"
#include "standalone/text/notice.h"
#include "standalone/text/number_text.h"
#include "standalone/text/trim.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

/// Variables that are listed at most, so that a list of a huge dictionary comes to an end.
constexpr std::size_t kMaxListed = 1000;

struct ShellOptions {
  std::string datasetPath;
  FormatOptions format;
  DatasetOptions datasetOptions;
};

/// Does what a shell's commands say. Each opens the dataset as it is then; none stays open, since the process forks.
class DatasetActions : public ShellActions {
 public:
  DatasetActions(const ShellOptions& options, bool isAtTerminal)
      : fPath(options.datasetPath),
        fFormat(options.format),
        fDatasetOptions(options.datasetOptions),
        fIsAtTerminal(isAtTerminal),
        fSupervisor({options.datasetPath, false, options.datasetOptions}),
        fRenderer(MakeTextRenderer(std::cout, Look(true))) {}

  void Run(const ScriptCommand& command) override;
  void Perform(const ShellCommand& command) override;
  void Say(const std::string& sentence) override;

  /// Ends the run; the exit status of all that was done.
  ExitStatus Finish();

 private:
  OutputLook Look(bool showsCommands = false) const {
    OutputLook look = LookOfOutput(fFormat);
    look.showsCommands = showsCommands;
    return look;
  }

  ExitStatus Do(const ShellCommand& command);
  ExitStatus ShowHelp(const std::string& topic);

  // These end the command that reads the dataset before they write: a terminal may be stopped, and the dataset is not
  // to be locked as long as it is.
  ExitStatus ShowSets(Dataset& dataset);
  ExitStatus ShowVariables(Dataset& dataset, const std::string& pattern);
  ExitStatus Undo(const std::string& argument);
  void EnsureIsRead();
  void Take(ExitStatus status) { fStatus = std::max(fStatus, status); }
  void Complain(ExitStatus status, const std::exception& error);

  const std::string& fPath;
  const FormatOptions& fFormat;
  DatasetOptions fDatasetOptions;
  bool fIsAtTerminal;
  Supervisor fSupervisor;
  std::unique_ptr<Renderer> fRenderer;
  ExitStatus fStatus = kSuccess;
  std::size_t fSaved = 0;  // how many commands changed the dataset
};

/// At a terminal the command stands there already, and its width may have changed.
void DatasetActions::Run(const ScriptCommand& command) {
  try {
    isInterruptRequested = false;
    const CommandResult result = fSupervisor.Run(command);
    fSaved += result.isSaved ? 1 : 0;
    (fIsAtTerminal ? *MakeTextRenderer(std::cout, Look()) : *fRenderer).Write(result);
    Take(StatusOf(result));
  } catch (const Error& error) {
    Complain(kUnusable, error);
  }
  EnsureIsRead();
}

/// Nothing goes on where nobody can see what it does.
void DatasetActions::EnsureIsRead() {
  std::cout.flush();
  if (std::cout) {
    return;
  }
  if (fSaved > 0) {
    SayAtEnd(SentenceOfSaved(fSaved));
  }
  throw Error("Standard output cannot be written.");
}

void DatasetActions::Perform(const ShellCommand& command) {
  try {
    isInterruptRequested = false;
    fDatasetOptions.notify = NoticesOnce();  // a wait is told again
    Take(Do(command));
  } catch (const Error& error) {
    if (error.Kind() == ErrorKind::kOutput) {
      throw;
    }
    Complain(error.Kind() == ErrorKind::kUsage ? kErrors : kUnusable, error);
  }
  EnsureIsRead();
}

void DatasetActions::Say(const std::string& sentence) {
  std::cout.flush();
  std::cerr << NoticeLine(sentence);
}

ExitStatus DatasetActions::Finish() {
  fSupervisor.Finish();
  return fIsAtTerminal ? kSuccess : fStatus;
}

ExitStatus DatasetActions::Do(const ShellCommand& command) {
  if (command.rule->argument.empty() && !command.argument.empty()) {
    throw Error(ErrorKind::kUsage, fmt::format("{} must be alone on its line.", command.rule->name));
  }
  switch (command.rule->kind) {
    case ShellCommandKind::kHelp:
      return ShowHelp(command.argument);
    case ShellCommandKind::kUndo:
      return Undo(command.argument);
    default:
      break;
  }
  Dataset dataset(fPath, fDatasetOptions);
  dataset.BeginTransaction(Access::kShared);
  if (command.rule->kind == ShellCommandKind::kVariables) {
    return ShowVariables(dataset, command.argument);
  }
  if (command.rule->kind == ShellCommandKind::kSets) {
    return ShowSets(dataset);
  }
  WriteLog(dataset, Look().width);
  return kSuccess;
}

ExitStatus DatasetActions::ShowHelp(const std::string& topic) {
  const std::optional<std::string> help = HelpInShell(topic);
  if (!help) {
    const std::vector<std::string_view> topics = ShellTopics();
    const std::optional<std::string> meant = MeantWord(topic, {topics.begin(), topics.end()});
    throw Error(ErrorKind::kUsage,
                meant ? fmt::format("There is no help on {}; did you mean {}?", topic, *meant)
                      : fmt::format("There is no help on {}; there is on {}.", topic, fmt::join(topics, ", ")));
  }
  std::cout << *help;
  return kSuccess;
}

ExitStatus DatasetActions::ShowSets(Dataset& dataset) {
  const std::vector<StoredSet> sets = dataset.Sets();
  dataset.EndTransaction();
  if (sets.empty()) {
    std::cout << kAbsenceOfSets;
  } else {
    MakeTextTableWriter(std::cout, Look())->Write(SetsTable(sets));
  }
  return kSuccess;
}

ExitStatus DatasetActions::ShowVariables(Dataset& dataset, const std::string& pattern) {
  std::vector<int> positions = PositionsOf(pattern, dataset, kMaxListed + 1);
  if (positions.empty()) {
    throw Error(ErrorKind::kUsage, NoSuchVariable(pattern));
  }
  const bool isCut = positions.size() > kMaxListed;
  positions.resize(std::min(positions.size(), kMaxListed));
  Table table = VariablesHeading();
  for (const int position : positions) {
    table.rows.push_back(VariableRow(dataset.VariableAt(position)));
  }
  const auto count = static_cast<std::size_t>(dataset.VariableCount());
  dataset.EndTransaction();
  MakeTextTableWriter(std::cout, Look())->Write(table);
  if (isCut) {
    std::cout << fmt::format("These are {} of the dataset's {}; a pattern such as q* shows fewer.\n", kMaxListed,
                             Counted(count, "variable"));
  }
  return kSuccess;
}

/// Takes what the subcommand undo takes: N, --to N or --to=N.
ExitStatus DatasetActions::Undo(const std::string& argument) {
  constexpr std::string_view kOption = "--to";
  const std::string_view rest = std::string_view(argument).substr(std::min(argument.size(), kOption.size()));
  const bool hasOption =
      argument.substr(0, kOption.size()) == kOption && (rest.empty() || rest[0] == '=' || IsBlank(rest[0]));
  if (hasOption && rest.size() < 2) {
    throw Error(ErrorKind::kUsage, "--to needs the number of a version.");
  }
  const std::string number(hasOption ? Trimmed(rest.substr(1), kBlanks) : argument);
  if (const std::string complaint = number.empty() ? "" : VersionComplaint(number); !complaint.empty()) {
    throw Error(ErrorKind::kUsage, complaint + ".");
  }
  return UndoAndSay(fPath, fDatasetOptions, WholeNumber(number));
}

void DatasetActions::Complain(ExitStatus status, const std::exception& error) {
  Say(error.what());
  Take(status);
}

ExitStatus RunShell(const ShellOptions& options) {
  const bool isAtTerminal = isatty(STDIN_FILENO) != 0 && isatty(STDOUT_FILENO) != 0;
  { const Dataset usable(options.datasetPath, options.datasetOptions); }  // or else this throws
  if (isAtTerminal) {
    signal(SIGINT, [](int) { isInterruptRequested = true; });  // what reads gives up; what is being saved is saved
  }
  OutliveReader();
  DatasetActions actions(options, isAtTerminal);
  if (isAtTerminal) {
    std::cout << "mrset on " << Visible(options.datasetPath) << ". Type help for help, quit to leave.\n" << std::flush;
    TerminalInput input([&] { return std::make_unique<DatasetCompletionSource>(options.datasetPath); });
    Shell(input, actions, "").Run();
  } else {
    PipedInput input;
    Shell(input, actions, "standard input").Run();
  }
  return actions.Finish();
}

}  // namespace

Action DeclareShell(CLI::App& app) {
  const auto options = std::make_shared<ShellOptions>();
  AddDatasetArgument(app, options->datasetPath);
  AddWidthOption(app, options->format.width);
  AddLockTimeoutOption(app, options->datasetOptions);
  app.footer(
      "At a terminal: Tab completes, Ctrl-R searches the history, help says more.\n"
      "Exit status 0.\n"
      "Elsewhere: runs the commands on standard input as they come; exit status as of\n"
      "mrset run.\n"
      "Example:\n"
      "  mrset shell survey.mrset\n");
  return [options] { return RunShell(*options); };
}

}  // namespace standalone
