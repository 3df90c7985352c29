#include "standalone/shell/help.h"

#include <fmt/format.h>

#include "standalone/language/keywords.h"
#include "standalone/shell/shell_command.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

struct Topic {
  std::string_view name;
  std::string_view text;
};

const std::vector<Topic>& Topics() {
  static const std::vector<Topic> kTopics = {
      {"DELETE",
       "DELETE removes sets from the dataset.\n"
       "\n"
       "  MRSET /DELETE NAME=[$drinks $toppings].\n"
       "  MRSET /DELETE NAME=ALL.\n"},
      {"DISPLAY",
       "DISPLAY shows a table of sets in the order of their names; the sets stay in that order.\n"
       "\n"
       "  MRSET /DISPLAY NAME=[$drinks $toppings].\n"
       "  MRSET /DISPLAY NAME=ALL.\n"},
      {"MCGROUP",
       "MCGROUP defines a category set: each variable holds one of the answers. The variables\n"
       "are all numeric or all strings. A set of that name is replaced.\n"
       "\n"
       "  NAME=$name        needed\n"
       "  VARIABLES=list    needed: names and ranges such as q1 TO q5, two variables at least\n"
       "  LABEL='text'\n"
       "\n"
       "  MRSET /MCGROUP NAME=$toppings LABEL='Toppings' VARIABLES=topping1 TO topping4.\n"},
      {"MDGROUP",
       "MDGROUP defines a dichotomy set: each variable is one answer, chosen when it holds\n"
       "VALUE. A set of that name is replaced.\n"
       "\n"
       "  NAME=$name        needed\n"
       "  VARIABLES=list    needed: names and ranges such as q1 TO q5, two variables at least\n"
       "  VALUE=value       needed: a whole number, or a quoted text where the variables are strings\n"
       "  LABEL='text'\n"
       "  CATEGORYLABELS=VARLABELS        answers are named by the variable labels, or\n"
       "  CATEGORYLABELS=COUNTEDVALUES    by the value label of VALUE in each variable\n"
       "  LABELSOURCE=VARLABEL            the set takes its label from the variable labels;\n"
       "                                  needs CATEGORYLABELS=COUNTEDVALUES\n"
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
       "Subcommands are carried out in their order and may be repeated. If anything in the\n"
       "command is wrong, nothing of it is carried out. Keywords may be written in any case and\n"
       "shortened to three letters. A period at the end of a line, or a blank line, ends the\n"
       "command.\n"},
  };
  return kTopics;
}

std::string HelpOnTheShell() {
  std::string text =
      "MRSET commands go over as many lines as they need and end with a period at the end of a\n"
      "line. Tab completes, the arrow keys bring back earlier commands, Ctrl-R searches them,\n"
      "Ctrl-C gives up what is being typed.\n"
      "\n";
  for (const ShellCommandRule& rule : ShellCommands()) {
    text += fmt::format("  {:<20}{}\n", fmt::format("{} {}", rule.name, rule.argument), rule.purpose);
  }
  return text;
}

}  // namespace

std::vector<std::string_view> HelpTopics() {
  std::vector<std::string_view> names;
  for (const Topic& topic : Topics()) {
    names.push_back(topic.name);
  }
  return names;
}

std::optional<std::string> HelpOn(std::string_view topic) {
  if (topic.empty()) {
    return HelpOnTheShell();
  }
  for (const Topic& one : Topics()) {
    if (NamesKeyword(ToUpper(topic), one.name)) {
      return std::string(one.text);
    }
  }
  return std::nullopt;
}

}  // namespace standalone
