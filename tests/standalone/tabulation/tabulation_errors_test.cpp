#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "standalone/storage/interrupt.h"
#include "standalone/tabulation/tabulate.h"
#include "standalone/tabulation/tabulation_error.h"
#include "standalone/text/error.h"
#include "tests/standalone/tabulation/memory_source.h"
#include "tests/standalone/tabulation/request_words.h"

namespace standalone {
namespace {

using Texts = std::vector<std::string>;

MemorySource Survey() {
  MemorySource source;
  source.AddNumeric("drink1", {"1", "0", "1"});
  source.AddNumeric("drink2", {"0", "1", ""});
  source.AddString("region", {"N", "S", ""});
  source.AddString("food1", {"egg", "butter", ""}, {{"bread", "Bread"}});
  source.AddNumeric("code1", {"1", "2", "99"});
  source.AddDichotomies("$drinks", {"drink1", "drink2"});
  source.AddCategories("$food", {"food1"});
  source.AddCategories("$codes", {"code1"});
  source.AddDichotomies("$gone", {"v1", "v2"});
  source.AddDichotomies("$mixed", {"drink1", "region"});
  return source;
}

struct Row {
  std::string sentence;
  TabulationRequest request;
  Spoken about;  ///< only the place
  std::optional<std::string> nearest = std::nullopt;
};

void ExpectError(const Row& row, MemorySource source) {
  try {
    Tabulate(row.request, source);
    FAIL() << "no error: " << row.sentence;
  } catch (const TabulationError& error) {
    EXPECT_EQ(error.what(), row.sentence);
    EXPECT_EQ(error.Offset(), row.about.offset) << row.sentence;
    EXPECT_EQ(error.Size(), row.about.size) << row.sentence;
    EXPECT_EQ(error.Nearest(), row.nearest) << row.sentence;
  }
}

template <class Change>
TabulationRequest Changed(TabulationRequest request, Change change) {
  change(request);
  return request;
}

TabulationRequest Where(const Condition& where) {
  return Changed(Ask({"$drinks"}), [&where](TabulationRequest& request) { request.where = where; });
}

TabulationRequest WithWeight(const std::string& name) {
  return Changed(Ask({"$drinks"}), [&name](TabulationRequest& request) { request.weight = Say(name, 7); });
}

TabulationRequest WithNone(const Texts& sets, const std::string& none, const Texts& by = {}) {
  return Changed(Ask(sets, by), [&none](TabulationRequest& request) { request.none = Say(none, 8); });
}

TabulationRequest WithNet(const Texts& sets, const Texts& members, const std::string& none = "") {
  return Changed(Ask(sets), [&](TabulationRequest& request) {
    request.nets = {{Say("'Net'"), SayAll(members)}};
    request.none = none.empty() ? std::nullopt : std::optional(Say(none));
  });
}

TabulationRequest WithLast(const Texts& sets, const Texts& members) {
  return Changed(Ask(sets), [&members](TabulationRequest& request) { request.last = SayAll(members); });
}

/// The numbers from 0 on.
Texts Numbers(std::size_t count) {
  Texts numbers;
  for (std::size_t number = 0; number < count; ++number) {
    numbers.push_back(std::to_string(number));
  }
  return numbers;
}

TEST(TabulationErrorsTest, EachIsOneSentenceAboutAWord) {
  const std::vector<Row> rows = {
      {"Unknown set: $drnks.", Ask({"$drnks"}), Say("$drnks", 50), "$drinks"},
      {"Unknown set: $x.", Ask({"$drinks"}, {"$x"}), Say("$x", 20)},
      {"Unknown variable: regoin.", Ask({"$drinks"}, {"regoin"}), Say("regoin", 20), "region"},
      {"Unknown variable: what.", Ask({"$drinks"}, {"region*what"}), Say("what", 27)},
      {"$food cannot be part of a pair: a pair takes two variables.", Ask({"$drinks"}, {"region*$food"}),
       Say("$food", 27)},
      {"None of the variables of $gone is in the dataset any more.", Ask({"$gone"}), Say("$gone", 50)},
      {"Some variables of $mixed are numeric and others are strings now.", Ask({"$drinks"}, {"$mixed"}),
       Say("$mixed", 20)},
      {"Unknown variable: wieght.", WithWeight("wieght"), Say("wieght", 7)},
      {"region is a string variable; a weight must be numeric.", WithWeight("REGION"), Say("region", 7)},
      {"NONE is for category sets, and this command has none.", WithNone({"$drinks"}, "-1"), Say("-1", 8)},
      {"The categories are numbers, and no is not a number.", WithNone({"$drinks"}, "no", {"$codes"}), Say("no", 8)},
      {"Unknown variable: regionn.", Where(Not(Comparison("regionn", "=", "'N'"))), Say("regionn", 10), "region"},
      {"Unknown set: $drink.", Where(Has("$drink", "drink1")), Say("$drink", 10), "$drinks"},
      {"region is a string variable, and 1 is a number: put it in quotes.",
       Where(All({IsMissing("region"), Comparison("region", "=", "1")})), Say("1", 30)},
      {"drink1 is numeric: write 1 without quotes.", Where(Comparison("drink1", "<", "'1'")), Say("'1'", 30)},
      {"drink1 is numeric, and \"one\" is not a number.", Where(IsIn("drink1", {"one"})), Say("one", 30)},
      {"drink3 is not a member of $drinks.", Where(Has("$drinks", "drink3")), Say("drink3", 30)},
      {"egg is not a member of $codes.", Where(Has("$codes", "egg")), Say("egg", 30)},
      {"drnik1 is not a member of $drinks.", WithNet({"$drinks"}, {"drink2", "drnik1"}), Say("drnik1", 50), "drink1"},
      {"buttr is not a member of $food.", WithNet({"$food"}, {"bread", "buttr"}), Say("buttr", 50), "butter"},
      {"99 is not a member of $codes.", WithNet({"$codes"}, {"1", "99"}, "99"), Say("99", 50)},
      {"fish is not a member of any of the sets.", WithNet({"$drinks", "$food"}, {"egg", "fish"}), Say("fish", 50)},
      {"egg is not a member of $drinks.", WithNet({"$food", "$drinks"}, {"drink1", "egg"}), Say("egg", 50)},
      {"3 is not a member of $codes.", WithLast({"$codes"}, {"2", "3"}), Say("3", 50)},
      {"drink is not a member of any of the sets.", WithLast({"$drinks", "$food"}, {"egg", "drink"}), Say("drink", 50)},
  };
  for (const Row& row : rows) {
    ExpectError(row, Survey());
  }
}

TEST(TabulationErrorsTest, AValueThatNoCaseOfTheDatasetHoldsIsUnknown) {
  ExpectError({"butte is not a member of $food.", Where(Has("$food", "butte")), Say("butte", 30), "butter"}, Survey());
  ExpectError({"3 is not a member of $codes.", Where(Not(Has("$codes", "3"))), Say("3", 30)}, Survey());
  for (const MemorySource::Form form : {MemorySource::Form::kWideCodes, MemorySource::Form::kPlain}) {
    ExpectError({"butte is not a member of $food.", Where(Has("$food", "butte")), Say("butte", 30), "butter"},
                Survey().In(form));
  }
}

TEST(TabulationErrorsTest, AValueThatOnlyLeftOutCasesHoldIsKnown) {
  for (const MemorySource::Form form : {MemorySource::Form::kCodes, MemorySource::Form::kPlain}) {
    MemorySource source = Survey().In(form);
    TabulationRequest request = WithNet({"$food", "$codes"}, {"butter"});
    request.nets.push_back({Say("'Codes'"), SayAll({"2", "99"})});
    request.last = SayAll({"butter", "1"});
    request.where = All({Comparison("region", "=", "'N'"), Not(Has("$food", "butter"))});
    const std::vector<Tabulation> tables = Tabulate(request, source);
    EXPECT_EQ(Described(tables.at(0), "net"), "Net [Net]: 0 0 0% -%\n");
    EXPECT_EQ(Described(tables.at(1), "net"), "Codes [Codes]: 0 0 0% -%\n");
  }
}

TEST(TabulationErrorsTest, NoneMayBeOfASetOfWhereAlone) {
  MemorySource source = Survey();
  TabulationRequest request = WithNone({"$drinks"}, "99");
  request.where = Has("$codes", "1");
  EXPECT_EQ(Tabulate(request, source).at(0).columns.at(0).cases.all, 1);
  request.none = Say("no", 8);
  ExpectError({"The categories are numbers, and no is not a number.", request, Say("no", 8)}, Survey());
}

TEST(TabulationErrorsTest, AWeightThatIsTooLargeOrTooSmallIsRefused) {
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"1e155", "1e+155"}, {"1.5e100", "1.5e+100"}, {"1e-101", "1e-101"}};
  for (const auto& [cell, shown] : rows) {
    for (const MemorySource::Form form : {MemorySource::Form::kCodes, MemorySource::Form::kPlain}) {
      MemorySource source = Survey().In(form);
      source.AddNumeric("w", {"1", cell, "1e300"});
      ExpectError(
          {"w holds the weight " + shown + "; weights must be from 1e-100 to 1e+100.", WithWeight("W"), Say("w", 7)},
          source);
    }
  }
  MemorySource source = Survey();
  source.AddNumeric("w", {"1e100", "-1e300", "1e100"});
  EXPECT_EQ(
      Described(Tabulate(WithWeight("w"), source).at(0), "column"),
      "- [] [Total]: 2 = 2 answered + 0 none + 0 missing, base 2, weighted 2e+100, effective 2, responses 2e+100, "
      "per case 1\n");
}

