#include "standalone/tabulation/statistics/distributions.h"

#include <boost/math/distributions/chi_squared.hpp>
#include <boost/math/distributions/students_t.hpp>

namespace standalone {

double StudentQuantile(double degreesOfFreedom, double probability) {
  return boost::math::quantile(boost::math::students_t(degreesOfFreedom), probability);
}

double ChiSquareAbove(double degreesOfFreedom, double statistic) {
  return boost::math::cdf(boost::math::complement(boost::math::chi_squared(degreesOfFreedom), statistic));
}

}  // namespace standalone
