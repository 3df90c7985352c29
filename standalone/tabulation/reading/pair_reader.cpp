#include "standalone/tabulation/reading/pair_reader.h"

#include <algorithm>
#include <numeric>
#include <string>

#include "standalone/tabulation/reading/counted_set.h"

namespace standalone {
namespace {

constexpr std::uint32_t kNearValues = 64;

std::string NameOfPair(const ByRequest& by, TabulationSource& source) {
  const std::string first = source.VariableAt(FindVariable(by.first, source)).name;
  return first + "*" + source.VariableAt(FindVariable(*by.second, source)).name;
}

/// For each index of a category, its place among them.
std::vector<std::size_t> RanksOf(const std::vector<ByCategory>& categories) {
  std::vector<std::size_t> ranks(categories.size());
  for (std::size_t rank = 0; rank < categories.size(); ++rank) {
    ranks[categories[rank].index] = rank;
  }
  return ranks;
}

}  // namespace

PairReader::PairReader(const ByRequest& by, TabulationSource& source, Columns& columns)
    : ByReader(NameOfPair(by, source)),
      fFirst(by.first, source, columns),
      fSecond(*by.second, source, columns),
      fSecondMissing(columns.Need(FindVariable(*by.second, source)), MissingTest()),
      fNearColumns(kNearValues * kNearValues) {}

void PairReader::StartBlock() {
  fFirst.StartBlock();
  fSecond.StartBlock();
  fSecondMissing.StartBlock();
}

std::uint32_t PairReader::ColumnOf(std::uint32_t first, std::uint32_t second) {
  constexpr int kBitsOfValue = 32;
  const bool isNear = first < kNearValues && second < kNearValues;
  if (isNear && fNearColumns[first * kNearValues + second] != 0) {
    return fNearColumns[first * kNearValues + second] - 1;
  }
  const auto [place, isNew] =
      fColumnOfPair.emplace((std::uint64_t{first} << kBitsOfValue) | second, static_cast<std::uint32_t>(fPairs.size()));
  if (isNew) {
    fPairs.emplace_back(first, second);
  }
  if (isNear) {
    fNearColumns[first * kNearValues + second] = place->second + 1;
  }
  return place->second;
}

/// A value is only looked at in a case that has both, so that there are never more values than pairs.
void PairReader::ReadColumns(const Chunk& chunk, const Bits& cases) {
  Bits missing = cases;
  fSecondMissing.Keep(chunk, missing);
  fFirst.Read(chunk, Without(cases, missing));
  fColumns.present = fFirst.Current().present;
  fSecond.Read(chunk, fColumns.present);
  fColumns.isGrouped = false;
  ListCases();
  const std::vector<std::uint32_t>& first = fFirst.ColumnOfCases();
  const std::vector<std::uint32_t>& second = fSecond.ColumnOfCases();
  ForEachCase(fColumns.present,
              [&](std::size_t place) { fColumns.columnOf[place] = ColumnOf(first[place], second[place]); });
}

std::vector<ByCategory> PairReader::Categories() const {
  const std::vector<ByCategory> firsts = fFirst.Categories();
  const std::vector<ByCategory> seconds = fSecond.Categories();
  const std::vector<std::size_t> firstRanks = RanksOf(firsts);
  const std::vector<std::size_t> secondRanks = RanksOf(seconds);
  std::vector<std::size_t> order(fPairs.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  const auto ranksOf = [&](std::size_t column) {
    return std::pair(firstRanks[fPairs[column].first], secondRanks[fPairs[column].second]);
  };
  std::sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return ranksOf(a) < ranksOf(b); });
  std::vector<ByCategory> categories;
  for (const std::size_t column : order) {
    const ByCategory& first = firsts[ranksOf(column).first];
    const ByCategory& second = seconds[ranksOf(column).second];
    categories.push_back({column, {first.values[0], second.values[0]}, {first.labels[0], second.labels[0]}});
  }
  return categories;
}

}  // namespace standalone
