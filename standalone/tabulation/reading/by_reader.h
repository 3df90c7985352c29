#ifndef STANDALONE_TABULATION_READING_BY_READER_H
#define STANDALONE_TABULATION_READING_BY_READER_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "standalone/tabulation/reading/bits.h"
#include "standalone/tabulation/reading/columns.h"
#include "standalone/tabulation/reading/set_reader.h"
#include "standalone/tabulation/request.h"
#include "standalone/tabulation/source.h"

namespace standalone {

/// The columns of a BY in a chunk.
struct ColumnsOfChunk {
  Bits present{};         ///< the cases that are not missing in the BY
  bool isGrouped = true;  ///< the cases of each column are in `groups`; else the column of each case is in `columnOf`
  std::vector<CaseGroup> groups;
  std::vector<std::uint32_t> columnOf;  ///< for each case that is present
};

/// One column: a value, two of a pair, or a member of a set.
struct ByCategory {
  std::size_t index = 0;
  std::vector<std::string> values;
  std::vector<std::string> labels;
};

/// Reads in which columns of a BY the cases of a chunk are. Columns have indexes, whose number grows.
class ByReader {
 public:
  explicit ByReader(std::string name) : fName(std::move(name)) {}
  virtual ~ByReader() = default;

  /// "region", "region*vegetarian", "$food"; empty for the total.
  const std::string& Name() const { return fName; }
  /// The set whose members are the columns; null for other columns, which never overlap.
  virtual const SetReader* Set() const { return nullptr; }

  virtual void StartBlock() {}
  /// Reads the columns of those `cases` of the chunk.
  void Read(const Chunk& chunk, const Bits& cases) {
    fHasColumnOfCases = false;
    ReadColumns(chunk, cases);
  }
  const ColumnsOfChunk& Current() const { return fColumns; }
  /// The column of each case of a BY whose columns do not overlap.
  const std::vector<std::uint32_t>& ColumnOfCases();

  virtual std::size_t ColumnCount() const = 0;
  /// The columns in their order, after all chunks.
  virtual std::vector<ByCategory> Categories() const = 0;

 protected:
  virtual void ReadColumns(const Chunk& chunk, const Bits& cases) = 0;
  /// Makes room to say the column of each case.
  void ListCases();

  ColumnsOfChunk fColumns;  // NOLINT(*-non-private-*): of the kinds of readers alone

 private:
  std::string fName;
  bool fHasColumnOfCases = false;
};

/// The one column of all cases.
std::unique_ptr<ByReader> MakeTotalReader();

using FindSetReader = std::function<SetReader&(const Spoken& name)>;

/// Throws TabulationError where the names lead nowhere. A set is one of those that `findSet` gives.
std::unique_ptr<ByReader> MakeByReader(const ByRequest& by, TabulationSource& source, Columns& columns,
                                       const FindSetReader& findSet);

}  // namespace standalone

#endif  // STANDALONE_TABULATION_READING_BY_READER_H
