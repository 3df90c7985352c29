#include "standalone/run/command_runner.h"

#include <fmt/format.h>

#include <optional>
#include <utility>

#include "standalone/dataset/retry.h"
#include "standalone/hints/adviser.h"
#include "standalone/hints/choice_hints.h"
#include "standalone/language/grammar.h"
#include "standalone/language/nearest_name.h"
#include "standalone/language/place.h"
#include "standalone/language/slips.h"
#include "standalone/language/tokenizer.h"
#include "standalone/run/dry_run.h"
#include "standalone/storage/interrupt.h"
#include "standalone/text/error.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

Place PlaceIn(const ScriptCommand& command, std::size_t offset, std::size_t size) {
  return PlaceFinder(command.text, command.line, command.before).At(offset, size);
}

Message NotACommand(const ScriptCommand& command, const Token& token) {
  Message message{Level::kError,
                  fmt::format("Line {}: {} is not a command. The commands here are {}.", command.line,
                              Shortened(token.text), fmt::join(kCommands, " and ")),
                  PlaceIn(command, token.offset, token.length)};
  const auto meant = IsWord(token) ? MeantWord(token.text, {kCommands.begin(), kCommands.end()}) : std::nullopt;
  message.hint = meant ? DidYouMean(*meant) : HintOnBeginning(command.text);
  return message;
}

Message Unreadable(const ScriptCommand& command, const TokenizerError& error) {
  const Place place = PlaceIn(command, error.Offset(), error.Size());
  return {Level::kError, fmt::format("Line {}: {}", place.line, error.what()), place,
          HintOnOpenString(std::string_view(command.text).substr(error.Offset(), error.Size()))};
}

}  // namespace

CommandRunner::CommandRunner(const std::string& datasetPath, bool dryRun, Tell tell, const DatasetOptions& options,
                             BeginCounting beginCounting)
    : fDataset(datasetPath, options),
      fDryRun(dryRun),
      fTell(std::move(tell)),
      fBeginCounting(std::move(beginCounting)) {
  fSink.procedure = [this](const std::string& title) { fTell(ProcedureOpened{title}); };
  fSink.item = [this](const Item& item) { std::visit(fTell, item); };
}

bool CommandRunner::Run(const ScriptCommand& command) {
  if (IsInterrupted()) {
    throw Error(ErrorKind::kInterrupted, "The commands were interrupted.");
  }
  try {
    const std::vector<Token> tokens = Tokenize(command.text);
    if (NamesKeyword(tokens.front(), kMrsetCommand)) {
      return RunMrset(command, tokens);
    }
    if (NamesKeyword(tokens.front(), kTabulateCommand)) {
      Tabulate(command, tokens);
    } else {
      fTell(NotACommand(command, tokens.front()));
    }
  } catch (const TokenizerError& error) {
    fTell(Unreadable(command, error));
  }
  return false;
}

bool CommandRunner::RunMrset(const ScriptCommand& command, const std::vector<Token>& tokens) {
  if (fMrset == nullptr) {
    fMrset = LoadMrsetModule();
  }
  const Dataset::Saved saved = SaveWithRetries([&](Access access) {
    const Dataset::Saved outcome = TryRun(command, tokens, access);
    if (outcome == Dataset::Saved::kConflict) {
      fTell(CommandRestarted{});
    }
    return outcome;
  });
  return saved == Dataset::Saved::kDone;
}

Dataset::Saved CommandRunner::TryRun(const ScriptCommand& command, const std::vector<Token>& tokens, Access access) {
  fDataset.BeginTransaction(access);
  const SetList before = fDryRunSets ? *fDryRunSets : fDataset.SharedSets();
  CommandContext context(fDataset, command, tokens, before, fExchange, fSink);
  fMrset();
  if (!context.SavedSets()) {
    if (const std::optional<std::string> hint = context.HintAtEnd()) {
      fTell(HintGiven{*hint});
    }
    fDataset.EndTransaction();
    return Dataset::Saved::kUnchanged;
  }
  GiveHints(before, *context.SavedSets());
  if (fDryRun) {
    if (const std::optional<std::string> sentence = SentenceOnDryRun(before, *context.SavedSets())) {
      fTell(DryRunTold{*sentence});
    }
    fDataset.EndTransaction();
    fDryRunSets = context.SavedSets();
    return Dataset::Saved::kUnchanged;
  }
  fTell(SaveBegun{});
  return fDataset.SaveSets(*context.SavedSets(), command.text);
}

/// The dataset is let go before the tables are told.
void CommandRunner::Tabulate(const ScriptCommand& command, const std::vector<Token>& tokens) {
  fTell(ProcedureOpened{kTabulateProcedure});
  fDataset.BeginTransaction(Access::kShared);
  const SetList sets = fDryRunSets ? *fDryRunSets : fDataset.SharedSets();
  const std::vector<Item> items = RunTabulate(command, tokens, fDataset, sets, fBeginCounting);
  fDataset.EndTransaction();
  for (const Item& item : items) {
    std::visit(fTell, item);
  }
}

/// From the state of the dataset that the command itself saw.
void CommandRunner::GiveHints(const SetList& before, const SetList& after) {
  for (const std::string& hint : HintsOnChoices(fDataset, before, after)) {
    fTell(HintGiven{hint});
  }
}

}  // namespace standalone
