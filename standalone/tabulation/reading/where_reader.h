#ifndef STANDALONE_TABULATION_READING_WHERE_READER_H
#define STANDALONE_TABULATION_READING_WHERE_READER_H

#include <optional>
#include <vector>

#include "standalone/tabulation/reading/bits.h"
#include "standalone/tabulation/reading/columns.h"
#include "standalone/tabulation/reading/tested_column.h"
#include "standalone/tabulation/request.h"
#include "standalone/tabulation/source.h"

namespace standalone {

/// The cases that fulfil a condition.
class WhereReader {
 public:
  /// Throws TabulationError where the condition does not fit the dataset. A value of the request's NONE is no member.
  WhereReader(const Condition& condition, const TabulationRequest& request, TabulationSource& source, Columns& columns);

  /// To be called when a block was read.
  void StartBlock();
  Bits Read(const Chunk& chunk) const;

 private:
  Condition::Kind fKind;
  std::vector<WhereReader> fParts;
  std::vector<TestedColumn> fColumns;  // of a condition without parts: that any of them holds what is meant
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_READING_WHERE_READER_H
