#ifndef TESTS_STANDALONE_ELSEWHERE_H
#define TESTS_STANDALONE_ELSEWHERE_H

#include <gtest/gtest.h>

#include <chrono>
#include <future>
#include <string>
#include <thread>
#include <vector>

#include "standalone/dataset/dataset.h"
#include "standalone/storage/database.h"
#include "standalone/text/error.h"

namespace standalone {

/// Other users of a dataset, as other processes are.
class Elsewhere {
 public:
  /// Begins to save one more set, of the variables q1 and q2, which comes to its end when the running command stops
  /// reading.
  void Define(const std::string& path, const std::string& name) {
    fSaves.push_back(std::async(std::launch::async, [path, name] {
      Dataset other(path);
      std::vector<StoredSet> sets = other.Sets();
      sets.push_back({name, SetType::kCategory, "", "", false, false, {"q1", "q2"}});
      EXPECT_EQ(other.SaveSets(sets, "elsewhere"), Dataset::Saved::kDone);
    }));
    while (!IsBeingWritten(path)) {
      std::this_thread::yield();
    }
  }

 private:
  static bool IsBeingWritten(const std::string& path) {
    Database probe(path, path);
    probe.SetLockTimeout(std::chrono::milliseconds(0));
    try {
      probe.Execute("BEGIN IMMEDIATE");
    } catch (const Error&) {
      return true;
    }
    probe.Rollback();
    return false;
  }

  std::vector<std::future<void>> fSaves;
};

}  // namespace standalone

#endif  // TESTS_STANDALONE_ELSEWHERE_H
