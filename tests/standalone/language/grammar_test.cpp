#include "standalone/language/grammar.h"

#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <string>
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
    const SubcommandRule* rule = FindSubcommand(row.subcommand);
    const Keyword* keyword = rule == nullptr ? nullptr : FindKeyword(*rule, row.word);
    EXPECT_EQ(keyword == nullptr ? "" : keyword->name, row.keyword) << row.subcommand << row.word;
  }
}

TEST(Grammar, ValuesBelongToTheirKeywords) {
  struct Row {
    std::string_view subcommand;
    std::string_view keyword;
    std::string values;  ///< of those tried
  };
  const std::string all = "$a q1 'x' 5 [ ALL = VARLABEL varlabels COU";
  const std::vector<Row> rows = {
      {"MDGROUP", "NAME", "$a "},
      {"MDGROUP", "LABEL", "'x' "},
      {"MDGROUP", "LABELSOURCE", "VARLABEL "},
      {"MDGROUP", "CATEGORYLABELS", "VARLABEL varlabels COU "},
      {"MDGROUP", "VALUE", "'x' 5 "},
      {"MCGROUP", "VARIABLES", "q1 VARLABEL varlabels COU "},
      {"DELETE", "NAME", "[ ALL "},
  };
  for (const Row& row : rows) {
    std::string values;
    for (const Token& token : Tokenize(all)) {
      const bool isValue = CanBeginValue(*FindKeyword(*FindSubcommand(row.subcommand), row.keyword), token);
      values += isValue ? all.substr(token.offset, token.length) + " " : "";
    }
    EXPECT_EQ(values, row.values) << row.subcommand << " " << row.keyword;
  }
}

/// What the manual's tables say of a subcommand's keywords: the subcommand, the keyword, and the words that can be its
/// value.
std::multiset<std::string> KeywordsInManual() {
  const std::regex heading("### ([A-Z]+)");
  const std::regex row(R"(\| `([A-Z]+)=` \| ([^|]*) \|.*)");
  const std::regex word("`([A-Z]+)`");
  std::multiset<std::string> keywords;
  std::string subcommand;
  std::ifstream manual(MRSET_MANUAL_OF_COMMANDS);
  for (std::string line; std::getline(manual, line);) {
    std::smatch found;
    if (std::regex_match(line, found, heading)) {
      subcommand = found[1];
    } else if (std::regex_match(line, found, row)) {
      std::string keyword = subcommand + " " + found[1].str();
      const std::string value = found[2];
      for (std::sregex_iterator at(value.begin(), value.end(), word); at != std::sregex_iterator(); ++at) {
        keyword += " " + (*at)[1].str();
      }
      keywords.insert(keyword);
    }
  }
  return keywords;
}

TEST(Grammar, KeywordsAreThoseOfTheManual) {
  std::multiset<std::string> keywords;
  for (const SubcommandRule& rule : MrsetSubcommands()) {
    for (const Keyword& keyword : rule.keywords) {
      std::string text = std::string(rule.name) + " " + std::string(keyword.name);
      for (const std::string_view option : keyword.options) {
        text += " " + std::string(option);
      }
      keywords.insert(keyword.value == ValueKind::kSetNames ? text + " ALL" : text);
    }
  }
  EXPECT_EQ(KeywordsInManual(), keywords);
}

}  // namespace
}  // namespace standalone
