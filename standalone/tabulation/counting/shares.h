#ifndef STANDALONE_TABULATION_COUNTING_SHARES_H
#define STANDALONE_TABULATION_COUNTING_SHARES_H

#include <cstddef>
#include <vector>

#include "standalone/tabulation/counting/joint_sums.h"
#include "standalone/tabulation/counting/sums.h"
#include "standalone/tabulation/reading/by_reader.h"
#include "standalone/tabulation/reading/set_reader.h"

namespace standalone {

/// What a set is tested on against a BY.
struct TestedTable {
  const Sums& sums;
  const JointSums& jointSums;
  std::size_t firstMemberRow;
  bool hasOverlaps;                    ///< the BY is a set
  const std::vector<Member>& members;  ///< in the order in which they are shown
  const std::vector<ByCategory>& categories;
};

/// What cancels out in a covariance is summed in more digits than are shown.
using Exact = long double;

/// The share of the weight that a member, or a category of the BY, has. One that nobody or everybody has is not tested.
struct Share {
  std::size_t index = 0;
  Exact share = 0;
  bool isTested = false;

  Exact Variance() const { return share * (1 - share); }
};

/// Shares over the cases of the base that are not missing in the BY.
struct Shares {
  Exact cases = 0;
  Exact weight = 0;
  std::vector<Share> members;
  std::vector<Share> categories;
  std::vector<std::vector<Exact>> excess;  ///< for each member and category, the joint share less that expected
};

Shares SharesOf(const TestedTable& table);

/// A sum of squares, or 0 where it is so small that only rounding can have made it.
inline double WithoutRounding(Exact squares) {
  constexpr Exact kLeastSquares = 1e-15L;
  return squares < kLeastSquares ? 0 : static_cast<double>(squares);
}

/// The sum of the squared eigenvalues of the estimated covariance of the tests over the nominal variances, where the
/// columns do not overlap: the squares of all entries, summed. 0 where nothing but rounding is left.
double SquaredEigenvaluesOfColumns(const Shares& shares, const JointSums& sums);

/// The same where the columns are the members of a set.
double SquaredEigenvaluesOfSets(const Shares& shares, const JointSums& sums);

}  // namespace standalone

#endif  // STANDALONE_TABULATION_COUNTING_SHARES_H