TEST(TabulationErrorsTest, ACommandMakesHalfAMillionCellsAtMost) {
  MemorySource source(2000);
  source.AddNumeric("many", Numbers(1000));
  source.AddNumeric("first", Numbers(1000));
  source.AddNumeric("second", Texts(1000, "1"));
  source.AddCategories("$all", {"first"});
  source.AddCategories("$one", {"second"});
  source.AddDichotomies("$two", {"first", "second"});
  EXPECT_EQ(Tabulate(Ask({"$one"}, {"many", "first"}), source).at(0).columns.size(), 2001U);
  const std::string sentence = " has too many members and columns: a command makes 500,000 cells at most.";
  ExpectError({"$all by many" + sentence, Ask({"$one", "$all"}, {"second", "many"}), Say("many", 20)}, source);
  ExpectError({"$all by many*second" + sentence, Ask({"$all"}, {"many*second"}), Say("many*second", 20)}, source);
  TabulationRequest request = Ask({"$all"}, {"many"});
  request.where = Comparison("many", "<", "706");
  EXPECT_EQ(Tabulate(request, source).at(0).columns.size(), 707U);
  request.sets.push_back(Say("$two"));
  ExpectError({"$all by many" + sentence, request, Say("many", 20)}, source);
}

TEST(TabulationErrorsTest, HasNoneIsNoMember) {
  TabulationRequest request = WithNone({"$codes"}, "99");
  request.where = Has("$codes", "99");
  ExpectError({"99 is not a member of $codes.", request, Say("99", 30)}, Survey());
}

