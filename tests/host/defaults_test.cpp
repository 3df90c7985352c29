#include <gmock/gmock.h>

#include <cstring>
#include <limits>

#include "tests/host/scripted_host.h"

namespace scripted {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Tokenizer, TellsWordsNumbersStringsAndSymbols) {
  EXPECT_THAT(Tokenize("MRSET /name=[$a q.1 _x] 'it''s' \"\" , All."),
              ElementsAre(Word("MRSET"), Token{TokenSequenceBase::kSymbol, "/", 11, 0}, Word("name"),
                          Token{TokenSequenceBase::kSymbol, "=", 3, 0}, Token{TokenSequenceBase::kSymbol, "[", 36, 0},
                          Word("$a"), Word("q.1"), Word("_x"), Token{TokenSequenceBase::kSymbol, "]", 37, 0},
                          Quoted("it's"), Quoted(""), Token{TokenSequenceBase::kSymbol, ",", 1000 + ',', 0},
                          Token{TokenSequenceBase::kSymbol, "All", 35, 0}));
}

TEST(Tokenizer, KeepsNumbersAsWritten) {
  EXPECT_THAT(
      Tokenize("1 -2 +3.50 .5 4. 1e3 1E-2x - 1e9999 ."),
      ElementsAre(Token{TokenSequenceBase::kNumber, "1", 0, 1}, Token{TokenSequenceBase::kNumber, "-2", 0, -2},
                  Token{TokenSequenceBase::kNumber, "+3.50", 0, 3.5}, Token{TokenSequenceBase::kNumber, ".5", 0, 0.5},
                  Token{TokenSequenceBase::kNumber, "4.", 0, 4}, Token{TokenSequenceBase::kNumber, "1e3", 0, 1000},
                  Token{TokenSequenceBase::kNumber, "1E-2", 0, 0.01}, Word("x"), Symbol("-"),
                  Token{TokenSequenceBase::kNumber, "1e9999", 0, std::numeric_limits<double>::infinity()}));
}

TEST(Tokenizer, LeavesOutTheFinalPeriodOnly) {
  EXPECT_THAT(Tokenize("a. b ..  \n"), ElementsAre(Word("a."), Word("b"), Symbol(".")));
  EXPECT_THAT(Tokenize(" . "), IsEmpty());
  EXPECT_THAT(Tokenize(""), IsEmpty());
}

TEST(Tokenizer, EndsAnOpenStringWithTheCommand) {
  EXPECT_THAT(Tokenize("a 'b c"), ElementsAre(Word("a"), Quoted("b c")));
  EXPECT_THAT(Tokenize("'"), ElementsAre(Quoted("")));
  EXPECT_THAT(Tokenize("'a''"), ElementsAre(Quoted("a'")));
}

TEST(TokenStream, RunsFromBeforeTheCommandToItsEndAndStaysThere) {
  ScriptedHost host(HostSetup(), "MRSET /");
  ZEVA_TokenSequence tokens(true);
  EXPECT_LT(tokens.Position(), 0);
  EXPECT_TRUE(tokens.Next());
  EXPECT_EQ(tokens.Position(), 0);
  EXPECT_TRUE(tokens.Next());
  EXPECT_EQ(tokens.Symbol(), 11);
  for (int step = 0; step < 3; ++step) {
    EXPECT_FALSE(tokens.Next());
    EXPECT_EQ(tokens.Position(), 2);
    EXPECT_TRUE(tokens.AtEnd());
    EXPECT_EQ(TokenString(tokens), "end of command");
    EXPECT_EQ(TokenStringCaps(tokens), "END OF COMMAND");
    EXPECT_EQ(tokens.Symbol(), 0);
  }
  EXPECT_THAT(host.Violations(), IsEmpty());
}

TEST(TokenStream, StepsToAnyPosition) {
  ScriptedHost host(HostSetup(), "MRSET a b");
  ZEVA_TokenSequence tokens(true);
  tokens.SetPosition(2);
  EXPECT_TRUE(tokens.Next());
  EXPECT_EQ(TokenString(tokens), "b");
  tokens.SetPosition(0);
  EXPECT_TRUE(tokens.Next());
  EXPECT_EQ(TokenString(tokens), "MRSET");
  tokens.SetPosition(3);
  EXPECT_FALSE(tokens.Next());
  EXPECT_TRUE(tokens.AtEnd());
  EXPECT_THAT(host.Violations(), IsEmpty());
}

