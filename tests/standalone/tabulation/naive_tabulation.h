#ifndef TESTS_STANDALONE_TABULATION_NAIVE_TABULATION_H
#define TESTS_STANDALONE_TABULATION_NAIVE_TABULATION_H

#include "standalone/tabulation/request.h"
#include "standalone/tabulation/tabulation.h"
#include "tests/standalone/tabulation/memory_source.h"

namespace standalone {

/// The figures of the first set of the request, each from its definition and case by case: members and categories in
/// the order of their names, no labels and no notes. Of conditions it knows comparisons of numbers.
Tabulation CountNaively(const TabulationRequest& request, MemorySource& source);

}  // namespace standalone

#endif  // TESTS_STANDALONE_TABULATION_NAIVE_TABULATION_H
