#ifndef BENCH_MODULE_FLOOR_H
#define BENCH_MODULE_FLOOR_H

#include <string>
#include <utility>
#include <vector>

#include "bench/module/commands.h"

namespace bench {

/// Makes of the host exactly the calls that the module makes for one command, in their order, with their arguments and
/// with all that is constructed and released, and nothing else: what it passes on is known beforehand. What the host
/// gives back is dropped. How long it takes is therefore what no module could do better on that host.
class Floor {
 public:
  /// The command of the host must be CommandOf(workload) over DictionaryOf(workload). The sets that it finds stored
  /// must be none, or the very sets that the command defines. A display is of one set.
  explicit Floor(const Workload& workload);

  /// One command.
  void Run() const;

 private:
  /// Two labels that are compared, by their variables.
  using Comparison = std::pair<std::size_t, std::size_t>;

  class Calls;

  /// Finds out which labels are compared.
  void Compare();

  Workload fWorkload;
  std::vector<std::string> fSetNames;
  std::vector<std::string> fVariableNames;
  std::vector<std::string> fLabels;
  std::vector<std::vector<Comparison>> fComparisons;  // for each variable, as the labels are told apart
};

}  // namespace bench

#endif  // BENCH_MODULE_FLOOR_H
