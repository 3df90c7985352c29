#include "standalone/shell/help.h"

#include <fmt/format.h>

#include "standalone/language/grammar.h"
#include "standalone/shell/shell_word.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

struct Topic {
  std::string_view name;
  std::string_view text;
};

const std::vector<Topic>& TopicsOfLanguage() {
  static const std::vector<Topic> kTopics = {
      {"DELETE",
       "DELETE removes sets from the dataset.\n"
       "\n"
       "  MRSET /DELETE NAME=[$drinks $toppings].\n"
       "  MRSET /DELETE NAME=ALL.\n"},
      {"DISPLAY",
       "DISPLAY shows a table of sets in the order of their names; the sets stay in that\n"
       "order.\n"
       "\n"
       "  MRSET /DISPLAY NAME=[$drinks $toppings].\n"
       "  MRSET /DISPLAY NAME=ALL.\n"},
      {"MCGROUP",
       "MCGROUP defines a category set: each variable holds one of the answers. The\n"
       "variables are all numeric or all strings. A set of that name is replaced.\n"
       "\n"
       "  NAME=$name        needed\n"
       "  VARIABLES=list    needed: two variables at least, such as q1 q2 or q1 TO q5\n"
       "  LABEL='text'\n"
       "\n"
       "  MRSET /MCGROUP NAME=$toppings LABEL='Toppings' VARIABLES=topping1 TO topping4.\n"},
      {"MDGROUP",
       "MDGROUP defines a dichotomy set: each variable is one answer, chosen when it\n"
       "holds VALUE. A set of that name is replaced.\n"
       "\n"
       "  NAME=$name        needed\n"
       "  VARIABLES=list    needed: two variables at least, such as q1 q2 or q1 TO q5\n"
       "  VALUE=value       needed: a whole number; for strings, a quoted text\n"
       "  LABEL='text'\n"
       "  CATEGORYLABELS=VARLABELS        the answers are named by the variable labels\n"
       "  CATEGORYLABELS=COUNTEDVALUES    or by the label of VALUE in each variable\n"
       "  LABELSOURCE=VARLABEL            the set is named by the variable labels; needs\n"
       "                                  CATEGORYLABELS=COUNTEDVALUES\n"
       "\n"
       "  MRSET /MDGROUP NAME=$drinks LABEL='Drinks' VARIABLES=drink1 TO drink5 VALUE=1.\n"},
      {"MRSET",
       "MRSET defines, deletes and displays multiple response sets.\n"
       "\n"
       "  MRSET /MDGROUP NAME=$name VARIABLES=list VALUE=value [...]\n"
       "        /MCGROUP NAME=$name VARIABLES=list [...]\n"
       "        /DELETE NAME={[$name ...] | ALL}\n"
       "        /DISPLAY NAME={[$name ...] | ALL}.\n"
       "\n"
       "Subcommands are carried out in their order and may be repeated. If anything in\n"
       "the command is wrong, nothing of it is carried out. Keywords may be written in\n"
       "any case and shortened to three letters. A period at the end of a line, or a\n"
       "blank line, ends the command.\n"},
      {"TABULATE",
       "TABULATE counts sets: a row for each member, columns for the total and each BY.\n"
       "\n"
       "  TABULATE $name [$name ...]\n"
       "    /BY=name ...                columns: variables, pairs as in region*sex, sets\n"
       "    /WEIGHT=variable            how much each case counts\n"
       "    /BASE={ANSWERED | ASKED | COMPLETE | ALL}\n"
       "    /WHERE=condition            only these cases\n"
       "    /NONE=value                 of a category set: that nothing applies\n"
       "    /NET='label': member ...    a row more: any of these members\n"
       "    /SHOW={COUNT | CASES | RESPONSES | ERROR | INTERVAL} ...\n"
       "    /SORT={NONE | DESCENDING | ASCENDING}\n"
       "    /LAST=member ...            members that stay at the end\n"
       "    /CONFIDENCE=percent         of the intervals; 95 unless given\n"
       "    /TEST[={HOLM | BONFERRONI}]\n"
       "    /MINBASE=n                  no percentages of columns with fewer cases\n"
       "    /DECIMALS=n.\n"
       "\n"
       "Subcommands stand in any order, each once but NET. A condition compares a\n"
       "variable with a number or a quoted text (= <> < <= > >=), or is variable IN\n"
       "(value, ...), MISSING(variable) or $name HAS member. NOT, AND, OR and\n"
       "parentheses join conditions. TABULATE changes nothing in the dataset.\n"
       "\n"
       "  TABULATE $drinks /BY=region region*sex $food /WHERE=born < 1980 OR sex = 'f'.\n"
       "  TABULATE $drinks /NET='Hot drinks': drink1 drink2 /SHOW=COUNT CASES ERROR.\n"},
  };
  return kTopics;
}

