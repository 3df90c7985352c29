#include "standalone/output/csv/csv_tabulation.h"

#include <cmath>
#include <string>
#include <vector>

#include "standalone/output/tabulation_words.h"
#include "standalone/text/number_text.h"

namespace standalone {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kSet = "set";

std::string NumberText(const Figure& figure) {
  return figure && std::isfinite(*figure) ? ShortestNumber(*figure) : "";
}

void Append(Texts& texts, const Texts& more) {
  texts.insert(texts.end(), more.begin(), more.end());
}

/// A row as tables have it: its first text is its name.
TableRow RowOf(const Texts& texts) {
  TableRow row{texts.front(), {}};
  for (std::size_t i = 1; i < texts.size(); ++i) {
    row.cells.push_back({texts[i], {}});
  }
  return row;
}

Texts CellHeadings(const Tabulation& tabulation) {
  Texts headings = {"setLabel", "base",   "weight", "where",          "by",
                    "value",    "value2", "column", "member",         "label",
                    "net",      "cases",  "count",  "percentOfCases", "percentOfResponses"};
  if (tabulation.hasErrors) {
    Append(headings, {"standardError", "low", "high", "designEffect"});
  }
  Append(headings, {"allCases", "answered", "noneChosen", "missing", "baseCases", "weightedBase", "effectiveBase",
                    "responses", "responsesPerCase"});
  return headings;
}

/// What is the same in all rows.
Texts SetTexts(const Tabulation& tabulation) {
  return {tabulation.set, tabulation.label, std::string(NameOf(tabulation.base)), tabulation.weight.value_or(""),
          tabulation.where.value_or("")};
}

Texts ColumnTexts(const TabulationColumn& column) {
  const auto value = [&](std::size_t index) { return index < column.values.size() ? column.values[index] : ""; };
  return {column.by, value(0), value(1), LabelOf(column)};
}

Texts FigureTexts(const TabulationCell& cell, bool hasErrors) {
  Texts texts = {std::to_string(cell.cases), NumberText(cell.count), NumberText(cell.percentOfCases),
                 NumberText(cell.percentOfResponses)};
  if (hasErrors) {
    Append(texts, {NumberText(cell.standardError), NumberText(cell.low), NumberText(cell.high),
                   NumberText(cell.designEffect)});
  }
  return texts;
}

Texts BaseTexts(const TabulationColumn& column) {
  return {std::to_string(column.cases.all),        std::to_string(column.cases.answered),
          std::to_string(column.cases.noneChosen), std::to_string(column.cases.missing),
          std::to_string(column.cases.base),       NumberText(column.weightedBase),
          NumberText(column.effectiveBase),        NumberText(column.responses),
          NumberText(column.responsesPerCase)};
}

void WriteCells(TableWriter& tables, const Tabulation& tabulation) {
  tables.Begin({tabulation.set, kSet, "", CellHeadings(tabulation), {}});
  for (const TabulationRow& row : tabulation.rows) {
    for (std::size_t column = 0; column < tabulation.columns.size(); ++column) {
      Texts texts = SetTexts(tabulation);
      Append(texts, ColumnTexts(tabulation.columns[column]));
      Append(texts, {row.member, row.label, row.isNet ? "true" : "false"});
      Append(texts, FigureTexts(row.cells[column], tabulation.hasErrors));
      Append(texts, BaseTexts(tabulation.columns[column]));
      tables.Add(RowOf(texts));
    }
  }
  tables.End();
}

/// A row for the whole set, whose member is empty, then one for each of its members.
void WriteTests(TableWriter& tables, const Tabulation& tabulation) {
  tables.Begin({tabulation.set,
                kSet,
                "",
                {"by", "member", "byMember", "statistic", "corrected", "degreesOfFreedom", "p", "adjustedP"},
                {}});
  for (const TabulationTest& test : tabulation.tests) {
    tables.Add(RowOf({tabulation.set, test.by, "", "", NumberText(test.statistic), NumberText(test.corrected),
                      NumberText(test.degreesOfFreedom), NumberText(test.p), ""}));
    for (const MemberTest& member : test.members) {
      tables.Add(RowOf({tabulation.set, test.by, member.member, member.byMember, NumberText(member.statistic), "",
                        std::to_string(member.degreesOfFreedom), NumberText(member.p), NumberText(member.adjustedP)}));
    }
  }
  tables.End();
}

}  // namespace

void WriteCsv(TableWriter& tables, const Tabulation& tabulation) {
  WriteCells(tables, tabulation);
  if (tabulation.hasTests) {
    WriteTests(tables, tabulation);
  }
}

}  // namespace standalone
