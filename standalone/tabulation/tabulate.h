#ifndef STANDALONE_TABULATION_TABULATE_H
#define STANDALONE_TABULATION_TABULATE_H

#include <cstddef>
#include <functional>
#include <vector>

#include "standalone/tabulation/request.h"
#include "standalone/tabulation/source.h"
#include "standalone/tabulation/tabulation.h"

namespace standalone {

/// Told between blocks how many of the cases are counted.
using TabulationProgress = std::function<void(std::size_t done, std::size_t cases)>;

/// The most categories that a BY may have.
inline constexpr std::size_t kMaxCategories = 10'000;

/// The most cells, of members or nets in columns, that the tables of a command may have.
inline constexpr std::size_t kMaxCells = 500'000;

/// Counts each set of the request, in one pass over the cases: every column is read once, block by block, and memory
/// does not depend on the number of cases. Throws TabulationError where the request does not fit the dataset, and an
/// Error of kind kInterrupted where the user interrupts.
std::vector<Tabulation> Tabulate(const TabulationRequest& request, TabulationSource& source,
                                 const TabulationProgress& progress = {});

}  // namespace standalone

#endif  // STANDALONE_TABULATION_TABULATE_H
