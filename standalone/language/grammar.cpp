#include "standalone/language/grammar.h"

#include "standalone/language/keywords.h"

namespace standalone {
namespace {

struct Rule {
  std::string_view subcommand;
  std::string_view keyword;
};

// LABEL stands before LABELSOURCE, which has the same first letters.
constexpr Rule kRules[] = {
    {"MDGROUP", "NAME"},      {"MDGROUP", "LABEL"}, {"MDGROUP", "LABELSOURCE"}, {"MDGROUP", "CATEGORYLABELS"},
    {"MDGROUP", "VARIABLES"}, {"MDGROUP", "VALUE"}, {"MCGROUP", "NAME"},        {"MCGROUP", "LABEL"},
    {"MCGROUP", "VARIABLES"}, {"DISPLAY", "NAME"},  {"DELETE", "NAME"},
};

}  // namespace

std::optional<std::string_view> KeywordWithValue(std::string_view subcommand, std::string_view word) {
  for (const Rule& rule : kRules) {
    if (NamesKeyword(subcommand, rule.subcommand) && NamesKeyword(word, rule.keyword)) {
      return rule.keyword;
    }
  }
  return std::nullopt;
}

}  // namespace standalone
