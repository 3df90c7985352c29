#ifndef STANDALONE_TABULATION_READING_WHERE_READER_H
#define STANDALONE_TABULATION_READING_WHERE_READER_H

#include <functional>
#include <memory>
#include <vector>

#include "standalone/tabulation/reading/bits.h"
#include "standalone/tabulation/reading/columns.h"
#include "standalone/tabulation/reading/set_reader.h"
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

  /// Calls `visit` with each category set of the condition and the value that a case HAS. The set only knows which
  /// values the dataset holds.
  using Visit = std::function<void(SetReader& set, const Spoken& value)>;
  void VisitCategories(const Visit& visit) const;

 private:
  void ReadHas(const Condition& condition, const TabulationRequest& request, TabulationSource& source,
               Columns& columns);

  Condition::Kind fKind;
  std::vector<WhereReader> fParts;
  std::unique_ptr<SetReader> fCategories;  // of HAS where the set is a category set
  Spoken fValue;                           // likewise
  std::vector<TestedColumn> fColumns;      // of a condition without parts: that any of them holds what is meant
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_READING_WHERE_READER_H
