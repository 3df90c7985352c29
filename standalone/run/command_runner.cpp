#include "standalone/run/command_runner.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "standalone/language/keywords.h"
#include "standalone/language/tokenizer.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

/// How often a command is tried without a lock where other processes come first.
constexpr int kOptimisticTries = 3;

constexpr const char* kMrset = "MRSET";

bool NamesMrset(const Token& token) {
  return token.type == TokenSequenceBase::kString && NamesKeyword(ToUpper(token.text), kMrset);
}

/// A text short enough to be quoted in a sentence.
std::string Shortened(const std::string& text) {
  constexpr std::size_t kQuotedBytes = 60;
  const std::string_view beginning = PrefixOfWholeCharacters(text, kQuotedBytes);
  return fmt::format("{}{}", beginning, beginning.size() < text.size() ? "..." : "");
}

int LineAt(const ScriptCommand& command, std::size_t offset) {
  const auto begin = command.text.begin();
  const auto end = begin + static_cast<std::ptrdiff_t>(std::min(offset, command.text.size()));
  return command.line + static_cast<int>(std::count(begin, end, '\n'));
}

}  // namespace

CommandRunner::CommandRunner(const std::string& datasetPath, bool dryRun, Tell tell, const DatasetOptions& options)
    : fDataset(datasetPath, options), fDryRun(dryRun), fTell(std::move(tell)) {
  fSink.procedure = [this](const std::string& title) { fTell(ProcedureOpened{title}); };
  fSink.item = [this](const Item& item) { TellItem(item); };
}

bool CommandRunner::Run(const ScriptCommand& command, std::size_t index) {
  fHasError = false;
  try {
    const std::vector<Token> tokens = Tokenize(command.text);
    if (NamesMrset(tokens.front())) {
      RunTokens(tokens, command.text);
    } else {
      TellError(fmt::format("Line {}: {} is not a command. The command here is {}.", command.line,
                            Shortened(tokens.front().text), kMrset));
    }
  } catch (const TokenizerError& error) {
    TellError(fmt::format("Line {}: {}", LineAt(command, error.Offset()), error.what()));
  }
  fTell(CommandDone{index});
  return !fHasError;
}

void CommandRunner::RunTokens(const std::vector<Token>& tokens, const std::string& text) {
  if (fMrset == nullptr) {
    fMrset = LoadMrsetModule();
  }
  for (int tries = 1; !TryRun(tokens, text, tries > kOptimisticTries); ++tries) {
    fHasError = false;
    fTell(CommandRestarted{});
  }
}

/// False when another process changed the dataset meanwhile, so that the command must be run again.
bool CommandRunner::TryRun(const std::vector<Token>& tokens, const std::string& text, bool exclusive) {
  fDataset.BeginCommand(exclusive);
  Session session(fDataset, tokens, fDryRunSets ? *fDryRunSets : fDataset.Sets(), fSink);
  fMrset();
  if (!session.SavedSets()) {
    fDataset.EndCommand();
    return true;
  }
  if (fDryRun) {
    fDataset.EndCommand();
    fDryRunSets = session.SavedSets();
    return true;
  }
  fTell(CommandSaves{});
  return fDataset.SaveSets(*session.SavedSets(), text) == Dataset::Saved::kDone;
}

void CommandRunner::TellItem(const Item& item) {
  fHasError = fHasError || IsErrorMessage(item);
  fTell(ItemIssued{item});
}

}  // namespace standalone
