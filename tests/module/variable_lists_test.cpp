#include <cmath>

#include "tests/module/parsing.h"

namespace module_test {
namespace {

using scripted::Numeric;
using scripted::Quoted;
using scripted::String;
using scripted::Symbol;
using scripted::Token;
using scripted::Variable;
using scripted::Word;

// ParseVariables

/// A command whose token 2 is VARIABLES, with a record that has something in both fields.
ParseOutcome ReadList(Parsing& parsing) {
  parsing.record.fVariables = {"old"};
  parsing.record.fAll = true;
  return parsing.At(2).Run(kParseVariables);
}

struct ListRow {
  const char* list;  ///< behind VARIABLES, which is token 2
  ParseOutcome expected;
};

void ExpectList(const std::vector<ListRow>& rows) {
  for (const ListRow& row : rows) {
    Parsing parsing("MRSET MCGROUP VARIABLES " + std::string(row.list));
    EXPECT_EQ(ReadList(parsing), row.expected) << "MRSET MCGROUP VARIABLES " << row.list;
  }
}

Lines ListCalls(const Tokens& tokens) {
  Parsing parsing(Tokens{Word("MRSET"), Word("MCGROUP"), Word("VARIABLES"), Symbol("=")} + tokens);
  ReadList(parsing);
  return parsing.Calls("ExistingVarList(");
}

TEST(ParseVariables, EndsTheListAtTheEndOfTheCommand) {
  ExpectList({{"= q1 q2 q3", {true, "variables (q1 q2 q3)", "6 q3"}}, {"=s8", {true, "variables (s8)", "4 s8"}}});
}

TEST(ParseVariables, EndsTheListAtTheFirstTokenThatIsNoWord) {
  ExpectList({{"= q1 q2 /DISPLAY", {true, "variables (q1 q2)", "5 q2"}},
              {"= q1 q2 1 q3", {true, "variables (q1 q2)", "5 q2"}},
              {"= q1 q2 'q3' q3", {true, "variables (q1 q2)", "5 q2"}},
              {"= q1 q2, q3", {true, "variables (q1 q2)", "5 q2"}},
              {"= q1 q2 ALL", {true, "variables (q1 q2)", "5 q2"}},
              {"= q1 q2 [", {true, "variables (q1 q2)", "5 q2"}}});
}

TEST(ParseVariables, LeavesTheNextKeywordToTheSubcommandParser) {
  ExpectList({{"= q1 q2 q3 LABEL = 'A'", {true, "variables (q1 q2 q3)", "6 q3"}},
              {"= q1 q2 NAME=$a", {true, "variables (q1 q2)", "5 q2"}},
              {"= q1 q2 =", {true, "variables (q1)", "4 q1"}}});
}

TEST(ParseVariables, ReadsAnEmptyList) {
  ExpectList({{"=", {true, "", "3 ="}}, {"= /", {true, "", "3 ="}}, {"= LABEL='A'", {true, "", "3 ="}}});
}

TEST(ParseVariables, StepsBackBeforeTheListWhereItBeginsWithAnEqualsSign) {
  ExpectList({{"= = q1 q2", {true, "", "2 VARIABLES"}}});
}

TEST(ParseVariables, PassesTheWordsAndTheirEndToTheHost) {
  EXPECT_EQ(ListCalls({Word("q1"), Word("q2"), Symbol("/"), Word("q3")}),
            (Lines{"ExistingVarList(source#1, tokens#1, [], 6) -> true, [0, 1]"}));
  EXPECT_EQ(ListCalls({Word("q1"), Word("q2")}), (Lines{"ExistingVarList(source#1, tokens#1, [], 6) -> true, [0, 1]"}));
  EXPECT_EQ(ListCalls({Word("q1"), Word("q2"), Word("LABEL"), Symbol("=")}),
            (Lines{"ExistingVarList(source#1, tokens#1, [], 6) -> true, [0, 1]"}));
  EXPECT_EQ(ListCalls({}), (Lines{"ExistingVarList(source#1, tokens#1, [], 4) -> true, []"}));
}

TEST(ParseVariables, GivesTheHostTheStreamAtTheFirstWord) {
  Parsing parsing("MRSET MCGROUP VARIABLES=q1 q2 NAME=$a");
  std::vector<std::string> given;
  parsing.host.HostHooks().existingVarList = [&given](const std::vector<std::string>& words, std::vector<int>&) {
    given = words;
    return true;
  };
  ReadList(parsing);
  EXPECT_EQ(given, (Lines{"q1", "q2"}));
}

TEST(ParseVariables, LooksAtTheCodeOfTheTokenBehindTheListWhateverItsType) {
  for (const TokenSequenceBase::TokenType type : {TokenSequenceBase::kEnd, TokenSequenceBase::kNumber,
                                                  TokenSequenceBase::kQuotedString, TokenSequenceBase::kSymbol}) {
    EXPECT_EQ(ListCalls({Word("q1"), Word("q2"), Word("LABEL"), Odd(type, "x", scripted::kEquals), Word("q3")}),
              (Lines{"ExistingVarList(source#1, tokens#1, [], 6) -> true, [0, 1]"}))
        << type;
    EXPECT_EQ(ListCalls({Word("q1"), Word("q2"), Odd(type, "=", scripted::kSlash), Word("q3")}),
              (Lines{"ExistingVarList(source#1, tokens#1, [], 6) -> true, [0, 1]"}))
        << type;
  }
}

TEST(ParseVariables, LooksAtTheCodeOfTheEndOfTheCommandToo) {
  Parsing parsing("MRSET MCGROUP VARIABLES=q1 q2 LABEL");
  parsing.host.SetEnd("end", scripted::kEquals);
  EXPECT_EQ(ReadList(parsing), (ParseOutcome{true, "variables (q1 q2)", "5 q2"}));
}

TEST(ParseVariables, DoesNotEndTheListAtAWordWithTheCodeOfAnEqualsSign) {
  const Token odd = Odd(TokenSequenceBase::kString, "q2", scripted::kEquals);
  EXPECT_EQ(ListCalls({Word("q1"), odd, Word("q3"), Symbol("/")}),
            (Lines{"ExistingVarList(source#1, tokens#1, [], 7) -> true, [0, 1, 2]"}));
}

TEST(ParseVariables, StoresTheNamesAsTheDictionarySpellsThem) {
  ExpectList({{"= Q1 q2 S8", {true, "variables (q1 q2 s8)", "6 S8"}}});
  Parsing parsing("MRSET MCGROUP VARIABLES=first SECOND");
  parsing.host.SetDictionary({Numeric("First"), Numeric("second")});
  EXPECT_EQ(ReadList(parsing), (ParseOutcome{true, "variables (First second)", "5 SECOND"}));
}

TEST(ParseVariables, StoresTheVariablesInTheOrderOfTheHostsIndices) {
  ExpectList(
      {{"= q3 q1 q2 to q4", {false, "variables (q3 q1 q2)", "8 q4", {"host error: Variable q3 is listed twice."}}},
       {"= q2 TO s8", {true, "variables (q2 q3 q4 s8)", "6 s8"}}});
  Parsing parsing("MRSET MCGROUP VARIABLES=x");
  parsing.host.HostHooks().existingVarList = [](const std::vector<std::string>&, std::vector<int>& indices) {
    indices = {5, 0, 5};
    return true;
  };
  EXPECT_EQ(ReadList(parsing), (ParseOutcome{true, "variables (s3 q1 s3)", "4 x"}));
}

TEST(ParseVariables, StoresWhatTheHostResolvedAlsoWhereItRejectedTheList) {
  ExpectList(
      {{"= q1 q2 nix q3", {false, "variables (q1 q2)", "7 q3", {"host error: Variable nix is not in the dictionary."}}},
       {"= nix LABEL='A'", {false, "", "4 nix", {"host error: Variable nix is not in the dictionary."}}}});
}

TEST(ParseVariables, AcceptsAnAcceptedListWithoutIndices) {
  Parsing parsing("MRSET MCGROUP VARIABLES=q1 q2");
  parsing.host.HostHooks().existingVarList = [](const std::vector<std::string>&, std::vector<int>&) { return true; };
  EXPECT_EQ(ReadList(parsing), (ParseOutcome{true, "", "5 q2"}));
}

TEST(ParseVariables, ReportsNothingWhereTheHostRejectsInSilence) {
  Parsing parsing("MRSET MCGROUP VARIABLES=q1 q2");
  parsing.host.HostHooks().existingVarList = [](const std::vector<std::string>&, std::vector<int>&) { return false; };
  EXPECT_EQ(ReadList(parsing), (ParseOutcome{false, "", "5 q2"}));
}

TEST(ParseVariables, LeavesTheLastTokenOfTheListCurrentWhereverTheHostWas) {
  for (const int cursor : {0, 2, 4, 5, 6, 7}) {
    for (const bool accepted : {false, true}) {
      Parsing parsing("MRSET MCGROUP VARIABLES=q1 q2 /");
      parsing.host.HostHooks().cursorAfterVarList = cursor;
      parsing.host.HostHooks().existingVarList = [=](const std::vector<std::string>&, std::vector<int>&) {
        return accepted;
      };
      EXPECT_EQ(ReadList(parsing), (ParseOutcome{accepted, "", "5 q2"})) << cursor;
    }
  }
}

TEST(ParseVariables, ReportsAMissingEqualsSignAndStaysThere) {
  const auto report = [](const std::string& text) {
    return ParseOutcome{false, "", "3 " + text, {"error: MRSET VARIABLES was expecting \"=\". Found " + text + "..."}};
  };
  ExpectList({{"Q1 q2", report("Q1")},
              {"(q1)", report("(")},
              {"/", report("/")},
              {"All", report("All")},
              {"'x y'", report("x y")},
              {"1.0", report("1.0")},
              {"", report("end of command")}});
}

TEST(ParseVariables, NamesTheKeywordInUpperCaseHoweverItWasTyped) {
  for (const char* keyword : {"variables", "VAR", "Vari"}) {
    Parsing parsing("MRSET MCGROUP " + std::string(keyword) + " q1");
    EXPECT_EQ(ReadList(parsing).messages, (Lines{"error: MRSET VARIABLES was expecting \"=\". Found q1..."}))
        << keyword;
    ASSERT_EQ(parsing.host.Messages().size(), 1U);
    EXPECT_EQ(parsing.host.Messages().front().arguments,
              (std::vector<scripted::Argument>{scripted::Text("VARIABLES"), scripted::Text("q1")}));
  }
}

TEST(ParseVariables, DoesNotReadAListWithoutAnEqualsSign) {
  Parsing parsing("MRSET MCGROUP VARIABLES q1 q2");
  ReadList(parsing);
  EXPECT_EQ(parsing.Calls("ExistingVarList("), Lines{});
}

TEST(ParseVariables, TakesAQuotedEqualsSignForAnEqualsSign) {
  const auto read = [](const Token& equals) {
    Parsing parsing(Tokens{Word("MRSET"), Word("MCGROUP"), Word("VARIABLES"), equals, Word("q1"), Word("q2")});
    return ReadList(parsing);
  };
  EXPECT_EQ(read(Quoted("=")), (ParseOutcome{true, "variables (q1 q2)", "5 q2"}));
  EXPECT_EQ(read(Odd(TokenSequenceBase::kSymbol, "==", scripted::kEquals)),
            (ParseOutcome{false, "", "3 ==", {"error: MRSET VARIABLES was expecting \"=\". Found ==..."}}));
}

TEST(ParseVariables, LeavesTheKeywordBehindTheListToWholeCommands) {
  Parsing parsing("MRSET /MCGROUP VARIABLES = q1 q2 q3 LABEL = 'Drinks' NAME = $d");
  EXPECT_EQ(parsing.At(1).Run(ParseSubcommand),
            (ParseOutcome{true, "MCGROUP name <$d> label <Drinks> variables (q1 q2 q3)", "13 $d"}));
}

TEST(ParseVariables, ReplacesTheListOfAnEarlierKeyword) {
  Parsing parsing("MRSET /MCGROUP NAME=$d VARIABLES=q1 q2 q3 VARIABLES=q4 n1");
  EXPECT_EQ(parsing.At(1).Run(ParseSubcommand), (ParseOutcome{true, "MCGROUP name <$d> variables (q4 n1)", "14 n1"}));
}

// AreValidVariables

struct Check {
  bool valid = false;
  int narrowestWidth = 0;
  Lines messages = {};
};

bool operator==(const Check& first, const Check& second) {
  return first.valid == second.valid && first.narrowestWidth == second.narrowestWidth &&
         first.messages == second.messages;
}

std::ostream& operator<<(std::ostream& stream, const Check& check) {
  return stream << (check.valid ? "valid" : "invalid") << ", narrowest width " << check.narrowestWidth
                << ", messages: " << ::testing::PrintToString(check.messages);
}

/// What is checked: the variables of a dictionary by name, the counted value, and whose labels name the categories.
struct Question {
  std::vector<Variable> dictionary;
  std::vector<std::string> names;
  std::string countedValue = {};
  bool countedValueLabels = false;
};

Check CheckVariables(Parsing& parsing, const Question& question) {
  parsing.host.SetDictionary(question.dictionary);
  std::vector<std::string> names = question.names;
  int narrowestWidth = 99;
  const bool valid =
      AreValidVariables(names, parsing.Source(), question.countedValue, question.countedValueLabels, narrowestWidth);
  EXPECT_EQ(names, question.names) << "the names were changed";
  return {valid, narrowestWidth, parsing.host.MessageLines()};
}

Check CheckVariables(const Question& question) {
  Parsing parsing("MRSET");
  const Check check = CheckVariables(parsing, question);
  EXPECT_EQ(parsing.host.Violations(), Lines{});
  return check;
}

std::vector<std::string> NamesOf(const std::vector<Variable>& variables) {
  std::vector<std::string> names;
  std::transform(variables.begin(), variables.end(), std::back_inserter(names),
                 [](const Variable& variable) { return variable.name; });
  return names;
}

/// Of all variables of a dictionary.
Check CheckAll(const std::vector<Variable>& variables, const std::string& countedValue = {},
               bool countedValueLabels = false) {
  return CheckVariables({variables, NamesOf(variables), countedValue, countedValueLabels});
}

TEST(AreValidVariables, AcceptsTwoNumericVariables) {
  EXPECT_EQ(CheckAll({Numeric("a"), Numeric("b")}), (Check{true, 0}));
  EXPECT_EQ(CheckAll({Numeric("a"), Numeric("b"), Numeric("c")}, "1"), (Check{true, 0}));
}

TEST(AreValidVariables, AcceptsStringVariablesOfDifferentWidths) {
  EXPECT_EQ(CheckAll({String("a", 8), String("b", 3)}), (Check{true, 3}));
  EXPECT_EQ(CheckAll({String("a", 3), String("b", 8)}), (Check{true, 3}));
  EXPECT_EQ(CheckAll({String("a", 8), String("b", 3), String("c", 5)}), (Check{true, 3}));
  EXPECT_EQ(CheckAll({String("a", 8), String("b", 5), String("c", 5), String("d", 4)}), (Check{true, 4}));
  EXPECT_EQ(CheckAll({String("a", 1), String("b", 1)}), (Check{true, 1}));
}

TEST(AreValidVariables, RefusesAListOfOneBeforeLookingItUp) {
  for (const char* name : {"a", "Nix"}) {
    Parsing parsing("MRSET");
    EXPECT_EQ(CheckVariables(parsing, {{Numeric("a")}, {name}, "1", false}),
              (Check{false, -1, {"error: Only one variable " + std::string(name) + " was found."}}));
    EXPECT_EQ(parsing.Calls("FindVarIndex("), Lines{});
  }
}

TEST(AreValidVariables, RefusesAnEmptyList) {
  EXPECT_EQ(CheckVariables({{Numeric("a")}, {}}), (Check{false, -1, {"error: No variable was found."}}));
  EXPECT_EQ(CheckVariables({{Numeric("a")}, {}, "1", true}), (Check{false, -1, {"error: No variable was found."}}));
}

TEST(AreValidVariables, ReportsAnUnknownVariableAsListed) {
  EXPECT_EQ(CheckVariables({{Numeric("a")}, {"Nix", "a"}}),
            (Check{false, -1, {"error: Nix variable not in the dataset."}}));
  EXPECT_EQ(CheckVariables({{Numeric("a")}, {"a", "Nix", "Nax"}}),
            (Check{false, 0, {"error: Nix variable not in the dataset."}}));
  EXPECT_EQ(CheckVariables({{String("a", 7)}, {"a", "Nix"}}),
            (Check{false, 7, {"error: Nix variable not in the dataset."}}));
}

TEST(AreValidVariables, LooksNamesUpWithZeroAsTheSecondArgument) {
  Parsing parsing("MRSET");
  CheckVariables(parsing, {{Numeric("a"), Numeric("b")}, {"B", "a"}, "", false});
  EXPECT_EQ(parsing.Calls("FindVarIndex("),
            (Lines{R"(source#1.FindVarIndex("B", 0) -> 1)", R"(source#1.FindVarIndex("a", 0) -> 0)"}));
}

TEST(AreValidVariables, NamesTheVariableWhoseKindDiffersFromTheFirst) {
  const std::vector<Variable> dictionary = {Numeric("Num"), String("Str", 4), Numeric("Other"), String("Wide", 9)};
  const auto check = [&](const std::vector<std::string>& names) { return CheckVariables({dictionary, names}); };
  EXPECT_EQ(check({"num", "STR"}), (Check{false, 0, {"error: Str variable has a different type."}}));
  EXPECT_EQ(check({"str", "NUM"}), (Check{false, 4, {"error: Num variable has a different type."}}));
  EXPECT_EQ(check({"num", "other", "wide", "str"}), (Check{false, 0, {"error: Wide variable has a different type."}}));
  EXPECT_EQ(check({"wide", "str", "other", "num"}), (Check{false, 4, {"error: Other variable has a different type."}}));
}

TEST(AreValidVariables, TellsAStringOfOneByteFromANumber) {
  EXPECT_EQ(CheckAll({Numeric("a"), String("b", 1)}), (Check{false, 0, {"error: b variable has a different type."}}));
  EXPECT_EQ(CheckAll({String("a", 1), Numeric("b")}), (Check{false, 1, {"error: b variable has a different type."}}));
  EXPECT_EQ(CheckAll({String("a", 1), String("b", 1)}, "ab"),
            (Check{false, 1, {"error: CountVal ab is wider than the narrowest variable."}}));
}

TEST(AreValidVariables, TakesAVariableOfTypeMinusOneForNone) {
  const Variable odd = {"odd", -1, std::nullopt, {}};
  EXPECT_EQ(CheckAll({odd, odd}), (Check{true, -1}));
  EXPECT_EQ(CheckAll({odd, Numeric("b")}), (Check{true, 0}));
  EXPECT_EQ(CheckAll({odd, String("b", 8), String("c", 3)}), (Check{true, 3}));
  EXPECT_EQ(CheckAll({odd, Numeric("b"), String("c", 3)}),
            (Check{false, 0, {"error: c variable has a different type."}}));
}

TEST(AreValidVariables, HasNoTypeRuleBehindAnotherNegativeType) {
  const Variable odd = {"odd", -5, std::nullopt, {}};
  EXPECT_EQ(CheckAll({odd, Numeric("b"), String("c", 3)}), (Check{true, -5}));
  EXPECT_EQ(CheckAll({odd, odd}), (Check{true, -5}));
}

TEST(AreValidVariables, AcceptsANegativeTypeBehindANumericVariable) {
  EXPECT_EQ(CheckAll({Numeric("a"), {"odd", -5, std::nullopt, {}}}), (Check{true, 0}));
}

TEST(AreValidVariables, LooksLabelsUpAsTextsAndTestsNoWidthWhereTheTypeIsNegative) {
  Parsing parsing("MRSET");
  const Variable odd = {"odd", -5, std::nullopt, {}};
  EXPECT_EQ(CheckVariables(parsing, {{odd}, {"odd", "odd"}, "1.0", false}), (Check{true, -5}));
  EXPECT_EQ(parsing.Calls(".GetLabel(\"1.0\")").size(), 2U);
}

TEST(AreValidVariables, ComparesNoLabelsWithoutACountedValue) {
  for (const bool countedValueLabels : {false, true}) {
    Parsing parsing("MRSET");
    const std::vector<Variable> variables = {String("a", 2, "Same", {{"", "Yes"}}),
                                             String("b", 2, "Same", {{"", "No"}})};
    EXPECT_EQ(CheckVariables(parsing, {variables, {"a", "b"}, "", countedValueLabels}), (Check{true, 2}));
    EXPECT_EQ(parsing.Calls("GetLabel("), Lines{});
    EXPECT_EQ(parsing.Calls("ZEVA_ValueLabelMap("), Lines{});
  }
}

// Variable labels

TEST(AreValidVariables, WarnsOfAVariableLabelSeenBefore) {
  EXPECT_EQ(CheckAll({Numeric("a", "Tea"), Numeric("b", "Tea")}, "1"),
            (Check{true, 0, {"warning: Duplicate label found for variable b."}}));
  EXPECT_EQ(CheckAll({Numeric("a", "Tea"), Numeric("b", "Milk")}, "1"), (Check{true, 0}));
}

TEST(AreValidVariables, ComparesVariableLabelsWithoutCase) {
  EXPECT_EQ(CheckAll({Numeric("a", "Yes"), Numeric("b", "yes")}, "1"),
            (Check{true, 0, {"warning: Duplicate label found for variable b."}}));
}

TEST(AreValidVariables, WarnsOncePerRepetitionOfALabel) {
  EXPECT_EQ(
      CheckAll({Numeric("a", "X"), Numeric("b", "Y"), Numeric("c", "x"), Numeric("d", "X"), Numeric("e", "y")}, "1"),
      (Check{true,
             0,
             {"warning: Duplicate label found for variable c.", "warning: Duplicate label found for variable d.",
              "warning: Duplicate label found for variable e."}}));
}

TEST(AreValidVariables, SkipsAVariableWithoutLabelButNotAnEmptyLabel) {
  EXPECT_EQ(CheckAll({Numeric("a"), Numeric("b"), Numeric("c")}, "1"), (Check{true, 0}));
  EXPECT_EQ(CheckAll({Numeric("a", ""), Numeric("b"), Numeric("c", "")}, "1"),
            (Check{true, 0, {"warning: Duplicate label found for variable c."}}));
}

TEST(AreValidVariables, NamesTheVariableOfADuplicateLabelAsTheDictionarySpellsIt) {
  EXPECT_EQ(CheckVariables({{Numeric("First", "X"), Numeric("Second", "X")}, {"FIRST", "SECOND"}, "1", false}),
            (Check{true, 0, {"warning: Duplicate label found for variable Second."}}));
}

TEST(AreValidVariables, ComparesNoVariableLabelsWhereCountedValueLabelsNameTheCategories) {
  Parsing parsing("MRSET");
  const std::vector<Variable> variables = {Numeric("a", "X", {{1.0, "Tea"}}), Numeric("b", "X", {{1.0, "Milk"}})};
  EXPECT_EQ(CheckVariables(parsing, {variables, {"a", "b"}, "1", true}), (Check{true, 0}));
  EXPECT_EQ(parsing.Calls("variable a.GetLabel("), Lines{});
}

// Width of the counted value

TEST(AreValidVariables, RefusesAValueWiderThanTheNarrowestVariable) {
  EXPECT_EQ(CheckAll({String("a", 8), String("b", 3)}, "abcd"),
            (Check{false, 3, {"error: CountVal abcd is wider than the narrowest variable."}}));
  EXPECT_EQ(CheckAll({String("a", 3), String("b", 8)}, "abcd"),
            (Check{false, 3, {"error: CountVal abcd is wider than the narrowest variable."}}));
  EXPECT_EQ(CheckAll({String("a", 8), String("b", 4)}, "abcd"), (Check{true, 4}));
  EXPECT_EQ(CheckAll({String("a", 4), String("b", 8)}, "abcd"), (Check{true, 4}));
}

TEST(AreValidVariables, MeasuresTheValueWithoutItsOuterBlanks) {
  const std::vector<Variable> variables = {String("a", 8), String("b", 2)};
  for (const char* value : {"ab", " ab", "ab ", "   ab     ", "a", "  a", " ", "          "}) {
    EXPECT_EQ(CheckAll(variables, value), (Check{true, 2})) << '<' << value << '>';
  }
  for (const char* value : {"abc", " abc ", "a b", " a b ", "\tab", "ab\t", " \tab", "\t\t\t", "ab\n", "ab\xC2\xA0"}) {
    EXPECT_EQ(CheckAll(variables, value),
              (Check{false, 2, {"error: CountVal " + std::string(value) + " is wider than the narrowest variable."}}))
        << '<' << value << '>';
  }
}

TEST(AreValidVariables, MeasuresTheValueInBytes) {
  EXPECT_EQ(CheckAll({String("a", 2), String("b", 2)}, "\xC3\xA9"), (Check{true, 2}));
  EXPECT_EQ(CheckAll({String("a", 1), String("b", 1)}, "\xC3\xA9"),
            (Check{false, 1, {"error: CountVal \xC3\xA9 is wider than the narrowest variable."}}));
}

TEST(AreValidVariables, FailsAtTheFirstVariableThatIsTooNarrowBehindItsLabelWarning) {
  EXPECT_EQ(CheckAll({String("a", 8, "X"), String("b", 5, "x"), String("c", 3, "X"), String("d", 1, "X")}, "abcd"),
            (Check{false,
                   3,
                   {"warning: Duplicate label found for variable b.", "warning: Duplicate label found for variable c.",
                    "error: CountVal abcd is wider than the narrowest variable."}}));
  EXPECT_EQ(CheckAll({String("a", 3, "X"), String("b", 8, "X")}, "abcd"),
            (Check{false, 3, {"error: CountVal abcd is wider than the narrowest variable."}}));
}

TEST(AreValidVariables, TestsTheKindOfAVariableBeforeItsLabelAndItsWidth) {
  EXPECT_EQ(CheckAll({String("a", 8, "X"), Numeric("b", "X")}, "abcd"),
            (Check{false, 8, {"error: b variable has a different type."}}));
}

TEST(AreValidVariables, TestsTheWidthBeforeTheLabelOfTheValue) {
  Parsing parsing("MRSET");
  EXPECT_EQ(CheckVariables(parsing, {{String("a", 2), String("b", 2)}, {"a", "b"}, "abcd", true}),
            (Check{false, 2, {"error: CountVal abcd is wider than the narrowest variable."}}));
  EXPECT_EQ(parsing.Calls("ZEVA_ValueLabelMap("), Lines{});
}

TEST(AreValidVariables, TestsNoWidthOfNumericVariables) {
  EXPECT_EQ(CheckAll({Numeric("a"), Numeric("b")}, "123456789"), (Check{true, 0}));
}

// Looking the label of the counted value up

TEST(AreValidVariables, LooksTheValueOfStringVariablesUpUntrimmed) {
  Parsing parsing("MRSET");
  const std::vector<Variable> variables = {String("a", 8, std::nullopt, {{" ab ", "Tea"}, {"ab", "Water"}}),
                                           String("b", 3, std::nullopt, {{"ab", "Tea"}})};
  EXPECT_EQ(CheckVariables(parsing, {variables, {"a", "b"}, " ab ", false}), (Check{true, 3}));
  EXPECT_EQ(parsing.Calls(".GetLabel(\""),
            (Lines{R"(labels#1.GetLabel(" ab ") -> "Tea")", R"(labels#2.GetLabel(" ab ") -> null)"}));
}

TEST(AreValidVariables, LooksTheValueOfNumericVariablesUpAsANumber) {
  struct NumberRow {
    const char* text;
    double number;
  };
  for (const NumberRow& row : std::vector<NumberRow>{{"1", 1},
                                                     {"1.0", 1},
                                                     {"-2.5", -2.5},
                                                     {"1e2", 100},
                                                     {" 7", 7},
                                                     {"2x", 2},
                                                     {"abc", 0},
                                                     {" ", 0},
                                                     {"0x10", 16},
                                                     {"inf", HUGE_VAL}}) {
    const auto variable = [&](const char* name, const char* label) {
      return Numeric(name, std::nullopt, {{row.number + 1, "Other"}, {row.number, label}, {row.text, "Text"}});
    };
    const std::vector<Variable> variables = {variable("a", "Tea"), variable("b", "tea")};
    EXPECT_EQ(CheckAll(variables, row.text, true),
              (Check{false, 0, {"error: CountedVal label of variable b is not unique..."}}))
        << '<' << row.text << '>';
  }
}

TEST(AreValidVariables, ResetsEachMapOnceBeforeItsOneLookup) {
  Parsing parsing("MRSET");
  EXPECT_EQ(CheckVariables(parsing, {{Numeric("a"), Numeric("b")}, {"a", "b"}, "1", false}), (Check{true, 0}));
  EXPECT_EQ(parsing.Calls("labels#"),
            (Lines{"labels#1 = ZEVA_ValueLabelMap(value labels of a)", "labels#1.Reset()",
                   "labels#1.GetLabel(1) -> null", "~labels#1", "labels#2 = ZEVA_ValueLabelMap(value labels of b)",
                   "labels#2.Reset()", "labels#2.GetLabel(1) -> null", "~labels#2"}));
}

// Labels of the counted value that name the categories

Variable Labelled(const char* name, const char* label) {
  return Numeric(name, std::nullopt, {{1.0, label}});
}

TEST(AreValidVariables, AcceptsCountedValueLabelsThatDiffer) {
  EXPECT_EQ(CheckAll({Labelled("a", "Tea"), Labelled("b", "Milk"), Labelled("c", "Teas")}, "1", true),
            (Check{true, 0}));
}

TEST(AreValidVariables, NamesTheVariableWithoutLabelForTheValueAndLooksAtNoOther) {
  Parsing parsing("MRSET");
  const std::vector<Variable> variables = {Labelled("a", "Tea"), Numeric("Bare", std::nullopt, {{2.0, "Two"}}),
                                           String("c", 3)};
  EXPECT_EQ(CheckVariables(parsing, {variables, {"a", "BARE", "c", "nix"}, "1", true}),
            (Check{false, 0, {"error: No countedval label for variable Bare..."}}));
  EXPECT_EQ(parsing.Calls("FindVarIndex(").size(), 2U);
}

TEST(AreValidVariables, RefusesCountedValueLabelsThatAreEqualWithoutCase) {
  EXPECT_EQ(
      CheckVariables(
          {{Labelled("a", "Tea"), Labelled("Second", "TEA"), Labelled("c", "tea")}, {"a", "SECOND", "c"}, "1", true}),
      (Check{false, 0, {"error: CountedVal label of variable Second is not unique..."}}));
  EXPECT_EQ(CheckAll({Labelled("a", "Tea"), Labelled("b", "Milk"), Labelled("c", "Tea")}, "1", true),
            (Check{false, 0, {"error: CountedVal label of variable c is not unique..."}}));
}

TEST(AreValidVariables, TakesAnEmptyCountedValueLabelForALabel) {
  EXPECT_EQ(CheckAll({Labelled("a", ""), Labelled("b", "Tea")}, "1", true), (Check{true, 0}));
  EXPECT_EQ(CheckAll({Labelled("a", ""), Labelled("b", "")}, "1", true),
            (Check{false, 0, {"error: CountedVal label of variable b is not unique..."}}));
}

TEST(AreValidVariables, ChecksCountedValueLabelsOfStringVariables) {
  const std::vector<Variable> variables = {String("a", 3, std::nullopt, {{"y", "Tea"}}),
                                           String("b", 2, std::nullopt, {{"n", "Tea"}})};
  EXPECT_EQ(CheckAll(variables, "y", true), (Check{false, 2, {"error: No countedval label for variable b..."}}));
}

// Labels of the counted value that do not name the categories

const char* const kDifferent = "warning: CountVal 1 label different in the variables.";

TEST(AreValidVariables, AcceptsOneLabelOfTheValueInEveryVariable) {
  EXPECT_EQ(CheckAll({Labelled("a", "Yes"), Labelled("b", "yes"), Labelled("c", "YES")}, "1"), (Check{true, 0}));
}

TEST(AreValidVariables, WarnsOfEachLabelThatDiffersFromTheFirst) {
  EXPECT_EQ(CheckAll({Labelled("a", "Yes"), Labelled("b", "No"), Labelled("c", "Yes"), Labelled("d", "no")}, "1"),
            (Check{true, 0, {kDifferent, kDifferent}}));
}

TEST(AreValidVariables, SaysNothingOfAVariableWithoutLabelForTheValue) {
  EXPECT_EQ(CheckAll({Numeric("a"), Labelled("b", "Yes"), Numeric("c"), Labelled("d", "Yes")}, "1"), (Check{true, 0}));
}

TEST(AreValidVariables, NeverTakesAnEmptyLabelForTheFirst) {
  EXPECT_EQ(CheckAll({Labelled("a", ""), Labelled("b", "Yes"), Labelled("c", "Yes")}, "1"), (Check{true, 0}));
  EXPECT_EQ(CheckAll({Labelled("a", ""), Labelled("b", ""), Labelled("c", "")}, "1"), (Check{true, 0}));
  EXPECT_EQ(CheckAll({Labelled("a", ""), Labelled("b", "Yes"), Labelled("c", "No")}, "1"),
            (Check{true, 0, {kDifferent}}));
}

TEST(AreValidVariables, WarnsOfAnEmptyLabelBehindTheFirst) {
  EXPECT_EQ(CheckAll({Labelled("a", "Yes"), Labelled("b", "")}, "1"), (Check{true, 0, {kDifferent}}));
}

TEST(AreValidVariables, QuotesTheCountedValueAsWrittenInTheWarning) {
  const std::vector<Variable> variables = {String("a", 3, std::nullopt, {{" y", "Yes"}}),
                                           String("b", 3, std::nullopt, {{" y", "No"}})};
  EXPECT_EQ(CheckAll(variables, " y"), (Check{true, 3, {"warning: CountVal  y label different in the variables."}}));
}

TEST(AreValidVariables, WarnsOfAVariablesLabelBeforeItsValueLabel) {
  EXPECT_EQ(
      CheckAll({Numeric("a", "X", {{1.0, "Yes"}}), Numeric("b", "X", {{1.0, "No"}}), Numeric("c", "X", {{1.0, "No"}})},
               "1"),
      (Check{true,
             0,
             {"warning: Duplicate label found for variable b.", kDifferent,
              "warning: Duplicate label found for variable c.", kDifferent}}));
}

TEST(AreValidVariables, GoesOnToAnErrorBehindItsWarnings) {
  EXPECT_EQ(CheckVariables(
                {{Numeric("a", "X", {{1.0, "Yes"}}), Numeric("b", "X", {{1.0, "No"}})}, {"a", "b", "Nix"}, "1", false}),
            (Check{false,
                   0,
                   {"warning: Duplicate label found for variable b.", kDifferent,
                    "error: Nix variable not in the dataset."}}));
}

TEST(AreValidVariables, IssuesItsMessagesWithTheArgumentsTheyHave) {
  struct ArgumentRow {
    Question question;
    int level;
    const char* pattern;
    std::vector<scripted::Argument> arguments;
  };
  const std::vector<Variable> numeric = {Numeric("a", "X", {{1.0, "Tea"}}),
                                         Numeric("b", "X", {{1.0, "Tea"}, {2.0, "z"}}), String("s", 2)};
  const auto text = [](const char* argument) { return std::vector<scripted::Argument>{scripted::Text(argument)}; };
  const std::vector<ArgumentRow> rows = {
      {{numeric, {"a"}}, 4, "Only one variable ^1 was found.", text("a")},
      {{numeric, {}}, 4, "No variable was found.", {}},
      {{numeric, {"nix", "a"}}, 4, "^1 variable not in the dataset.", text("nix")},
      {{numeric, {"a", "s"}}, 4, "^1 variable has a different type.", text("s")},
      {{numeric, {"s", "a"}}, 4, "^1 variable has a different type.", text("a")},
      {{numeric, {"a", "b"}, "3", false}, 2, "Duplicate label found for variable ^1.", text("b")},
      {{numeric, {"s", "s"}, " abc", false}, 4, "CountVal ^1 is wider than the narrowest variable.", text(" abc")},
      {{numeric, {"a", "b"}, "2", true}, 4, "No countedval label for variable ^1...", text("a")},
      {{numeric, {"a", "b"}, "1", true}, 4, "CountedVal label of variable ^1 is not unique...", text("b")},
      {{{Labelled("a", "x"), Labelled("b", "y")}, {"a", "b"}, "1.0", false},
       2,
       "CountVal ^1 label different in the variables.",
       text("1.0")}};
  for (const ArgumentRow& row : rows) {
    Parsing parsing("MRSET");
    CheckVariables(parsing, row.question);
    ASSERT_EQ(parsing.host.Messages().size(), 1U) << row.pattern;
    const scripted::Message& message = parsing.host.Messages().front();
    EXPECT_EQ(message.level, row.level) << row.pattern;
    EXPECT_EQ(message.pattern, row.pattern);
    EXPECT_EQ(message.arguments, row.arguments) << row.pattern;
  }
}

TEST(AreValidVariables, ReleasesEverythingWhereAHostCallThrows) {
  constexpr std::size_t kCap = 1000;
  const std::vector<Variable> variables = {Numeric("a", "X", {{1.0, "Yes"}}), Numeric("b", "X", {{1.0, "No"}})};
  std::size_t call = 1;
  for (bool fired = true; fired && call < kCap; ++call) {
    Parsing parsing("MRSET");
    parsing.host.SetDictionary(variables);
    const Lines alive = parsing.host.LiveObjects();
    parsing.host.FailAtCall(call);
    std::vector<std::string> names = {"a", "b"};
    int narrowestWidth = 0;
    try {
      AreValidVariables(names, parsing.Source(), "1", false, narrowestWidth);
    } catch (const scripted::Fault&) {
    }
    fired = parsing.host.Fired();
    EXPECT_EQ(parsing.host.LiveObjects(), alive) << "after call " << call;
    EXPECT_EQ(parsing.host.Violations(), Lines{}) << "after call " << call;
  }
  EXPECT_GT(call, 30U);
  EXPECT_LT(call, kCap);
}

}  // namespace
}  // namespace module_test