TEST(TokenStream, TakesOddTokensAndAnOddEnd) {
  ScriptedHost host;
  host.SetTokens({Word("MRSET"), Quoted("/"), {TokenSequenceBase::kString, "x", 3, 0}});
  host.SetEnd("eoc", 37);
  ZEVA_TokenSequence tokens(true);
  tokens.Next();
  tokens.Next();
  EXPECT_EQ(tokens.Type(), TokenSequenceBase::kQuotedString);
  EXPECT_EQ(TokenString(tokens), "/");
  EXPECT_EQ(tokens.Symbol(), 0);
  tokens.Next();
  EXPECT_EQ(tokens.Type(), TokenSequenceBase::kString);
  EXPECT_EQ(tokens.Symbol(), 3);
  tokens.Next();
  EXPECT_EQ(TokenString(tokens), "eoc");
  EXPECT_EQ(tokens.Symbol(), 37);
  EXPECT_TRUE(tokens.AtEnd());
}

TEST(TokenStream, IsOneOfSeveralOverTheSameCommand) {
  ScriptedHost host(HostSetup(), "MRSET a");
  ZEVA_TokenSequence first(true);
  ZEVA_TokenSequence second(true);
  first.Next();
  first.Next();
  second.Next();
  EXPECT_EQ(first.Position(), 1);
  EXPECT_EQ(second.Position(), 0);
}

// ---------------------------------------------------------------------------------------------------------------------

TEST(Keywords, AreNamedByThemselvesOrThreeLetters) {
  ScriptedHost host;
  EXPECT_EQ(KeywordMatch("NAME", "NAME"), 1);
  EXPECT_EQ(KeywordMatch("NAM", "NAME"), 1);
  EXPECT_EQ(KeywordMatch("NA", "NAME"), 0);
  EXPECT_EQ(KeywordMatch("", "NAME"), 0);
  EXPECT_EQ(KeywordMatch("NAMES", "NAME"), 0);
  EXPECT_EQ(KeywordMatch("TO", "TO"), 1);
  EXPECT_EQ(KeywordMatch("LABEL", "LABELSOURCE"), 1);
}

TEST(Keywords, FollowTheHooks) {
  ScriptedHost host;
  host.HostHooks().truth = -7;
  EXPECT_EQ(KeywordMatch("NAM", "NAME"), -7);
  EXPECT_EQ(ZEVAMBqstricmp_A("ab", 2, "AB", 2, 0), -7);
  EXPECT_EQ(ZEVAMBqstricmp_A("ab", 2, "AC", 2, 0), 0);
  host.HostHooks().keywordMatch = [](const std::string& token, const std::string& keyword) {
    return token.front() == keyword.front() ? 5 : 0;
  };
  EXPECT_EQ(KeywordMatch("NX", "NAME"), 5);
  EXPECT_EQ(KeywordMatch("MAME", "NAME"), 0);
}

struct NameRow {
  std::string name;
  int answer;
};

TEST(Names, FollowTheRules) {
  const NameRow rows[] = {{"a", 2},       {"$a", 2},        {"$_", 2},
                          {"@a#1.$b", 2}, {"$\xC3\xA9", 2}, {"$" + std::string(63, 'a'), 2},
                          {"", 0},        {"$", 0},         {"$$a", 0},
                          {"1a", 0},      {"$1", 0},        {"a.", 0},
                          {"$all", 0},    {"To", 0},        {"$" + std::string(64, 'a'), 0},
                          {"a-b", 0},     {"a b", 0},       {".a", 0}};
  ScriptedHost host;
  for (const NameRow& row : rows) {
    EXPECT_EQ(ValidateZEVAName(row.name.c_str()), row.answer) << row.name;
  }
  host.HostHooks().validateName = [](const std::string& name) { return static_cast<int>(name.size()); };
  EXPECT_EQ(ValidateZEVAName("$1"), 2);
  EXPECT_EQ(ValidateZEVAName("abc"), 3);
}

// ---------------------------------------------------------------------------------------------------------------------

HostSetup FourVariables() {
  HostSetup setup;
  setup.dictionary = {Numeric("a"), Numeric("b"), String("c", 3), Numeric("D")};
  return setup;
}

