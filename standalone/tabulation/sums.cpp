#include "standalone/tabulation/sums.h"

#include <algorithm>
#include <numeric>

namespace standalone {
namespace {

void AddCases(const Bits& cases, const Weights* weights, CountedCell& cell) {
  if (weights == nullptr) {
    cell.cases += CountOf(cases);
    return;
  }
  CountedCell sum;
  ForEachCase(cases, [&](std::size_t place) { sum += {1, (*weights)[place]}; });
  cell += sum;
}

std::size_t ColumnsOf(const ByReader& by) {
  const std::vector<CaseGroup>& groups = by.Current().groups;
  return std::accumulate(groups.begin(), groups.end(), by.ColumnCount(),
                         [](std::size_t most, const CaseGroup& group) { return std::max(most, group.index + 1); });
}

}  // namespace

Sums::Cells& Sums::CellsOf(const RowOfChunk& row, std::size_t columns) {
  if (row.row >= fBlock.size()) {
    fBlock.resize(row.row + 1);
  }
  Cells& cells = fBlock[row.row];
  if (cells.size() < columns + 1) {
    cells.resize(columns + 1);
  }
  return cells;
}

void Sums::AddByGroup(const RowOfChunk& row, const ByReader& by, const Weights* weights) {
  Cells& cells = CellsOf(row, ColumnsOf(by));
  if (fHasOverlaps) {
    AddCases(Both(*row.cases, by.Current().present), weights, cells[0]);
  }
  for (const CaseGroup& group : by.Current().groups) {
    if (weights == nullptr) {
      cells[group.index + 1].cases += CountOfBoth(*row.cases, group.cases);
    } else {
      AddCases(Both(*row.cases, group.cases), weights, cells[group.index + 1]);
    }
  }
}

void Sums::AddByCase(const RowOfChunk& row, ByReader& by, const Weights* weights) {
  CountedCell* cells = CellsOf(row, ColumnsOf(by)).data() + 1;
  const std::uint32_t* columnOf = by.ColumnOfCases().data();
  const Bits present = Both(*row.cases, by.Current().present);
  if (weights == nullptr) {
    ForEachCase(present, [&](std::size_t place) { ++cells[columnOf[place]].cases; });
  } else {
    ForEachCase(present, [&](std::size_t place) { cells[columnOf[place]] += {1, (*weights)[place]}; });
  }
}

void Sums::Add(const std::vector<RowOfChunk>& rows, ByReader& by, const Weights* weights) {
  fHasOverlaps = by.Set() != nullptr;
  fIsWeighted = weights != nullptr;
  const bool isGrouped = by.Current().isGrouped;
  const bool hasFewSums = fHasOverlaps || by.Current().groups.size() <= 1;
  for (const RowOfChunk& row : rows) {
    const Weights* summed = row.row < kBaseRow ? nullptr : weights;
    if (isGrouped && (summed == nullptr || hasFewSums)) {
      AddByGroup(row, by, summed);
    } else {
      AddByCase(row, by, summed);
    }
  }
}

void Sums::EndBlock() {
  fTotal.resize(fBlock.size());
  for (std::size_t row = 0; row < fBlock.size(); ++row) {
    fTotal[row].resize(fBlock[row].size());
    for (std::size_t cell = 0; cell < fBlock[row].size(); ++cell) {
      fTotal[row][cell] += fBlock[row][cell];
      fBlock[row][cell] = {};
    }
  }
}

CountedCell Sums::At(std::size_t row, std::size_t column) const {
  CountedCell cell = row < fTotal.size() && column + 1 < fTotal[row].size() ? fTotal[row][column + 1] : CountedCell();
  if (!fIsWeighted) {
    cell.weights = {static_cast<double>(cell.cases), static_cast<double>(cell.cases)};
  }
  return cell;
}

CountedCell Sums::Present(std::size_t row) const {
  const std::size_t cells = row < fTotal.size() ? fTotal[row].size() : 0;
  CountedCell present = fHasOverlaps && cells > 0 ? fTotal[row][0] : CountedCell();
  for (std::size_t column = 0; column + 1 < cells && !fHasOverlaps; ++column) {
    present += fTotal[row][column + 1];
  }
  if (!fIsWeighted) {
    present.weights = {static_cast<double>(present.cases), static_cast<double>(present.cases)};
  }
  return present;
}

}  // namespace standalone
