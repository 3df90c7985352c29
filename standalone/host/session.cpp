#include "standalone/host/session.h"

#include <cassert>
#include <utility>

#include "standalone/host/records.h"
#include "standalone/host/stored_sets.h"

namespace {

// Points to the session of the running command; null while none runs.
standalone::Session* currentSession = nullptr;

CommonDictionary commonDictionary{};

}  // namespace

CommonDictionary* CmnDic = &commonDictionary;

namespace standalone {

Session::Session(Dataset& dataset, const std::vector<Token>& tokens, std::vector<StoredSet> sets,
                 const OutputSink& sink)
    : fDataset(dataset),
      fTokens(tokens),
      fSets(ToVariableSets(sets)),
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

void Session::SaveSets(const VARIABLESETS& sets) {
  fSavedSets = ToStoredSets(sets);
}

}  // namespace standalone
