#ifndef STANDALONE_TABULATION_READING_BY_SET_READER_H
#define STANDALONE_TABULATION_READING_BY_SET_READER_H

#include <vector>

#include "standalone/tabulation/reading/by_reader.h"

namespace standalone {

/// Columns that are the members of a set, whose reader has read the chunk before. They overlap.
class BySetReader : public ByReader {
 public:
  explicit BySetReader(const SetReader& set) : ByReader(set.Set().name), fSet(set) {}

  const SetReader* Set() const override { return &fSet; }
  void ReadColumns(const Chunk& /*chunk*/, const Bits& cases) override {
    fColumns.present = Without(cases, fSet.Current().missing);
    fColumns.groups = fSet.Current().chosen;
  }
  std::size_t ColumnCount() const override { return fSet.MemberCount(); }
  std::vector<ByCategory> Categories() const override {
    std::vector<ByCategory> categories;
    for (const Member& member : fSet.Members()) {
      categories.push_back({member.index, {member.name}, {member.label}});
    }
    return categories;
  }

 private:
  const SetReader& fSet;
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_READING_BY_SET_READER_H
