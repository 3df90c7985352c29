#include "tests/host/ledger.h"

#include <algorithm>
#include <iterator>

namespace scripted {
namespace {

std::intptr_t gNextHandle = 1;

const char* KindName(Kind kind) {
  static constexpr const char* kNames[] = {"procedure", "tokens", "source",    "labels",   "text",
                                           "composite", "table",  "dimension", "category", "note"};
  return kNames[static_cast<std::size_t>(kind)];
}

bool WasMadeWith(const Object& object, std::intptr_t text) {
  return std::find(object.madeWith.begin(), object.madeWith.end(), text) != object.madeWith.end();
}

}  // namespace

Ledger::Ledger() : fFirst(gNextHandle) {}

std::intptr_t Ledger::Add(Kind kind, std::size_t data, std::array<std::intptr_t, 2> madeWith) {
  const auto index = static_cast<std::size_t>(kind);
  const std::intptr_t handle = gNextHandle++;
  fObjects.push_back({kind, ++fMade[index], data, true, madeWith});
  fLive.push_back(handle);
  ++fLiveOfKind[index];
  AddEvent(true, handle);
  return handle;
}

const Object* Ledger::Live(std::intptr_t handle) const {
  const Object* object = Find(handle);
  return object != nullptr && object->live ? object : nullptr;
}

const Object* Ledger::Live(std::intptr_t handle, Kind kind) const {
  const Object* object = Live(handle);
  return object != nullptr && object->kind == kind ? object : nullptr;
}

bool Ledger::Release(std::intptr_t handle) {
  Object* object = Find(handle);
  if (object == nullptr || !object->live) {
    return false;
  }
  AddEvent(false, handle);
  object->live = false;
  --fLiveOfKind[static_cast<std::size_t>(object->kind)];
  TakeFromLive(handle);
  return true;
}

void Ledger::TakeFromLive(std::intptr_t handle) {
  auto younger = std::prev(fLive.end());
  for (; *younger != handle; --younger) {
    if (!WasMadeWith(*Find(*younger), handle)) {
      fOutOfOrder.push_back(Name(handle) + " was released before " + Name(*younger) + ", which is younger");
    }
  }
  fLive.erase(younger);
}

std::string Ledger::Name(std::intptr_t handle) const {
  const Object* object = Find(handle);
  return object == nullptr ? "an object of another record"
                           : KindName(object->kind) + ("#" + std::to_string(object->number));
}

std::vector<std::string> Ledger::LiveObjects() const {
  std::vector<std::string> names;
  std::transform(fLive.begin(), fLive.end(), std::back_inserter(names),
                 [this](std::intptr_t handle) { return Name(handle); });
  return names;
}

const Object* Ledger::Find(std::intptr_t handle) const {
  const std::intptr_t index = handle - fFirst;
  return index < 0 || static_cast<std::size_t>(index) >= fObjects.size() ? nullptr
                                                                         : &fObjects[static_cast<std::size_t>(index)];
}

Object* Ledger::Find(std::intptr_t handle) {
  const std::intptr_t index = handle - fFirst;
  return index < 0 || static_cast<std::size_t>(index) >= fObjects.size() ? nullptr
                                                                         : &fObjects[static_cast<std::size_t>(index)];
}

void Ledger::AddEvent(bool constructed, std::intptr_t handle) {
  if (fRecordsEvents) {
    fEvents.push_back({constructed, Name(handle)});
  }
}

}  // namespace scripted
