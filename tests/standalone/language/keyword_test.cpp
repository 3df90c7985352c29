#include "standalone/language/grammar.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace standalone {
namespace {

TEST(Keywords, AreNamedByThemselvesOrByThreeFirstLettersOrMore) {
  struct Row {
    std::string token;
    std::string keyword;
    bool names;
  };
  const std::vector<Row> rows = {
      {"MDGROUP", "MDGROUP", true},
      {"MDGROU", "MDGROUP", true},
      {"MDG", "MDGROUP", true},
      {"MD", "MDGROUP", false},
      {"M", "MDGROUP", false},
      {"", "MDGROUP", false},
      {"MDGROUPS", "MDGROUP", false},
      {"MDX", "MDGROUP", false},
      {"GROUP", "MDGROUP", false},
      {"LAB", "LABEL", true},
      {"LAB", "LABELSOURCE", true},
      {"LABELS", "LABEL", false},
      {"mdg", "MDGROUP", false},  // tokens come in upper case
      {"MRS", "MRSET", true},
      {"MRSET", "MRSET", true},
      {"TO", "TO", true},  // a keyword of two letters names itself
      {"T", "TO", false},
      {"ALL", "ALL", true},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(NamesKeyword(row.token, row.keyword), row.names) << row.token << " for " << row.keyword;
  }
}

}  // namespace
}  // namespace standalone
