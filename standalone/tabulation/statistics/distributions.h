#ifndef STANDALONE_TABULATION_STATISTICS_DISTRIBUTIONS_H
#define STANDALONE_TABULATION_STATISTICS_DISTRIBUTIONS_H

namespace standalone {

/// The quantile of Student's t. `degreesOfFreedom` is above 0, `probability` between 0 and 1.
double StudentQuantile(double degreesOfFreedom, double probability);

/// The probability that chi-square is above `statistic`. `degreesOfFreedom` is above 0.
double ChiSquareAbove(double degreesOfFreedom, double statistic);

}  // namespace standalone

#endif  // STANDALONE_TABULATION_STATISTICS_DISTRIBUTIONS_H
