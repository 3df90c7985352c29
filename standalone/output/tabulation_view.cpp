#include "standalone/output/tabulation_view.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <optional>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "standalone/output/rounded.h"
#include "standalone/output/tabulation_words.h"
#include "standalone/text/number_text.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

constexpr const char* kDash = "-";
constexpr const char* kCount = "Count";
constexpr const char* kPercentOfCases = "% of cases";
constexpr const char* kPercentOfResponses = "% of responses";

Figure UnweightedCases(const TabulationCell& cell) {
  return static_cast<double>(cell.cases);
}

Figure Count(const TabulationCell& cell) {
  return cell.count;
}

/// The member of each column's cases as a row.
template <typename Member>
BaseRow CasesRow(const Tabulation& tabulation, std::string label, Member member) {
  BaseRow row{std::move(label), 0, {}};
  for (const TabulationColumn& column : tabulation.columns) {
    row.figures.emplace_back(static_cast<double>(column.cases.*member));
  }
  return row;
}

template <typename Member>
BaseRow FigureRow(const Tabulation& tabulation, std::string label, int decimals, Member member) {
  BaseRow row{std::move(label), decimals, {}};
  for (const TabulationColumn& column : tabulation.columns) {
    row.figures.emplace_back(column.*member);
  }
  return row;
}

struct CasesLine {
  const char* label;
  std::int64_t TabulatedCases::*member;
  std::optional<TabulationBase> base;  // the base that these cases are
  bool isShownAlways;
};

constexpr CasesLine kCasesLines[] = {
    {"All cases", &TabulatedCases::all, TabulationBase::kAll, true},
    {"Answered", &TabulatedCases::answered, TabulationBase::kAnswered, true},
    {"None chosen", &TabulatedCases::noneChosen, std::nullopt, true},
    {"Missing", &TabulatedCases::missing, std::nullopt, true},
    {"Asked", &TabulatedCases::base, TabulationBase::kAsked, false},
    {"Complete", &TabulatedCases::base, TabulationBase::kComplete, false},
};

/// What the base's cases did.
std::string_view WhatBaseDid(TabulationBase base) {
  switch (base) {
    case TabulationBase::kAsked:
      return " that were asked";
    case TabulationBase::kComplete:
      return " without a missing variable";
    case TabulationBase::kAll:
      return " in all";
    case TabulationBase::kAnswered:
      break;
  }
  return " that answered";
}

using Labels = std::unordered_map<std::string, std::string>;

Labels MemberLabels(const Tabulation& tabulation) {
  Labels labels;
  for (const TabulationRow& row : tabulation.rows) {
    if (!row.isNet) {
      labels.emplace(row.member, row.label);
    }
  }
  return labels;
}

/// Of the members of a BY that is a set.
Labels ByMemberLabels(const Tabulation& tabulation, const std::string& by) {
  Labels labels;
  for (const TabulationColumn& column : tabulation.columns) {
    if (column.by == by && !column.values.empty()) {
      labels.emplace(column.values.front(), LabelOf(column));
    }
  }
  return labels;
}

/// The member's label; its name where it has none.
const std::string& LabelIn(const Labels& labels, const std::string& member) {
  const auto found = labels.find(member);
  return found == labels.end() ? member : found->second;
}

const char* AdjustedHeading(Adjustment adjustment) {
  return adjustment == Adjustment::kHolm ? "Adjusted p (Holm)" : "Adjusted p (Bonferroni)";
}

Cell StatisticCell(const Figure& figure, int decimals = 2) {
  return {FigureText(figure, decimals), {}};
}

Cell ProbabilityCell(const Figure& p) {
  constexpr int kDecimals = 4;
  return p && *p < kSmallestShownP ? Cell{"<0.0001", {}} : StatisticCell(p, kDecimals);
}

}  // namespace

