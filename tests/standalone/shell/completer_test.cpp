#include "standalone/shell/completer.h"

#include <fmt/format.h>
#include <gmock/gmock.h>

#include <string>
#include <vector>

#include "standalone/text/unicode.h"

namespace standalone {
namespace {

using Texts = std::vector<std::string>;

Variable Numeric(const std::string& name, const std::vector<ValueLabel>& labels = {}) {
  return {name, 0, std::nullopt, labels};
}

/// A dictionary and sets in memory, with the contract of a dataset.
class MemorySource : public CompletionSource {
 public:
  std::vector<Variable> variables = {
      Numeric("drink1", {{"0", "No"}, {"1", "Yes"}}),
      Numeric("Drink2", {{"1", "Yes"}, {"2", "Both"}, {"2.5", "Odd"}, {"-1", "None"}}),
      Numeric("drink3"),
      Numeric("total"),
      {"colour", 8, std::nullopt, {{"red", "Red"}, {"it's", "It is"}, {"a\x1b[m", "Hostile"}}},
      Numeric("Größe"),
      Numeric("name"),
  };
  Texts sets = {"$toppings", "$Drinks", "$dry"};
  std::size_t visited = 0;

  Texts SetNames() override { return sets; }

  std::optional<StoredSet> FindSet(const std::string& name) override {
    if (CompareNoCase(name, "$Drinks") == 0) {
      return StoredSet{"$Drinks", SetType::kDichotomy, "", "1", false, false, {"drink1", "Drink2"}};
    }
    return CompareNoCase(name, "$toppings") == 0
               ? std::make_optional(
                     StoredSet{"$toppings", SetType::kCategory, "", "", false, false, {"drink1", "colour"}})
               : std::nullopt;
  }

  void VisitVariables(std::string_view beginning, int from, const VisitName& visit) override {
    const std::string first = ToUpper(beginning);
    for (std::size_t i = static_cast<std::size_t>(from); i < variables.size(); ++i) {
      if (ToUpper(variables[i].name).compare(0, first.size(), first) != 0) {
        continue;
      }
      ++visited;
      if (!visit(static_cast<int>(i), variables[i].name)) {
        return;
      }
    }
  }

  int FindVariable(const std::string& name) override {
    for (std::size_t i = 0; i < variables.size(); ++i) {
      if (CompareNoCase(variables[i].name, name) == 0) {
        return static_cast<int>(i);
      }
    }
    return -1;
  }

