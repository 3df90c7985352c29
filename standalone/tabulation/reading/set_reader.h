#ifndef STANDALONE_TABULATION_READING_SET_READER_H
#define STANDALONE_TABULATION_READING_SET_READER_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "standalone/tabulation/reading/bits.h"
#include "standalone/tabulation/reading/columns.h"
#include "standalone/tabulation/reading/counted_set.h"
#include "standalone/tabulation/request.h"

namespace standalone {

/// A group of cases of a chunk: those that chose a member, or those of a column.
struct CaseGroup {
  std::size_t index = 0;  ///< of the member or the column
  Bits cases{};
};

/// What the cases of a chunk answered.
struct Answers {
  std::vector<CaseGroup> chosen;  ///< the members that anybody chose, ascending
  Bits answered{};
  Bits noneChosen{};
  Bits missing{};
  Bits complete{};  ///< of a dichotomy set, only where this is the base
};

struct Member {
  std::size_t index = 0;
  std::string name;
  std::string label;
};

/// Reads the answers to a set, chunk by chunk. Members have indexes; those of a category set grow in number.
class SetReader {
 public:
  explicit SetReader(CountedSet set) : fSet(std::move(set)) {}
  virtual ~SetReader() = default;

  const CountedSet& Set() const { return fSet; }

  /// To be called when a block was read.
  virtual void StartBlock() = 0;
  /// Reads what those `cases` of the chunk answered.
  virtual void Read(const Chunk& chunk, const Bits& cases) = 0;
  /// What the last chunk holds.
  const Answers& Current() const { return fAnswers; }

  /// The member of that name or value; nothing for what can be none. Of a category set a value is to be asked for
  /// before the first block, so that it is known whether the dataset has it.
  virtual std::optional<std::size_t> Find(const std::string& written) = 0;
  /// How many members there are so far, and how many indexes: values that the command names have one, too.
  virtual std::size_t MemberCount() const = 0;
  virtual std::size_t IndexCount() const = 0;
  /// Whether it is a member, after all chunks: one of a category set must have a label, or a case of the dataset,
  /// though not of those that are counted.
  virtual bool IsKnown(std::size_t member) const = 0;
  /// The member that was meant by a word that names none, after all chunks.
  virtual std::optional<std::string> NearestTo(const std::string& word) const = 0;
  /// The members in their order, after all chunks: of a category set those that occur.
  virtual std::vector<Member> Members() const = 0;

  /// How many cases gave one category more than once, and how many combine NONE with others.
  std::int64_t RepeatedCases() const { return fRepeatedCases; }
  std::int64_t CombinedCases() const { return fCombinedCases; }

 protected:
  CountedSet fSet;                  // NOLINT(*-non-private-*): of the two kinds of readers alone
  Answers fAnswers;                 // NOLINT(*-non-private-*)
  std::int64_t fRepeatedCases = 0;  // NOLINT(*-non-private-*)
  std::int64_t fCombinedCases = 0;  // NOLINT(*-non-private-*)
};

std::unique_ptr<SetReader> MakeSetReader(CountedSet set, const TabulationRequest& request, Columns& columns);

}  // namespace standalone

#endif  // STANDALONE_TABULATION_READING_SET_READER_H
