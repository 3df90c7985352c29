#include "tests/host/core.h"

#include <algorithm>
#include <stdexcept>

#include "tests/host/call.h"
#include "tests/host/letters.h"
#include "tests/host/lies.h"

namespace scripted {
namespace {

Core* gCore = nullptr;
int gQuietDepth = 0;

}  // namespace

Core* InstalledCore() {
  return gCore;
}

Core& RequiredCore() {
  if (gCore == nullptr) {
    throw std::logic_error("no scripted host is installed");
  }
  return *gCore;
}

void InstallCore(Core* core) {
  gCore = core;
  CmnDic = core == nullptr || Tells(Lie::kNoCommonDictionary) ? nullptr : &core->common;
}

bool IsQuiet() {
  return gQuietDepth > 0;
}

Quiet::Quiet() {
  ++gQuietDepth;
}

Quiet::~Quiet() {
  --gQuietDepth;
}

VariableRecord::VariableRecord(const Variable& itsData)
    : data(itsData), upperName(UpperCase(itsData.name)), valueLabels(data), variable(this) {}

Dictionary::Dictionary(const std::vector<Variable>& list) {
  for (const Variable& variable : list) {
    const VariableRecord& record = variables.emplace_back(variable);
    fIndexByUpperName.emplace(record.upperName, static_cast<int>(variables.size()) - 1);
  }
}

// As a rule the next variable is asked for. Of those that share a name only the first is ever found.
int Dictionary::Find(std::string_view name) const {
  const std::string key = UpperCase(name);
  const bool areUnique = fIndexByUpperName.size() == variables.size();
  if (areUnique && fNext < variables.size() && variables[fNext].upperName == key) {
    return static_cast<int>(fNext++);
  }
  const auto found = fIndexByUpperName.find(key);
  if (found == fIndexByUpperName.end()) {
    return -1;
  }
  fNext = static_cast<std::size_t>(found->second) + 1;
  return found->second;
}

ScriptedHost::Core::Core(const HostSetup& setup)
    : dictionary(setup.dictionary),
      hooks(setup.hooks),
      sets(ToSets(setup.sets)),
      end{TokenSequenceBase::kEnd, "end of command", kNoSymbol, 0} {
  SetDatasetOpen(setup.datasetOpen);
  BeginRecord();
}

void ScriptedHost::Core::BeginRecord() {
  record.emplace();
  record->ledger.RecordEvents(tracing);
}

const Token& ScriptedHost::Core::TokenAt(int index) const {
  return index >= 0 && index < TokenCount() ? tokens[static_cast<std::size_t>(index)] : end;
}

/// The members that are not the module's are null exactly when the one that is its is not.
void ScriptedHost::Core::SetDatasetOpen(bool open) {
  std::fill(std::begin(common.fHostOwn), std::end(common.fHostOwn), open ? nullptr : this);
  common.fActiveDataset = open || Tells(Lie::kDatasetSeemsOpen) ? this : nullptr;
}

void ScriptedHost::Core::ReportHostError(const std::string& text) {
  Message message;
  message.level = kBpErrorLevelError;
  message.show = kBpErrorShow;
  message.text = text;
  message.pattern = text;
  message.fromHost = true;
  record->messages.push_back(message);
  if (tracing && !IsQuiet()) {
    record->trace.push_back("  " + ToText(message));
  }
}

void Call::CountAndThrow() {
  CallCounter& counter = fCore->record->counter;
  ++counter.calls;
  const bool fails = counter.failAt != 0 && (counter.mode == FaultMode::kOnce ? counter.calls == counter.failAt
                                                                              : counter.calls >= counter.failAt);
  if (!fails) {
    return;
  }
  ++counter.faults;
  Throws();
  if (counter.kind == FaultKind::kStandard) {
    throw Fault(counter.calls);
  }
  throw OddFault{counter.calls};
}

void Release(std::intptr_t handle) {
  Core* core = InstalledCore();
  if (core == nullptr) {
    return;
  }
  const HostWork work;
  Record& record = *core->record;
  if (core->tracing && !IsQuiet()) {
    record.trace.push_back("~" + record.ledger.Name(handle));
  }
  if (!record.ledger.Release(handle)) {
    core->Violate(record.ledger.Name(handle) + " was released and is not alive");
  }
}

const Object* Use(Core& core, std::intptr_t handle, Kind kind) {
  const Ledger& ledger = core.record->ledger;
  const Object* object = ledger.Live(handle, kind);
  if (object == nullptr) {
    core.Violate(ledger.Name(handle) + " was used and is not alive");
  }
  return object;
}

TextRecord* UseText(Core& core, std::intptr_t handle) {
  const Ledger& ledger = core.record->ledger;
  const Object* object = ledger.Live(handle);
  if (object == nullptr || (object->kind != Kind::kText && object->kind != Kind::kComposite)) {
    core.Violate(ledger.Name(handle) + " was used and is not alive");
    return nullptr;
  }
  return &core.record->texts[object->data];
}

}  // namespace scripted