std::vector<ShownFigure> ShownFigures(const Tabulation& tabulation) {
  const TabulationFigures& asked = tabulation.figures;
  const int decimals = tabulation.decimals;
  const std::string confidence = ShortestNumber(tabulation.confidence);
  std::vector<ShownFigure> shown;
  const auto add = [&](bool isAsked, ShownFigure figure) {
    if (isAsked) {
      shown.push_back(std::move(figure));
    }
  };
  add(asked.count && tabulation.weight, {"Unweighted cases", 0, false, UnweightedCases});
  add(asked.count, {kCount, tabulation.weight ? decimals : 0, false, Count});
  add(asked.percentOfCases,
      {kPercentOfCases, decimals, true, [](const TabulationCell& c) { return c.percentOfCases; }});
  add(asked.percentOfResponses,
      {kPercentOfResponses, decimals, true, [](const TabulationCell& c) { return c.percentOfResponses; }});
  add(asked.standardError, {"Standard error", decimals, true, [](const TabulationCell& c) { return c.standardError; }});
  add(asked.standardError, {"Design effect", 2, false, [](const TabulationCell& c) { return c.designEffect; }});
  add(asked.interval,
      {fmt::format("{}% from", confidence), decimals, true, [](const TabulationCell& c) { return c.low; }});
  add(asked.interval,
      {fmt::format("{}% to", confidence), decimals, true, [](const TabulationCell& c) { return c.high; }});
  add(shown.empty(), {kCount, tabulation.weight ? decimals : 0, false, Count});
  return shown;
}

std::optional<ShownFigure> ChartedFigure(const Tabulation& tabulation) {
  for (const std::string_view heading : {kPercentOfCases, kPercentOfResponses, kCount}) {
    for (const ShownFigure& figure : ShownFigures(tabulation)) {
      if (figure.heading == heading) {
        return figure;
      }
    }
  }
  return std::nullopt;
}

double Largest(const Tabulation& tabulation, const ShownFigure& figure, std::size_t beginColumn,
               std::size_t endColumn) {
  double largest = 0;
  for (const TabulationRow& row : tabulation.rows) {
    for (std::size_t column = beginColumn; column < endColumn; ++column) {
      largest = std::max(largest, figure.of(row.cells[column]).value_or(0));
    }
  }
  return largest;
}

std::vector<ColumnGroup> ColumnGroups(const Tabulation& tabulation) {
  std::vector<ColumnGroup> groups;
  for (std::size_t column = 0; column < tabulation.columns.size(); ++column) {
    const std::string& by = tabulation.columns[column].by;
    if (groups.empty() || groups.back().by != by) {
      groups.push_back({by, column, column});
    }
    ++groups.back().end;
  }
  return groups;
}

std::vector<BaseRow> BaseRows(const Tabulation& tabulation) {
  std::vector<BaseRow> rows;
  for (const CasesLine& line : kCasesLines) {
    const bool isBase = line.base == tabulation.base;
    if (line.isShownAlways || isBase) {
      rows.push_back(CasesRow(tabulation, fmt::format("{}{}", line.label, isBase ? " (base)" : ""), line.member));
    }
  }
  const int decimals = tabulation.decimals;
  if (tabulation.weight) {
    rows.push_back(FigureRow(tabulation, "Weighted base", decimals, &TabulationColumn::weightedBase));
    rows.push_back(FigureRow(tabulation, "Effective base", decimals, &TabulationColumn::effectiveBase));
  }
  if (tabulation.figures.percentOfResponses) {
    const int ofResponses = tabulation.weight ? decimals : 0;
    rows.push_back(FigureRow(tabulation, "Responses", ofResponses, &TabulationColumn::responses));
    rows.push_back(FigureRow(tabulation, "Responses per case", 2, &TabulationColumn::responsesPerCase));
  }
  return rows;
}

std::vector<std::string> BaseSentences(const Tabulation& tabulation) {
  const TabulationColumn& column = tabulation.columns.front();
  const TabulatedCases& cases = column.cases;
  const int decimals = tabulation.decimals;
  std::vector<std::string> sentences = {
      fmt::format("Answered {}, none chosen {}, missing {} of {} case{}.", cases.answered, cases.noneChosen,
                  cases.missing, cases.all, cases.all == 1 ? "" : "s"),
      fmt::format("Base: {} case{}{}", cases.base, cases.base == 1 ? "" : "s", WhatBaseDid(tabulation.base))};
  if (tabulation.weight) {
    sentences.back() += fmt::format("; weighted {}, effective {}", FigureText(column.weightedBase, decimals),
                                    FigureText(column.effectiveBase, decimals));
  }
  sentences.back() += '.';
  if (tabulation.figures.percentOfResponses) {
    sentences.push_back(fmt::format("Responses: {}, {} per case.",
                                    FigureText(column.responses, tabulation.weight ? decimals : 0),
                                    FigureText(column.responsesPerCase, 2)));
  }
  return sentences;
}

