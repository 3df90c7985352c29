#ifndef TESTS_HOST_ALLOCATION_H
#define TESTS_HOST_ALLOCATION_H

#include <cstddef>

#include "tests/host/scripted_host.h"

namespace scripted {

/// Counts the allocations by operator new, and fails one, from construction to Stop() or destruction. Only programs
/// that link scripted_allocation have it. One at a time, one thread. Throws std::logic_error where another operator new
/// is in force: valgrind has its own unless it is run with --soname-synonyms=somalloc=nouserintercepts.
///
/// What the scripted host allocates for itself is neither counted nor failed nor taken for a leak. What a host call
/// allocates for its caller is: texts and set lists returned by value, entries appended to the caller's vector of
/// indices, and all that a VariableSet holds. A number of an allocation therefore always stands for the same place in
/// the code under test, with the trace on or off.
class AllocationScope {
 public:
  AllocationScope();

  /// The allocation with that number, from 1, throws std::bad_alloc (or returns null where operator new must not
  /// throw).
  explicit AllocationScope(std::size_t allocation, FaultMode mode = FaultMode::kOnce);
  AllocationScope(const AllocationScope&) = delete;
  AllocationScope& operator=(const AllocationScope&) = delete;
  ~AllocationScope();

  /// Ends counting and failing. Releases of counted blocks are still noticed.
  void Stop();

  /// The allocations asked for, those that failed included; and how many of them failed.
  std::size_t Count() const;
  std::size_t FaultCount() const;
  bool Fired() const { return FaultCount() > 0; }

  /// Blocks that were allocated in the scope and are not released yet.
  std::size_t LiveBlocks() const;
};

}  // namespace scripted

#endif  // TESTS_HOST_ALLOCATION_H
