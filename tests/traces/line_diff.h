#ifndef TESTS_TRACES_LINE_DIFF_H
#define TESTS_TRACES_LINE_DIFF_H

#include <string>
#include <vector>

namespace traces {

using Lines = std::vector<std::string>;

/// Where two texts differ, for a person: the number of the first differing line, the lines up to the last differing one
/// with "-" before what was expected and "+" before what came, and a few equal lines around them. Long runs are cut.
/// Empty when the texts are equal.
std::string Difference(const Lines& expected, const Lines& actual);

}  // namespace traces

#endif  // TESTS_TRACES_LINE_DIFF_H
