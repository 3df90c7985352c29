#include "standalone/host/session.h"

#include <cassert>
#include <utility>

#include "standalone/host/records.h"
#include "standalone/language/slips.h"

namespace {

// Points to the session of the running command; null while none runs.
standalone::Session* currentSession = nullptr;  // NOLINT(*-avoid-non-const-global-variables)

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

Session::Session(Dataset& dataset, const ScriptCommand& command, const std::vector<Token>& tokens, const SetList& sets,
                 SetExchange& exchange, const OutputSink& sink)
    : fDataset(dataset),
      fCommand(command),
      fReading(tokens, [&dataset](const std::string& name) { return dataset.FindVariable(name) >= 0; }),
      fExchange(exchange),
      fSets(exchange.Give(sets)),
      fAdviser(fReading, dataset, fSets),
      fSink(sink),
      fParentSource(std::make_unique<StoredDataSource>(*this)) {
  assert(currentSession == nullptr);
  currentSession = this;
  commonDictionary.fActiveDataset = &fDataset;
}

Session::~Session() {
  commonDictionary.fActiveDataset = nullptr;
  currentSession = nullptr;
}

Session& Session::Current() {
  assert(currentSession != nullptr);
  return *currentSession;
}

const VariableRecord& Session::VariableAt(int position) {
  std::unique_ptr<VariableRecord>& record = fVariables[position];
  if (!record) {
    record = std::make_unique<VariableRecord>(fDataset.VariableAt(position));
  }
  return *record;
}

void Session::IssueMessage(Level level, const std::string& text, const std::vector<Argument>& arguments) {
  const std::vector<std::string> quoted = TextsIn(arguments);
  Message message{level, text};
  if (const std::optional<std::size_t> token = fReading.TokenOfMessage(quoted.empty() ? "" : quoted.front())) {
    message.place = PlaceOf(*token);
  }
  if (const std::optional<std::size_t> token = fReading.TokenJustRead()) {
    message.hint = HintOnSlip(fCommand, Tokens(), *token);
  }
  if (!message.hint) {
    message.hint = fAdviser.OnMessage(quoted);
  }
  fReading.NoteMessage();
  Issue(message);
}

void Session::IssueProblem(const ListProblem& problem, const ListTokens& list) {
  Message message{Level::kError, problem.sentence, PlaceOf(problem.token)};
  message.hint = HintOnSlip(fCommand, Tokens(), problem.token);
  if (!message.hint && problem.isUnknown) {
    message.hint = fAdviser.OnUnknownVariable(problem.token, list);
  }
  fReading.NoteMessage();
  Issue(message);
}

Place Session::PlaceOf(std::size_t token) {
  if (!fPlaces) {
    fPlaces.emplace(fCommand.text, fCommand.line, fCommand.before);
  }
  return fPlaces->At(Tokens()[token].offset, Tokens()[token].length);
}

void Session::SaveSets(const VARIABLESETS& sets) {
  fSavedSets = fExchange.Take(sets);
}

}  // namespace standalone
