#include <array>
#include <cstddef>
#include <vector>

#include "standalone/tabulation/counting/shares.h"
#include "standalone/tabulation/interruption.h"

namespace standalone {
namespace {

/// A category of the BY and a member: a 2 x 2 table.
struct Pair {
  Share category;
  Share member;
  Exact excess = 0;
  Exact mean = 0;  // of (z_c - q_c)(x_j - p_j), weighted by squared weights
  Exact nominal = 0;
};

/// A factor (x - p) of a product: x or, with the sign of it, p.
struct Term {
  std::size_t entry;
  Exact factor;
};

class SetCovariance {
 public:
  SetCovariance(const Shares& shares, const JointSums& sums)
      : fSums(sums),
        fScale(shares.cases / (shares.weight * shares.weight)),
        fWhole(fScale * sums.InColumns(0, 0, 0, 0)) {
    for (std::size_t j = 0; j < shares.members.size(); ++j) {
      for (std::size_t c = 0; c < shares.categories.size(); ++c) {
        AddPair(shares.members[j], shares.categories[c], shares.excess[j][c]);
      }
    }
  }

  Exact Squares() const {
    Exact squares = 0;
    for (std::size_t a = 0; a < fPairs.size(); ++a) {
      RequireNoInterrupt();
      for (std::size_t b = 0; b <= a; ++b) {
        const Exact covariance = Covariance(fPairs[a], fPairs[b]);
        squares += (a == b ? 1 : 2) * covariance * covariance / (fPairs[a].nominal * fPairs[b].nominal);
      }
    }
    return squares;
  }

 private:
  static std::array<Term, 2> TermsOf(const Share& share) { return {{{share.index + 1, 1}, {0, -share.share}}}; }

  void AddPair(const Share& member, const Share& category, Exact excess) {
    if (!member.isTested || !category.isTested) {
      return;
    }
    Pair pair{category, member, excess, 0, member.Variance() * category.Variance()};
    for (const Term& z : TermsOf(category)) {
      for (const Term& x : TermsOf(member)) {
        pair.mean += fScale * z.factor * x.factor * fSums.InColumns(z.entry, 0, x.entry, 0);
      }
    }
    fPairs.push_back(pair);
  }

  /// The mean of (z_c - q_c)(z_d - q_d)(x_j - p_j)(x_k - p_k).
  Exact MeanOfProduct(const Pair& a, const Pair& b) const {
    Exact mean = 0;
    for (const Term& zc : TermsOf(a.category)) {
      for (const Term& zd : TermsOf(b.category)) {
        for (const Term& xj : TermsOf(a.member)) {
          for (const Term& xk : TermsOf(b.member)) {
            mean +=
                zc.factor * zd.factor * xj.factor * xk.factor * fSums.InColumns(zc.entry, zd.entry, xj.entry, xk.entry);
          }
        }
      }
    }
    return fScale * mean;
  }

  Exact Covariance(const Pair& a, const Pair& b) const {
    return MeanOfProduct(a, b) - b.excess * a.mean - a.excess * b.mean + a.excess * b.excess * fWhole;
  }

  const JointSums& fSums;
  Exact fScale;
  Exact fWhole;
  std::vector<Pair> fPairs;
};

}  // namespace

double SquaredEigenvaluesOfSets(const Shares& shares, const JointSums& sums) {
  return WithoutRounding(SetCovariance(shares, sums).Squares());
}

}  // namespace standalone
