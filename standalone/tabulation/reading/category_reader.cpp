#include "standalone/tabulation/reading/category_reader.h"

#include <algorithm>
#include <utility>

namespace standalone {

CategoryReader::CategoryReader(CountedSet set, const std::optional<Spoken>& none, Columns& columns)
    : SetReader(std::move(set)), fValues(fSet.isNumeric) {
  if (none) {
    fNone = fValues.IndexOfWritten(none->text);
  }
  for (const int variable : fSet.variables) {
    fBlocks.push_back(&columns.Need(variable));
    fColumns.emplace_back(*fBlocks.back(), fValues);
  }
}

void CategoryReader::StartBlock() {
  for (ValuedColumn& column : fColumns) {
    column.StartBlock();
  }
  for (const Block* block : fBlocks) {
    fNamed.Meet(*block, fValues);
  }
}

std::optional<std::size_t> CategoryReader::Find(const std::string& written) {
  const std::optional<std::size_t> found = fValues.IndexOfWritten(written);
  if (found && found != fNone) {
    fNamed.Add(*found, fValues.TextOf(*found), fSet.valueLabels);
  }
  return found;
}

Bits& CategoryReader::CasesOf(std::size_t member) {
  if (member >= fSlots.size()) {
    fSlots.resize(fValues.Size(), 0);
  }
  if (fSlots[member] == 0) {
    fSlots[member] = ++fUsedSlots;
    if (fUsedSlots > fAnswers.chosen.size()) {
      fAnswers.chosen.emplace_back();
    }
    fAnswers.chosen[fUsedSlots - 1] = {member, {}};
  }
  return fAnswers.chosen[fSlots[member] - 1].cases;
}

void CategoryReader::ReadVariable(ValuedColumn& column, const Chunk& chunk, const Bits& cases, Bits& given) {
  const auto repeatedOf = [this](std::size_t member, std::uint64_t repeated) { return member == fNone ? 0 : repeated; };
  column.Read(
      chunk, cases,
      [&](std::size_t member, const Bits& found) {
        Bits& chosen = CasesOf(member);
        for (std::size_t word = 0; word < kChunkWords; ++word) {
          fRepeated[word] |= repeatedOf(member, chosen[word] & found[word]);
        }
        AddTo(chosen, found);
        AddTo(given, found);
      },
      [&](std::size_t member, std::size_t place) {
        const std::size_t word = place / kCasesOfWord;
        const std::uint64_t bit = std::uint64_t{1} << (place % kCasesOfWord);
        std::uint64_t& chosen = CasesOf(member)[word];
        fRepeated[word] |= repeatedOf(member, chosen & bit);
        chosen |= bit;
        given[word] |= bit;
      });
}

void CategoryReader::TakeOutNone() {
  const auto none = std::find_if(fAnswers.chosen.begin(), fAnswers.chosen.end(),
                                 [this](const CaseGroup& group) { return group.index == fNone; });
  if (none != fAnswers.chosen.end()) {
    fAnswers.noneChosen = none->cases;
    fAnswers.chosen.erase(none);
  }
}

void CategoryReader::Read(const Chunk& chunk, const Bits& cases) {
  fUsedSlots = 0;
  fRepeated.fill(0);
  fAnswers.complete = cases;
  for (ValuedColumn& column : fColumns) {
    Bits given{};
    ReadVariable(column, chunk, cases, given);
    KeepIn(fAnswers.complete, given);
  }
  fAnswers.chosen.resize(fUsedSlots);
  for (const CaseGroup& group : fAnswers.chosen) {
    fSlots[group.index] = 0;
  }
  std::sort(fAnswers.chosen.begin(), fAnswers.chosen.end(),
            [](const CaseGroup& first, const CaseGroup& second) { return first.index < second.index; });
  fAnswers.noneChosen.fill(0);
  TakeOutNone();
  fAnswers.answered.fill(0);
  fOccurs.resize(fValues.Size());
  for (const CaseGroup& group : fAnswers.chosen) {
    AddTo(fAnswers.answered, group.cases);
    fMemberCount += fOccurs[group.index] ? 0 : 1;
    fOccurs[group.index] = true;
  }
  fRepeatedCases += CountOf(fRepeated);
  fCombinedCases += CountOfBoth(fAnswers.noneChosen, fAnswers.answered);
  fAnswers.missing = Without(Without(cases, fAnswers.answered), fAnswers.noneChosen);
  TakeOut(fAnswers.noneChosen, fAnswers.answered);
}

bool CategoryReader::IsKnown(std::size_t member) const {
  return fNamed.IsKnown(member);
}

std::optional<std::string> CategoryReader::NearestTo(const std::string& word) const {
  const std::optional<std::size_t> found = fValues.FindWritten(word);
  return found ? fNamed.Nearest(*found) : std::nullopt;
}

std::vector<Member> CategoryReader::Members() const {
  std::vector<std::size_t> occurring;
  for (std::size_t member = 0; member < fOccurs.size(); ++member) {
    if (fOccurs[member]) {
      occurring.push_back(member);
    }
  }
  std::vector<Member> members;
  for (const std::size_t member : fSet.valueLabels.Ordered(occurring, fValues)) {
    std::string name = fValues.TextOf(member);
    std::string label = fSet.valueLabels.LabelOf(name);
    members.push_back({member, std::move(name), std::move(label)});
  }
  return members;
}

}  // namespace standalone
