#include "tests/host/allocation.h"

#include <array>
#include <cstdint>
#include <cstdlib>
#include <new>
#include <stdexcept>

#include "tests/host/pause.h"

namespace {

/// The counted blocks that are not released: an open-addressing table of its own memory, since operator new is the one
/// who asks.
class BlockTable {
 public:
  std::size_t Size() const { return fSize; }

  void Clear() {
    for (std::size_t slot = 0; slot < fCapacity; ++slot) {
      fSlots[slot] = nullptr;
    }
    fSize = 0;
  }

  void Add(void* block) {
    if (2 * (fSize + 1) > fCapacity) {
      Grow();
    }
    fSlots[SlotOf(block)] = block;
    ++fSize;
  }

  void Remove(void* block) {
    if (fSize == 0 || block == nullptr) {
      return;
    }
    std::size_t hole = SlotOf(block);
    if (fSlots[hole] == nullptr) {
      return;
    }
    --fSize;
    CloseHole(hole);
  }

 private:
  std::size_t Home(const void* block) const {
    const auto bits = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(block));
    return static_cast<std::size_t>((bits * 0x9E3779B97F4A7C15u) >> 20) & (fCapacity - 1);
  }

  std::size_t After(std::size_t slot) const { return (slot + 1) & (fCapacity - 1); }

  std::size_t SlotOf(const void* block) const {
    std::size_t slot = Home(block);
    while (fSlots[slot] != nullptr && fSlots[slot] != block) {
      slot = After(slot);
    }
    return slot;
  }

  /// Moves back the blocks that were displaced over the hole.
  void CloseHole(std::size_t hole) {
    fSlots[hole] = nullptr;
    for (std::size_t slot = After(hole); fSlots[slot] != nullptr; slot = After(slot)) {
      void* block = fSlots[slot];
      fSlots[slot] = nullptr;
      fSlots[SlotOf(block)] = block;
    }
  }

  void Grow() {
    void** old = fSlots;
    const std::size_t oldCapacity = fCapacity;
    fCapacity = oldCapacity == 0 ? 1024 : 2 * oldCapacity;
    fSlots = static_cast<void**>(std::calloc(fCapacity, sizeof(void*)));
    if (fSlots == nullptr) {
      std::abort();
    }
    for (std::size_t slot = 0; slot < oldCapacity; ++slot) {
      if (old[slot] != nullptr) {
        fSlots[SlotOf(old[slot])] = old[slot];
      }
    }
    std::free(old);
  }

  void** fSlots = nullptr;
  std::size_t fCapacity = 0;
  std::size_t fSize = 0;
};

struct State {
  bool inScope = false;  // a scope exists
  bool counting = false;
  std::size_t allocations = 0;
  std::size_t faults = 0;
  std::size_t failAt = 0;  // 0: none
  scripted::FaultMode mode = scripted::FaultMode::kOnce;
};

State gState;
BlockTable gBlocks;

/// Counts an allocation; true when it is to fail.
bool CountsAndFails() {
  ++gState.allocations;
  const bool fails =
      gState.failAt != 0 && (gState.mode == scripted::FaultMode::kOnce ? gState.allocations == gState.failAt
                                                                       : gState.allocations >= gState.failAt);
  gState.faults += fails ? 1 : 0;
  return fails;
}

/// Null when memory is exhausted or the allocation is to fail.
void* Allocate(std::size_t size, std::size_t alignment) {
  const bool counted = gState.counting && !scripted::IsHostAtWork();
  if (counted && CountsAndFails()) {
    return nullptr;
  }
  const std::size_t bytes = size == 0 ? 1 : size;
  void* block = alignment <= alignof(std::max_align_t)
                    ? std::malloc(bytes)
                    : std::aligned_alloc(alignment, (bytes + alignment - 1) / alignment * alignment);
  if (counted && block != nullptr) {
    gBlocks.Add(block);
  }
  return block;
}

void* AllocateOrThrow(std::size_t size, std::size_t alignment) {
  void* block = Allocate(size, alignment);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  return block;
}

void Deallocate(void* block) {
  gBlocks.Remove(block);
  std::free(block);
}

std::size_t Bytes(std::align_val_t alignment) {
  return static_cast<std::size_t>(alignment);
}

}  // namespace

namespace scripted {

AllocationScope::AllocationScope() : AllocationScope(0) {}

AllocationScope::AllocationScope(std::size_t allocation, FaultMode mode) {
  if (gState.inScope) {
    throw std::logic_error("an allocation scope exists already");
  }
  gState = {true, true, 0, 0, 0, mode};
  operator delete(operator new(1));
  if (gState.allocations != 1) {
    gState = State();
    throw std::logic_error("operator new is not the one of this program");
  }
  gBlocks.Clear();
  gState.allocations = 0;
  gState.failAt = allocation;
}

AllocationScope::~AllocationScope() {
  gState = State();
  gBlocks.Clear();
}

void AllocationScope::Stop() {
  gState.counting = false;
}

std::size_t AllocationScope::Count() const {
  return gState.allocations;
}

std::size_t AllocationScope::FaultCount() const {
  return gState.faults;
}

std::size_t AllocationScope::LiveBlocks() const {
  return gBlocks.Size();
}

}  // namespace scripted

void* operator new(std::size_t size) {
  return AllocateOrThrow(size, 0);
}
void* operator new[](std::size_t size) {
  return AllocateOrThrow(size, 0);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
  return Allocate(size, 0);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
  return Allocate(size, 0);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
  return AllocateOrThrow(size, Bytes(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
  return AllocateOrThrow(size, Bytes(alignment));
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
  return Allocate(size, Bytes(alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept {
  return Allocate(size, Bytes(alignment));
}

void operator delete(void* block) noexcept {
  Deallocate(block);
}
void operator delete[](void* block) noexcept {
  Deallocate(block);
}
void operator delete(void* block, std::size_t) noexcept {
  Deallocate(block);
}
void operator delete[](void* block, std::size_t) noexcept {
  Deallocate(block);
}
void operator delete(void* block, const std::nothrow_t&) noexcept {
  Deallocate(block);
}
void operator delete[](void* block, const std::nothrow_t&) noexcept {
  Deallocate(block);
}
void operator delete(void* block, std::align_val_t) noexcept {
  Deallocate(block);
}
void operator delete[](void* block, std::align_val_t) noexcept {
  Deallocate(block);
}
void operator delete(void* block, std::size_t, std::align_val_t) noexcept {
  Deallocate(block);
}
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept {
  Deallocate(block);
}
void operator delete(void* block, std::align_val_t, const std::nothrow_t&) noexcept {
  Deallocate(block);
}
void operator delete[](void* block, std::align_val_t, const std::nothrow_t&) noexcept {
  Deallocate(block);
}