struct ListRow {
  std::string list;
  bool result;
  std::vector<int> indices;
  std::vector<std::string> messages;
};

class VariableLists : public testing::Test {
 protected:
  /// Reads the list that follows the command name, up to the end of the command.
  bool Read(const std::string& list) {
    fHost.SetCommand("MRSET " + list);
    const ProcedureDataSource source;
    ZEVA_TokenSequence tokens(true);
    tokens.SetPosition(1);
    tokens.Next();
    fIndices = {9};
    return ExistingVarList(source, tokens, fIndices, static_cast<int>(Tokenize(list).size()) + 1);
  }

  ScriptedHost fHost{FourVariables()};
  std::vector<int> fIndices;
};

TEST_F(VariableLists, AreNamesAndRanges) {
  const ListRow rows[] = {{"", true, {9}, {}},
                          {"d A", true, {9, 3, 0}, {}},
                          {"a to c D", true, {9, 0, 1, 2, 3}, {}},
                          {"b TO b", true, {9, 1}, {}},
                          {"a x b", false, {9, 0}, {"host error: Variable x is not in the dictionary."}},
                          {"a b to x", false, {9, 0}, {"host error: Variable x is not in the dictionary."}},
                          {"d to b", false, {9}, {"host error: The range from d to b is reversed."}},
                          {"a to", false, {9}, {"host error: The range from a has no end."}},
                          {"to a", false, {9}, {"host error: TO has no variable before it."}},
                          {"a to b to c", false, {9, 0, 1}, {"host error: TO has no variable before it."}},
                          {"b a to c", false, {9, 1, 0}, {"host error: Variable b is listed twice."}},
                          {"d 1", false, {9, 3}, {"host error: Variable 1 is not in the dictionary."}}};
  for (const ListRow& row : rows) {
    EXPECT_EQ(Read(row.list), row.result) << row.list;
    EXPECT_EQ(fIndices, row.indices) << row.list;
    EXPECT_EQ(fHost.MessageLines(), row.messages) << row.list;
    EXPECT_THAT(fHost.Violations(), IsEmpty()) << row.list;
  }
}

TEST_F(VariableLists, ReportErrorsAsTheHosts) {
  Read("x");
  ASSERT_EQ(fHost.Messages().size(), 1u);
  EXPECT_TRUE(fHost.Messages()[0].fromHost);
  EXPECT_TRUE(fHost.Messages()[0].IsError());
}

TEST_F(VariableLists, FollowTheHook) {
  std::vector<std::string> seen;
  fHost.HostHooks().existingVarList = [&seen](const std::vector<std::string>& words, std::vector<int>& indices) {
    seen = words;
    indices.push_back(2);
    return false;
  };
  EXPECT_FALSE(Read("x y"));
  EXPECT_THAT(seen, ElementsAre("x", "y"));
  EXPECT_THAT(fIndices, ElementsAre(9, 2));
  EXPECT_THAT(fHost.Messages(), IsEmpty());
}

TEST_F(VariableLists, OfNoWordsAreEmptyAlsoWhenTheyEndBeforeTheyBegin) {
  fHost.SetCommand("MRSET a b");
  const ProcedureDataSource source;
  ZEVA_TokenSequence tokens(true);
  tokens.SetPosition(2);
  tokens.Next();
  EXPECT_TRUE(ExistingVarList(source, tokens, fIndices, 1));
  EXPECT_THAT(fIndices, IsEmpty());
  EXPECT_THAT(fHost.Violations(), IsEmpty());
}

TEST_F(VariableLists, LeaveTheCursorWhereTheHookSays) {
  fHost.HostHooks().cursorAfterVarList = 0;
  fHost.SetCommand("MRSET a b");
  const ProcedureDataSource source;
  ZEVA_TokenSequence tokens(true);
  tokens.SetPosition(1);
  tokens.Next();
  ExistingVarList(source, tokens, fIndices, 3);
  EXPECT_EQ(tokens.Position(), 0);
}

// ---------------------------------------------------------------------------------------------------------------------

