#ifndef STANDALONE_TABULATION_COUNTING_JOINT_SUMS_H
#define STANDALONE_TABULATION_COUNTING_JOINT_SUMS_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "standalone/tabulation/reading/bits.h"
#include "standalone/tabulation/reading/by_reader.h"
#include "standalone/tabulation/reading/set_reader.h"
#include "standalone/tabulation/reading/weight_reader.h"

namespace standalone {

/// The members that each case of a chunk chose: their indexes plus 1, ascending, after the 0 that everybody has chosen.
class ChosenLists {
 public:
  void Read(const std::vector<CaseGroup>& chosen);

  const std::uint32_t* begin(std::size_t place) const { return fEntries.data() + fBegins[place]; }    // NOLINT
  const std::uint32_t* end(std::size_t place) const { return fEntries.data() + fBegins[place + 1]; }  // NOLINT

 private:
  std::vector<std::size_t> fBegins;
  std::vector<std::size_t> fEnds;
  std::vector<std::uint32_t> fEntries;
};

/// What the covariance of a set's tests against a BY is made of: the sums of squared weights over the cases of the base
/// that are not missing in the BY and chose two members (plus 1; 0 stands for no condition) and are in a column, or
/// where columns overlap, in two of them.
class JointSums {
 public:
  /// The most sums of a command, of which each test has an equal share.
  static constexpr std::size_t kMostSums = 4'000'000;

  /// Where all members and columns there are could need more than `most` sums, there are none: the test is not
  /// corrected.
  explicit JointSums(std::size_t most) : fMost(static_cast<double>(most)) {}

  /// `members`: how many indexes of members there are so far.
  void Add(const Bits& base, const ChosenLists& lists, std::size_t members, ByReader& by, const Weights* weights);
  void EndBlock();

  bool IsTooLarge() const { return fIsTooLarge; }

  /// In a column of a BY whose columns do not overlap.
  double InColumn(std::size_t column, std::size_t first, std::size_t second) const;
  /// In two columns (plus 1; 0 stands for no condition) of one whose columns do.
  double InColumns(std::size_t firstColumn, std::size_t secondColumn, std::size_t first, std::size_t second) const;

 private:
  using Triangle = std::vector<double>;  // of pairs, the greater of which gives the row

  void AddCase(std::size_t row, const std::uint32_t* begin, const std::uint32_t* end, double squared);
  double At(std::size_t row, std::size_t first, std::size_t second) const;

  double fMost;
  ChosenLists fColumnLists;  // where columns overlap
  std::vector<Triangle> fBlock;
  std::vector<Triangle> fTotal;
  bool fIsTooLarge = false;
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_COUNTING_JOINT_SUMS_H
