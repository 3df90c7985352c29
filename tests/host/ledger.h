#ifndef TESTS_HOST_LEDGER_H
#define TESTS_HOST_LEDGER_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/host/scripted_host.h"

namespace scripted {

enum class Kind : std::size_t {
  kProcedure,
  kTokens,
  kSource,
  kLabels,
  kText,
  kComposite,
  kTable,
  kDimension,
  kCategory,
  kNote,
  kCount
};

/// An object that was handed out. Handles differ over the whole life of the program, so that one of an earlier record
/// is recognised.
struct Object {
  Kind kind = Kind::kText;
  int number = 0;        ///< of its kind, from 1
  std::size_t data = 0;  ///< its place among the records of its kind
  bool live = true;
  std::array<std::intptr_t, 2> madeWith{};  ///< texts that were given to its maker
};

class Ledger {
 public:
  Ledger();

  /// The handle of a new object.
  std::intptr_t Add(Kind kind, std::size_t data, std::array<std::intptr_t, 2> madeWith = {});

  /// Null when there is none of that handle that is alive and of that kind.
  const Object* Live(std::intptr_t handle, Kind kind) const;
  const Object* Live(std::intptr_t handle) const;

  /// False when there is no such live object.
  bool Release(std::intptr_t handle);

  bool HasLive(Kind kind) const { return fLiveOfKind[static_cast<std::size_t>(kind)] > 0; }

  /// As in "text#3".
  std::string Name(std::intptr_t handle) const;

  std::vector<std::string> LiveObjects() const;
  const std::vector<std::string>& OutOfOrder() const { return fOutOfOrder; }
  const std::vector<Event>& Events() const { return fEvents; }
  void RecordEvents(bool on) { fRecordsEvents = on; }

 private:
  Object* Find(std::intptr_t handle);
  const Object* Find(std::intptr_t handle) const;
  void TakeFromLive(std::intptr_t handle);
  void AddEvent(bool constructed, std::intptr_t handle);

  std::intptr_t fFirst;
  std::vector<Object> fObjects;
  std::vector<std::intptr_t> fLive;  // in order of construction
  std::array<int, static_cast<std::size_t>(Kind::kCount)> fMade{};
  std::array<int, static_cast<std::size_t>(Kind::kCount)> fLiveOfKind{};
  std::vector<std::string> fOutOfOrder;
  std::vector<Event> fEvents;
  bool fRecordsEvents = true;
};

}  // namespace scripted

#endif  // TESTS_HOST_LEDGER_H
