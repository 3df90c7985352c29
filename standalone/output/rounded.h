#ifndef STANDALONE_OUTPUT_ROUNDED_H
#define STANDALONE_OUTPUT_ROUNDED_H

#include <string>

namespace standalone {

/// A finite number with so many decimals, 0 or more. What is rounded, half away from zero, is the shortest decimal text
/// that gives the double, so that 0.125 becomes 0.13 and 1.005 becomes 1.01. No exponent, no -0.
std::string Rounded(double number, int decimals);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_ROUNDED_H
