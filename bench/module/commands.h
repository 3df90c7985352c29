#ifndef BENCH_MODULE_COMMANDS_H
#define BENCH_MODULE_COMMANDS_H

#include <cstddef>
#include <string>
#include <vector>

#include "tests/host/scripted_host.h"

namespace bench {

/// Whether the variables of a dictionary have labels and value labels.
enum class Labels { kNone, kEach };

/// A command that defines dichotomy sets over neighbouring variables of a dictionary, and a display of the one set.
struct Workload {
  std::size_t sets = 1;
  std::size_t variables = 12;  ///< of each set
  Labels labels = Labels::kEach;
  bool asRange = false;  ///< the variables are written as "q1 TO q12", else each by its name
  bool display = false;  ///< of the only set
};

/// Names as they are written in the command. The variables of set N are those of the dictionary, from the first on:
/// every set has the same.
std::string SetName(std::size_t set);
std::string VariableName(std::size_t variable);

/// Numeric variables. Their labels differ; the value labels are No and Yes.
std::vector<scripted::Variable> DictionaryOf(const Workload& workload);

/// The command as a user types it.
std::string CommandOf(const Workload& workload);

/// What is the same in each set of a command.
inline constexpr char kSetLabel[] = "Drinks at breakfast";
inline constexpr char kCountedValue[] = "1";

}  // namespace bench

#endif  // BENCH_MODULE_COMMANDS_H
