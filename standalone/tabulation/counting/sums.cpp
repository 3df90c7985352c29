#include "standalone/tabulation/counting/sums.h"

#include <algorithm>
#include <numeric>

namespace standalone {
namespace {

/// In two sums, so that no addition waits for the one before.
Weight SumOf(const Bits& cases, const Weights& weights) {
  Weight even;
  Weight odd;
  for (std::size_t word = 0; word < kChunkWords; ++word) {
    const Weight* ofWord = weights.data() + word * kCasesOfWord;
    for (std::uint64_t rest = cases[word]; rest != 0; rest &= rest - 1) {
      even += ofWord[__builtin_ctzll(rest)];
      rest &= rest - 1;
      if (rest == 0) {
        break;
      }
      odd += ofWord[__builtin_ctzll(rest)];
    }
  }
  even += odd;
  return even;
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

void Sums::AddCases(const RowOfChunk& row, const ByReader& by) {
  Cells& cells = CellsOf(row, ColumnsOf(by));
  if (fHasOverlaps) {
    cells[0].cases += CountOfBoth(*row.cases, by.Current().present);
  }
  for (const CaseGroup& group : by.Current().groups) {
    cells[group.index + 1].cases += CountOfBoth(*row.cases, group.cases);
  }
}

void Sums::AddCasesOneByOne(const RowOfChunk& row, ByReader& by) {
  CountedCell* cells = CellsOf(row, ColumnsOf(by)).data() + 1;
  const std::uint32_t* columnOf = by.ColumnOfCases().data();
  ForEachCase(Both(*row.cases, by.Current().present), [&](std::size_t place) { ++cells[columnOf[place]].cases; });
}

void Sums::AddWeights(const RowOfChunk& row, const ByReader& by, const Weights& weights) {
  Cells& cells = CellsOf(row, ColumnsOf(by));
  if (fHasOverlaps) {
    cells[0].weights += SumOf(Both(*row.cases, by.Current().present), weights);
  }
  for (const CaseGroup& group : by.Current().groups) {
    cells[group.index + 1].weights += SumOf(Both(*row.cases, group.cases), weights);
  }
}

void Sums::AddWeightsOneByOne(const RowOfChunk& row, ByReader& by, const Weights& weights) {
  CountedCell* cells = CellsOf(row, ColumnsOf(by)).data() + 1;
  const std::uint32_t* columnOf = by.ColumnOfCases().data();
  ForEachCase(Both(*row.cases, by.Current().present),
              [&](std::size_t place) { cells[columnOf[place]].weights += weights[place]; });
}

void Sums::Add(const std::vector<RowOfChunk>& rows, ByReader& by, const Weights* weights) {
  fHasOverlaps = by.Set() != nullptr;
  fIsWeighted = weights != nullptr;
  const bool isGrouped = by.Current().isGrouped;
  const bool hasFewSums = isGrouped && (fHasOverlaps || by.Current().groups.size() <= 1);
  for (const RowOfChunk& row : rows) {
    if (isGrouped) {
      AddCases(row, by);
    } else {
      AddCasesOneByOne(row, by);
    }
    if (fIsWeighted && row.row >= kBaseRow) {
      if (hasFewSums) {
        AddWeights(row, by, *weights);
      } else {
        AddWeightsOneByOne(row, by, *weights);
      }
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
