#include "standalone/run/command_runner.h"

#include <fmt/format.h>

#include <optional>
#include <utility>

#include "standalone/data/interrupt.h"
#include "standalone/host/adviser.h"
#include "standalone/language/grammar.h"
#include "standalone/language/nearest_name.h"
#include "standalone/language/place.h"
#include "standalone/language/slips.h"
#include "standalone/language/tokenizer.h"
#include "standalone/run/dry_run.h"
#include "standalone/text/error.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

/// How often a command is tried without a lock where other processes come first.
constexpr int kOptimisticTries = 3;

constexpr const char* kMrset = "MRSET";

bool NamesMrset(const Token& token) {
  return NamesKeyword(token, kMrset);
}

Place PlaceIn(const ScriptCommand& command, std::size_t offset, std::size_t size) {
  return PlaceFinder(command.text, command.line, command.before).At(offset, size);
}

Message NotACommand(const ScriptCommand& command, const Token& token) {
  Message message{
      Level::kError,
      fmt::format("Line {}: {} is not a command. The command here is {}.", command.line, Shortened(token.text), kMrset),
      PlaceIn(command, token.offset, token.length)};
  if (IsWord(token) && MeantWord(token.text, {kMrset})) {
    message.hint = DidYouMean(kMrset);
  } else {
    message.hint = HintOnBeginning(command.text);
  }
  return message;
}

Message Unreadable(const ScriptCommand& command, const TokenizerError& error) {
  const Place place = PlaceIn(command, error.Offset(), error.Size());
  return {Level::kError, fmt::format("Line {}: {}", place.line, error.what()), place,
          HintOnOpenString(std::string_view(command.text).substr(error.Offset(), error.Size()))};
}

}  // namespace

CommandRunner::CommandRunner(const std::string& datasetPath, bool dryRun, Tell tell, const DatasetOptions& options)
    : fDataset(datasetPath, options), fDryRun(dryRun), fTell(std::move(tell)) {
  fSink.procedure = [this](const std::string& title) { fTell(ProcedureOpened{title}); };
  fSink.item = [this](const Item& item) { std::visit(fTell, item); };
}

bool CommandRunner::Run(const ScriptCommand& command) {
  if (IsInterrupted()) {
    throw Error(ErrorKind::kInterrupted, "The commands were interrupted.");
  }
  try {
    const std::vector<Token> tokens = Tokenize(command.text);
    if (NamesMrset(tokens.front())) {
      return RunTokens(command, tokens);
    }
    fTell(NotACommand(command, tokens.front()));
  } catch (const TokenizerError& error) {
    fTell(Unreadable(command, error));
  }
  return false;
}

/// Optimistic concurrency control: the command is run again where another process changed the dataset meanwhile.
bool CommandRunner::RunTokens(const ScriptCommand& command, const std::vector<Token>& tokens) {
  if (fMrset == nullptr) {
    fMrset = LoadMrsetModule();
  }
  Dataset::Saved saved = TryRun(command, tokens, false);
  for (int tries = 2; saved == Dataset::Saved::kConflict; ++tries) {
    fTell(CommandRestarted{});
    saved = TryRun(command, tokens, tries > kOptimisticTries);
  }
  return saved == Dataset::Saved::kDone;
}

Dataset::Saved CommandRunner::TryRun(const ScriptCommand& command, const std::vector<Token>& tokens, bool exclusive) {
  fDataset.BeginCommand(exclusive);
  const SetList before = fDryRunSets ? *fDryRunSets : fDataset.SharedSets();
  Session session(fDataset, command, tokens, before, fExchange, fSink);
  fMrset();
  if (!session.SavedSets()) {
    if (const std::optional<std::string> hint = session.HintAtEnd()) {
      fTell(HintGiven{*hint});
    }
    fDataset.EndCommand();
    return Dataset::Saved::kUnchanged;
  }
  GiveHints(before, *session.SavedSets());
  if (fDryRun) {
    if (const std::optional<std::string> sentence = SentenceOnDryRun(before, *session.SavedSets())) {
      fTell(DryRunTold{*sentence});
    }
    fDataset.EndCommand();
    fDryRunSets = session.SavedSets();
    return Dataset::Saved::kUnchanged;
  }
  fTell(SaveBegun{});
  return fDataset.SaveSets(*session.SavedSets(), command.text);
}

/// From the state of the dataset that the command itself saw.
void CommandRunner::GiveHints(const SetList& before, const SetList& after) {
  for (const std::string& hint : fChoiceHints.On(before, after)) {
    fTell(HintGiven{hint});
  }
}

}  // namespace standalone
