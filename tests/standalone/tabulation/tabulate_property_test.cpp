#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include "standalone/tabulation/tabulate.h"
#include "tests/standalone/tabulation/memory_source.h"
#include "tests/standalone/tabulation/naive_tabulation.h"
#include "tests/standalone/tabulation/request_words.h"

namespace standalone {
namespace {

using Texts = std::vector<std::string>;

/// A case: four dichotomies, three categories, region, sex, group, weight, as small numbers.
using Case = std::vector<int>;
using Cases = std::vector<Case>;

constexpr std::size_t kCells = 11;
constexpr int kMostOfCell = 24;

const Texts& NamesOfCells() {
  static const Texts names = {"d1", "d2", "d3", "d4", "f1", "f2", "f3", "region", "sex", "group", "w"};
  return names;
}

/// The cell that a number stands for, where each of `values` is as likely as the other.
std::string CellOf(int number, const Texts& values) {
  return values[static_cast<std::size_t>(number) % values.size()];
}

std::string CellOf(std::size_t variable, int number) {
  if (variable < 4) {
    return CellOf(number, {"", "0", "1", "1", "0", "2"});
  }
  if (variable < 7) {
    return CellOf(number, {"", "1", "2", "3", "4", "-1", "", "1"});
  }
  const std::vector<Texts> others = {{"", "1", "2", "3"},
                                     {"", "1", "2", "1"},
                                     {"1", "2", "3", "4", "5", "6"},
                                     {"1", "0.5", "2.25", "", "0", "-1", "3"}};
  return CellOf(number, others[variable - 7]);
}

/// Variables as texts, the sets $d and $f, and the same dichotomies as categories, $e.
MemorySource SourceOf(const Cases& cases) {
  MemorySource source;
  for (std::size_t variable = 0; variable < kCells; ++variable) {
    Texts cells;
    for (const Case& one : cases) {
      cells.push_back(CellOf(variable, one[variable]));
    }
    source.AddNumeric(NamesOfCells()[variable], cells);
  }
  source.AddDichotomies("$d", {"d1", "d2", "d3", "d4"});
  source.AddCategories("$f", {"f1", "f2", "f3"});
  source.AddDichotomies("$one", {"d2"});
  return source;
}

rc::Gen<Cases> AnyCases() {
  return rc::gen::container<Cases>(rc::gen::container<Case>(kCells, rc::gen::inRange(0, kMostOfCell)));
}

/// Any request on $d or $f but for MINBASE and the order of rows.
TabulationRequest AnyRequest() {
  const bool isCategory = *rc::gen::arbitrary<bool>();
  const std::vector<Texts> byLists = {{}, {"region"}, {"$f"}, {"$d", "sex"}, {"region*sex"}, {"group", "region*group"}};
  TabulationRequest request = Ask({isCategory ? "$f" : "$d"}, *rc::gen::elementOf(byLists));
  request.base = static_cast<TabulationBase>(*rc::gen::inRange(0, 4));
  const auto isIn = [](const Texts& list, const std::string& word) {
    return std::find(list.begin(), list.end(), word) != list.end();
  };
  Texts by;
  for (const ByRequest& one : request.by) {
    by.push_back(one.first.text);
  }
  if ((isCategory || isIn(by, "$f")) && *rc::gen::arbitrary<bool>()) {
    request.none = Say("-1");
  }
  if (*rc::gen::arbitrary<bool>()) {
    request.weight = Say("w");
  }
  if (*rc::gen::inRange(0, 3) == 0) {
    request.where = Comparison("group", *rc::gen::element<std::string>("=", "<>", "<", "<=", ">", ">="),
                               *rc::gen::element<std::string>("1", "3", "6"));
  }
  if (!isCategory && *rc::gen::arbitrary<bool>()) {
    request.nets = {{Say("net"), SayAll({"d1", "d3"})}};
  }
  request.figures.standardError = *rc::gen::arbitrary<bool>();
  request.confidence = *rc::gen::element(90.0, 95.0, 99.9);
  if (*rc::gen::arbitrary<bool>()) {
    request.test = *rc::gen::element(Adjustment::kHolm, Adjustment::kBonferroni);
  }
  return request;
}

/// Whether two figures differ by rounding alone. `scale`: the size of what they were computed from.
bool AreNear(const Figure& first, const Figure& second, double scale = 1) {
  constexpr double kRounding = 1e-9;
  return first.has_value() == second.has_value() &&
         (!first || std::abs(*first - *second) <= kRounding * std::max({scale, std::abs(*first), std::abs(*second)}));
}

bool IsSame(const TabulationColumn& first, const TabulationColumn& second) {
  const TabulatedCases& a = first.cases;
  const TabulatedCases& b = second.cases;
  return first.by == second.by && first.values == second.values && a.all == b.all && a.answered == b.answered &&
         a.noneChosen == b.noneChosen && a.missing == b.missing && a.base == b.base &&
         AreNear(first.weightedBase, second.weightedBase) && AreNear(first.effectiveBase, second.effectiveBase) &&
         AreNear(first.responses, second.responses) && AreNear(first.responsesPerCase, second.responsesPerCase);
}

bool IsSame(const TabulationCell& first, const TabulationCell& second) {
  constexpr double kScaleOfErrors = 1e4;  // the root of a rounded 0
  return first.cases == second.cases && AreNear(first.count, second.count) &&
         AreNear(first.percentOfCases, second.percentOfCases) &&
         AreNear(first.percentOfResponses, second.percentOfResponses) &&
         AreNear(first.standardError, second.standardError, kScaleOfErrors) &&
         AreNear(first.low, second.low, kScaleOfErrors) && AreNear(first.high, second.high, kScaleOfErrors) &&
         AreNear(first.designEffect, second.designEffect);
}

bool IsSame(const TabulationRow& first, const TabulationRow& second) {
  return first.member == second.member && first.isNet == second.isNet &&
         std::equal(first.cells.begin(), first.cells.end(), second.cells.begin(), second.cells.end(),
                    [](const TabulationCell& a, const TabulationCell& b) { return IsSame(a, b); });
}

bool IsSame(const MemberTest& first, const MemberTest& second) {
  return first.member == second.member && first.byMember == second.byMember &&
         first.degreesOfFreedom == second.degreesOfFreedom && AreNear(first.statistic, second.statistic) &&
         AreNear(first.p, second.p) && AreNear(first.adjustedP, second.adjustedP);
}

bool IsSame(const TabulationTest& first, const TabulationTest& second) {
  return first.by == second.by && AreNear(first.statistic, second.statistic) &&
         AreNear(first.corrected, second.corrected) && AreNear(first.degreesOfFreedom, second.degreesOfFreedom) &&
         AreNear(first.p, second.p) &&
         std::equal(first.members.begin(), first.members.end(), second.members.begin(), second.members.end(),
                    [](const MemberTest& a, const MemberTest& b) { return IsSame(a, b); });
}

template <class Part>
bool AreSame(const std::vector<Part>& first, const std::vector<Part>& second) {
  return std::equal(first.begin(), first.end(), second.begin(), second.end(),
                    [](const Part& a, const Part& b) { return IsSame(a, b); });
}

bool IsSame(const Tabulation& first, const Tabulation& second) {
  return AreSame(first.columns, second.columns) && AreSame(first.rows, second.rows) &&
         AreSame(first.tests, second.tests);
}

void RequireSame(const Tabulation& first, const Tabulation& second) {
  if (!IsSame(first, second)) {
    RC_FAIL("is:\n" + Described(first) + "and should be:\n" + Described(second));
  }
}

Tabulation Count(const TabulationRequest& request, MemorySource source) {
  return Tabulate(request, source).at(0);
}

/// What is tested naively has a test even where there is nothing to test.
void KeepTestsThatAre(const Tabulation& table, Tabulation& naive) {
  const auto isNot = [&table](const TabulationTest& test) {
    return std::none_of(table.tests.begin(), table.tests.end(),
                        [&test](const TabulationTest& other) { return other.by == test.by; });
  };
  for (const TabulationTest& test : naive.tests) {
    if (isNot(test)) {
      const std::string beginning = "There is no test by " + test.by + ":";
      RC_ASSERT(std::any_of(table.notes.begin(), table.notes.end(),
                            [&](const std::string& note) { return note.rfind(beginning, 0) == 0; }));
      RC_ASSERT(!test.degreesOfFreedom);
    }
  }
  naive.tests.erase(std::remove_if(naive.tests.begin(), naive.tests.end(), isNot), naive.tests.end());
}

RC_GTEST_PROP(TabulateProperty, EachFigureIsThatOfItsDefinition, ()) {
  MemorySource source = SourceOf(*AnyCases());
  const TabulationRequest request = AnyRequest();
  const Tabulation table = Count(request, source.InBlocksOf(*rc::gen::element<std::size_t>(1, 7, 64, 1000)));
  Tabulation naive = CountNaively(request, source);
  KeepTestsThatAre(table, naive);
  RequireSame(table, naive);
}

RC_GTEST_PROP(TabulateProperty, FormsOfBlocksAndTheirSizesMakeNoDifference, ()) {
  const MemorySource source = SourceOf(*AnyCases());
  const TabulationRequest request = AnyRequest();
  const Tabulation table = Count(request, source);
  const auto form =
      *rc::gen::element(MemorySource::Form::kCodes, MemorySource::Form::kWideCodes, MemorySource::Form::kPlain);
  const std::size_t size = *rc::gen::element<std::size_t>(1, 5, 65, 1000);
  const Tabulation other = Count(request, source.In(form).InBlocksOf(size));
  RequireSame(other, table);
  RC_ASSERT(other.notes == table.notes);
}

RC_GTEST_PROP(TabulateProperty, TheOrderOfCasesMakesNoDifference, ()) {
  Cases cases = *AnyCases();
  const TabulationRequest request = AnyRequest();
  const Tabulation table = Count(request, SourceOf(cases));
  std::shuffle(cases.begin(), cases.end(), std::mt19937(*rc::gen::arbitrary<unsigned>()));
  const Tabulation other = Count(request, SourceOf(cases));
  RequireSame(other, table);
  RC_ASSERT(other.notes == table.notes);
}

RC_GTEST_PROP(TabulateProperty, WeightsOfOneChangeNothing, ()) {
  TabulationRequest request = AnyRequest();
  request.weight.reset();
  MemorySource source = SourceOf(*AnyCases());
  source.AddNumeric("ones", Texts(source.CaseCount(), "1"));
  const Tabulation table = Count(request, source);
  request.weight = Say("ones");
  RequireSame(Count(request, source), table);
}

/// A copy without what knows how many cases there are.
Tabulation WithoutErrorsAndTests(Tabulation table) {
  table.tests.clear();
  for (TabulationRow& row : table.rows) {
    for (TabulationCell& cell : row.cells) {
      cell.standardError = cell.low = cell.high = cell.designEffect = std::nullopt;
    }
  }
  return table;
}

/// With every count twice.
Tabulation Doubled(Tabulation table, bool withCases) {
  for (TabulationColumn& column : table.columns) {
    TabulatedCases& cases = column.cases;
    for (std::int64_t* number : {&cases.all, &cases.answered, &cases.noneChosen, &cases.missing, &cases.base}) {
      *number *= withCases ? 2 : 1;
    }
    column.weightedBase *= 2;
    column.responses *= 2;
    column.effectiveBase = column.effectiveBase ? Figure(*column.effectiveBase * (withCases ? 2 : 1)) : std::nullopt;
  }
  for (TabulationRow& row : table.rows) {
    for (TabulationCell& cell : row.cells) {
      cell.cases *= withCases ? 2 : 1;
      cell.count *= 2;
    }
  }
  return table;
}

RC_GTEST_PROP(TabulateProperty, EveryCaseTwiceDoublesCountsAndKeepsPercentages, ()) {
  Cases cases = *AnyCases();
  const TabulationRequest request = AnyRequest();
  const Tabulation table = Count(request, SourceOf(cases));
  const Cases same = cases;
  cases.insert(cases.end(), same.begin(), same.end());
  RequireSame(WithoutErrorsAndTests(Count(request, SourceOf(cases))), Doubled(WithoutErrorsAndTests(table), true));
}

RC_GTEST_PROP(TabulateProperty, AWeightOfTwoIsACaseTwiceButForErrors, ()) {
  TabulationRequest request = AnyRequest();
  request.weight.reset();
  MemorySource source = SourceOf(*AnyCases());
  source.AddNumeric("twos", Texts(source.CaseCount(), "2"));
  const Tabulation table = Count(request, source);
  request.weight = Say("twos");
  RequireSame(WithoutErrorsAndTests(Count(request, source)), Doubled(WithoutErrorsAndTests(table), false));
}

/// The set of dichotomies' answers as categories: the number of the variable where it was chosen, else 9; missing where
/// the variable is.
MemorySource AsCategories(const Cases& cases) {
  MemorySource source = SourceOf(cases);
  Texts names;
  for (std::size_t variable = 0; variable < 4; ++variable) {
    Texts cells;
    for (const Case& one : cases) {
      const std::string cell = CellOf(variable, one[variable]);
      cells.push_back(cell == "1" ? std::to_string(variable + 1) : cell.empty() ? "" : "9");
    }
    names.push_back("c" + std::to_string(variable + 1));
    source.AddNumeric(names.back(), cells);
  }
  source.AddCategories("$c", names);
  return source;
}

RC_GTEST_PROP(TabulateProperty, ADichotomySetAndTheSameAnswersAsCategoriesGiveTheSameTable, ()) {
  const MemorySource source = AsCategories(*AnyCases());
  TabulationRequest request = Ask({"$d"}, *rc::gen::elementOf(std::vector<Texts>{{"region"}, {"$f"}, {"region*sex"}}));
  request.base = static_cast<TabulationBase>(*rc::gen::inRange(0, 4));
  request.test = Adjustment::kHolm;
  request.figures.interval = true;
  Tabulation dichotomies = Count(request, source);
  request.sets = SayAll({"$c"});
  request.none = Say("9");
  Tabulation categories = Count(request, source);
  // Of a category set, a member that nobody chose is none. 9 is none in $f either.
  const auto isChosen = [](const TabulationRow& row) { return row.cells[0].cases > 0; };
  for (Tabulation* table : {&dichotomies, &categories}) {
    table->tests.clear();
    table->rows.erase(std::stable_partition(table->rows.begin(), table->rows.end(), isChosen), table->rows.end());
  }
  for (TabulationRow& row : categories.rows) {
    row.member = "d" + row.member;
  }
  RequireSame(categories, dichotomies);
}

RC_GTEST_PROP(TabulateProperty, TheColumnsOfABYAndTheCasesMissingInItAddUpToTheTotal, ()) {
  const MemorySource source = SourceOf(*AnyCases());
  const std::string by = *rc::gen::element<std::string>("region", "group", "sex");
  TabulationRequest request = AnyRequest();
  request.by = Ask({}, {by}).by;
  request.none.reset();
  Tabulation table = Count(request, source);
  request.where = request.where ? All({*request.where, IsMissing(by)}) : IsMissing(by);
  const Tabulation missing = Count(request, source);
  TabulationColumn sum = missing.columns[0];
  for (std::size_t column = 1; column < table.columns.size(); ++column) {
    sum.cases.all += table.columns[column].cases.all;
    sum.cases.base += table.columns[column].cases.base;
    sum.responses += table.columns[column].responses;
  }
  RC_ASSERT(sum.cases.all == table.columns[0].cases.all);
  RC_ASSERT(sum.cases.base == table.columns[0].cases.base);
  RC_ASSERT(AreNear(sum.responses, table.columns[0].responses));
  for (const TabulationRow& row : table.rows) {
    std::int64_t cases = 0;
    for (std::size_t column = 1; column < row.cells.size(); ++column) {
      cases += row.cells[column].cases;
    }
    for (const TabulationRow& other : missing.rows) {
      cases += other.member == row.member ? other.cells[0].cases : 0;
    }
    RC_ASSERT(cases == row.cells[0].cases);
  }
}

RC_GTEST_PROP(TabulateProperty, ANetOfOneMemberIsThatMember, ()) {
  TabulationRequest request = AnyRequest();
  request.sets = SayAll({"$d"});
  request.nets = {{Say("net"), SayAll({"d2"})}};
  request.none.reset();
  const Tabulation table = Count(request, SourceOf(*AnyCases()));
  TabulationRow member = table.rows[1];
  const TabulationRow& net = table.rows[4];
  RC_ASSERT(member.member == "d2");
  RC_ASSERT(net.isNet);
  member.member = "net";
  member.isNet = true;
  for (TabulationCell& cell : member.cells) {
    cell.percentOfResponses.reset();
  }
  RC_ASSERT(IsSame(net, member));
}

/// In the order of the naive count.
Tabulation Sorted(Tabulation table) {
  std::sort(table.columns.begin(), table.columns.end(), [](const TabulationColumn& a, const TabulationColumn& b) {
    return std::tie(a.by, a.values) < std::tie(b.by, b.values);
  });
  return table;
}

/// More cases than a chunk holds, some of a variable with many values.
MemorySource ManyCases() {
  constexpr std::size_t kCases = 4201;
  std::mt19937 random(7);
  Cases cases(kCases, Case(kCells));
  Texts wide;
  for (Case& one : cases) {
    std::generate(one.begin(), one.end(), [&random] { return static_cast<int>(random() % kMostOfCell); });
    wide.push_back(random() % 5 == 0 ? "" : std::to_string(random() % 300));
  }
  MemorySource source = SourceOf(cases);
  source.AddNumeric("wide", wide);
  return source;
}

void ExpectNaive(const TabulationRequest& request, MemorySource source) {
  const Tabulation naive = Sorted(CountNaively(request, source));
  for (const std::size_t size : {1000U, 65536U}) {
    const Tabulation table = Sorted(Count(request, source.InBlocksOf(size)));
    EXPECT_TRUE(AreSame(table.columns, naive.columns)) << request.sets[0].text << " in blocks of " << size;
    EXPECT_TRUE(AreSame(table.tests, naive.tests)) << Described(table, "test") << Described(naive, "test");
  }
}

TEST(TabulateLarge, ManyCasesAndValuesAreCountedAsFewAre) {
  const MemorySource source = ManyCases();
  ExpectNaive(Ask({"$f"}, {"wide"}), source);
  TabulationRequest request = Ask({"$d"}, {"wide*sex"});
  request.weight = Say("w");
  ExpectNaive(request, source);
  request.by = Ask({}, {"group", "$f"}).by;
  request.none = Say("-1");
  request.test = Adjustment::kHolm;
  ExpectNaive(request, source);
}

}  // namespace
}  // namespace standalone
