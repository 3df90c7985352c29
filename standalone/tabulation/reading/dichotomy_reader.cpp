#include "standalone/tabulation/reading/dichotomy_reader.h"

#include <utility>

#include "standalone/language/nearest_name.h"
#include "standalone/text/unicode.h"

namespace standalone {
DichotomyReader::DichotomyReader(CountedSet set, bool needsComplete, Columns& columns)
    : SetReader(std::move(set)), fNeedsComplete(needsComplete) {
  for (const int variable : fSet.variables) {
    const Block& block = columns.Need(variable);
    fCounted.emplace_back(block, TestOfValue(fSet.countedValue, fSet.isNumeric));
    fMissing.emplace_back(block, MissingTest());
  }
}

void DichotomyReader::StartBlock() {
  for (std::size_t index = 0; index < fCounted.size(); ++index) {
    fCounted[index].StartBlock();
    fMissing[index].StartBlock();
  }
}

void DichotomyReader::Read(const Chunk& chunk, const Bits& cases) {
  fAnswers.chosen.resize(fCounted.size());
  fAnswers.answered.fill(0);
  fAnswers.missing = cases;
  std::size_t used = 0;
  for (std::size_t member = 0; member < fCounted.size(); ++member) {
    CaseGroup& group = fAnswers.chosen[used];
    group.index = member;
    group.cases = cases;
    fCounted[member].Keep(chunk, group.cases);
    AddTo(fAnswers.answered, group.cases);
    used += HasCases(group.cases) ? 1 : 0;
    fMissing[member].Keep(chunk, fAnswers.missing);
  }
  fAnswers.chosen.resize(used);
  fAnswers.noneChosen = Without(Without(cases, fAnswers.missing), fAnswers.answered);
  ReadComplete(chunk, cases);
}

void DichotomyReader::ReadComplete(const Chunk& chunk, const Bits& cases) {
  fAnswers.complete = cases;
  for (std::size_t member = 0; member < fMissing.size() && fNeedsComplete; ++member) {
    Bits missing = fAnswers.complete;
    fMissing[member].Keep(chunk, missing);
    TakeOut(fAnswers.complete, missing);
  }
}

std::optional<std::size_t> DichotomyReader::Find(const std::string& written) {
  for (std::size_t member = 0; member < fSet.variableNames.size(); ++member) {
    if (CompareNoCase(fSet.variableNames[member], written) == 0) {
      return member;
    }
  }
  return std::nullopt;
}

std::optional<std::string> DichotomyReader::NearestTo(const std::string& word) const {
  NearestName nearest(word);
  for (const std::string& name : fSet.variableNames) {
    nearest.Offer(name);
  }
  return nearest.Result();
}

std::vector<Member> DichotomyReader::Members() const {
  std::vector<Member> members;
  for (std::size_t index = 0; index < fCounted.size(); ++index) {
    members.push_back({index, fSet.variableNames[index], fSet.variableLabels[index]});
  }
  return members;
}

}  // namespace standalone
