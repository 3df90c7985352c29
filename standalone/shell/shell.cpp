#include "standalone/shell/shell.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "standalone/language/comments.h"

namespace standalone {

void Shell::Run() {
  while (!fHasEnded) {
    if (!fCollector.IsOpen() && !fInput.IsScript()) {
      fCollector = CommandCollector(fSource);
    }
    const Typed typed = fInput.Read(fCollector.OpenText());
    if (typed.kind == Typed::Kind::kEnd) {
      break;
    }
    if (typed.kind == Typed::Kind::kAbandoned) {
      fEntry += typed.text;
      fCollector.Abandon();
      EndEntry();
    } else {
      Take(typed.text);
    }
  }
  const std::optional<ScriptCommand> last = fCollector.End();
  SayRemark();
  if (last && fInput.IsScript()) {
    fActions.Run(*last);
  }
}

void Shell::Take(std::string_view text) {
  for (std::size_t begin = 0; begin <= text.size() && !fHasEnded;) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    TakeLine(text.substr(begin, end - begin));
    begin = end + 1;
  }
}

void Shell::TakeLine(std::string_view line) {
  fEntry += std::string(line) + '\n';
  const std::optional<ShellCommand> shellCommand = fCollector.IsOpen() ? std::nullopt : ReadShellCommand(line);
  if (shellCommand) {
    fCollector.SkipLine();
    EndEntry();
    fHasEnded = shellCommand->rule->kind == ShellCommandKind::kQuit && shellCommand->argument.empty();
    if (!fHasEnded) {
      fActions.Perform(*shellCommand);
    }
    return;
  }
  AddLine(line);
}

/// A person is told at once what would else show only when the command is complete.
void Shell::AddLine(std::string_view line) {
  const bool isFresh = !fCollector.IsOpen();
  const std::optional<ScriptCommand> command = fCollector.AddLine(line);
  if (fCollector.IsOpen() && !fInput.IsScript()) {
    isFresh ? RefuseWhatIsNoCommand() : RemarkOnShellCommand(line);
  }
  if (!fCollector.IsOpen()) {
    EndEntry();
  }
  SayRemark();
  if (command) {
    fActions.Run(*command);
  }
}

void Shell::SayRemark() {
  if (const std::optional<std::string> sentence = fCollector.TakeRemark()) {
    fActions.Say(*sentence);
  }
}

void Shell::RefuseWhatIsNoCommand() {
  fHasRemarked = false;
  if (const std::optional<std::string> refusal = RefusalOfUnknownCommand(fCollector.OpenText())) {
    fCollector.Abandon();
    fActions.Say(*refusal);
  }
}

/// The line stays a part of the command: it may be the name of a variable.
void Shell::RemarkOnShellCommand(std::string_view line) {
  const std::optional<ShellCommand> meant = ReadShellCommand(line);
  if (meant && meant->IsAsMeant() && !fHasRemarked) {
    fHasRemarked = true;
    fActions.Say(
        "The command above is not complete, and this line is part of it: end it with a period; Ctrl-C discards it.");
  }
}

/// Before the command is run, so that it is kept whatever happens then.
void Shell::EndEntry() {
  std::string entry = std::exchange(fEntry, "");
  while (!entry.empty() && IsBlank(entry.back())) {
    entry.pop_back();
  }
  if (!entry.empty()) {
    fInput.Remember(entry);
  }
}

}  // namespace standalone
