#include "standalone/language/grammar.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

namespace standalone {
namespace {

TEST(Grammar, KeywordsWithValuesBelongToTheirSubcommands) {
  struct Row {
    std::string_view subcommand;
    std::string_view word;
    std::string_view keyword;  ///< empty where there is none
  };
  const std::vector<Row> rows = {
      {"MDGROUP", "NAME", "NAME"},
      {"MDG", "NAM", "NAME"},
      {"MDGROUP", "LAB", "LABEL"},
      {"MDGROUP", "LABEL", "LABEL"},
      {"MDGROUP", "LABELS", "LABELSOURCE"},
      {"MDGROUP", "LABELSOURCE", "LABELSOURCE"},
      {"MDGROUP", "CAT", "CATEGORYLABELS"},
      {"MDGROUP", "VAR", "VARIABLES"},
      {"MDGROUP", "VAL", "VALUE"},
      {"MDGROUP", "VA", ""},
      {"MDGROUP", "VALUES", ""},
      {"MCGROUP", "NAME", "NAME"},
      {"MCGROUP", "LABEL", "LABEL"},
      {"MCGROUP", "LABELSOURCE", ""},
      {"MCGROUP", "VARIABLES", "VARIABLES"},
      {"MCGROUP", "VALUE", ""},
      {"MCGROUP", "CATEGORYLABELS", ""},
      {"DISPLAY", "NAME", "NAME"},
      {"DISPLAY", "LABEL", ""},
      {"DELETE", "NAME", "NAME"},
      {"DELETE", "VARIABLES", ""},
      {"MD", "NAME", ""},
      {"OTHER", "NAME", ""},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(KeywordWithValue(row.subcommand, row.word).value_or(""), row.keyword) << row.subcommand << row.word;
  }
}

}  // namespace
}  // namespace standalone
