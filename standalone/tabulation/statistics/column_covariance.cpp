#include <array>
#include <cstddef>
#include <numeric>
#include <vector>

#include "standalone/tabulation/counting/shares.h"
#include "standalone/tabulation/interruption.h"

// With q the shares of the categories, p those of the members, y = x - p what a case chose less the shares, T the
// excess and E the mean weighted by squared weights, the covariance of (c, j) and (d, k) is that of u = (1_c - q_c) y_j
// - T_cj. For two members it is, as a matrix of the categories, a diagonal and a sum of four products of vectors, so
// that its squares are summed without looking at each pair of categories:
//   diag(A) - G q' - q G' - n_j T_k' - T_j (n_k - E[1] T_k)'
// with A_c = E[1_c y_j y_k], G = A - q sum(A) / 2 and n_j = E[(1_c - q_c) y_j].

namespace standalone {
namespace {

using Vector = std::vector<Exact>;  // an entry for each category that is tested

constexpr std::size_t kProducts = 4;
using Factors = std::array<Vector, kProducts>;

Exact Product(const Vector& first, const Vector& second, const Vector& q) {
  Exact sum = 0;
  for (std::size_t c = 0; c < q.size(); ++c) {
    sum += first[c] * second[c] / q[c];
  }
  return sum;
}

/// The sum of squares of diag(A) + sum of left right', each entry over the root of its two q.
Exact SumOfSquares(const Vector& a, const Factors& left, const Factors& right, const Vector& q) {
  Exact sum = 0;
  for (std::size_t c = 0; c < q.size(); ++c) {
    Exact onDiagonal = 0;
    for (std::size_t product = 0; product < kProducts; ++product) {
      onDiagonal += left[product][c] * right[product][c];
    }
    sum += a[c] * (a[c] + 2 * onDiagonal) / (q[c] * q[c]);
  }
  for (std::size_t first = 0; first < kProducts; ++first) {
    for (std::size_t second = 0; second < kProducts; ++second) {
      sum += Product(left[first], left[second], q) * Product(right[first], right[second], q);
    }
  }
  return sum;
}

class ColumnCovariance {
 public:
  ColumnCovariance(const Shares& shares, const JointSums& sums)
      : fShares(shares), fSums(sums), fScale(shares.cases / (shares.weight * shares.weight)) {
    for (std::size_t place = 0; place < shares.categories.size(); ++place) {
      if (shares.categories[place].isTested) {
        fPlaces.push_back(place);
        fQ.push_back(shares.categories[place].share);
        fAll.push_back(Mean(place, 0, 0));
      }
    }
    fWhole = std::accumulate(fAll.begin(), fAll.end(), Exact{0});
    for (std::size_t j = 0; j < shares.members.size(); ++j) {
      fJoint.push_back(JointOf(j));
      fDeviations.push_back(DeviationOf(j));
      fExcess.push_back(ExcessOf(j));
    }
  }

  /// Of the block of two members.
  Exact Squares(std::size_t j, std::size_t k) const {
    const Vector a = Joint(j, k);
    const Exact halfOfA = std::accumulate(a.begin(), a.end(), Exact{0}) / 2;
    const Vector& nk = fDeviations[k];
    Factors left{Vector(fQ), Vector(fQ), fDeviations[j], fExcess[j]};
    Factors right{Vector(fQ), Vector(fQ), fExcess[k], fExcess[k]};
    for (std::size_t c = 0; c < fQ.size(); ++c) {
      left[0][c] = a[c] - halfOfA * fQ[c];
      right[0][c] = -fQ[c];
      right[1][c] = -left[0][c];
      right[2][c] = -right[2][c];
      right[3][c] = fWhole * right[3][c] - nk[c];
    }
    return SumOfSquares(a, left, right, fQ) / (fShares.members[j].Variance() * fShares.members[k].Variance());
  }

 private:
  /// The mean over the cases of a category that chose two members.
  Exact Mean(std::size_t category, std::size_t first, std::size_t second) const {
    return fScale * fSums.InColumn(fShares.categories[category].index, first, second);
  }

  std::size_t Entry(std::size_t member) const { return fShares.members[member].index + 1; }

  Vector Joint(std::size_t j, std::size_t k) const {
    const Exact pj = fShares.members[j].share;
    const Exact pk = fShares.members[k].share;
    Vector joint;
    for (std::size_t c = 0; c < fPlaces.size(); ++c) {
      joint.push_back(Mean(fPlaces[c], Entry(j), Entry(k)) - pk * fJoint[j][c] - pj * fJoint[k][c] + pj * pk * fAll[c]);
    }
    return joint;
  }

  Vector JointOf(std::size_t member) const {
    Vector joint;
    for (const std::size_t place : fPlaces) {
      joint.push_back(Mean(place, Entry(member), 0));
    }
    return joint;
  }

  Vector DeviationOf(std::size_t member) const {
    Vector deviation;
    for (std::size_t c = 0; c < fPlaces.size(); ++c) {
      deviation.push_back(fJoint[member][c] - fShares.members[member].share * fAll[c]);
    }
    const Exact whole = std::accumulate(deviation.begin(), deviation.end(), Exact{0});
    for (std::size_t c = 0; c < fPlaces.size(); ++c) {
      deviation[c] -= fQ[c] * whole;
    }
    return deviation;
  }

  Vector ExcessOf(std::size_t member) const {
    Vector excess;
    for (const std::size_t place : fPlaces) {
      excess.push_back(fShares.excess[member][place]);
    }
    return excess;
  }

  const Shares& fShares;
  const JointSums& fSums;
  Exact fScale;
  std::vector<std::size_t> fPlaces;  // of the categories that are tested
  Vector fQ;
  Vector fAll;  // E[1_c]
  Exact fWhole = 0;
  std::vector<Vector> fJoint;  // of each member: E[1_c x_j], n_j and T_j
  std::vector<Vector> fDeviations;
  std::vector<Vector> fExcess;
};

}  // namespace

double SquaredEigenvaluesOfColumns(const Shares& shares, const JointSums& sums) {
  const ColumnCovariance covariance(shares, sums);
  Exact squares = 0;
  for (std::size_t j = 0; j < shares.members.size(); ++j) {
    RequireNoInterrupt();
    for (std::size_t k = 0; k <= j && shares.members[j].isTested; ++k) {
      if (shares.members[k].isTested) {
        squares += (j == k ? 1 : 2) * covariance.Squares(j, k);
      }
    }
  }
  return WithoutRounding(squares);
}

}  // namespace standalone
