#include "standalone/storage/commit.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <chrono>
#include <cstdint>
#include <memory>
#include <new>

#include "standalone/text/error.h"
#include "tests/host/allocation.h"
#include "tests/standalone/temporary_folder.h"

namespace standalone {
namespace {

constexpr const char* kFile = "survey.mrset";

/// As long as it lives, no file can be opened.
class NoDescriptors {
 public:
  NoDescriptors() {
    SentenceOf(std::bad_alloc());  // where types are checked, they are for the first time, which takes a descriptor
    getrlimit(RLIMIT_NOFILE, &fBefore);
    const rlimit none{0, fBefore.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
  }
  NoDescriptors(const NoDescriptors&) = delete;
  NoDescriptors& operator=(const NoDescriptors&) = delete;
  ~NoDescriptors() { setrlimit(RLIMIT_NOFILE, &fBefore); }

 private:
  rlimit fBefore{};
};

class CommitTest : public TemporaryFolderTest {
 protected:
  CommitTest() {
    Write(kFile, "");
    Database(kFile, kFile).Execute("CREATE TABLE meta (generation); INSERT INTO meta VALUES (0)");
  }

  /// Commits again and again, and lets another allocation fail each time, once. Returns how many there are.
  static std::size_t SweepAllocations(bool canOpenFiles) {
    constexpr std::size_t kCap = 100;
    for (std::size_t allocation = 1; allocation < kCap; ++allocation) {
      Database database(kFile, kFile);
      database.Execute("PRAGMA synchronous = EXTRA; BEGIN IMMEDIATE; UPDATE meta SET generation = generation + 1");
      const std::int64_t generation = GenerationOf(database);
      const bool hasFired = CommitWithFault(database, generation, allocation, canOpenFiles);
      EXPECT_EQ(StoredGeneration(), generation) << "allocation " << allocation;
      if (!hasFired) {
        return allocation - 1;
      }
    }
    return kCap;
  }

 private:
  static bool CommitWithFault(Database& database, std::int64_t generation, std::size_t allocation, bool canOpenFiles) {
    const auto noDescriptors = canOpenFiles ? nullptr : std::make_unique<NoDescriptors>();
    scripted::AllocationScope scope(allocation);
    EXPECT_NO_THROW(CommitGeneration(database, generation)) << "allocation " << allocation;
    scope.Stop();
    return scope.Fired();
  }

  /// As another program finds it, which can write at once.
  static std::int64_t StoredGeneration() {
    Database other(kFile, kFile);
    other.SetLockTimeout(std::chrono::milliseconds(0));
    other.Execute("BEGIN IMMEDIATE");
    return GenerationOf(other);
  }
};

TEST_F(CommitTest, IsDoneWhateverMemoryItLacksAfterTheJournalIsGone) {
  EXPECT_GE(SweepAllocations(true), 2U);
}

TEST_F(CommitTest, IsDoneWhereToTellOfAFolderThatWasNotSynchronisedLacksMemory) {
  EXPECT_GE(SweepAllocations(false), 3U);
}

}  // namespace
}  // namespace standalone
