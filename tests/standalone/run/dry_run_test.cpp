#include "standalone/run/dry_run.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace standalone {
namespace {

/// A letter for each set; a capital one is the same set, changed.
SetList Sets(const std::string& letters) {
  std::vector<StoredSet> sets;
  for (const char letter : letters) {
    const bool isChanged = letter >= 'A' && letter <= 'Z';
    sets.push_back({std::string("$") + letter, SetType::kCategory, isChanged ? "new" : "", "", false, false, {}});
  }
  return Shared(sets);
}

TEST(DryRun, SaysWhatWouldChange) {
  struct Row {
    std::string before;
    std::string after;
    std::string sentence;
  };
  const std::vector<Row> rows = {
      {"", "", ""},
      {"abc", "abc", ""},
      {"abc", "abcd", "Dry run: $d would be added."},
      {"abc", "ac", "Dry run: $b would be deleted."},
      {"abc", "aBc", "Dry run: $b would be changed."},
      {"abc", "cba", "Dry run: the sets would be reordered."},
      {"abc", "bca", "Dry run: the sets would be reordered."},
      {"abcdef", "", "Dry run: 6 sets would be deleted."},
      {"", "abcd", "Dry run: 4 sets would be added."},
      {"abcd", "daxCy",
       "Dry run: $x, $y would be added; $c would be changed; $b would be deleted; the sets would be"
       " reordered."}};
  for (const Row& row : rows) {
    EXPECT_EQ(SentenceOnDryRun(Sets(row.before), Sets(row.after)).value_or(""), row.sentence)
        << row.before << " to " << row.after;
  }
}

}  // namespace
}  // namespace standalone