TEST(Dictionary, FindsNamesWithoutRegardToCase) {
  HostSetup setup;
  setup.dictionary = {Numeric("Abc"), Numeric("\xC3\xA9t\xC3\xA9"), Numeric("ABC")};
  const ScriptedHost host(setup);
  const ProcedureDataSource source;
  EXPECT_EQ(source.ColumnCount(), 3);
  EXPECT_EQ(source.FindVarIndex("aBC", 0), 0);
  EXPECT_EQ(source.FindVarIndex("\xC3\x89T\xC3\x89", 0), 1);
  EXPECT_EQ(source.FindVarIndex("ab", 0), -1);
  EXPECT_EQ(source.FindVarIndex("", 0), -1);
  EXPECT_EQ(source.GetParentSource()->FindVarIndex("abc", 0), 0);
  EXPECT_EQ(source.GetParentSource()->GetParentSource(), source.GetParentSource());
}

TEST(Dictionary, TellsNoLabelFromAnEmptyOne) {
  HostSetup setup;
  setup.dictionary = {Numeric("a"), String("b", 5, ""), Numeric("c", "C")};
  const ScriptedHost host(setup);
  const ProcedureDataSource source;
  EXPECT_EQ(source.GetVariable(0)->GetLabel(), nullptr);
  EXPECT_STREQ(source.GetVariable(1)->GetLabel(), "");
  EXPECT_EQ(source.GetVariable(1)->GetType(), 5);
  EXPECT_STREQ(source.GetVariable(2)->GetLabel(), "C");
  EXPECT_EQ(source.GetVariable(2)->GetType(), 0);
}

TEST(Dictionary, LooksUpValueLabelsExactly) {
  HostSetup setup;
  setup.dictionary = {Numeric("n", {}, {{1.0, "One"}, {2.0, ""}}), String("s", 3, {}, {{"1", "One"}})};
  const ScriptedHost host(setup);
  const ProcedureDataSource source;
  ZEVA_ValueLabelMap numbers(source.GetVariable(0)->GetValueLabels());
  numbers.Reset();
  EXPECT_STREQ(numbers.GetLabel(1.0), "One");
  EXPECT_STREQ(numbers.GetLabel(2.0), "");
  EXPECT_EQ(numbers.GetLabel(1.5), nullptr);
  ZEVA_ValueLabelMap texts(source.GetVariable(1)->GetValueLabels());
  texts.Reset();
  EXPECT_STREQ(texts.GetLabel(std::string("1")), "One");
  EXPECT_EQ(texts.GetLabel(std::string(" 1")), nullptr);
}

TEST(Dictionary, CanBeReplaced) {
  ScriptedHost host(FourVariables());
  host.SetDictionary({Numeric("z")});
  const ProcedureDataSource source;
  EXPECT_EQ(source.ColumnCount(), 1);
  EXPECT_EQ(source.FindVarIndex("a", 0), -1);
  EXPECT_EQ(source.FindVarIndex("Z", 0), 0);
}

TEST(Sets, AreCopiesOfTheStoredOnesUntilSaved) {
  ScriptedHost host;
  host.SetStoredSets({Categories("$a", {"x"})});
  const ProcedureDataSource source;
  VARIABLESETS sets = VariableSets(source, kMRSets);
  sets[0].SetLabel("changed");
  EXPECT_THAT(host.StoredSets(), ElementsAre(Categories("$a", {"x"})));
  EXPECT_EQ(host.SavedSets(), std::nullopt);
  SaveVariableSets(sets, *source.GetParentSource(), kMRSets);
  EXPECT_THAT(host.StoredSets(), ElementsAre(Categories("$a", {"x"}, "changed")));
  EXPECT_THAT(*host.SavedSets(), ElementsAre(Categories("$a", {"x"}, "changed")));
  EXPECT_EQ(host.SaveCount(), 1u);
  EXPECT_THAT(ToData(VariableSets(source, kMRSets)), ElementsAre(Categories("$a", {"x"}, "changed")));
}

TEST(Sets, GoToDataAndBack) {
  const SetData set{"$\xC3\xA9", VariableSet::kMDSet, "La\tbel", "1", true, true, {"a", "B"}};
  EXPECT_EQ(ToData(ToSet(set)), set);
  EXPECT_EQ(ToText(set), "$\xC3\xA9 MD value \"1\" label \"La\\tbel\" label-by-variable counted-value-labels (a B)");
  const VariableSet record = ToSet(set);
  EXPECT_EQ(record.GetName(VariableSet::kUpperCase), "$\xC3\x89");
  EXPECT_EQ(record.GetName(VariableSet::kAsStored), "$\xC3\xA9");
  EXPECT_THAT(record.GetVariableNames(VariableSet::kUpperCase), ElementsAre("A", "B"));
}

