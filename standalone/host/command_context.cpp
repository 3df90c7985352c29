#include "standalone/host/command_context.h"

#include <cassert>
#include <utility>

#include "standalone/host/records.h"
#include "standalone/language/slips.h"

namespace {

// Points to the context of the running command; null while none runs.
standalone::CommandContext* currentContext = nullptr;  // NOLINT(*-avoid-non-const-global-variables)

CommonDictionary commonDictionary{};  // NOLINT(*-avoid-non-const-global-variables)

/// The arguments' texts, one after the other.
std::vector<std::string> TextsIn(const std::vector<standalone::Argument>& arguments) {
  std::vector<std::string> texts;
  for (const standalone::Argument& argument : arguments) {
    if (const auto* text = std::get_if<std::string>(&argument)) {
      texts.push_back(*text);
    } else {
      const auto& list = std::get<std::vector<std::string>>(argument);
      texts.insert(texts.end(), list.begin(), list.end());
    }
  }
  return texts;
}

}  // namespace

CommonDictionary* CmnDic = &commonDictionary;  // NOLINT(*-avoid-non-const-global-variables): the host's

namespace standalone {

CommandContext::CommandContext(Dataset& dataset, const ScriptCommand& command, const std::vector<Token>& tokens,
                               const SetList& sets, SetExchange& exchange, const OutputSink& sink)
    : fDataset(dataset),
      fCommand(command),
      fReading(tokens, [&dataset](const std::string& name) { return dataset.FindVariable(name) >= 0; }),
      fExchange(exchange),
      fSets(exchange.Give(sets)),
      fAdviser(fReading, dataset, fSets),
      fSink(sink),
      fParentSource(std::make_unique<StoredDataSource>(*this)) {
  assert(currentContext == nullptr);
  currentContext = this;
  commonDictionary.fActiveDataset = &fDataset;
}

CommandContext::~CommandContext() {
  commonDictionary.fActiveDataset = nullptr;
  currentContext = nullptr;
}

CommandContext& CommandContext::Current() {
  assert(currentContext != nullptr);
  return *currentContext;
}

const VariableRecord& CommandContext::VariableAt(int position) {
  std::unique_ptr<VariableRecord>& record = fVariables[position];
  if (!record) {
    record = std::make_unique<VariableRecord>(fDataset.VariableAt(position));
  }
  return *record;
}

void CommandContext::IssueMessage(Level level, const std::string& text, const std::vector<Argument>& arguments) {
  const std::vector<std::string> quoted = TextsIn(arguments);
  Message message{level, text};
  if (const std::optional<std::size_t> token = fReading.TokenOfMessage(quoted.empty() ? "" : quoted.front())) {
    message.place = PlaceOf(*token);
  }
  message.hint = HintOnMessage(quoted);
  fReading.NoteMessage();
  Issue(message);
}

std::optional<std::string> CommandContext::HintOnMessage(const std::vector<std::string>& quoted) {
  const std::optional<std::size_t> token = fReading.TokenJustRead();
  std::optional<std::string> hint;
  if (token) {
    hint = HintOnSlip(fCommand, Tokens(), *token);
  } else if (const std::optional<std::size_t> end = fReading.EndOfCheckedSubcommand()) {
    hint = HintOnEndOfSubcommand(Tokens(), *end);
  }
  if (!hint) {
    hint = fAdviser.HintOnMessage(quoted);
  }
  return hint || !token ? hint : HintOnHashWord(Tokens(), *token);
}

void CommandContext::IssueProblem(const ListProblem& problem, const ListTokens& list) {
  Message message{Level::kError, problem.sentence, PlaceOf(problem.token)};
  message.hint = HintOnSlip(fCommand, Tokens(), problem.token);
  if (!message.hint && problem.isUnknown) {
    message.hint = fAdviser.HintOnUnknownVariable(problem.token, list);
  }
  if (!message.hint) {
    message.hint = HintOnHashWord(Tokens(), problem.token);
  }
  fReading.NoteMessage();
  Issue(message);
}

Place CommandContext::PlaceOf(std::size_t token) {
  if (!fPlaces) {
    fPlaces.emplace(fCommand.text, fCommand.line, fCommand.before);
  }
  return fPlaces->At(Tokens()[token].offset, Tokens()[token].length);
}

void CommandContext::SaveSets(const VARIABLESETS& sets) {
  fSavedSets = fExchange.Take(sets);
}

}  // namespace standalone
