#ifndef STANDALONE_TABULATION_REQUEST_H
#define STANDALONE_TABULATION_REQUEST_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "standalone/tabulation/tabulation.h"

namespace standalone {

/// A word or a value of the command, as written (a quoted one without its quotes), and the bytes of the command that it
/// takes: what a message about it points to.
struct Spoken {
  std::string text;
  bool isQuoted = false;
  std::size_t offset = 0;
  std::size_t size = 0;
};

/// What WHERE asks of a case.
struct Condition {
  enum class Kind { kNot, kAnd, kOr, kComparison, kIn, kMissing, kHas };
  enum class Operator { kEqual, kNotEqual, kLess, kLessOrEqual, kGreater, kGreaterOrEqual };

  Kind kind = Kind::kAnd;
  std::vector<Condition> parts;  ///< of kNot one, of kAnd and kOr two or more
  Spoken name;                   ///< of a variable; of kHas, of a set
  Operator compare = Operator::kEqual;
  std::vector<Spoken> values;  ///< of kComparison and kHas one, of kIn one or more
};

/// One BY: a variable, a set ("$name"), or the pairs of two of them.
struct ByRequest {
  Spoken first;
  std::optional<Spoken> second;
};

struct NetRequest {
  Spoken label;
  std::vector<Spoken> members;
};

enum class Sort { kNone, kDescending, kAscending };

/// A TABULATE command as it was written. Whether its names lead anywhere is not looked at.
struct TabulationRequest {
  std::vector<Spoken> sets;  ///< with their "$"
  std::vector<ByRequest> by;
  std::optional<Spoken> weight;
  TabulationBase base = TabulationBase::kAnswered;
  std::optional<Condition> where;
  std::string whereText;  ///< as written
  std::optional<Spoken> none;
  std::vector<NetRequest> nets;
  TabulationFigures figures;
  Sort sort = Sort::kNone;
  std::vector<Spoken> last;
  double confidence = 95;  ///< percent, above 0 and below 100
  std::optional<Adjustment> test;
  std::int64_t minBase = 0;  ///< 0: not asked for
  int decimals = 1;          ///< 0 to 15
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_REQUEST_H
