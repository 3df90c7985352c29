#include "standalone/tabulation/grammar/tabulate_grammar.h"

#include <algorithm>

#include "standalone/language/grammar.h"
#include "standalone/text/unicode.h"

namespace standalone {

const std::vector<TabulateSubcommand>& TabulateSubcommands() {
  using Key = TabulateKey;
  using Value = TabulateValue;
  static const std::vector<TabulateSubcommand> kSubcommands = {
      {Key::kBy, "BY", Value::kColumns, "NAME", "Columns: a variable, two as in region*sex, or a set"},
      {Key::kWeight, "WEIGHT", Value::kVariable, "VARIABLE", "How much each case counts"},
      {Key::kBase,
       "BASE",
       Value::kWord,
       "BASE",
       "Cases in the base: answered, asked, complete or all",
       {"ANSWERED", "ASKED", "COMPLETE", "ALL"}},
      {Key::kWhere, "WHERE", Value::kCondition, "CONDITION", "Only cases such as 'region = \"N\" AND born < 1980'"},
      {Key::kNone, "NONE", Value::kMember, "VALUE", "Value of a category set that says that nothing applies"},
      {Key::kNet, "NET", Value::kNet, "NET", "Any of several members: 'Hot drinks: tea coffee'"},
      {Key::kShow,
       "SHOW",
       Value::kWords,
       "FIGURE",
       "Figures: count, cases, responses, error or interval",
       {"COUNT", "CASES", "RESPONSES", "ERROR", "INTERVAL"}},
      {Key::kSort,
       "SORT",
       Value::kWord,
       "ORDER",
       "Order by count: none, descending or ascending",
       {"NONE", "DESCENDING", "ASCENDING"}},
      {Key::kLast, "LAST", Value::kMembers, "MEMBER", "Members that stay at the end"},
      {Key::kConfidence, "CONFIDENCE", Value::kNumber, "PERCENT", "Of the intervals; 95 unless given"},
      {Key::kTest, "TEST", Value::kWord, "METHOD", "Test of association: holm, or =bonferroni", {"HOLM", "BONFERRONI"}},
      {Key::kMinBase, "MINBASE", Value::kNumber, "N", "No percentages of columns with fewer cases in the base"},
      {Key::kDecimals, "DECIMALS", Value::kNumber, "N", "Decimals of percentages; 1 unless given"},
  };
  return kSubcommands;
}

const TabulateSubcommand& TabulateSubcommandOf(TabulateKey key) {
  const std::vector<TabulateSubcommand>& subcommands = TabulateSubcommands();
  return *std::find_if(subcommands.begin(), subcommands.end(),
                       [=](const TabulateSubcommand& subcommand) { return subcommand.key == key; });
}

const TabulateSubcommand* FindTabulateSubcommand(std::string_view anyCase) {
  const std::string word = ToUpper(anyCase);
  const std::vector<TabulateSubcommand>& subcommands = TabulateSubcommands();
  const auto found = std::find_if(subcommands.begin(), subcommands.end(), [&](const TabulateSubcommand& subcommand) {
    return NamesKeyword(word, subcommand.name);
  });
  return found == subcommands.end() ? nullptr : &*found;
}

std::string OptionOf(const TabulateSubcommand& subcommand) {
  std::string option = "--";
  for (const char c : subcommand.name) {
    option += static_cast<char>(c - 'A' + 'a');
  }
  return option;
}

}  // namespace standalone
