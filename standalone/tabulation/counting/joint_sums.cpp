#include "standalone/tabulation/counting/joint_sums.h"

#include <algorithm>

namespace standalone {
namespace {

/// The place of a pair among all pairs, in the order of their greater ones.
std::size_t PlaceOf(std::size_t greater, std::size_t smaller) {
  return greater * (greater + 1) / 2 + smaller;
}

/// How many sums so many members and columns can need; as a double, which does not overflow.
double SumsOf(std::size_t members, std::size_t columns, bool hasOverlaps) {
  const auto pairsOf = [](std::size_t count) {
    return static_cast<double>(count + 1) * static_cast<double>(count + 2) / 2;
  };
  return pairsOf(members) * (hasOverlaps ? pairsOf(columns) : static_cast<double>(columns));
}

std::size_t PlaceOfAny(std::size_t first, std::size_t second) {
  return PlaceOf(std::max(first, second), std::min(first, second));
}

}  // namespace

void ChosenLists::Read(const std::vector<CaseGroup>& chosen) {
  fEnds.assign(kChunkCases, 1);
  for (const CaseGroup& group : chosen) {
    ForEachCase(group.cases, [this](std::size_t place) { ++fEnds[place]; });
  }
  fBegins.assign(kChunkCases + 1, 0);
  for (std::size_t place = 0; place < kChunkCases; ++place) {
    fBegins[place + 1] = fBegins[place] + fEnds[place];
    fEnds[place] = fBegins[place] + 1;
  }
  fEntries.assign(fBegins.back(), 0);
  for (const CaseGroup& group : chosen) {
    const auto entry = static_cast<std::uint32_t>(group.index + 1);
    ForEachCase(group.cases, [&](std::size_t place) { fEntries[fEnds[place]++] = entry; });
  }
}

void JointSums::AddCase(std::size_t row, const std::uint32_t* begin, const std::uint32_t* end, double squared) {
  const std::size_t needed = PlaceOf(*(end - 1) + std::size_t{1}, 0);
  if (row >= fBlock.size()) {
    fBlock.resize(row + 1);
  }
  Triangle& triangle = fBlock[row];
  if (triangle.size() < needed) {
    triangle.resize(needed);
  }
  for (const std::uint32_t* greater = begin; greater != end; ++greater) {
    double* sums = triangle.data() + PlaceOf(*greater, 0);
    for (const std::uint32_t* smaller = begin; smaller <= greater; ++smaller) {
      sums[*smaller] += squared;
    }
  }
}

void JointSums::Add(const Bits& base, const ChosenLists& lists, std::size_t members, ByReader& by,
                    const Weights* weights) {
  const SetReader* set = by.Set();
  fIsTooLarge = SumsOf(members, set == nullptr ? by.ColumnCount() : set->IndexCount(), set != nullptr) > fMost;
  if (fIsTooLarge) {
    return;
  }
  const Bits cases = Both(base, by.Current().present);
  const auto squaredOf = [weights](std::size_t place) { return weights == nullptr ? 1.0 : (*weights)[place].squared; };
  if (by.Set() == nullptr) {
    const std::vector<std::uint32_t>& columnOf = by.ColumnOfCases();
    ForEachCase(cases, [&](std::size_t place) {
      AddCase(columnOf[place], lists.begin(place), lists.end(place), squaredOf(place));
    });
    return;
  }
  fColumnLists.Read(by.Current().groups);
  ForEachCase(cases, [&](std::size_t place) {
    const std::uint32_t* columns = fColumnLists.begin(place);
    for (const std::uint32_t* greater = columns; greater != fColumnLists.end(place); ++greater) {
      for (const std::uint32_t* smaller = columns; smaller <= greater; ++smaller) {
        AddCase(PlaceOf(*greater, *smaller), lists.begin(place), lists.end(place), squaredOf(place));
      }
    }
  });
}

void JointSums::EndBlock() {
  if (IsTooLarge()) {
    fBlock.clear();
    fTotal.clear();
    return;
  }
  fTotal.resize(fBlock.size());
  for (std::size_t row = 0; row < fBlock.size(); ++row) {
    fTotal[row].resize(fBlock[row].size());
    for (std::size_t place = 0; place < fBlock[row].size(); ++place) {
      fTotal[row][place] += fBlock[row][place];
      fBlock[row][place] = 0;
    }
  }
}

double JointSums::At(std::size_t row, std::size_t first, std::size_t second) const {
  const std::size_t place = PlaceOfAny(first, second);
  return row < fTotal.size() && place < fTotal[row].size() ? fTotal[row][place] : 0;
}

double JointSums::InColumn(std::size_t column, std::size_t first, std::size_t second) const {
  return At(column, first, second);
}

double JointSums::InColumns(std::size_t firstColumn, std::size_t secondColumn, std::size_t first,
                            std::size_t second) const {
  return At(PlaceOfAny(firstColumn, secondColumn), first, second);
}

}  // namespace standalone
