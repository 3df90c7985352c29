#ifndef TESTS_STANDALONE_OUTPUT_TABULATIONS_H
#define TESTS_STANDALONE_OUTPUT_TABULATIONS_H

#include <string>
#include <utility>
#include <vector>

#include "standalone/tabulation/tabulation.h"

namespace standalone {

// Tabulations, for the tests of output.

inline TabulationColumn TabulatedColumn(const std::string& by, std::vector<std::string> values,
                                        std::vector<std::string> labels, const TabulatedCases& cases) {
  TabulationColumn column;
  column.by = by;
  column.values = std::move(values);
  column.labels = std::move(labels);
  column.cases = cases;
  column.weightedBase = static_cast<double>(cases.base);
  column.effectiveBase = cases.base > 0 ? Figure(column.weightedBase) : Figure();
  return column;
}

/// What a cell of so many cases is without a weight.
inline TabulationCell UnweightedCell(std::int64_t cases, std::int64_t base, std::int64_t responses) {
  TabulationCell cell;
  cell.cases = cases;
  cell.count = static_cast<double>(cases);
  const auto percentOf = [&](std::int64_t whole) {
    return whole > 0 ? Figure(100 * cell.count / static_cast<double>(whole)) : Figure();
  };
  cell.percentOfCases = percentOf(base);
  cell.percentOfResponses = percentOf(responses);
  return cell;
}

/// Two members and a net, counted in the total alone.
inline Tabulation Drinks() {
  Tabulation tabulation;
  tabulation.set = "$drinks";
  tabulation.label = "Drinks";
  tabulation.columns = {TabulatedColumn("", {}, {"Total"}, {240, 226, 9, 5, 226})};
  tabulation.columns[0].responses = 300;
  tabulation.columns[0].responsesPerCase = 300.0 / 226;
  tabulation.rows = {{"drink1", "Tea", false, {UnweightedCell(220, 226, 300)}},
                     {"drink2", "Coffee", false, {UnweightedCell(80, 226, 300)}},
                     {"Hot", "Hot", true, {UnweightedCell(226, 226, 0)}}};
  tabulation.notes = {"9 cases chose none and are not in the base; with BASE=ASKED it is 235."};
  return tabulation;
}

/// The same by a variable, one category of which has an empty base.
inline Tabulation DrinksByRegion() {
  Tabulation tabulation = Drinks();
  tabulation.columns.push_back(TabulatedColumn("region", {"N"}, {"North"}, {140, 128, 7, 5, 128}));
  tabulation.columns.push_back(TabulatedColumn("region", {"S"}, {"South"}, {2, 0, 2, 0, 0}));
  const std::vector<std::int64_t> north = {124, 7, 128};
  for (std::size_t row = 0; row < north.size(); ++row) {
    tabulation.rows[row].cells.push_back(UnweightedCell(north[row], 128, row == 2 ? 0 : 131));
    tabulation.rows[row].cells.push_back(UnweightedCell(0, 0, 0));
  }
  tabulation.columns[1].responses = 131;
  tabulation.columns[1].responsesPerCase = 131.0 / 128;
  return tabulation;
}

/// Every figure, a weight, a condition, and a test, of which one member has none.
inline Tabulation WeightedDrinks() {
  Tabulation tabulation = DrinksByRegion();
  tabulation.base = TabulationBase::kAsked;
  tabulation.weight = "w";
  tabulation.where = "age > 30";
  tabulation.hasErrors = true;
  tabulation.hasTests = true;
  tabulation.figures = {true, true, true, true, true};
  tabulation.decimals = 2;
  for (TabulationColumn& column : tabulation.columns) {
    column.cases.base = column.cases.answered + column.cases.noneChosen;
    column.weightedBase = static_cast<double>(column.cases.base) * 1.125;
    column.effectiveBase = column.weightedBase * 0.75;
  }
  TabulationCell& cell = tabulation.rows[0].cells[0];
  cell.count = 247.505;
  cell.standardError = 0.125;
  cell.low = -0.001;
  cell.high = 12.3449;
  cell.designEffect = 1.335;
  TabulationTest test;
  test.by = "region";
  test.statistic = 12.5;
  test.corrected = 11.25;
  test.degreesOfFreedom = 1.75;
  test.p = 0.00001;
  test.members = {{"drink1", "", 10.125, 1, 0.0125, 0.025}, {"drink2", "", {}, 1, {}, {}}};
  tabulation.tests = {test};
  return tabulation;
}

/// Counted by another set and by a pair, with a test of each member against each.
inline Tabulation DrinksByFood() {
  Tabulation tabulation = Drinks();
  tabulation.figures = {false, true, false, false, false};
  tabulation.hasTests = true;
  tabulation.columns.push_back(TabulatedColumn("$food", {"food1"}, {"Bread"}, {120, 113, 4, 3, 113}));
  tabulation.columns.push_back(TabulatedColumn("region*sex", {"N", "1"}, {"North", "Women"}, {60, 55, 3, 2, 55}));
  for (TabulationRow& row : tabulation.rows) {
    row.cells.push_back(UnweightedCell(100, 113, 0));
    row.cells.push_back(UnweightedCell(11, 55, 0));
  }
  TabulationTest test;
  test.by = "$food";
  test.members = {{"drink1", "food1", 0.5, 1, 0.5, 1.0}};
  tabulation.tests = {test};
  tabulation.notes.clear();
  return tabulation;
}

/// Labels that are markup, formulas, written from right to left, of several lines, or longer than a line.
inline Tabulation HostileDrinks(const std::string& hostile) {
  Tabulation tabulation = DrinksByRegion();
  tabulation.label = hostile;
  tabulation.where = hostile;
  tabulation.columns[1].labels = {hostile};
  tabulation.columns[2].by = hostile;
  tabulation.rows[0].label = hostile;
  tabulation.rows[1].label = "=1+1";
  tabulation.rows[2].label =
      "\u05E2\u05D1\u05E8\u05D9\u05EA\nsecond line, which is far too long to stand on one line of a terminal";
  tabulation.notes = {hostile};
  return tabulation;
}

}  // namespace standalone

#endif  // TESTS_STANDALONE_OUTPUT_TABULATIONS_H
