#include "standalone/tabulation/reading/by_reader.h"

#include <fmt/format.h>

#include <utility>

#include "standalone/tabulation/reading/by_set_reader.h"
#include "standalone/tabulation/reading/by_variable_reader.h"
#include "standalone/tabulation/reading/pair_reader.h"
#include "standalone/tabulation/tabulation_error.h"

namespace standalone {
namespace {

class TotalReader : public ByReader {
 public:
  TotalReader() : ByReader("") {}
  void ReadColumns(const Chunk& /*chunk*/, const Bits& cases) override {
    fColumns.present = cases;
    fColumns.groups = {{0, cases}};
  }
  std::size_t ColumnCount() const override { return 1; }
  std::vector<ByCategory> Categories() const override { return {{0, {}, {"Total"}}}; }
};

bool IsSetName(const Spoken& name) {
  return name.text.rfind('$', 0) == 0;
}

void RefuseSetInPair(const Spoken& name) {
  if (IsSetName(name)) {
    throw TabulationError(fmt::format("{} cannot be part of a pair: a pair takes two variables.", name.text),
                          name.offset, name.size);
  }
}

}  // namespace

void ByReader::ListCases() {
  if (fColumns.columnOf.empty()) {
    fColumns.columnOf.resize(kChunkCases);
  }
}

const std::vector<std::uint32_t>& ByReader::ColumnOfCases() {
  if (fColumns.isGrouped && !fHasColumnOfCases) {
    ListCases();
    for (const CaseGroup& group : fColumns.groups) {
      const auto column = static_cast<std::uint32_t>(group.index);
      ForEachCase(group.cases, [&](std::size_t place) { fColumns.columnOf[place] = column; });
    }
    fHasColumnOfCases = true;
  }
  return fColumns.columnOf;
}

std::unique_ptr<ByReader> MakeTotalReader() {
  return std::make_unique<TotalReader>();
}

std::unique_ptr<ByReader> MakeByReader(const ByRequest& by, TabulationSource& source, Columns& columns,
                                       const FindSetReader& findSet) {
  if (by.second) {
    RefuseSetInPair(by.first);
    RefuseSetInPair(*by.second);
    return std::make_unique<PairReader>(by, source, columns);
  }
  if (IsSetName(by.first)) {
    return std::make_unique<BySetReader>(findSet(by.first));
  }
  return std::make_unique<ByVariableReader>(by.first, source, columns);
}

}  // namespace standalone