TEST(TabulationErrorsTest, AnUnknownMemberOfADichotomySetIsToldBeforeCasesAreRead) {
  MemorySource source = Survey();
  EXPECT_THROW(Tabulate(WithNet({"$drinks"}, {"x"}), source), TabulationError);
  EXPECT_EQ(source.Reads(), 0U);
}

TEST(TabulationErrorsTest, ABYHasTenThousandCategoriesAtMost) {
  MemorySource source(2000);
  Texts many = Numbers(kMaxCategories + 1);
  source.AddNumeric("many", many);
  source.AddNumeric("one", Texts(many.size(), "1"));
  many.back() = "0";
  source.AddNumeric("most", many);
  source.AddDichotomies("$one", {"one"});
  source.AddCategories("$many", {"many"});
  EXPECT_EQ(Tabulate(Ask({"$one"}, {"most"}), source).at(0).columns.size(), kMaxCategories + 1);
  EXPECT_EQ(Tabulate(Ask({"$one"}, {"most*one"}), source).at(0).columns.size(), kMaxCategories + 1);
  ExpectError({"many has more than 10,000 categories, too many for BY.", Ask({"$one"}, {"many"}), Say("many", 20)},
              source);
  ExpectError({"$many has more than 10,000 categories, too many for BY.", Ask({"$one"}, {"$many"}), Say("$many", 20)},
              source);
  ExpectError(
      {"many*one has more than 10,000 categories, too many for BY.", Ask({"$one"}, {"many*one"}), Say("many*one", 20)},
      source);
  TabulationRequest request = Ask({"$one"}, {"many"});
  request.where = Comparison("many", "<", "3");
  EXPECT_EQ(Tabulate(request, source).at(0).columns.size(), 4U);
}

TEST(TabulationErrorsTest, AnInterruptEndsTheCount) {
  MemorySource source = Survey();
  isInterruptRequested = true;
  try {
    Tabulate(Ask({"$drinks"}), source);
    ADD_FAILURE() << "was not interrupted";
  } catch (const Error& error) {
    EXPECT_EQ(error.Kind(), ErrorKind::kInterrupted);
    EXPECT_STREQ(error.what(), "The count was interrupted.");
  }
  isInterruptRequested = false;
}

TEST(TabulationErrorsTest, AnInterruptEndsTheTests) {
  for (const std::string by : {"drink2", "$drinks"}) {
    MemorySource source = Survey();
    TabulationRequest request = Ask({"$drinks"}, {by});
    request.base = TabulationBase::kAll;
    request.test = Adjustment::kHolm;
    const auto interrupt = [](std::size_t done, std::size_t cases) { isInterruptRequested = done == cases; };
    EXPECT_THROW(Tabulate(request, source, interrupt), Error) << by;
    isInterruptRequested = false;
    EXPECT_EQ(Tabulate(request, source).at(0).tests.size(), 1U) << by;
  }
}

}  // namespace
}  // namespace standalone
