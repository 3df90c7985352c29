#include "tests/traces/scenarios.h"

#include <limits>
#include <utility>

namespace traces {
namespace {

using scripted::Categories;
using scripted::Dichotomies;
using scripted::Numeric;
using scripted::Quoted;
using scripted::SetData;
using scripted::String;
using scripted::Symbol;
using scripted::Token;
using scripted::Word;

/// q: labelled, each with a label of its own for 1. n: without any label. s: strings of that width. a: labels that
/// differ in nothing but case. e: empty labels.
std::vector<scripted::Variable> Survey() {
  return {Numeric("q1", "Tea", {{1.0, "Drinks tea"}, {0.0, "No"}}),
          Numeric("q2", "Coffee", {{1.0, "Drinks coffee"}, {0.0, "No"}}),
          Numeric("q3", "Milk", {{1.0, "Drinks milk"}}),
          Numeric("n1"),
          Numeric("n2"),
          String("s8", 8, "Wide", {{"yes", "Chosen"}, {" no ", "Left out"}}),
          String("s3", 3, "Narrow", {{"yes", "Taken"}}),
          Numeric("a1", "Yes", {{1.0, "On"}}),
          Numeric("a2", "yes", {{1.0, "on"}}),
          Numeric("a3", "YES", {{1.0, "Off"}}),
          Numeric("e1", "", {{1.0, ""}}),
          Numeric("e2", "", {{1.0, "Some"}})};
}

std::string KindOf(const Token& token) {
  switch (token.type) {
    case TokenSequenceBase::kEnd:
      return "end";
    case TokenSequenceBase::kString:
      return "word";
    case TokenSequenceBase::kNumber:
      return "number";
    case TokenSequenceBase::kQuotedString:
      return "string";
    case TokenSequenceBase::kSymbol:
      return "symbol";
  }
  return "token";
}

/// As in `word MRSET, symbol / 11`; the code where there is one.
std::string ToText(const std::vector<Token>& tokens) {
  std::string text;
  for (const Token& token : tokens) {
    text += (text.empty() ? "" : ", ") + KindOf(token) + " " + token.text;
    text += token.symbol == scripted::kNoSymbol ? "" : " " + std::to_string(token.symbol);
  }
  return text;
}

Scenario OfTokens(std::string name, std::vector<Token> tokens, std::vector<SetData> sets = {}) {
  std::string command = ToText(tokens);
  return {std::move(name), {Survey(), std::move(sets), true, {}}, std::move(tokens), std::move(command), "",
          std::nullopt};
}

Scenario Of(std::string name, std::string command, std::vector<SetData> sets = {}) {
  std::vector<Token> tokens = scripted::Tokenize(command);
  return {std::move(name), {Survey(), std::move(sets), true, {}}, std::move(tokens), std::move(command), "",
          std::nullopt};
}

/// A host with rules of its own, and what they are.
struct HostRule {
  std::string text;
  scripted::Hooks hooks;
};

Scenario With(HostRule rule, Scenario scenario) {
  scenario.hostRule = std::move(rule.text);
  scenario.setup.hooks = std::move(rule.hooks);
  return scenario;
}

Scenario WithEnd(Scenario scenario, std::string text, int symbol) {
  scenario.hostRule = "the end of the command is " + text + ", coded " + std::to_string(symbol);
  scenario.end = Token{TokenSequenceBase::kEnd, std::move(text), symbol, 0};
  return scenario;
}

Scenario WithoutDataset(Scenario scenario) {
  scenario.hostRule = "no dataset is open";
  scenario.setup.datasetOpen = false;
  return scenario;
}

Token Odd(TokenSequenceBase::TokenType type, std::string text, int symbol) {
  return {type, std::move(text), symbol, 0};
}

HostRule YesIs(int truth) {
  HostRule rule;
  rule.text = "yes is " + std::to_string(truth);
  rule.hooks.truth = truth;
  return rule;
}

HostRule NamesAreValidatedAs(int answer) {
  HostRule rule;
  rule.text = "every name is validated as " + std::to_string(answer);
  rule.hooks.validateName = [answer](const std::string&) { return answer; };
  return rule;
}

HostRule ListsAreReadAs(bool result, std::vector<int> indices) {
  HostRule rule;
  rule.text = std::string("every variable list is ") + (result ? "accepted" : "rejected") + ", with " +
              std::to_string(indices.size()) + " variables found";
  rule.hooks.existingVarList = [result, indices](const std::vector<std::string>&, std::vector<int>& found) {
    found = indices;
    return result;
  };
  return rule;
}

HostRule ListsLeaveTheCursorAt(int index) {
  HostRule rule;
  rule.text = "a variable list leaves the cursor at token " + std::to_string(index);
  rule.hooks.cursorAfterVarList = index;
  return rule;
}

HostRule DoesNotFind(const std::string& name) {
  HostRule rule;
  rule.text = "the variable " + name + " is in lists, but is not found by its name";
  rule.hooks.findsVariable = [name](const std::string& wanted) { return wanted != name; };
  return rule;
}

HostRule NamesTheKeyword(std::string token, std::string keyword) {
  HostRule rule;
  rule.text = token + " names " + keyword;
  rule.hooks.keywordMatch = [token, keyword](const std::string& itsToken, const std::string& itsKeyword) {
    return itsToken == itsKeyword || (itsToken == token && itsKeyword == keyword) ? 1 : 0;
  };
  return rule;
}

/// Three sets that are not in the order of their names.
std::vector<SetData> StoredSets() {
  return {Dichotomies("$wants", "1", {"q1", "q2"}, "Wants"), Categories("$Both", {"n1", "n2"}),
          Categories("$all_of", {"s8", "s3"}, "All of it")};
}

void AddEntry(std::vector<Scenario>& all) {
  all.push_back(WithoutDataset(Of("no_dataset", "MRSET /DELETE NAME=ALL")));
  all.push_back(Of("define_and_display", "MRSET /MDGROUP NAME=$likes VARIABLES=q1 q2 q3 VALUE=1 /DISPLAY NAME=[$likes]",
                   StoredSets()));
  all.push_back(Of("every_subcommand",
                   "MRSET /MDGROUP NAME=$m LABEL='M' LABELSOURCE=VARLABEL CATEGORYLABELS=COUNTEDVALUES VARIABLES=q1 q2 "
                   "VALUE=1 /MCGROUP NAME=$c LABEL='C' VARIABLES=n1 n2 /DISPLAY NAME=[$m $c] /DELETE NAME=[$m]"));
  all.push_back(
      Of("failure_behind_a_good_subcommand", "MRSET /DELETE NAME=ALL /MCGROUP NAME=$new VARIABLES=n1", StoredSets()));
}

void AddDriver(std::vector<Scenario>& all) {
  all.push_back(Of("command_without_subcommand", "MRSET"));
  all.push_back(Of("slash_without_subcommand", "MRSET /"));
  all.push_back(WithEnd(Of("slash_before_an_end_with_its_own_text", "MRSET /"), "<END>", scripted::kNoSymbol));
  all.push_back(Of("first_slash_left_out", "MRSET DELETE NAME=ALL /DISPLAY NAME=ALL"));
  all.push_back(Of("unknown_subcommand", "MRSET /Frob NAME=ALL", StoredSets()));
  all.push_back(
      OfTokens("later_slash_left_out", {Word("MRSET"), Word("DISPLAY"), Word("NAME"), Symbol("="), Symbol("ALL"),
                                        Odd(TokenSequenceBase::kEnd, "Stray", scripted::kNoSymbol), Word("DELETE")}));
  all.push_back(
      OfTokens("quoted_slash", {Word("MRSET"), Quoted("/"), Word("DELETE"), Word("NAME"), Symbol("="), Symbol("ALL"),
                                Quoted("/"), Word("DISPLAY"), Word("NAME"), Quoted("="), Symbol("ALL")}));
  all.push_back(OfTokens("symbol_coded_as_slash",
                         {Word("MRSET"), Symbol("/"), Word("MCGROUP"), Word("NAME"), Symbol("="), Word("$c"),
                          Odd(TokenSequenceBase::kSymbol, "slash", scripted::kSlash), Word("DISPLAY")}));
  all.push_back(
      Of("lower_case_and_abbreviations",
         "mrs /mdg nam=$a labels=varlab cat=counted val=1 var=q1 q2 /mcg nam=$b lab='b' var=n1 n2 /dis nam=all "
         "/del nam=[$a]"));
  all.push_back(
      With(YesIs(-2), Of("host_that_says_yes_with_another_number",
                         "MRSET /MDGROUP NAME=$a LABELSOURCE=VARLABEL CATEGORYLABELS=COUNTEDVALUES VARIABLES=q1 q2 "
                         "VALUE=1")));
}

/// What may follow an attribute's value.
void AddFollowers(std::vector<Scenario>& all) {
  all.push_back(Of("value_followed_by_a_symbol", "MRSET /MCGROUP NAME=$a = VARIABLES=n1 n2"));
  all.push_back(Of("value_followed_by_a_number", "MRSET /MCGROUP NAME=$a 5"));
  all.push_back(Of("value_followed_by_a_string", "MRSET /MCGROUP NAME=$a 'Label'"));
  all.push_back(Of("value_followed_by_a_word_and_a_slash", "MRSET /MCGROUP NAME=$a LABEL /DISPLAY NAME=ALL"));
  all.push_back(Of("value_followed_by_a_word_and_the_end", "MRSET /MCGROUP NAME=$a VARIABLES"));
}

void AddNames(std::vector<Scenario>& all) {
  const std::string longest = "$" + std::string(63, 'a');
  all.push_back(Of("name_without_equals", "MRSET /MCGROUP NAME $a"));
  all.push_back(Of("name_missing_at_the_end", "MRSET /MCGROUP NAME="));
  all.push_back(Of("name_without_dollar", "MRSET /MDGROUP NAME=likes VARIABLES=q1 q2 VALUE=1"));
  all.push_back(Of("name_of_64_bytes", "MRSET /MCGROUP NAME=" + longest + " VARIABLES=n1 n2"));
  all.push_back(Of("name_of_65_bytes", "MRSET /MCGROUP NAME=" + longest + "b VARIABLES=n1 n2"));
  all.push_back(Of("name_against_the_rules", "MRSET /MCGROUP NAME=$a. VARIABLES=n1 n2"));
  all.push_back(With(NamesAreValidatedAs(1),
                     Of("name_that_the_host_refuses_with_another_code", "MRSET /MCGROUP NAME=$a VARIABLES=n1 n2")));
}

void AddLabels(std::vector<Scenario>& all) {
  all.push_back(Of("label_without_equals", "MRSET /MDGROUP LABEL 'A'"));
  all.push_back(Of("label_not_quoted", "MRSET /MCGROUP LABEL=Likes"));
  all.push_back(
      Of("label_of_255_bytes", "MRSET /MCGROUP NAME=$a VARIABLES=n1 n2 LABEL='" + std::string(255, 'x') + "'"));
  all.push_back(Of("label_cut_within_a_character",
                   "MRSET /MCGROUP NAME=$a VARIABLES=n1 n2 LABEL='" + std::string(254, 'x') + "\xC3\xA4'"));
  all.push_back(Of("labelsource_without_equals", "MRSET /MDGROUP LABELSOURCE VARLABEL"));
  all.push_back(Of("labelsource_of_another_keyword", "MRSET /MDGROUP LABELSOURCE=LABEL"));
  all.push_back(Of("labelsource_of_a_string", "MRSET /MDGROUP LABELSO='VARLABEL'"));
  all.push_back(Of("categorylabels_without_equals", "MRSET /MDGROUP CATEGORYLABELS"));
  all.push_back(Of("categorylabels_of_another_keyword", "MRSET /MDGROUP CATEGORYLABELS=LABELS"));
  all.push_back(Of("categorylabels_of_a_number", "MRSET /MDGROUP CATEGORYLABELS=1"));
}

void AddValues(std::vector<Scenario>& all) {
  all.push_back(Of("value_without_equals", "MRSET /MDGROUP VALUE 1"));
  all.push_back(Of("value_of_a_word", "MRSET /MDGROUP VALUE=yes"));
  all.push_back(Of("value_that_is_no_integer_goes_on", "MRSET /MDGROUP VALUE=2.5 NAME=$a VARIABLES=n1 n2"));
  all.push_back(OfTokens("value_that_is_not_a_number", {Word("MRSET"),
                                                        Word("MDGROUP"),
                                                        Word("VALUE"),
                                                        Symbol("="),
                                                        {TokenSequenceBase::kNumber, "?", scripted::kNoSymbol,
                                                         std::numeric_limits<double>::quiet_NaN()}}));
  all.push_back(Of("value_with_decimals_that_is_an_integer", "MRSET /MDGROUP VALUE=1.0 NAME=$a VARIABLES=q1 q2"));
}

void AddDichotomies(std::vector<Scenario>& all) {
  all.push_back(Of("mdgroup_at_the_end", "MRSET /MDGROUP"));
  all.push_back(Of("mdgroup_before_a_slash_fails_silently", "MRSET /MDGROUP /DISPLAY NAME=ALL", StoredSets()));
  all.push_back(Of("mdgroup_of_an_unknown_keyword", "MRSET /MDGROUP Names=$a"));
  all.push_back(Of("mdgroup_without_name", "MRSET /MDGROUP LABEL='A'"));
  all.push_back(Of("mdgroup_without_variables", "MRSET /MDGROUP NAME=$a VALUE=1"));
  all.push_back(Of("mdgroup_without_value", "MRSET /MDGROUP NAME=$a VARIABLES=q1 q2"));
  all.push_back(Of("mdgroup_of_an_empty_value", "MRSET /MDGROUP NAME=$a VARIABLES=s8 s3 VALUE=''"));
  all.push_back(Of("numeric_variables_and_a_string", "MRSET /MDGROUP NAME=$a VARIABLES=q1 q2 VALUE='1'"));
  all.push_back(Of("string_variables_and_a_number", "MRSET /MDGROUP NAME=$a VARIABLES=s8 s3 VALUE=1"));
  all.push_back(Of("labelsource_without_counted_value_labels",
                   "MRSET /MDGROUP NAME=$a VARIABLES=q1 q2 VALUE=1 LABELSOURCE=VARLABEL"));
  all.push_back(Of("last_of_repeated_keywords_wins",
                   "MRSET /MDGROUP NAME=$a NAME=$b LABEL='A' LABEL='B' CATEGORYLABELS=COUNTEDVALUES "
                   "CATEGORYLABELS=VARLABELS VARIABLES=s8 s3 VARIABLES=q1 q2 VALUE='x' VALUE=1"));
}

void AddVariableLists(std::vector<Scenario>& all) {
  all.push_back(Of("variables_without_equals", "MRSET /MDGROUP VARIABLES q1 q2"));
  all.push_back(Of("variables_before_a_keyword", "MRSET /MDGROUP VARIABLES=Q1 TO Q3 NAME=$a VALUE=1"));
  all.push_back(Of("variables_before_a_number", "MRSET /MCGROUP NAME=$a VARIABLES=n1 n2 5"));
  all.push_back(Of("variables_none", "MRSET /MCGROUP NAME=$a VARIABLES=/DISPLAY NAME=ALL"));
  all.push_back(Of("variables_that_the_host_rejects", "MRSET /MCGROUP NAME=$a VARIABLES=n1 nix n2"));
  all.push_back(With(ListsAreReadAs(true, {}),
                     Of("variables_of_which_the_host_finds_none", "MRSET /MCGROUP NAME=$a VARIABLES=n1 n2")));
  all.push_back(With(ListsAreReadAs(false, {3, 4}),
                     Of("variables_rejected_without_a_message", "MRSET /MCGROUP NAME=$a VARIABLES=n1 n2")));
  all.push_back(With(DoesNotFind("n2"),
                     Of("variable_that_is_listed_and_not_found", "MRSET /MCGROUP NAME=$a VARIABLES=n1 n2 s8")));
  all.push_back(
      With(ListsLeaveTheCursorAt(0), Of("cursor_lost_in_the_list", "MRSET /MCGROUP VARIABLES=n1 n2 NAME=$a")));
  all.push_back(WithEnd(Of("variables_before_an_end_coded_as_equals", "MRSET /MCGROUP NAME=$a VARIABLES=n1 n2 NAME"),
                        "end of command", scripted::kEquals));
}

void AddVariableChecks(std::vector<Scenario>& all) {
  all.push_back(Of("one_variable", "MRSET /MDGROUP NAME=$a VARIABLES=q1 VALUE=1"));
  all.push_back(Of("string_behind_numeric", "MRSET /MCGROUP NAME=$a VARIABLES=n1 s8"));
  all.push_back(Of("numeric_behind_string", "MRSET /MCGROUP NAME=$a VARIABLES=s8 n1"));
  all.push_back(Of("equal_variable_labels", "MRSET /MDGROUP NAME=$a VARIABLES=a1 a2 a3 n1 VALUE=0"));
  all.push_back(Of("equal_variable_labels_of_categories", "MRSET /MCGROUP NAME=$a VARIABLES=a1 a2 a3"));
  all.push_back(Of("empty_variable_labels", "MRSET /MDGROUP NAME=$a VARIABLES=e1 e2 VALUE=0"));
  all.push_back(Of("different_labels_of_the_value", "MRSET /MDGROUP NAME=$a VARIABLES=n1 e1 a1 a2 a3 VALUE=1"));
  all.push_back(Of("value_wider_than_the_narrowest_variable", "MRSET /MDGROUP NAME=$a VARIABLES=s8 s3 VALUE='abcd'"));
  all.push_back(Of("padded_value_that_fits", "MRSET /MDGROUP NAME=$a VARIABLES=s8 s3 VALUE=' no '"));
  all.push_back(Of("value_of_blanks", "MRSET /MDGROUP NAME=$a VARIABLES=s3 s8 VALUE='    '"));
  all.push_back(Of("counted_value_labels",
                   "MRSET /MDGROUP NAME=$a VARIABLES=s8 s3 VALUE='yes' CATEGORYLABELS="
                   "COUNTEDVALUES LABELSOURCE=VARLABEL /DISPLAY NAME=ALL"));
  all.push_back(Of("counted_value_label_missing",
                   "MRSET /MDGROUP NAME=$a VARIABLES=q1 n1 q2 VALUE=1 CATEGORYLABELS=COUNTEDVALUES"));
  all.push_back(
      Of("counted_value_label_twice", "MRSET /MDGROUP NAME=$a VARIABLES=a1 a2 VALUE=1 CATEGORYLABELS=COUNTEDVALUES"));
}

void AddCategories(std::vector<Scenario>& all) {
  all.push_back(Of("mcgroup_at_the_end", "MRSET /MCGROUP"));
  all.push_back(Of("mcgroup_before_a_slash_fails_silently", "MRSET /MCGROUP /DISPLAY NAME=ALL", StoredSets()));
  all.push_back(Of("mcgroup_of_a_labelsource", "MRSET /MCGROUP LABELSOURCE=VARLABEL"));
  all.push_back(With(NamesTheKeyword("LABELSX", "LABEL"),
                     Of("mcgroup_of_a_label_that_begins_as_labelsource", "MRSET /MCGROUP LABEL='A' LABELSX='B'")));
  all.push_back(Of("mcgroup_of_a_value", "MRSET /MCGROUP Value=1"));
  all.push_back(Of("mcgroup_without_name_is_reported_and_goes_on", "MRSET /MCGROUP VARIABLES=n1 n2 /FROB"));
  all.push_back(Of("mcgroup_without_variables", "MRSET /MCGROUP NAME=$a"));
}

void AddNameLists(std::vector<Scenario>& all) {
  all.push_back(Of("display_at_the_end", "MRSET /DISPLAY"));
  all.push_back(Of("display_before_a_slash_fails_silently", "MRSET /DISPLAY /DELETE NAME=ALL", StoredSets()));
  all.push_back(Of("display_of_an_unknown_keyword", "MRSET /DISPLAY Label='A'"));
  all.push_back(Of("delete_at_the_end", "MRSET /DELETE"));
  all.push_back(Of("delete_before_a_slash_fails_silently", "MRSET /DELETE /DISPLAY NAME=ALL", StoredSets()));
  all.push_back(Of("delete_of_an_unknown_keyword", "MRSET /DELETE NAME=ALL Label='A'", StoredSets()));
  all.push_back(Of("names_without_equals", "MRSET /DISPLAY NAME $a"));
  all.push_back(Of("names_without_brackets", "MRSET /DISPLAY NAME=$a"));
  all.push_back(Of("names_with_a_comma", "MRSET /DISPLAY NAME=[$a,$b]"));
  all.push_back(Of("names_with_a_number", "MRSET /DELETE NAME=[$a 5]"));
  all.push_back(Of("names_cut_off", "MRSET /DELETE NAME=[$a $b"));
  all.push_back(Of("names_of_another_symbol", "MRSET /DISPLAY NAME=*", StoredSets()));
  all.push_back(Of("names_in_empty_brackets", "MRSET /DISPLAY NAME=[]", StoredSets()));
  all.push_back(Of("names_given_twice", "MRSET /DISPLAY NAME=ALL NAME=[$wants]", StoredSets()));
  all.push_back(OfTokens(
      "words_coded_as_a_bracket_and_as_all",
      {Word("MRSET"), Word("DISPLAY"), Word("NAME"), Symbol("="),
       Odd(TokenSequenceBase::kString, "open", scripted::kOpenBracket), Word("$wants"), Symbol("]"), Symbol("/"),
       Word("DELETE"), Word("NAME"), Symbol("="), Odd(TokenSequenceBase::kString, "every", scripted::kAllSets)},
      StoredSets()));
}

void AddEdits(std::vector<Scenario>& all) {
  all.push_back(Of("redefine_in_place_under_another_case", "MRSET /MCGROUP NAME=$BOTH LABEL='New' VARIABLES=q1 q2",
                   StoredSets()));
  all.push_back(Of("redefine_as_the_other_type", "MRSET /MDGROUP NAME=$both VARIABLES=q1 q2 VALUE=0", StoredSets()));
  all.push_back(Of("define_at_the_end", "MRSET /MCGROUP NAME=$a VARIABLES=n1 n2", StoredSets()));
  all.push_back(Of("delete_all", "MRSET /DELETE NAME=ALL", StoredSets()));
  all.push_back(Of("delete_all_of_none", "MRSET /DELETE NAME=ALL"));
  all.push_back(Of("delete_by_name_in_another_case", "MRSET /DELETE NAME=[$WANTS $all_of]", StoredSets()));
  all.push_back(Of("delete_one_twice", "MRSET /DELETE NAME=[$both $Both]", StoredSets()));
  all.push_back(Of("delete_a_missing_one_of_none", "MRSET /DELETE NAME=[$Gone]"));
  all.push_back(Of("delete_what_was_defined_and_display_the_rest",
                   "MRSET /MCGROUP NAME=$new VARIABLES=n1 n2 /DELETE NAME=[$new] /DISPLAY NAME=[$new $both]",
                   StoredSets()));
}

/// More than the sort of the standard library treats as a few.
std::vector<SetData> ManySets() {
  std::vector<SetData> sets;
  for (char letter = 'r'; letter >= 'a'; --letter) {
    sets.push_back(Categories(std::string("$") + letter, {"n1", "n2"}));
  }
  return sets;
}

/// What the table of a set depends on.
std::vector<SetData> SetsOfAllForms() {
  SetData byVariable = Dichotomies("$by_variable", "1", {"q1", "q2"}, "Not shown");
  byVariable.labelSetByVariable = true;
  byVariable.useVariableCategoryLabels = true;
  SetData byValue = Dichotomies("$by_value", "yes", {"s8", "s3"}, "Strings");
  byValue.useVariableCategoryLabels = true;
  return {byVariable, byValue, Dichotomies("$plain", "1", {"q1", "n1", "e1"}), Categories("$cat", {"Q3", "n2"}, "Cat")};
}

void AddDisplay(std::vector<Scenario>& all) {
  all.push_back(Of("display_all", "MRSET /DISPLAY NAME=ALL", SetsOfAllForms()));
  all.push_back(Of("display_all_of_none", "MRSET /DISPLAY NAME=ALL"));
  all.push_back(Of("display_some_in_another_order_and_case", "MRSET /DISPLAY NAME=[$Wants $BOTH]", StoredSets()));
  all.push_back(Of("display_some_and_missing_ones", "MRSET /DISPLAY NAME=[$None $wants $gone]", StoredSets()));
  all.push_back(Of("display_only_missing_ones", "MRSET /DISPLAY NAME=[likes]", StoredSets()));
  all.push_back(Of("display_one_twice", "MRSET /DISPLAY NAME=[$wants $WANTS]", StoredSets()));
  all.push_back(Of("display_two_stored_under_one_name", "MRSET /DISPLAY NAME=[$one]",
                   {Categories("$ONE", {"n1"}), Categories("$one", {"n2"})}));
  all.push_back(Of("display_one_of_many", "MRSET /DISPLAY NAME=[$c]", ManySets()));
  all.push_back(Of("display_vanished_variables", "MRSET /DISPLAY NAME=ALL",
                   {Dichotomies("$first", "1", {"Gone", "q1"}), Categories("$every", {"was1", "was2"})}));
  all.push_back(Of("display_after_display_is_sorted",
                   "MRSET /DISPLAY NAME=[$x1] /MCGROUP NAME=$X0 VARIABLES=n1 n2 /DISPLAY NAME=[$x0]",
                   {Categories("$X_Y", {"n1"}), Categories("$xy", {"n1"}), Categories("$X1", {"n1"})}));
}

}  // namespace

const std::vector<Scenario>& Scenarios() {
  static const std::vector<Scenario> scenarios = [] {
    std::vector<Scenario> all;
    for (const auto add : {AddEntry, AddDriver, AddFollowers, AddNames, AddLabels, AddValues, AddDichotomies,
                           AddVariableLists, AddVariableChecks, AddCategories, AddNameLists, AddEdits, AddDisplay}) {
      add(all);
    }
    return all;
  }();
  return scenarios;
}

void Prepare(scripted::ScriptedHost& host, const Scenario& scenario) {
  host.SetTokens(scenario.tokens);
  if (scenario.end) {
    host.SetEnd(scenario.end->text, scenario.end->symbol);
  }
}

}  // namespace traces
