#include "standalone/tabulation/table/table_builder.h"

#include <algorithm>
#include <optional>

#include "standalone/tabulation/statistics/association.h"
#include "standalone/tabulation/table/notes.h"
#include "standalone/tabulation/table/row_order.h"

namespace standalone {
namespace {

Figure EffectiveBase(const Weight& base) {
  return Quotient(base.once * base.once, base.squared);
}

}  // namespace

TableBuilder::TableBuilder(const SetCount& count, const TabulationRequest& request, const Figures& figures)
    : fCount(count), fRequest(request), fFigures(figures), fMembers(MembersInOrder(count, request)) {
  for (const std::unique_ptr<ByReader>& by : count.By()) {
    fCategories.push_back(by->Categories());
  }
}

double TableBuilder::ResponsesIn(std::size_t by, const ByCategory& category) const {
  double responses = 0;
  for (const Member& member : fMembers) {
    responses += fCount.SumsOf(by).At(fCount.RowOf(member.index), category.index).weights.once;
  }
  return responses;
}

TabulationColumn TableBuilder::ColumnOf(std::size_t by, const ByCategory& category) const {
  const Sums& sums = fCount.SumsOf(by);
  const CountedCell base = sums.At(kBaseRow, category.index);
  TabulationColumn column;
  column.by = fCount.By()[by]->Name();
  column.values = category.values;
  column.labels = category.labels;
  column.cases.all = sums.At(kAllRow, category.index).cases;
  column.cases.answered = sums.At(kAnsweredRow, category.index).cases;
  column.cases.noneChosen = sums.At(kNoneChosenRow, category.index).cases;
  column.cases.missing = column.cases.all - column.cases.answered - column.cases.noneChosen;
  column.cases.base = base.cases;
  column.weightedBase = base.weights.once;
  column.effectiveBase = EffectiveBase(base.weights);
  column.responses = ResponsesIn(by, category);
  column.responsesPerCase = Quotient(column.responses, column.weightedBase);
  return column;
}

/// A row's cells. `row` is that of the sums.
TabulationRow TableBuilder::RowOf(std::size_t row, bool isNet) const {
  TabulationRow cells;
  cells.isNet = isNet;
  for (std::size_t by = 0; by < fCategories.size(); ++by) {
    const Sums& sums = fCount.SumsOf(by);
    for (const ByCategory& category : fCategories[by]) {
      cells.cells.push_back(fFigures.Of(sums.At(row, category.index), sums.At(kBaseRow, category.index)));
    }
  }
  return cells;
}

void TableBuilder::AddMembers(Tabulation& table) const {
  for (const Member& member : fMembers) {
    TabulationRow row = RowOf(fCount.RowOf(member.index), false);
    row.member = member.name;
    row.label = member.label;
    for (std::size_t column = 0; column < row.cells.size(); ++column) {
      fFigures.AddPercentOfResponses(table.columns[column], row.cells[column]);
    }
    table.rows.push_back(std::move(row));
  }
}

void TableBuilder::AddNets(Tabulation& table) const {
  const std::vector<CountedNet>& nets = fCount.Nets();
  for (std::size_t net = 0; net < nets.size(); ++net) {
    const bool fits = std::any_of(nets[net].members.begin(), nets[net].members.end(),
                                  [this](std::size_t member) { return fCount.Set().IsKnown(member); });
    if (fits) {
      TabulationRow row = RowOf(kFirstNetRow + net, true);
      row.member = nets[net].label;
      row.label = nets[net].label;
      table.rows.push_back(std::move(row));
    }
  }
}

void TableBuilder::AddTests(Tabulation& table) const {
  for (std::size_t by = 1; by < fCategories.size() && fRequest.test; ++by) {
    const std::string& name = fCount.By()[by]->Name();
    const TestedTable tested{fCount.SumsOf(by), fCount.JointSumsOf(by),
                             fCount.RowOf(0),   fCount.By()[by]->Set() != nullptr,
                             fMembers,          fCategories[by]};
    if (const Testability testability = TestabilityOf(tested); testability != Testability::kTestable) {
      table.notes.push_back(NoteOnNoTest(name, testability));
      continue;
    }
    table.tests.push_back(TestAssociation(tested, name, *fRequest.test));
    if (!table.tests.back().corrected) {
      table.notes.push_back(NoteOnNoCorrection(name, fCount.JointSumsOf(by).IsTooLarge()));
    }
  }
}

Tabulation TableBuilder::Table() const {
  Tabulation table;
  table.set = fCount.Set().Set().name;
  table.label = fCount.Set().Set().label;
  table.base = fRequest.base;
  table.where = fRequest.where ? std::optional(fRequest.whereText) : std::nullopt;
  table.hasErrors = fFigures.HasErrors();
  table.hasTests = fRequest.test.has_value();
  table.figures = fRequest.figures;
  table.confidence = fRequest.confidence;
  table.minBase = fRequest.minBase;
  table.decimals = fRequest.decimals;
  for (std::size_t by = 0; by < fCategories.size(); ++by) {
    for (const ByCategory& category : fCategories[by]) {
      table.columns.push_back(ColumnOf(by, category));
    }
  }
  AddMembers(table);
  AddNets(table);
  AddTests(table);
  return table;
}

}  // namespace standalone