  const Variable& VariableAt(int position) override { return variables.at(static_cast<std::size_t>(position)); }
};

struct Row {
  std::string text;
  Texts candidates;
  std::string result;  ///< the text after the insertion
};

std::string Inserted(const std::string& text, const Completion& completion) {
  return completion.insertion.empty() ? text : text.substr(0, completion.begin) + completion.insertion;
}

void ExpectCompletions(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    SCOPED_TRACE(row.text);
    MemorySource source;
    const Completion completion = Complete(row.text, source);
    EXPECT_EQ(completion.candidates, row.candidates);
    EXPECT_EQ(Inserted(row.text, completion), row.result);
    EXPECT_FALSE(completion.isCut);
  }
}

const Texts kCommands = {"exit", "help", "log", "MRSET", "quit", "sets", "TABULATE", "undo", "variables"};
const Texts kVariables = {"drink1", "Drink2", "drink3", "total", "colour", "Größe", "name"};

TEST(Completer, CompletesTheCommand) {
  ExpectCompletions({
      {"", kCommands, ""},
      {"  ", kCommands, "  "},
      {"M", {"MRSET"}, "MRSET "},
      {"mr", {"mrset"}, "mrset "},
      {"Mr", {"MRSET"}, "MRSET "},
      {"MRSET", {"MRSET"}, "MRSET "},
      {"MRSETS", {}, "MRSETS"},
      {"s", {"sets"}, "sets "},
      {"V", {"VARIABLES"}, "VARIABLES "},
      {"/* first */ ", {"MRSET", "TABULATE"}, "/* first */ "},
      {"ta", {"tabulate"}, "tabulate "},
      {"FREQ ", {}, "FREQ "},
      {"* MRSET ", {}, "* MRSET "},
  });
}

TEST(Completer, CompletesWhatFollowsACommandOfTheShell) {
  ExpectCompletions({
      {"help ",
       {"delete", "display", "mcgroup", "mdgroup", "mrset", "tabulate", "exit", "help", "log", "quit", "sets", "undo",
        "variables"},
       "help "},
      {"help u", {"undo"}, "help undo "},
      {"help md", {"mdgroup"}, "help mdgroup "},
      {"HELP MD", {"MDGROUP"}, "HELP MDGROUP "},
      {"variables dr", {"drink1", "Drink2", "drink3"}, "variables drink"},
      {"variables ", kVariables, "variables "},
      {"sets ", {}, "sets "},
      {"quit x", {}, "quit x"},
  });
}

TEST(Completer, CompletesTabulate) {
  const Texts subcommands = {"BASE=", "BY=",   "CONFIDENCE=", "DECIMALS=", "LAST=",   "MINBASE=", "NET=",
                             "NONE=", "SHOW=", "SORT=",       "TEST",      "WEIGHT=", "WHERE="};
  Texts columns = {"$Drinks", "$dry", "$toppings"};
  columns.insert(columns.end(), kVariables.begin(), kVariables.end());
  Texts columnsOrEnd = columns;
  columnsOrEnd.insert(columnsOrEnd.begin() + 3, "/");
  Texts conditions = {"$Drinks", "$dry", "$toppings", "MISSING(", "NOT"};
  conditions.insert(conditions.end(), kVariables.begin(), kVariables.end());
  ExpectCompletions({
      {"TABULATE ", {"$Drinks", "$dry", "$toppings"}, "TABULATE $"},
      {"tab $t", {"$toppings"}, "tab $toppings "},
      {"TABULATE $drinks ", {"$dry", "$toppings", "/"}, "TABULATE $drinks "},
      {"TABULATE $drinks /", subcommands, "TABULATE $drinks /"},
      {"TABULATE $drinks /we", {"weight="}, "TABULATE $drinks /weight="},
      {"TABULATE $drinks /TEST /T", {}, "TABULATE $drinks /TEST /T"},
      {"TABULATE $drinks /BY", {"BY="}, "TABULATE $drinks /BY="},
      {"TABULATE $drinks /BY=", columns, "TABULATE $drinks /BY="},
      {"TABULATE $drinks /BY=col", {"colour"}, "TABULATE $drinks /BY=colour "},
      {"TABULATE $drinks /BY=$toppings $t", {}, "TABULATE $drinks /BY=$toppings $t"},
      {"TABULATE $drinks /BY=colour*", kVariables, "TABULATE $drinks /BY=colour*"},
      {"TABULATE $drinks /WEIGHT=to", {"total"}, "TABULATE $drinks /WEIGHT=total "},
      {"TABULATE $drinks /BASE=", {"ALL", "ANSWERED", "ASKED", "COMPLETE"}, "TABULATE $drinks /BASE="},
      {"TABULATE $drinks /BASE=all", {"all"}, "TABULATE $drinks /BASE=all "},
      {"TABULATE $drinks /SHOW=COUNT CASES E", {"ERROR"}, "TABULATE $drinks /SHOW=COUNT CASES ERROR "},
      {"TABULATE $drinks /LAST=", {"drink1", "Drink2"}, "TABULATE $drinks /LAST=drink"},
      {"TABULATE $toppings /NET='x': r", {}, "TABULATE $toppings /NET='x': r"},
      {"TABULATE $toppings /NONE=", {"0", "1", "'red'", "\"it's\""}, "TABULATE $toppings /NONE="},
      {"TABULATE $drinks /WHERE=", conditions, "TABULATE $drinks /WHERE="},
      {"TABULATE $drinks /WHERE=mis", {"missing("}, "TABULATE $drinks /WHERE=missing("},
      {"TABULATE $drinks /WHERE=drink1 ", {"<", "<=", "<>", "=", ">", ">=", "IN"}, "TABULATE $drinks /WHERE=drink1 "},
      {"TABULATE $drinks /WHERE=drink1=", {"0", "1"}, "TABULATE $drinks /WHERE=drink1="},
      {"TABULATE $drinks /WHERE=colour IN ('red', ",
       {"'red'", "\"it's\""},
       "TABULATE $drinks /WHERE=colour IN ('red', "},
      {"TABULATE $drinks /NONE=", {}, "TABULATE $drinks /NONE="},
      {"TABULATE $drinks $toppings /NONE=", {"0", "1", "'red'", "\"it's\""}, "TABULATE $drinks $toppings /NONE="},
      {"TABULATE $drinks /BY=colour ", columnsOrEnd, "TABULATE $drinks /BY=colour "},
      {"TABULATE $drinks /BY=colour* ", kVariables, "TABULATE $drinks /BY=colour* "},
      {"TABULATE $drinks /BASE=ALL ", {"/"}, "TABULATE $drinks /BASE=ALL /"},
      {"TABULATE $drinks /TEST ", {"/", "="}, "TABULATE $drinks /TEST "},
      {"TABULATE $drinks /DECIMALS=2 ", {"/"}, "TABULATE $drinks /DECIMALS=2 /"},
      {"TABULATE $drinks /NET='x': drink1 ", {"/", "drink1", "Drink2"}, "TABULATE $drinks /NET='x': drink1 "},
      {"TABULATE $drinks /SHOW=COUNT CASES RESPONSES ERROR ",
       {"/", "INTERVAL"},
       "TABULATE $drinks /SHOW=COUNT CASES RESPONSES ERROR "},
      {"TABULATE $drinks /WHERE=(drink1=1 ", {"AND", "OR"}, "TABULATE $drinks /WHERE=(drink1=1 "},
      {"TABULATE $drinks /WHERE=drink1=1 ", {"/", "AND", "OR"}, "TABULATE $drinks /WHERE=drink1=1 "},
      {"TABULATE $drinks /WHERE=$Drinks ", {"HAS"}, "TABULATE $drinks /WHERE=$Drinks HAS "},
      {"TABULATE $drinks /WHERE=$Drinks HAS ", {"drink1", "Drink2"}, "TABULATE $drinks /WHERE=$Drinks HAS drink"},
      {"TABULATE $drinks /MINBASE=", {}, "TABULATE $drinks /MINBASE="},
      {"TABULATE drinks /", {}, "TABULATE drinks /"},
  });
}

TEST(Completer, CompletesSubcommands) {
  const Texts all = {"DELETE", "DISPLAY", "MCGROUP", "MDGROUP"};
  ExpectCompletions({
      {"MRSET ", all, "MRSET "},
      {"MRSET /", all, "MRSET /"},
      {"MRSET /D", {"DELETE", "DISPLAY"}, "MRSET /D"},
      {"MRSET /di", {"display"}, "MRSET /display "},
      {"MRSET /DISPLAY", {"DISPLAY"}, "MRSET /DISPLAY "},
      {"MRS /m", {"mcgroup", "mdgroup"}, "MRS /m"},
      {"mrset /", {"delete", "display", "mcgroup", "mdgroup"}, "mrset /"},
      {"MRSET /DISPLAY NAME=ALL/", all, "MRSET /DISPLAY NAME=ALL/"},
      {"MRSET /DISPLAY NAME=[$dry]\n  /del", {"delete"}, "MRSET /DISPLAY NAME=[$dry]\n  /delete "},
      {"MRSET /X", {}, "MRSET /X"},
      {"MRSET //", {}, "MRSET //"},
      {"MRSET /WRONG NAME=ALL /", {}, "MRSET /WRONG NAME=ALL /"},
  });
}

TEST(Completer, CompletesTheKeywordsThatAreMissing) {
  ExpectCompletions({
      {"MRSET /MDGROUP ",
       {"CATEGORYLABELS=", "LABEL=", "LABELSOURCE=", "NAME=", "VALUE=", "VARIABLES="},
       "MRSET /MDGROUP "},
      {"MRSET /MCGROUP ", {"LABEL=", "NAME=", "VARIABLES="}, "MRSET /MCGROUP "},
      {"MRSET /MDG NAME=$a ",
       {"CATEGORYLABELS=", "LABEL=", "LABELSOURCE=", "VALUE=", "VARIABLES="},
       "MRSET /MDG NAME=$a "},
      {"MRSET /MDG NAME=$a V", {"VALUE=", "VARIABLES="}, "MRSET /MDG NAME=$a VA"},
      {"MRSET /MDG NAME=$a LABEL='x' VALUE=1 CAT=VARLABELS ",
       {"LABELSOURCE=", "VARIABLES="},
       "MRSET /MDG NAME=$a LABEL='x' VALUE=1 CAT=VARLABELS "},
      {"MRSET /MDG lab", {"label=", "labelsource="}, "MRSET /MDG label"},
      {"MRSET /MDG LABELS=VARLABEL LAB", {"LABEL="}, "MRSET /MDG LABELS=VARLABEL LABEL="},
      {"MRSET /MCG LABELS", {}, "MRSET /MCG LABELS"},
      {"MRSET /MCG LABELS=VARLABEL ", {}, "MRSET /MCG LABELS=VARLABEL "},
      {"MRSET /MCG VAL", {}, "MRSET /MCG VAL"},
      {"MRSET /DISPLAY ", {"NAME="}, "MRSET /DISPLAY NAME="},
      {"MRSET /DISPLAY n", {"name="}, "MRSET /DISPLAY name="},
      {"mrset /delete ", {"name="}, "mrset /delete name="},
      {"MRSET /DISPLAY NAME", {"NAME="}, "MRSET /DISPLAY NAME="},
      {"MRSET /DISPLAY NAME ", {"="}, "MRSET /DISPLAY NAME ="},
      {"MRSET /DISPLAY NAME=ALL ", {}, "MRSET /DISPLAY NAME=ALL "},
      {"MRSET /MDG NAME=$a /MDG NA", {"NAME="}, "MRSET /MDG NAME=$a /MDG NAME="},
      {"MRSET /MDG 5 ", {}, "MRSET /MDG 5 "},
      {"MRSET /MDG NAME $a ", {}, "MRSET /MDG NAME $a "},
  });
}

TEST(Completer, CompletesTheValuesThatKeywordsHave) {
  ExpectCompletions({
      {"MRSET /MDG LABELSOURCE=", {"VARLABEL"}, "MRSET /MDG LABELSOURCE=VARLABEL "},
      {"MRSET /MDG CATEGORYLABELS=", {"COUNTEDVALUES", "VARLABELS"}, "MRSET /MDG CATEGORYLABELS="},
      {"MRSET /MDG CATEGORYLABELS = cou", {"countedvalues"}, "MRSET /MDG CATEGORYLABELS = countedvalues "},
      {"MRSET /MDG LABEL=", {}, "MRSET /MDG LABEL="},
      {"MRSET /MDG CAT=OTHER ", {}, "MRSET /MDG CAT=OTHER "},
  });
}

TEST(Completer, CompletesSets) {
  ExpectCompletions({
      {"MRSET /DISPLAY NAME=", {"[", "ALL"}, "MRSET /DISPLAY NAME="},
      {"mrset /display name=a", {"all"}, "mrset /display name=all "},
      {"MRSET /DISPLAY NAME=ALL", {"ALL"}, "MRSET /DISPLAY NAME=ALL "},
      {"MRSET /DISPLAY NAME=$t", {"[$toppings"}, "MRSET /DISPLAY NAME=[$toppings "},
      {"MRSET /DISPLAY NAME=$", {"[$Drinks", "[$dry", "[$toppings"}, "MRSET /DISPLAY NAME=[$"},
      {"MRSET /DISPLAY NAME=[", {"$Drinks", "$dry", "$toppings"}, "MRSET /DISPLAY NAME=[$"},
      {"MRSET /DELETE NAME=[$DR", {"$Drinks", "$dry"}, "MRSET /DELETE NAME=[$DR"},
      {"MRSET /DELETE NAME=[$dri", {"$Drinks"}, "MRSET /DELETE NAME=[$Drinks "},
      {"MRSET /DELETE NAME=[$drinks $", {"$dry", "$toppings"}, "MRSET /DELETE NAME=[$drinks $"},
      {"MRSET /DELETE NAME=[$drinks $dry $toppings ", {"]"}, "MRSET /DELETE NAME=[$drinks $dry $toppings ] "},
      {"MRSET /DELETE NAME=[1", {}, "MRSET /DELETE NAME=[1"},
      {"MRSET /DELETE NAME=[$dry, ", {}, "MRSET /DELETE NAME=[$dry, "},
      {"MRSET /MDG NAME=", {"$", "$Drinks", "$dry", "$toppings"}, "MRSET /MDG NAME=$"},
      {"MRSET /MCG NAME=$to", {"$toppings"}, "MRSET /MCG NAME=$toppings "},
      {"MRSET /MCG NAME=to", {}, "MRSET /MCG NAME=to"},
  });
}

TEST(Completer, OffersTheFirstLetterOfANameWhereThereAreNoSets) {
  MemorySource source;
  source.sets.clear();
  EXPECT_EQ(Complete("MRSET /MDG NAME=", source).insertion, "$");
  EXPECT_EQ(Complete("MRSET /DISPLAY NAME=[", source).candidates, Texts{});
}

TEST(Completer, CompletesVariablesAndTo) {
  const std::string mdg = "MRSET /MDG NAME=$a ";
  ExpectCompletions({
      {mdg + "VARIABLES=", kVariables, mdg + "VARIABLES="},
      {mdg + "VAR=dr", {"drink1", "Drink2", "drink3"}, mdg + "VAR=drink"},
      {mdg + "VAR=DRINK2", {"Drink2"}, mdg + "VAR=Drink2 "},
      {mdg + "VAR=gr\xC3\xB6", {"Größe"}, mdg + "VAR=Größe "},
      {mdg + "VAR=drink1 ",
       {"CATEGORYLABELS=", "LABEL=", "LABELSOURCE=", "TO", "VALUE=", "Drink2", "drink3", "total", "colour", "Größe",
        "name"},
       mdg + "VAR=drink1 "},
      {mdg + "VAR=drink1 t", {"to", "total"}, mdg + "VAR=drink1 to"},
      {mdg + "VAR=drink1 TO ", {"Drink2", "drink3", "total", "colour", "Größe", "name"}, mdg + "VAR=drink1 TO "},
      {mdg + "VAR=drink2 TO d", {"drink3"}, mdg + "VAR=drink2 TO drink3 "},
      {mdg + "VAR=drink1 TO drink3 t", {"total"}, mdg + "VAR=drink1 TO drink3 total "},
      {mdg + "VAR=drink1 drink3 d", {"Drink2"}, mdg + "VAR=drink1 drink3 Drink2 "},
      {mdg + "VAR=drink1 TO total v", {"value="}, mdg + "VAR=drink1 TO total value="},
      {mdg + "VAR=unknown TO ", {}, mdg + "VAR=unknown TO "},
      {mdg + "VAR=TO ", {}, mdg + "VAR=TO "},
      {mdg + "VAR=drink1 drink3\n  dr", {"Drink2"}, mdg + "VAR=drink1 drink3\n  Drink2 "},
      {"MRSET /MCG VAR=drink1 l", {"label="}, "MRSET /MCG VAR=drink1 label="},
      {"MRSET /MDG VAR=drink1 drink3 LABEL='x' n", {"name="}, "MRSET /MDG VAR=drink1 drink3 LABEL='x' name="},
  });
}

TEST(Completer, CompletesCountedValuesFromTheLabelsOfTheVariables) {
  const std::string mdg = "MRSET /MDG VAR=";
  ExpectCompletions({
      {mdg + "drink1 TO drink3 VALUE=", {"0", "1", "2", "-1"}, mdg + "drink1 TO drink3 VALUE="},
      {mdg + "drink1 VALUE=1", {"1"}, mdg + "drink1 VALUE=1 "},
      {mdg + "colour total VALUE=", {"'red'", "\"it's\""}, mdg + "colour total VALUE="},
      {mdg + "drink3 VALUE=", {}, mdg + "drink3 VALUE="},
      {"MRSET /MDG VALUE=", {}, "MRSET /MDG VALUE="},
      {"MRSET /MDG VALUE=1", {}, "MRSET /MDG VALUE=1"},
      {mdg + "drink1 drink2 12", {}, mdg + "drink1 drink2 12"},
  });
}

TEST(Completer, LeavesQuotesAndCommentsAlone) {
  ExpectCompletions({
      {"MRSET /MDG LABEL='VAR", {}, "MRSET /MDG LABEL='VAR"},
      {"MRSET /MDG LABEL=\"x MRSET ", {}, "MRSET /MDG LABEL=\"x MRSET "},
      {"MRSET /MDG LABEL='it''s ", {}, "MRSET /MDG LABEL='it''s "},
      {"MRSET /MDG LABEL='x'", {}, "MRSET /MDG LABEL='x'"},
      {"MRSET /* ", {}, "MRSET /* "},
      {"MRSET /*", {}, "MRSET /*"},
      {"MRSET /*/", {}, "MRSET /*/"},
      {"MRSET /* one */ /* D", {}, "MRSET /* one */ /* D"},
      {"MRSET /* one */ /DI", {"DISPLAY"}, "MRSET /* one */ /DISPLAY "},
      {"MRSET /* one\n/DI", {"DISPLAY"}, "MRSET /* one\n/DISPLAY "},
      {"MRSET /\xFF", {}, "MRSET /\xFF"},
  });
}

TEST(Completer, OffersNothingThatATerminalWouldActOn) {
  MemorySource source;
  source.sets = {"$good", "$b\x1b[2Jad", "$b\xE2\x80\xAE"};
  source.variables = {Numeric("q\x07"), Numeric("q1")};
  EXPECT_EQ(Complete("MRSET /DISPLAY NAME=[", source).candidates, Texts{"$good"});
  EXPECT_EQ(Complete("MRSET /MCG VARIABLES=", source).candidates, Texts{"q1"});
}

/// `count` variables with names of one length.
std::vector<Variable> Many(std::size_t count) {
  std::vector<Variable> variables;
  for (std::size_t i = 0; i < count; ++i) {
    variables.push_back(Numeric(fmt::format("wave{:06}", i)));
  }
  return variables;
}

TEST(Completer, CutsALongListAndStillKnowsWhatAllHaveInCommon) {
  MemorySource source;
  source.variables = Many(5000);
  const Completion completion = Complete("MRSET /MCG VARIABLES=w", source);
  EXPECT_EQ(completion.candidates.size(), kMaxVariables);
  EXPECT_EQ(completion.candidates.back(), "wave000199");
  EXPECT_TRUE(completion.isCut);
  EXPECT_EQ(completion.insertion, "wave00");
}

TEST(Completer, NeverLooksThroughAHugeDictionary) {
  MemorySource source;
  source.variables = Many(50000);
  EXPECT_EQ(Complete("MRSET /MCG VARIABLES=w", source).insertion, "");
  EXPECT_LE(source.visited, 20001U);
  source.visited = 0;
  EXPECT_TRUE(Complete("MRSET /MCG VARIABLES=wave0", source).isCut);
  EXPECT_LE(source.visited, 20001U);
  source.visited = 0;
  EXPECT_TRUE(Complete("MRSET /MCG VARIABLES=wave", source).isCut);
  EXPECT_LE(source.visited, 20001U);
}

TEST(Completer, EndsALongListAsSoonAsNothingCanBeAdded) {
  MemorySource source;
  source.variables = Many(10000);
  EXPECT_EQ(Complete("MRSET /MCG VARIABLES=wave00", source).insertion, "");
  EXPECT_LE(source.visited, 1002U);
}

}  // namespace
}  // namespace standalone
