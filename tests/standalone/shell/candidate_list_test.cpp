#include "standalone/shell/candidate_list.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace standalone {
namespace {

std::string List(const std::vector<std::string>& candidates, std::size_t width, bool isCut = false) {
  Completion completion;
  completion.candidates = candidates;
  completion.isCut = isCut;
  return CandidateList(completion, width);
}

TEST(CandidateList, IsReadDownwards) {
  EXPECT_EQ(List({"a", "b", "c", "d", "e"}, 7), "a  c  e\nb  d\n");
  EXPECT_EQ(List({"a", "b", "c", "d", "e"}, 6), "a  d\nb  e\nc\n");
}

TEST(CandidateList, AlignsByTheWidthOfTheTerminal) {
  EXPECT_EQ(List({"long", "b", "c"}, 10), "long  c\nb\n");
  EXPECT_EQ(List({"\u65E5\u672C", "b", "c"}, 10), "\u65E5\u672C  c\nb\n");
}

TEST(CandidateList, NeedsALineForWhatIsWider) {
  EXPECT_EQ(List({"long", "b"}, 3), "long\nb\n");
}

TEST(CandidateList, SaysWhereItIsCut) {
  EXPECT_EQ(List({"a"}, 80, true), "a\n... and more\n");
}

}  // namespace
}  // namespace standalone
