#include "standalone/tabulation/tabulate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/standalone/tabulation/memory_source.h"
#include "tests/standalone/tabulation/request_words.h"

namespace standalone {
namespace {

using Texts = std::vector<std::string>;

/// Eight cases: three dichotomies, two variables of categories, regions, weights.
MemorySource Breakfast(std::size_t casesOfBlock = 3) {
  MemorySource source(casesOfBlock);
  source.AddNumeric("tea", {"1", "0", "1", "", "0", "1", "2", "1"}, {{"1", "Yes"}}, "Tea");
  source.AddNumeric("milk", {"0", "1", "1", "", "0", "", "0", "1"}, {{"1", "Often"}});
  source.AddNumeric("juice", {"0", "0", "1", "", "0", "0", "0", "0"}, {}, "Juice");
  source.AddString("food1", {"egg", "jam", "egg ", "", "none", "jam", "none", "bun"}, {{"jam", "Jam"}, {"bun", "Bun"}});
  source.AddString("food2", {"jam", "", "egg", " ", "none", "", "egg", ""}, {{"egg", "Egg"}});
  source.AddNumeric("region", {"2", "1", "2", "1", "", "1", "3", "2"}, {{"2", "South"}, {"1", "North"}});
  source.AddNumeric("w", {"1", "2", "0.5", "1", "1", "", "-1", "1"});
  source.AddNumeric("one", {"1", "1", "1", "1", "1", "1", "1", "1"});
  source.AddDichotomies("$drinks", {"tea", "milk", "juice"});
  source.AddCategories("$food", {"food1", "food2"});
  return source;
}

Tabulation Counted(const TabulationRequest& request, MemorySource source) {
  return Tabulate(request, source).at(0);
}

Tabulation Counted(TabulationRequest request) {
  request.minBase = request.minBase == 0 ? 1 : request.minBase;  // no notes on small bases
  return Counted(request, Breakfast());
}

TabulationRequest With(TabulationRequest request, void (*change)(TabulationRequest& request)) {
  change(request);
  return request;
}

TEST(TabulateTest, CountsTheMembersOfADichotomySet) {
  EXPECT_EQ(Described(Counted(Ask({"$drinks"}))),
            "set $drinks [$drinks] answered, weight -, where -\n"
            "column - [] [Total]: 8 = 5 answered + 2 none + 1 missing, base 5, weighted 5, effective 5, responses 8, "
            "per case 1.6\n"
            "row tea [Tea]: 4 4 80% 50%\n"
            "row milk [milk]: 3 3 60% 37.5%\n"
            "row juice [Juice]: 1 1 20% 12.5%\n"
            "note 2 cases chose none and are not in the base; with BASE=ASKED it is 7.\n");
}

TEST(TabulateTest, CountsTheValuesOfACategorySetOnceInACase) {
  EXPECT_EQ(Described(Counted(Ask({"$FOOD"}))),
            "set $food [$food] answered, weight -, where -\n"
            "column - [] [Total]: 8 = 7 answered + 0 none + 1 missing, base 7, weighted 7, effective 7, responses 9, "
            "per case 1.28571\n"
            "row jam [Jam]: 3 3 42.8571% 33.3333%\n"
            "row bun [Bun]: 1 1 14.2857% 11.1111%\n"
            "row egg [Egg]: 3 3 42.8571% 33.3333%\n"
            "row none [none]: 2 2 28.5714% 22.2222%\n"
            "note 2 cases gave one category of $food more than once; it counts once.\n");
}

TEST(TabulateTest, AValueThatSaysNoneIsNoMember) {
  EXPECT_EQ(Described(Counted(With(Ask({"$food"}), [](TabulationRequest& request) { request.none = Say("'none'"); }))),
            "set $food [$food] answered, weight -, where -\n"
            "column - [] [Total]: 8 = 6 answered + 1 none + 1 missing, base 6, weighted 6, effective 6, responses 7, "
            "per case 1.16667\n"
            "row jam [Jam]: 3 3 50% 42.8571%\n"
            "row bun [Bun]: 1 1 16.6667% 14.2857%\n"
            "row egg [Egg]: 3 3 50% 42.8571%\n"
            "note 1 case chose none and is not in the base; with BASE=ASKED it is 7.\n"
            "note 1 case gave one category of $food more than once; it counts once.\n"
            "note 1 case combines none (NONE) of $food with other categories, and counts as answered.\n");
}

TEST(TabulateTest, TheBaseIsWhatIsAskedFor) {
  struct Row {
    TabulationBase base;
    std::string total;
    std::string rows;
  };
  const std::string column = "- [] [Total]: 8 = 5 answered + 2 none + 1 missing, base ";
  const std::vector<Row> rows = {
      {TabulationBase::kAnswered, "5, weighted 5, effective 5, responses 8, per case 1.6\n",
       "tea [Tea]: 4 4 80% 50%\nmilk [milk]: 3 3 60% 37.5%\njuice [Juice]: 1 1 20% 12.5%\n"},
      {TabulationBase::kAsked, "7, weighted 7, effective 7, responses 8, per case 1.14286\n",
       "tea [Tea]: 4 4 57.1429% 50%\nmilk [milk]: 3 3 42.8571% 37.5%\njuice [Juice]: 1 1 14.2857% 12.5%\n"},
      {TabulationBase::kComplete, "6, weighted 6, effective 6, responses 7, per case 1.16667\n",
       "tea [Tea]: 3 3 50% 42.8571%\nmilk [milk]: 3 3 50% 42.8571%\njuice [Juice]: 1 1 16.6667% 14.2857%\n"},
      {TabulationBase::kAll, "8, weighted 8, effective 8, responses 8, per case 1\n",
       "tea [Tea]: 4 4 50% 50%\nmilk [milk]: 3 3 37.5% 37.5%\njuice [Juice]: 1 1 12.5% 12.5%\n"}};
  for (const Row& row : rows) {
    TabulationRequest request = Ask({"$drinks"});
    request.base = row.base;
    const Tabulation table = Counted(request);
    EXPECT_EQ(table.base, row.base);
    EXPECT_EQ(Described(table, "column"), column + row.total);
    EXPECT_EQ(Described(table, "row"), row.rows);
  }
}

TEST(TabulateTest, ColumnsAreTheValuesOfAVariable) {
  const Tabulation table = Counted(Ask({"$drinks"}, {"REGION"}));
  EXPECT_EQ(
      Described(table, "column"),
      "- [] [Total]: 8 = 5 answered + 2 none + 1 missing, base 5, weighted 5, effective 5, responses 8, per case "
      "1.6\n"
      "region [2] [South]: 3 = 3 answered + 0 none + 0 missing, base 3, weighted 3, effective 3, responses 6, per "
      "case 2\n"
      "region [1] [North]: 3 = 2 answered + 0 none + 1 missing, base 2, weighted 2, effective 2, responses 2, per "
      "case 1\n"
      "region [3] [3]: 1 = 0 answered + 1 none + 0 missing, base 0, weighted 0, effective -, responses 0, per "
      "case -\n");
  EXPECT_EQ(Described(table, "row"),
            "tea [Tea]: 4 4 80% 50% | 3 3 100% 50% | 1 1 50% 50% | 0 0 -% -%\n"
            "milk [milk]: 3 3 60% 37.5% | 2 2 66.6667% 33.3333% | 1 1 50% 50% | 0 0 -% -%\n"
            "juice [Juice]: 1 1 20% 12.5% | 1 1 33.3333% 16.6667% | 0 0 0% 0% | 0 0 -% -%\n");
}

TEST(TabulateTest, ColumnsAreTheMembersOfASetWhichOverlap) {
  const Tabulation table = Counted(Ask({"$drinks"}, {"$food", "$drinks"}));
  EXPECT_EQ(Described(table, "column"),
            "- [] [Total]: 8 = 5 answered + 2 none + 1 missing, base 5, weighted 5, effective 5, responses 8, per case "
            "1.6\n"
            "$food [jam] [Jam]: 3 = 3 answered + 0 none + 0 missing, base 3, weighted 3, effective 3, responses 3, per "
            "case 1\n"
            "$food [bun] [Bun]: 1 = 1 answered + 0 none + 0 missing, base 1, weighted 1, effective 1, responses 2, per "
            "case 2\n"
            "$food [egg] [Egg]: 3 = 2 answered + 1 none + 0 missing, base 2, weighted 2, effective 2, responses 4, per "
            "case 2\n"
            "$food [none] [none]: 2 = 0 answered + 2 none + 0 missing, base 0, weighted 0, effective -, responses 0, "
            "per case -\n"
            "$drinks [tea] [Tea]: 4 = 4 answered + 0 none + 0 missing, base 4, weighted 4, effective 4, responses 7, "
            "per case 1.75\n"
            "$drinks [milk] [milk]: 3 = 3 answered + 0 none + 0 missing, base 3, weighted 3, effective 3, responses 6, "
            "per case 2\n"
            "$drinks [juice] [Juice]: 1 = 1 answered + 0 none + 0 missing, base 1, weighted 1, effective 1, responses "
            "3, per case 3\n");
  EXPECT_EQ(Described(table, "row"),
            "tea [Tea]: 4 4 80% 50% | 2 2 66.6667% 66.6667% | 1 1 100% 50% | 2 2 100% 50% | 0 0 -% -% | 4 4 100% "
            "57.1429% | 2 2 66.6667% 33.3333% | 1 1 100% 33.3333%\n"
            "milk [milk]: 3 3 60% 37.5% | 1 1 33.3333% 33.3333% | 1 1 100% 50% | 1 1 50% 25% | 0 0 -% -% | 2 2 50% "
            "28.5714% | 3 3 100% 50% | 1 1 100% 33.3333%\n"
            "juice [Juice]: 1 1 20% 12.5% | 0 0 0% 0% | 0 0 0% 0% | 1 1 50% 25% | 0 0 -% -% | 1 1 25% 14.2857% | 1 1 "
            "33.3333% 16.6667% | 1 1 100% 33.3333%\n");
}

TEST(TabulateTest, ColumnsAreThePairsThatOccur) {
  const Tabulation table = Counted(Ask({"$drinks"}, {"region*food1"}));
  EXPECT_EQ(Described(table, "column"),
            "- [] [Total]: 8 = 5 answered + 2 none + 1 missing, base 5, weighted 5, effective 5, responses 8, per case "
            "1.6\n"
            "region*food1 [2,bun] [South,Bun]: 1 = 1 answered + 0 none + 0 missing, base 1, weighted 1, effective 1, "
            "responses 2, per case 2\n"
            "region*food1 [2,egg] [South,egg]: 2 = 2 answered + 0 none + 0 missing, base 2, weighted 2, effective 2, "
            "responses 4, per case 2\n"
            "region*food1 [1,jam] [North,Jam]: 2 = 2 answered + 0 none + 0 missing, base 2, weighted 2, effective 2, "
            "responses 2, per case 1\n"
            "region*food1 [3,none] [3,none]: 1 = 0 answered + 1 none + 0 missing, base 0, weighted 0, effective -, "
            "responses 0, per case -\n");
  EXPECT_EQ(Described(table, "row"),
            "tea [Tea]: 4 4 80% 50% | 1 1 100% 50% | 2 2 100% 50% | 1 1 50% 50% | 0 0 -% -%\n"
            "milk [milk]: 3 3 60% 37.5% | 1 1 100% 50% | 1 1 50% 25% | 1 1 50% 50% | 0 0 -% -%\n"
            "juice [Juice]: 1 1 20% 12.5% | 0 0 0% 0% | 1 1 50% 25% | 0 0 0% 0% | 0 0 -% -%\n");
}

TEST(TabulateTest, WeightsAreSummedAndCasesWithoutOneDoNotCount) {
  const TabulationRequest request =
      With(Ask({"$drinks"}, {"region"}), [](TabulationRequest& asked) { asked.weight = Say("W"); });
  EXPECT_EQ(
      Described(Counted(request)),
      "set $drinks [$drinks] answered, weight w, where -\n"
      "column - [] [Total]: 6 = 4 answered + 1 none + 1 missing, base 4, weighted 4.5, effective 3.24, responses "
      "6.5, per case 1.44444\n"
      "column region [2] [South]: 3 = 3 answered + 0 none + 0 missing, base 3, weighted 2.5, effective 2.77778, "
      "responses 4.5, per case 1.8\n"
      "column region [1] [North]: 2 = 1 answered + 0 none + 1 missing, base 1, weighted 2, effective 1, responses "
      "2, per case 1\n"
      "row tea [Tea]: 3 2.5 55.5556% 38.4615% | 3 2.5 100% 55.5556% | 0 0 0% 0%\n"
      "row milk [milk]: 3 3.5 77.7778% 53.8462% | 2 1.5 60% 33.3333% | 1 2 100% 100%\n"
      "row juice [Juice]: 1 0.5 11.1111% 7.69231% | 1 0.5 20% 11.1111% | 0 0 0% 0%\n"
      "note 2 cases are not counted: the weight is missing, zero or negative.\n"
      "note 1 case chose none and is not in the base; with BASE=ASKED it is 5.\n");
}

// R = 3/7: variance N/(N-1) R(1-R)/n with N = 8, n = 7; t(7) = 2.364624.
TEST(TabulateTest, ErrorsAreThoseOfARatio) {
  const TabulationRequest request = With(Ask({"$drinks"}, {"region"}), [](TabulationRequest& asked) {
    asked.base = TabulationBase::kAsked;
    asked.figures.interval = true;
  });
  EXPECT_EQ(Described(Counted(request), "row"),
            "tea [Tea]: 4 4 57.1429% 50% +-19.9958 9.86022..104.425 x0.979592 | 3 3 100% 50% +-0 100..100 x- | 1 1 50% "
            "50% +-37.7964 -39.3744..139.374 x0.571429 | 0 0 0% -% +-0 0..0 x-\n"
            "milk [milk]: 3 3 42.8571% 37.5% +-19.9958 -4.42549..90.1398 x0.979592 | 2 2 66.6667% 33.3333% +-29.0957 "
            "-2.13378..135.467 x0.761905 | 1 1 50% 50% +-37.7964 -39.3744..139.374 x0.571429 | 0 0 0% -% +-0 0..0 x-\n"
            "juice [Juice]: 1 1 14.2857% 12.5% +-14.1392 -19.1482..47.7196 x0.979592 | 1 1 33.3333% 16.6667% +-29.0957 "
            "-35.4671..102.134 x0.761905 | 0 0 0% 0% +-0 0..0 x- | 0 0 0% -% +-0 0..0 x-\n");
}

TEST(TabulateTest, WhereLeavesTheNumberOfCasesForErrorsAsItIs) {
  TabulationRequest request = Ask({"$drinks"});
  request.figures.standardError = true;
  request.where = Comparison("region", "=", "1");
  request.whereText = "region = 1";
  EXPECT_EQ(
      Described(Counted(request)),
      "set $drinks [$drinks] answered, weight -, where region = 1\n"
      "column - [] [Total]: 3 = 2 answered + 0 none + 1 missing, base 2, weighted 2, effective 2, responses 2, per "
      "case 1\n"
      "row tea [Tea]: 1 1 50% 50% +-37.7964 -39.3744..139.374 x0.571429\n"
      "row milk [milk]: 1 1 50% 50% +-37.7964 -39.3744..139.374 x0.571429\n"
      "row juice [Juice]: 0 0 0% 0% +-0 0..0 x-\n");
}

TEST(TabulateTest, WhereSelectsCases) {
  struct Row {
    std::string what;
    Condition where;
    int cases;
  };
  const std::vector<Row> rows = {
      {"=", Comparison("region", "=", "1.0"), 3},
      {"<>, of those that have a value", Comparison("region", "<>", "1"), 4},
      {"<", Comparison("region", "<", "2"), 3},
      {"<=", Comparison("region", "<=", "2"), 6},
      {">", Comparison("region", ">", "2"), 1},
      {">=", Comparison("region", ">=", "2"), 4},
      {"text =, without blanks at its ends", Comparison("food1", "=", "' egg '"), 2},
      {"text <>", Comparison("food2", "<>", "'egg'"), 2},
      {"text <, by bytes", Comparison("food1", "<", "'egg'"), 1},
      {"text >", Comparison("food1", ">", "'egg'"), 4},
      {"IN", IsIn("region", {"1", "3", "9"}), 4},
      {"text IN", IsIn("food1", {"'egg'", "'bun'"}), 3},
      {"MISSING", IsMissing("region"), 1},
      {"a text that is blank is MISSING", IsMissing("food2"), 4},
      {"HAS a variable", Has("$drinks", "MILK"), 3},
      {"HAS a value", Has("$food", "egg"), 3},
      {"HAS a value that nobody has who is left", All({Comparison("region", "=", "1"), Has("$food", "bun")}), 0},
      {"NOT, also where the cell is missing", Not(Comparison("region", "=", "1")), 5},
      {"AND", All({Comparison("region", "=", "1"), Has("$drinks", "tea")}), 1},
      {"OR", Any({Comparison("region", "=", "1"), Has("$drinks", "tea")}), 6},
      {"nested", Not(Any({IsMissing("region"), All({Has("$drinks", "tea"), Comparison("one", "=", "1")})})), 3},
      {"a constant", Comparison("one", "=", "2"), 0},
  };
  for (const MemorySource::Form form :
       {MemorySource::Form::kCodes, MemorySource::Form::kWideCodes, MemorySource::Form::kPlain}) {
    for (const Row& row : rows) {
      MemorySource source = Breakfast(8).In(form);
      TabulationRequest request = Ask({"$drinks"});
      request.where = row.where;
      EXPECT_EQ(Tabulate(request, source).at(0).columns.at(0).cases.all, row.cases) << row.what;
    }
  }
}

TEST(TabulateTest, ValuesThatWhereLeavesNobodyAreNoRowsAndNoColumns) {
  TabulationRequest request = Ask({"$food"}, {"region"});
  request.where = Comparison("food1", "=", "'jam'");
  const Tabulation table = Counted(request);
  EXPECT_EQ(Described(table, "row"), "jam [Jam]: 2 2 100% 100% | 2 2 100% 100%\n");
  EXPECT_EQ(table.columns.size(), 2U);
  EXPECT_EQ(table.columns[1].values, Texts{"1"});
}

TEST(TabulateTest, NetsCountTheCasesThatChoseAnyOfTheirMembers) {
  TabulationRequest request = Ask({"$drinks"}, {"region"});
  request.nets = {{Say("'Not tea'"), SayAll({"MILK", "juice"})}, {Say("'Tea alone'"), SayAll({"tea"})}};
  EXPECT_EQ(Described(Counted(request), "net"),
            "Not tea [Not tea]: 3 3 60% -% | 2 2 66.6667% -% | 1 1 50% -% | 0 0 -% -%\n"
            "Tea alone [Tea alone]: 4 4 80% -% | 3 3 100% -% | 1 1 50% -% | 0 0 -% -%\n");
}

TEST(TabulateTest, ANetOfSeveralSetsIsGivenToThoseThatHaveAMemberOfIt) {
  TabulationRequest request = Ask({"$drinks", "$food"});
  request.nets = {{Say("'Egg or bun'"), SayAll({"egg", "bun"})}, {Say("'Milk'"), SayAll({"milk"})}};
  MemorySource source = Breakfast();
  const std::vector<Tabulation> tables = Tabulate(request, source);
  ASSERT_EQ(tables.size(), 2U);
  EXPECT_EQ(Described(tables[0], "net"), "Milk [Milk]: 3 3 60% -%\n");
  EXPECT_EQ(Described(tables[1], "net"), "Egg or bun [Egg or bun]: 4 4 57.1429% -%\n");
}

TEST(TabulateTest, RowsAreSortedByTheTotalAndSomeAreKeptForTheEnd) {
  struct Row {
    Sort sort;
    Texts last;
    Texts members;
  };
  const std::vector<Row> rows = {{Sort::kNone, {}, {"jam", "bun", "egg", "none"}},
                                 {Sort::kDescending, {}, {"jam", "egg", "none", "bun"}},
                                 {Sort::kAscending, {}, {"bun", "none", "jam", "egg"}},
                                 {Sort::kNone, {"egg", "jam"}, {"bun", "none", "egg", "jam"}},
                                 {Sort::kDescending, {"jam"}, {"egg", "none", "bun", "jam"}}};
  for (const Row& row : rows) {
    TabulationRequest request = Ask({"$food"});
    request.sort = row.sort;
    request.last = SayAll(row.last);
    Texts members;
    for (const TabulationRow& one : Counted(request).rows) {
      members.push_back(one.member);
    }
    EXPECT_EQ(members, row.members);
  }
}

TEST(TabulateTest, CountsThatDifferByRoundingAloneAreSortedAsTheSame) {
  MemorySource source(3);
  source.AddNumeric("one", {"0", "0", "1"});  // 0.3, and the other 0.1 + 0.2, which is a little more
  source.AddNumeric("two", {"1", "1", "0"});
  source.AddNumeric("w", {"0.1", "0.2", "0.3"});
  source.AddDichotomies("$s", {"one", "two"});
  for (const Sort sort : {Sort::kDescending, Sort::kAscending}) {
    TabulationRequest request = Ask({"$s"});
    request.weight = Say("w");
    request.sort = sort;
    EXPECT_EQ(Counted(request, source).rows[0].member, "one");
  }
}

TEST(TabulateTest, LabelsComeFromWhereTheSetSays) {
  MemorySource source = Breakfast();
  source.AddSet({"$a", SetType::kDichotomy, "Own", "1", false, false, {"milk", "tea"}});
  source.AddSet({"$b", SetType::kDichotomy, "", "+1.0", true, true, {"milk", "tea", "juice"}});
  source.AddSet({"$c", SetType::kDichotomy, "", "1", true, false, {"milk", "w"}});
  const auto labelsOf = [&source](const std::string& set) {
    TabulationRequest request = Ask({set});
    const Tabulation table = Tabulate(request, source).at(0);
    Texts labels = {table.label};
    for (const TabulationRow& row : table.rows) {
      labels.push_back(row.label);
    }
    return labels;
  };
  EXPECT_EQ(labelsOf("$a"), (Texts{"Own", "milk", "Tea"}));
  EXPECT_EQ(labelsOf("$b"), (Texts{"Tea", "Often", "Yes", "juice"}));
  EXPECT_EQ(labelsOf("$c"), (Texts{"$c", "milk", "w"}));
}

TEST(TabulateTest, PercentagesOfSmallBasesAreLeftOutWhereMinbaseSaysSo) {
  TabulationRequest request = Ask({"$drinks"}, {"region"});
  request.minBase = 3;
  request.figures.standardError = true;
  const Tabulation table = Counted(request);
  EXPECT_EQ(table.minBase, 3);
  EXPECT_EQ(Described(table, "row"),
            "tea [Tea]: 4 4 80% 50% +-19.1237 34.7797..125.22 x0.914286 | 3 3 100% 50% +-0 100..100 x- | 1 1 -% -% +-- "
            "-..- x- | 0 0 -% -% +-- -..- x-\n"
            "milk [milk]: 3 3 60% 37.5% +-23.4216 4.61671..115.383 x0.914286 | 2 2 66.6667% 33.3333% +-29.0957 "
            "-2.13378..135.467 x0.761905 | 1 1 -% -% +-- -..- x- | 0 0 -% -% +-- -..- x-\n"
            "juice [Juice]: 1 1 20% 12.5% +-19.1237 -25.2203..65.2203 x0.914286 | 1 1 33.3333% 16.6667% +-29.0957 "
            "-35.4671..102.134 x0.761905 | 0 0 -% -% +-- -..- x- | 0 0 -% -% +-- -..- x-\n");
  EXPECT_EQ(Described(table, "note"),
            "2 cases chose none and are not in the base; with BASE=ASKED it is 7.\n"
            "The base is under 3 in 2 columns, which show no percentages: region North (2) and region 3 (0).\n");
}

TEST(TabulateTest, NotesSayWhatAReaderShouldKnow) {
  TabulationRequest request = Ask({"$old"}, {"region", "$food", "region*food1", "$older"});
  request.weight = Say("w");
  MemorySource source = Breakfast();
  source.AddDichotomies("$old", {"tea", "beer", "milk"});
  source.AddDichotomies("$older", {"v1", "v2", "tea", "v3", "v4", "v5", "v6", "v7", "v8", "v9", "v10", "v11", "v12"});
  EXPECT_EQ(
      Described(Counted(request, source), "note"),
      "1 variable of $old is not in the dataset any more: beer.\n"
      "12 variables of $older are not in the dataset any more: v1, v2, v3, v4, v5, v6, v7, v8, v9, v10 and 2 "
      "more.\n"
      "2 cases are not counted: the weight is missing, zero or negative.\n"
      "1 case chose none and is not in the base; with BASE=ASKED it is 5.\n"
      "2 cases gave one category of $food more than once; it counts once.\n"
      "The base is under 30 in 11 columns: Total (4), region South (3), region North (1), $food Jam (2), $food Bun "
      "(1), $food Egg (2), $food none (0), region*food1 South, Bun (1), region*food1 South, egg (2), region*food1 "
      "North, Jam (1) and 1 more.\n");
}

TEST(TabulateTest, OneIsSaidInTheSingular) {
  MemorySource source;
  source.AddNumeric("a", {"1", "0", "1"});
  source.AddNumeric("w", {"1", "1", "0"});
  source.AddDichotomies("$a", {"a"});
  TabulationRequest request = Ask({"$a"});
  request.weight = Say("w");
  EXPECT_EQ(Described(Counted(request, source), "note"),
            "1 case is not counted: the weight is missing, zero or negative.\n"
            "1 case chose none and is not in the base; with BASE=ASKED it is 2.\n"
            "The base is under 30 in 1 column: Total (1).\n");
}

TEST(TabulateTest, WithoutCasesThereAreNoFigures) {
  MemorySource source;
  source.AddNumeric("a", {});
  source.AddDichotomies("$a", {"a"});
  source.AddCategories("$b", {"a"});
  TabulationRequest request = Ask({"$a", "$b"}, {"a"});
  request.figures.standardError = true;
  request.test = Adjustment::kHolm;
  const std::vector<Tabulation> tables = Tabulate(request, source);
  const std::string column =
      "column - [] [Total]: 0 = 0 answered + 0 none + 0 missing, base 0, weighted 0, effective -, responses 0, per "
      "case "
      "-\n";
  const std::string notes =
      "note The base is under 30 in 1 column: Total (0).\n"
      "note There is no test by a: its base is under 2.\n";
  EXPECT_EQ(Described(tables.at(0)),
            "set $a [$a] answered, weight -, where -\n" + column + "row a [a]: 0 0 -% -% +-- -..- x-\n" + notes);
  EXPECT_EQ(Described(tables.at(1)), "set $b [$b] answered, weight -, where -\n" + column + notes);
}

TEST(TabulateTest, ABySetWithoutAMemberHasNoTest) {
  MemorySource source;
  source.AddNumeric("a", {"1", "0", "1"});
  source.AddString("none", {"b", "b", ""});
  source.AddDichotomies("$a", {"a"});
  source.AddCategories("$m", {"none"});
  TabulationRequest request = Ask({"$a"}, {"$m"});
  request.base = TabulationBase::kAll;
  request.none = Say("'b'");
  request.test = Adjustment::kHolm;
  const Tabulation table = Counted(request, source);
  EXPECT_TRUE(table.tests.empty());
  EXPECT_EQ(Described(table, "note"),
            "The base is under 30 in 1 column: Total (3).\n"
            "There is no test by $m: it has no category.\n");
}

TEST(TabulateTest, WhereAllCasesChoseTheSameThereIsNoTest) {
  MemorySource source;
  source.AddNumeric("a", {"1", "1", "0", "1"});
  source.AddNumeric("b", {"1", "0", "", "1"});
  source.AddNumeric("c", {"1", "1", "", "1"});
  source.AddNumeric("r", {"1", "2", "1", "2"});
  source.AddDichotomies("$a", {"a"});
  source.AddDichotomies("$ab", {"a", "b"});
  source.AddCategories("$c", {"c"});
  TabulationRequest request = Ask({"$ab"}, {"$c", "r", "$a"});
  request.minBase = 1;
  request.test = Adjustment::kHolm;
  Tabulation table = Counted(request, source);
  EXPECT_EQ(table.tests.size(), 1U);
  EXPECT_EQ(Described(table, "note"),
            "1 case chose none and is not in the base; with BASE=ASKED it is 4.\n"
            "There is no test by $c: all cases in its base chose the same of its members.\n"
            "There is no test by $a: all cases in its base chose the same of its members.\n");
  request.sets = SayAll({"$a"});
  table = Counted(request, source);
  EXPECT_TRUE(table.tests.empty());
  EXPECT_EQ(Described(table, "note"),
            "1 case chose none and is not in the base; with BASE=ASKED it is 4.\n"
            "There is no test by $c: all cases in its base chose the same of its members.\n"
            "There is no test by r: all cases in its base chose the same members of the set.\n"
            "There is no test by $a: all cases in its base chose the same of its members.\n");
}

/// Categories of a set and a BY, each of which some cases have.
TabulationTest TestOf(std::size_t members, std::size_t columns, bool isSet, std::vector<std::string>& notes) {
  Texts chosen;
  Texts column;
  for (std::size_t index = 0; index < 2 * members * columns; ++index) {
    chosen.push_back(std::to_string(index % members));
    column.push_back(std::to_string((index * index) % columns));
  }
  MemorySource source(1000);
  source.AddNumeric("a", chosen);
  source.AddNumeric("b", column);
  source.AddCategories("$a", {"a"});
  source.AddCategories("$b", {"b"});
  TabulationRequest request = Ask({"$a"}, {isSet ? "$b" : "b"});
  request.minBase = 1;
  request.test = Adjustment::kHolm;
  const Tabulation table = Counted(request, source);
  notes = table.notes;
  return table.tests.at(0);
}

TEST(TabulateTest, ATestIsCorrectedUpToFourMillionSums) {
  std::vector<std::string> notes;
  EXPECT_TRUE(TestOf(17, 23, true, notes).corrected.has_value());
  EXPECT_EQ(notes, Texts{});
  const TabulationTest ofColumns = TestOf(3000, 2, false, notes);
  EXPECT_TRUE(ofColumns.statistic.has_value());
  EXPECT_EQ(ofColumns.corrected, std::nullopt);
  EXPECT_EQ(notes, Texts{"The test by b is not corrected: there are too many members and categories."});
  const TabulationTest ofSets = TestOf(101, 97, true, notes);
  EXPECT_TRUE(ofSets.statistic.has_value());
  EXPECT_EQ(ofSets.corrected, std::nullopt);
  EXPECT_EQ(notes, Texts{"The test by $b is not corrected: there are too many members and categories."});
}

TEST(TabulateTest, TheTestsOfACommandShareTheSums) {
  MemorySource source(700);
  Texts members;
  Texts columns;
  for (std::size_t place = 0; place < 2000; ++place) {
    members.push_back(std::to_string(place % 53));
    columns.push_back(std::to_string(place * place % 1009));  // has 505 values
  }
  source.AddNumeric("a", members);
  source.AddNumeric("b", columns);
  source.AddNumeric("c", members);
  source.AddCategories("$a", {"a"});
  source.AddCategories("$c", {"c"});
  TabulationRequest request = Ask({"$a"}, {"b", "c"});
  request.minBase = 1;
  request.test = Adjustment::kHolm;
  EXPECT_EQ(Described(Counted(request, source), "note"), "");
  request.sets = SayAll({"$a", "$c", "$a"});
  for (const Tabulation& table : Tabulate(request, source)) {
    EXPECT_EQ(Described(table, "note"), "The test by b is not corrected: there are too many members and categories.\n");
  }
}

TEST(TabulateTest, ACovarianceOfNothingButRoundingCorrectsNothing) {
  MemorySource source;
  source.AddNumeric("a", {"1", "3"});
  source.AddNumeric("b", {"2", "4"});
  source.AddNumeric("r", {"1", "2"});
  source.AddNumeric("w", {"0.3", "0.3"});
  source.AddCategories("$s", {"a", "b"});
  TabulationRequest request = Ask({"$s"}, {"r"});
  request.weight = Say("w");
  request.test = Adjustment::kHolm;
  request.minBase = 1;
  const Tabulation table = Counted(request, source);
  EXPECT_EQ(Described(table, "note"),
            "The test by r is not corrected: the estimated covariance of its members is 0.\n");
  const TabulationTest& test = table.tests.at(0);
  EXPECT_EQ(test.statistic, 8);
  EXPECT_EQ(test.corrected, std::nullopt);
  EXPECT_EQ(test.degreesOfFreedom, std::nullopt);
  EXPECT_EQ(test.p, std::nullopt);
}

TEST(TabulateTest, EachColumnIsReadOnceInABlock) {
  MemorySource source = Breakfast(4);
  TabulationRequest request = Ask({"$drinks", "$food"}, {"region", "$food", "region*tea"});
  request.weight = Say("w");
  request.where = Has("$drinks", "tea");
  std::vector<std::pair<std::size_t, std::size_t>> progress;
  Tabulate(request, source, [&progress](std::size_t done, std::size_t cases) { progress.emplace_back(done, cases); });
  EXPECT_EQ(source.Reads(), 2U * 7);
  EXPECT_THAT(progress, testing::ElementsAre(testing::Pair(4, 8), testing::Pair(8, 8)));
}

}  // namespace
}  // namespace standalone
