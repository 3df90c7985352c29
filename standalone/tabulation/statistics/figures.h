#ifndef STANDALONE_TABULATION_STATISTICS_FIGURES_H
#define STANDALONE_TABULATION_STATISTICS_FIGURES_H

#include <cstdint>

#include "standalone/tabulation/counting/sums.h"
#include "standalone/tabulation/request.h"
#include "standalone/tabulation/tabulation.h"

namespace standalone {

/// Makes the figures of cells from what was counted.
class Figures {
 public:
  /// `validCases`: all cases of the dataset with a valid weight, whatever WHERE says.
  Figures(const TabulationRequest& request, std::int64_t validCases);

  bool HasErrors() const { return fHasErrors; }

  /// The figures of a member or a net in a column with that base, but for the percentage of responses.
  TabulationCell Of(const CountedCell& member, const CountedCell& base) const;
  /// Nets have none.
  void AddPercentOfResponses(const TabulationColumn& column, TabulationCell& cell) const;

 private:
  bool HasPercentages(std::int64_t base) const { return base > 0 && base >= fMinBase; }
  void AddErrors(const CountedCell& member, const CountedCell& base, TabulationCell& cell) const;

  bool fHasErrors;
  std::int64_t fMinBase;
  double fValidCases;
  double fQuantile = 0;  // of Student's t, for half of an interval
};

/// The quotient, or nothing where the divisor is 0.
Figure Quotient(double dividend, double divisor);

}  // namespace standalone

#endif  // STANDALONE_TABULATION_STATISTICS_FIGURES_H
