#ifndef STANDALONE_TABULATION_SHARES_H
#define STANDALONE_TABULATION_SHARES_H

#include <cstddef>
#include <vector>

#include "standalone/tabulation/by_reader.h"
#include "standalone/tabulation/joint_sums.h"
#include "standalone/tabulation/set_reader.h"
#include "standalone/tabulation/sums.h"

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

/// The share of the weight that a member, or a category of the BY, has. One that nobody or everybody has is not tested.
struct Share {
  std::size_t index = 0;
  double share = 0;
  bool isTested = false;

  double Variance() const { return share * (1 - share); }
};

/// Shares over the cases of the base that are not missing in the BY.
struct Shares {
  double cases = 0;
  double weight = 0;
  std::vector<Share> members;
  std::vector<Share> categories;
  std::vector<std::vector<double>> excess;  ///< for each member and category, the joint share less that expected
};

Shares SharesOf(const TestedTable& table);

/// The sum of the squared eigenvalues of the estimated covariance of the tests over the nominal variances, where the
/// columns do not overlap: the squares of all entries, summed.
double SquaredEigenvaluesOfColumns(const Shares& shares, const JointSums& sums);

/// The same where the columns are the members of a set.
double SquaredEigenvaluesOfSets(const Shares& shares, const JointSums& sums);

}  // namespace standalone

#endif  // STANDALONE_TABULATION_SHARES_H
