#include "tests/host/allocation.h"

#include <gmock/gmock.h>

#include <memory>
#include <new>

namespace scripted {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr char kLong[] = "a text that is too long to be kept within a string object";

HostSetup LongSet() {
  HostSetup setup;
  setup.dictionary = {Numeric("q1"), Numeric("q2")};
  setup.sets = {Dichotomies(kLong, "1", {kLong, "q2"}, kLong)};
  return setup;
}

TEST(Allocations, AreCountedAndMissedWhenTheyStayAlive) {
  AllocationScope scope;
  void* kept = operator new(8);
  operator delete(operator new(8));
  scope.Stop();
  EXPECT_EQ(scope.Count(), 2u);
  EXPECT_EQ(scope.LiveBlocks(), 1u);
  operator delete(kept);
  EXPECT_EQ(scope.LiveBlocks(), 0u);
  void* later = operator new(8);
  EXPECT_EQ(scope.Count(), 2u);
  EXPECT_EQ(scope.LiveBlocks(), 0u);
  operator delete(later);
}

TEST(Allocations, OfEveryFormAreCounted) {
  AllocationScope scope;
  constexpr auto kAlignment = std::align_val_t(64);
  operator delete(operator new(8));
  operator delete[](operator new[](8));
  operator delete(operator new(8, std::nothrow), std::nothrow);
  operator delete[](operator new[](8, std::nothrow), std::nothrow);
  operator delete(operator new(8, kAlignment), kAlignment);
  operator delete[](operator new[](8, kAlignment), kAlignment);
  operator delete(operator new(8, kAlignment, std::nothrow), kAlignment, std::nothrow);
  operator delete[](operator new[](8, kAlignment, std::nothrow), kAlignment, std::nothrow);
  scope.Stop();
  EXPECT_EQ(scope.Count(), 8u);
  EXPECT_EQ(scope.LiveBlocks(), 0u);
}

TEST(Allocations, OfLargeNumbersAreKeptApart) {
  std::vector<std::unique_ptr<int>> blocks(5000);
  AllocationScope scope;
  for (auto& block : blocks) {
    block = std::make_unique<int>(0);
  }
  for (std::size_t index = 0; index < blocks.size(); index += 2) {
    blocks[index].reset();
  }
  scope.Stop();
  EXPECT_EQ(scope.Count(), 5000u);
  EXPECT_EQ(scope.LiveBlocks(), 2500u);
  blocks.clear();
  EXPECT_EQ(scope.LiveBlocks(), 0u);
}

/// Whether an allocation fails.
bool Fails() {
  try {
    operator delete(operator new(8));
    return false;
  } catch (const std::bad_alloc&) {
    return true;
  }
}

std::vector<bool> FailuresOfFour(std::size_t allocation, FaultMode mode, std::size_t& faults) {
  std::vector<bool> failures(4);
  AllocationScope scope(allocation, mode);
  for (std::size_t index = 0; index < failures.size(); ++index) {
    failures[index] = Fails();
  }
  scope.Stop();
  faults = scope.FaultCount();
  return failures;
}

TEST(Allocations, FailOnceOrFromThenOn) {
  std::size_t faults = 0;
  EXPECT_THAT(FailuresOfFour(2, FaultMode::kOnce, faults), ElementsAre(false, true, false, false));
  EXPECT_EQ(faults, 1u);
  EXPECT_THAT(FailuresOfFour(2, FaultMode::kFromThenOn, faults), ElementsAre(false, true, true, true));
  EXPECT_EQ(faults, 3u);
  EXPECT_THAT(FailuresOfFour(5, FaultMode::kOnce, faults), ElementsAre(false, false, false, false));
  EXPECT_EQ(faults, 0u);
}

TEST(Allocations, ThatMustNotThrowReturnNull) {
  AllocationScope scope(1);
  const void* block = operator new(8, std::nothrow);
  scope.Stop();
  EXPECT_EQ(block, nullptr);
}

TEST(Allocations, OfTheHostForItselfAreNotCounted) {
  ScriptedHost host(LongSet(), "MRSET");
  AllocationScope scope(1);
  {
    ZEVA_TokenSequence tokens(true);
    tokens.Next();
    const ProcedureDataSource source;
    source.FindVarIndex(kLong, 0);
    BpComposite composite("^1", true);
    composite.Sublist();
    composite.EndSublist();
    BpError(composite, kBpErrorShow, kBpErrorLevelError);
    const BpAnnotation note = composite.Replicate();
    ZEVAMBstricmp_A(kLong, kLong);
  }
  scope.Stop();
  EXPECT_EQ(scope.Count(), 0u);
  EXPECT_FALSE(scope.Fired());
  EXPECT_EQ(scope.LiveBlocks(), 0u);
  EXPECT_THAT(host.Problems(), IsEmpty());
}

TEST(Allocations, OfATextHandedOverByValueStayTheCallers) {
  ScriptedHost host;
  std::string text(kLong);
  AllocationScope scope;
  { const BpString copy(text, false); }
  scope.Stop();
  EXPECT_EQ(scope.Count(), 1u);
  EXPECT_EQ(scope.LiveBlocks(), 0u);
}

/// What a module does with results and records of the host.
void UseResults() {
  const ProcedureDataSource source;
  ZEVA_TokenSequence tokens(true);
  tokens.Next();
  tokens.Next();
  const std::string text = TokenString(tokens);
  const std::string caps = TokenStringCaps(tokens);
  std::vector<int> indices;
  tokens.Next();
  ExistingVarList(source, tokens, indices, 4);
  VARIABLESETS sets = VariableSets(source, kMRSets);
  const std::string name = sets[0].GetName(VariableSet::kUpperCase);
  const std::string label = sets[0].GetLabel();
  const std::vector<std::string> variables = sets[0].GetVariableNames(VariableSet::kUpperCase);
  VariableSet set(name, VariableSet::kMDSet);
  set.SetLabel(label);
  set.SetValue(label);
  set.AddVariableName(label);
  SaveVariableSets(sets, *source.GetParentSource(), kMRSets);
}

std::size_t CountOfResults(bool tracing) {
  ScriptedHost host(LongSet(), std::string("MRSET '") + kLong + "' q1 q2");
  host.SetTracing(tracing);
  AllocationScope scope;
  UseResults();
  scope.Stop();
  EXPECT_EQ(scope.LiveBlocks(), 0u);
  return scope.Count();
}

TEST(Allocations, OfResultsAreTheSameWithAndWithoutTrace) {
  EXPECT_GE(CountOfResults(true), 15u);
  EXPECT_EQ(CountOfResults(true), CountOfResults(false));
}

TEST(Allocations, OfResultsFailOneAfterTheOther) {
  constexpr std::size_t kCap = 1000;
  const std::size_t count = CountOfResults(true);
  ScriptedHost host(LongSet(), std::string("MRSET '") + kLong + "' q1 q2");
  std::size_t allocation = 1;
  for (; allocation < kCap; ++allocation) {
    host.StartOver();
    bool caught = false;
    AllocationScope scope(allocation);
    try {
      UseResults();
    } catch (const std::bad_alloc&) {
      caught = true;
    }
    scope.Stop();
    EXPECT_EQ(caught, scope.Fired()) << allocation;
    EXPECT_EQ(scope.LiveBlocks(), 0u) << allocation;
    EXPECT_THAT(host.Problems(), IsEmpty()) << allocation;
    EXPECT_EQ(host.StoredSets(), LongSet().sets) << allocation;
    if (!scope.Fired()) {
      break;
    }
  }
  EXPECT_EQ(allocation - 1, count);
}

TEST(Allocations, ThatFailInACallMarkItsLine) {
  ScriptedHost host(LongSet(), std::string("MRSET '") + kLong + "'");
  ZEVA_TokenSequence tokens(true);
  tokens.Next();
  tokens.Next();
  bool caught = false;
  AllocationScope scope(1);
  try {
    TokenString(tokens);
  } catch (const std::bad_alloc&) {
    caught = true;
  }
  scope.Stop();
  EXPECT_TRUE(caught);
  EXPECT_EQ(host.Trace().back(), "TokenString(tokens#1) throws");
}

TEST(Allocations, HaveOneScopeAtATime) {
  const AllocationScope scope;
  EXPECT_THROW(AllocationScope(), std::logic_error);
}

}  // namespace
}  // namespace scripted
