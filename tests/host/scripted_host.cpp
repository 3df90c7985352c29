#include "tests/host/scripted_host.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

#include "tests/host/core.h"
#include "tests/host/rendering.h"

namespace scripted {

ScriptedHost::ScriptedHost() : ScriptedHost(HostSetup()) {}

ScriptedHost::ScriptedHost(const HostSetup& setup, std::string_view command) : fCore(std::make_unique<Core>(setup)) {
  if (InstalledCore() != nullptr) {
    throw std::logic_error("a scripted host is installed already");
  }
  SetCommand(command);
  InstallCore(fCore.get());
}

ScriptedHost::~ScriptedHost() {
  InstallCore(nullptr);
}

void ScriptedHost::SetCommand(std::string_view command) {
  SetTokens(Tokenize(command));
}

void ScriptedHost::SetTokens(std::vector<Token> tokens) {
  fCore->tokens = std::move(tokens);
  StartOver();
}

void ScriptedHost::StartOver() {
  fCore->BeginRecord();
}

void ScriptedHost::SetEnd(std::string text, int symbol) {
  fCore->end.text = std::move(text);
  fCore->end.symbol = symbol;
}

void ScriptedHost::SetDictionary(const std::vector<Variable>& dictionary) {
  fCore->dictionary.emplace(dictionary);
}

void ScriptedHost::SetStoredSets(const std::vector<SetData>& sets) {
  fCore->sets = ToSets(sets);
}

void ScriptedHost::SetDatasetOpen(bool open) {
  fCore->SetDatasetOpen(open);
}

Hooks& ScriptedHost::HostHooks() {
  return fCore->hooks;
}

void ScriptedHost::SetTracing(bool on) {
  fCore->tracing = on;
  fCore->record->ledger.RecordEvents(on);
}

void ScriptedHost::ReportHostError(const std::string& text) {
  fCore->ReportHostError(text);
}

void ScriptedHost::FailAtCall(std::size_t call, FaultKind kind, FaultMode mode) {
  CallCounter& counter = fCore->record->counter;
  counter.failAt = call;
  counter.kind = kind;
  counter.mode = mode;
}

void ScriptedHost::FailNoCall() {
  fCore->record->counter.failAt = 0;
}

std::size_t ScriptedHost::CallCount() const {
  return fCore->record->counter.calls;
}

std::size_t ScriptedHost::FaultCount() const {
  return fCore->record->counter.faults;
}

const std::vector<std::string>& ScriptedHost::Trace() const {
  return fCore->record->trace;
}

std::string ScriptedHost::TraceText() const {
  const std::string text = Join(Trace(), "\n");
  return text.empty() ? text : text + "\n";
}

const std::vector<Message>& ScriptedHost::Messages() const {
  return fCore->record->messages;
}

std::vector<std::string> ScriptedHost::MessageLines() const {
  std::vector<std::string> lines;
  std::transform(Messages().begin(), Messages().end(), std::back_inserter(lines),
                 [](const Message& message) { return ToText(message); });
  return lines;
}

const std::vector<Table>& ScriptedHost::Tables() const {
  return fCore->record->tables;
}

const std::vector<Procedure>& ScriptedHost::Procedures() const {
  return fCore->record->procedures;
}

std::vector<SetData> ScriptedHost::StoredSets() const {
  return ToData(fCore->sets);
}

std::size_t ScriptedHost::SaveCount() const {
  return fCore->record->saveCount;
}

std::optional<std::vector<SetData>> ScriptedHost::SavedSets() const {
  const auto& saved = fCore->record->saved;
  return saved ? std::optional(ToData(*saved)) : std::nullopt;
}

std::vector<std::string> ScriptedHost::LiveObjects() const {
  return fCore->record->ledger.LiveObjects();
}

const std::vector<Event>& ScriptedHost::Events() const {
  return fCore->record->ledger.Events();
}

const std::vector<std::string>& ScriptedHost::OutOfOrder() const {
  return fCore->record->ledger.OutOfOrder();
}

const std::vector<std::string>& ScriptedHost::Violations() const {
  return fCore->record->violations;
}

std::vector<std::string> ScriptedHost::Problems() const {
  std::vector<std::string> problems = Violations();
  problems.insert(problems.end(), OutOfOrder().begin(), OutOfOrder().end());
  for (const std::string& object : LiveObjects()) {
    problems.push_back(object + " is still alive");
  }
  return problems;
}

}  // namespace scripted
