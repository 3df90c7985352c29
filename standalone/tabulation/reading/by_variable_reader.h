#ifndef STANDALONE_TABULATION_READING_BY_VARIABLE_READER_H
#define STANDALONE_TABULATION_READING_BY_VARIABLE_READER_H

#include <vector>

#include "standalone/tabulation/reading/by_reader.h"
#include "standalone/tabulation/reading/valued_column.h"
#include "standalone/tabulation/reading/values.h"

namespace standalone {

/// Columns that are the values of a variable.
class ByVariableReader : public ByReader {
 public:
  ByVariableReader(const Spoken& name, TabulationSource& source, Columns& columns);

  void StartBlock() override { fColumn.StartBlock(); }
  void ReadColumns(const Chunk& chunk, const Bits& cases) override;
  std::size_t ColumnCount() const override { return fValues.Size(); }
  std::vector<ByCategory> Categories() const override;

 private:
  ByVariableReader(const Variable& variable, const Block& block);

  void AddGroup(std::size_t column, const Bits& cases);

  Values fValues;
  ValueLabels fLabels;
  ValuedColumn fColumn;
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_READING_BY_VARIABLE_READER_H
