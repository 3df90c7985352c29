#ifndef STANDALONE_TABULATION_READING_CATEGORY_READER_H
#define STANDALONE_TABULATION_READING_CATEGORY_READER_H

#include <optional>
#include <string>
#include <vector>

#include "standalone/tabulation/reading/named_values.h"
#include "standalone/tabulation/reading/set_reader.h"
#include "standalone/tabulation/reading/valued_column.h"
#include "standalone/tabulation/reading/values.h"

namespace standalone {

/// The members of a category set are the values that occur.
class CategoryReader : public SetReader {
 public:
  CategoryReader(CountedSet set, const std::optional<Spoken>& none, Columns& columns);

  void StartBlock() override;
  void Read(const Chunk& chunk, const Bits& cases) override;
  std::optional<std::size_t> Find(const std::string& written) override;
  std::size_t MemberCount() const override { return fMemberCount; }
  std::size_t IndexCount() const override { return fValues.Size(); }
  bool IsKnown(std::size_t member) const override;
  std::optional<std::string> NearestTo(const std::string& word) const override;
  std::vector<Member> Members() const override;

 private:
  Bits& CasesOf(std::size_t member);
  void ReadVariable(ValuedColumn& column, const Chunk& chunk, const Bits& cases, Bits& given);
  void TakeOutNone();

  Values fValues;
  std::optional<std::size_t> fNone;
  NamedValues fNamed;
  std::vector<const Block*> fBlocks;   // of the variables
  std::vector<ValuedColumn> fColumns;  // likewise
  std::vector<bool> fOccurs;           // for each value
  std::size_t fMemberCount = 0;
  std::vector<std::size_t> fSlots;  // for each value, where the chunk's cases that chose it are, plus 1; 0: nobody did
  std::size_t fUsedSlots = 0;
  Bits fRepeated{};  // gave a value of the chunk more than once
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_READING_CATEGORY_READER_H
