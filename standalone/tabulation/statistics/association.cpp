#include "standalone/tabulation/statistics/association.h"

#include <algorithm>
#include <cstdint>

#include "standalone/tabulation/statistics/adjusted_p.h"
#include "standalone/tabulation/statistics/distributions.h"

namespace standalone {
namespace {

void SetStatistic(Exact statistic, MemberTest& test) {
  test.statistic = static_cast<double>(statistic);
  test.p = ChiSquareAbove(test.degreesOfFreedom, *test.statistic);
}

std::vector<MemberTest> TestsOfColumns(const TestedTable& table, const Shares& shares) {
  const auto categories =
      std::count_if(shares.categories.begin(), shares.categories.end(), [](const Share& one) { return one.isTested; });
  std::vector<MemberTest> tests;
  for (std::size_t j = 0; j < shares.members.size(); ++j) {
    MemberTest test;
    test.member = table.members[j].name;
    test.degreesOfFreedom = static_cast<int>(categories - 1);
    Exact sum = 0;
    for (std::size_t c = 0; c < shares.categories.size(); ++c) {
      const Exact excess = shares.excess[j][c];
      sum += shares.categories[c].isTested ? excess * excess / shares.categories[c].share : Exact{0};
    }
    if (shares.members[j].isTested) {
      SetStatistic(shares.cases * sum / shares.members[j].Variance(), test);
    }
    tests.push_back(test);
  }
  return tests;
}

std::vector<MemberTest> TestsOfSets(const TestedTable& table, const Shares& shares) {
  std::vector<MemberTest> tests;
  for (std::size_t j = 0; j < shares.members.size(); ++j) {
    for (std::size_t c = 0; c < shares.categories.size(); ++c) {
      MemberTest test;
      test.member = table.members[j].name;
      test.byMember = table.categories[c].values[0];
      test.degreesOfFreedom = 1;
      if (shares.members[j].isTested && shares.categories[c].isTested) {
        const Exact excess = shares.excess[j][c];
        SetStatistic(shares.cases * excess * excess / shares.members[j].Variance() / shares.categories[c].Variance(),
                     test);
      }
      tests.push_back(test);
    }
  }
  return tests;
}

void AddCorrected(double squaredEigenvalues, TabulationTest& test) {
  double nominal = 0;
  for (const MemberTest& member : test.members) {
    nominal += member.p ? member.degreesOfFreedom : 0;
  }
  if (squaredEigenvalues > 0) {
    test.corrected = nominal * *test.statistic / squaredEigenvalues;
    test.degreesOfFreedom = nominal * nominal / squaredEigenvalues;
    test.p = ChiSquareAbove(*test.degreesOfFreedom, *test.corrected);
  }
}

}  // namespace

Testability TestabilityOf(const TestedTable& table) {
  const std::int64_t base = table.sums.Present(kBaseRow).cases;
  if (base < 2) {
    return Testability::kSmallBase;
  }
  if (table.categories.empty()) {
    return Testability::kNoCategory;
  }
  const auto isPart = [base](std::int64_t cases) { return cases > 0 && cases < base; };
  if (std::none_of(table.categories.begin(), table.categories.end(),
                   [&](const ByCategory& category) { return isPart(table.sums.At(kBaseRow, category.index).cases); })) {
    return table.hasOverlaps ? Testability::kEqualCategories : Testability::kOneCategory;
  }
  if (std::none_of(table.members.begin(), table.members.end(), [&](const Member& member) {
        return isPart(table.sums.Present(table.firstMemberRow + member.index).cases);
      })) {
    return Testability::kEqualMembers;
  }
  return Testability::kTestable;
}

TabulationTest TestAssociation(const TestedTable& table, const std::string& by, Adjustment adjustment) {
  const Shares shares = SharesOf(table);
  TabulationTest test;
  test.by = by;
  test.members = table.hasOverlaps ? TestsOfSets(table, shares) : TestsOfColumns(table, shares);
  AdjustP(adjustment, test.members);
  for (const MemberTest& member : test.members) {
    if (member.statistic) {
      test.statistic = test.statistic.value_or(0) + *member.statistic;
    }
  }
  if (!table.jointSums.IsTooLarge()) {
    AddCorrected(table.hasOverlaps ? SquaredEigenvaluesOfSets(shares, table.jointSums)
                                   : SquaredEigenvaluesOfColumns(shares, table.jointSums),
                 test);
  }
  return test;
}

}  // namespace standalone
