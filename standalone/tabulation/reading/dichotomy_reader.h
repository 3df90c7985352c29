#ifndef STANDALONE_TABULATION_READING_DICHOTOMY_READER_H
#define STANDALONE_TABULATION_READING_DICHOTOMY_READER_H

#include <string>
#include <vector>

#include "standalone/tabulation/reading/set_reader.h"
#include "standalone/tabulation/reading/tested_column.h"

namespace standalone {

/// The members of a dichotomy set are its variables.
class DichotomyReader : public SetReader {
 public:
  DichotomyReader(CountedSet set, bool needsComplete, Columns& columns);

  void StartBlock() override;
  void Read(const Chunk& chunk, const Bits& cases) override;
  std::optional<std::size_t> Find(const std::string& written) override;
  std::size_t MemberCount() const override { return fCounted.size(); }
  std::size_t IndexCount() const override { return fCounted.size(); }
  bool IsKnown(std::size_t /*member*/) const override { return true; }
  std::optional<std::string> NearestTo(const std::string& word) const override;
  std::vector<Member> Members() const override;

 private:
  void ReadComplete(const Chunk& chunk, const Bits& cases);

  bool fNeedsComplete;
  std::vector<TestedColumn> fCounted;
  std::vector<TestedColumn> fMissing;
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_READING_DICHOTOMY_READER_H