TEST(Sets, AreNotReadAfterTheyWereMovedFrom) {
  const ScriptedHost host;
  VariableSet set("$a", VariableSet::kMCSet);
  const VariableSet moved = std::move(set);
  EXPECT_THAT(host.Violations(), IsEmpty());
  set.GetName(VariableSet::kAsStored);  // NOLINT(bugprone-use-after-move): what the host must notice
  EXPECT_THAT(host.Violations(), ElementsAre("a set was read that was moved from"));
}

TEST(Sets, BeginEmpty) {
  const VariableSet set("$a", VariableSet::kVarSet);
  EXPECT_EQ(ToData(set), (SetData{"$a", VariableSet::kVarSet, "", "", false, false, {}}));
}

// ---------------------------------------------------------------------------------------------------------------------

std::string Upper(std::string text) {
  ZEVAMBstrupr_A(text.data());
  return text;
}

TEST(Letters, AreUpperCasedInPlace) {
  EXPECT_EQ(Upper("aZ$1_\x7F"), "AZ$1_\x7F");
  EXPECT_EQ(Upper("\xC3\xA0\xC3\xB7\xC3\xBE\xC3\xBF"), "\xC3\x80\xC3\xB7\xC3\x9E\xC5\xB8");  // à ÷ þ ÿ
  EXPECT_EQ(Upper("\xC4\x81\xC4\x80\xC4\xB1\xC5\x82\xC5\xBE"),
            "\xC4\x80\xC4\x80\xC4\xB1\xC5\x81\xC5\xBD");  // ā Ā ı ł ž
  EXPECT_EQ(Upper("\xCE\xAC\xCE\xB1\xCF\x82\xCF\x83\xCF\x8E"),
            "\xCE\x86\xCE\x91\xCE\xA3\xCE\xA3\xCE\x8F");                     // ά α ς σ ώ
  EXPECT_EQ(Upper("\xD0\xB0\xD1\x8F\xD1\x91"), "\xD0\x90\xD0\xAF\xD0\x81");  // а я ё
  EXPECT_EQ(Upper("\xE2\x82\xAC\xF0\x9F\x98\x80"), "\xE2\x82\xAC\xF0\x9F\x98\x80");
  EXPECT_EQ(Upper("\xC3"), "\xC3");
  EXPECT_EQ(Upper("a\xA9z"), "A\xA9Z");
}

TEST(Letters, AreComparedWithoutRegardToCase) {
  EXPECT_EQ(ZEVAMBstricmp_A("\xC3\xA9"
                            "a",
                            "\xC3\x89"
                            "A"),
            0);
  EXPECT_LT(ZEVAMBstricmp_A("a", "B"), 0);
  EXPECT_GT(ZEVAMBstricmp_A("b", "A"), 0);
  EXPECT_LT(ZEVAMBstricmp_A("a", "aa"), 0);
  EXPECT_NE(ZEVAMBqstricmp_A("labelsx", 6, "LABELSOURCE", 6, 0), 0);
  EXPECT_EQ(ZEVAMBqstricmp_A("labelxx", 6, "LABELSOURCE", 6, 0), 0);
  EXPECT_EQ(ZEVAMBqstricmp_A("ab", 2, "ab", 1, 0), 0);
}

std::string Copied(const char* source, int size) {
  char target[16];
  std::memset(target, 'x', sizeof target);
  ZEVAMBzstncpy_A(target, source, size);
  return target;
}

TEST(Letters, AreCopiedWhole) {
  EXPECT_EQ(Copied("abc", 4), "abc");
  EXPECT_EQ(Copied("abc", 3), "ab");
  EXPECT_EQ(Copied("abc", 1), "");
  EXPECT_EQ(Copied("a\xC3\xA9", 3), "a");
  EXPECT_EQ(Copied("a\xC3\xA9", 4), "a\xC3\xA9");
  EXPECT_EQ(Copied("\xE2\x82\xAC", 3), "");
  EXPECT_EQ(Copied("a\xF0\x9F\x98\x80", 5), "a");
  EXPECT_EQ(Copied("a\xC3", 3), "a\xC3");
}

}  // namespace
}  // namespace scripted