std::string TitleOf(const Tabulation& tabulation) {
  const bool hasLabel = !tabulation.label.empty() && tabulation.label != tabulation.set;
  return hasLabel ? fmt::format("{} ({})", VisibleOnOneLine(tabulation.label), tabulation.set) : tabulation.set;
}

std::vector<std::string> ScopeOf(const Tabulation& tabulation) {
  std::vector<std::string> scope;
  if (tabulation.weight) {
    scope.push_back("Weight: " + *tabulation.weight);
  }
  if (tabulation.where) {
    scope.push_back("Where: " + VisibleOnOneLine(*tabulation.where));
  }
  if (tabulation.none) {
    scope.push_back("None chosen: " + VisibleOnOneLine(*tabulation.none));
  }
  return scope;
}

std::vector<std::string> NotesOf(const Tabulation& tabulation) {
  std::vector<std::string> notes;
  std::transform(tabulation.notes.begin(), tabulation.notes.end(), std::back_inserter(notes), VisibleOnOneLine);
  return notes;
}

std::string LabelOf(const TabulationRow& row) {
  return row.isNet ? row.label + " (net)" : row.label;
}

std::string FigureText(const Figure& figure, int decimals) {
  return figure && std::isfinite(*figure) ? Rounded(*figure, decimals) : kDash;
}

std::vector<TestRow> TestRows(const Tabulation& tabulation, const TabulationTest& test) {
  const Labels labels = MemberLabels(tabulation);
  const Labels byLabels = ByMemberLabels(tabulation, test.by);
  std::vector<TestRow> rows = {
      {"All members", "", test.statistic, test.corrected, test.degreesOfFreedom, test.p, std::nullopt}};
  for (const MemberTest& member : test.members) {
    rows.push_back({LabelIn(labels, member.member), LabelIn(byLabels, member.byMember), member.statistic, std::nullopt,
                    member.degreesOfFreedom, member.p, member.adjustedP});
  }
  return rows;
}

std::vector<std::string> TestHeadings(const Tabulation& tabulation, const TabulationTest& test) {
  std::vector<std::string> headings = {"Member"};
  if (IsSet(test.by)) {
    headings.push_back(test.by);
  }
  headings.insert(headings.end(), {"Chi-square", "Corrected", "df", "p", AdjustedHeading(tabulation.adjustment)});
  return headings;
}

int DecimalsOfDegrees(const Figure& degrees) {
  return degrees && std::trunc(*degrees) == *degrees ? 0 : 2;
}

std::string TitleOf(const Tabulation& tabulation, const TabulationTest& test) {
  return fmt::format("Association of {} with {}", tabulation.set, test.by);
}

Table TestTable(const Tabulation& tabulation, const TabulationTest& test) {
  const std::vector<std::string> headings = TestHeadings(tabulation, test);
  Table table{TitleOf(tabulation, test), headings.front(), "", {headings.begin() + 1, headings.end()}, {}};
  for (const TestRow& row : TestRows(tabulation, test)) {
    table.rows.push_back({row.label, {}});
    std::vector<Cell>& cells = table.rows.back().cells;
    if (IsSet(test.by)) {
      cells.push_back(row.byLabel.empty() ? Cell{} : Cell{row.byLabel, {}});
    }
    cells.insert(cells.end(), {StatisticCell(row.statistic), StatisticCell(row.corrected),
                               StatisticCell(row.degreesOfFreedom, DecimalsOfDegrees(row.degreesOfFreedom)),
                               ProbabilityCell(row.p), ProbabilityCell(row.adjustedP)});
  }
  return table;
}

}  // namespace standalone