const std::vector<Topic>& TopicsOfShell() {
  static const std::vector<Topic> kTopics = {
      {"exit", "exit leaves the shell, as quit does.\n"},
      {"help",
       "help lists the commands of the shell; with a topic it explains one.\n"
       "\n"
       "  help MDGROUP\n"
       "  help undo\n"},
      {"log",
       "log lists the changes of the sets, and the imports, the last one first. Each\n"
       "change has a number, to which undo can go back.\n"},
      {"quit",
       "quit leaves the shell; so do exit, and Ctrl-D on an empty line. A command that\n"
       "is not complete is not run.\n"},
      {"sets", "sets lists the dataset's sets with their variables, in the order in which they\nare stored.\n"},
      {"undo",
       "undo takes back the last change of the sets. That is itself a change, so undoing\n"
       "twice restores the sets. With a number it goes back to the sets as that change\n"
       "left them; 0 is the beginning. log lists the numbers.\n"
       "\n"
       "  undo\n"
       "  undo 3\n"
       "  undo --to 3       the same\n"},
      {"variables",
       "variables lists the dataset's variables. With a pattern it lists those whose\n"
       "names match: * stands for any characters, ? for one. Without * or ?, it lists\n"
       "those whose names begin with the pattern.\n"
       "\n"
       "  variables\n"
       "  variables q*\n"},
  };
  return kTopics;
}

std::vector<std::string_view> NamesOf(const std::vector<Topic>& topics) {
  std::vector<std::string_view> names;
  for (const Topic& topic : topics) {
    names.push_back(topic.name);
  }
  return names;
}

std::optional<std::string> TextOn(std::string_view name, const std::vector<Topic>& topics) {
  for (const Topic& topic : topics) {
    if (NamesKeyword(ToUpper(name), ToUpper(topic.name))) {
      return std::string(topic.text);
    }
  }
  return std::nullopt;
}

std::string HelpOnTheShell() {
  std::string text =
      "Commands (MRSET, TABULATE) go over as many lines as they need and end with a\n"
      "period at the end of a line. Tab completes, the arrow keys bring back earlier\n"
      "commands, Ctrl-R searches them, Ctrl-C discards what is being typed.\n"
      "\n";
  for (const ShellCommandRule& rule : ShellCommands()) {
    text += fmt::format("  {:<21}{}\n", fmt::format("{} {}", rule.name, rule.argument), rule.purpose);
  }
  return text;
}

}  // namespace

std::vector<std::string_view> LanguageTopics() {
  return NamesOf(TopicsOfLanguage());
}

std::vector<std::string_view> ShellTopics() {
  std::vector<std::string_view> names = LanguageTopics();
  const std::vector<std::string_view> others = NamesOf(TopicsOfShell());
  names.insert(names.end(), others.begin(), others.end());
  return names;
}

std::optional<std::string> HelpOn(std::string_view topic) {
  return TextOn(topic, TopicsOfLanguage());
}

std::optional<std::string> HelpInShell(std::string_view topic) {
  if (topic.empty()) {
    return HelpOnTheShell();
  }
  const std::optional<std::string> help = HelpOn(topic);
  return help ? help : TextOn(topic, TopicsOfShell());
}

}  // namespace standalone
