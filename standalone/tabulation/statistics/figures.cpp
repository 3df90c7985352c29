#include "standalone/tabulation/statistics/figures.h"

#include <algorithm>
#include <cmath>

#include "standalone/tabulation/statistics/distributions.h"

namespace standalone {
namespace {

constexpr double kPercent = 100;

}  // namespace

Figure Quotient(double dividend, double divisor) {
  return divisor > 0 ? Figure(dividend / divisor) : std::nullopt;
}

Figures::Figures(const TabulationRequest& request, std::int64_t validCases)
    : fHasErrors(request.figures.standardError || request.figures.interval),
      fMinBase(request.minBase),
      fValidCases(static_cast<double>(validCases)) {
  if (fHasErrors && validCases > 1) {
    fQuantile = StudentQuantile(fValidCases - 1, (1 + request.confidence / kPercent) / 2);
  }
}

TabulationCell Figures::Of(const CountedCell& member, const CountedCell& base) const {
  TabulationCell cell;
  cell.cases = member.cases;
  cell.count = member.weights.once;
  if (HasPercentages(base.cases)) {
    cell.percentOfCases = Quotient(kPercent * cell.count, base.weights.once);
    if (fHasErrors && fValidCases > 1) {
      AddErrors(member, base, cell);
    }
  }
  return cell;
}

void Figures::AddPercentOfResponses(const TabulationColumn& column, TabulationCell& cell) const {
  if (HasPercentages(column.cases.base)) {
    cell.percentOfResponses = Quotient(kPercent * cell.count, column.responses);
  }
}

/// Of a ratio by linearisation: the squared residuals of all cases, of which those outside the base have none.
void Figures::AddErrors(const CountedCell& member, const CountedCell& base, TabulationCell& cell) const {
  const double ratio = member.weights.once / base.weights.once;
  const double residuals = member.weights.squared * (1 - 2 * ratio) + ratio * ratio * base.weights.squared;
  const double variance =
      fValidCases / (fValidCases - 1) * std::max(residuals, 0.0) / (base.weights.once * base.weights.once);
  const double error = kPercent * std::sqrt(variance);
  cell.standardError = error;
  cell.low = kPercent * ratio - fQuantile * error;
  cell.high = kPercent * ratio + fQuantile * error;
  if (base.cases > 1 && member.cases > 0 && member.cases < base.cases) {
    cell.designEffect = variance / (ratio * (1 - ratio) / static_cast<double>(base.cases - 1));
  }
}

}  // namespace standalone
