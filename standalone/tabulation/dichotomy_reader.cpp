#include "standalone/tabulation/dichotomy_reader.h"

#include <utility>

#include "standalone/text/unicode.h"

namespace standalone {
DichotomyReader::DichotomyReader(CountedSet set, Columns& columns) : SetReader(std::move(set)) {
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
  fAnswers.complete = cases;
  std::size_t used = 0;
  Bits missing;
  for (std::size_t member = 0; member < fCounted.size(); ++member) {
    CaseGroup& group = fAnswers.chosen[used];
    group.index = member;
    fCounted[member].Read(chunk, group.cases);
    KeepIn(group.cases, cases);
    AddTo(fAnswers.answered, group.cases);
    used += HasCases(group.cases) ? 1 : 0;
    fMissing[member].Read(chunk, missing);
    KeepIn(fAnswers.missing, missing);
    TakeOut(fAnswers.complete, missing);
  }
  fAnswers.chosen.resize(used);
  fAnswers.noneChosen = Without(Without(cases, fAnswers.missing), fAnswers.answered);
}

std::optional<std::size_t> DichotomyReader::Find(const std::string& written) {
  for (std::size_t member = 0; member < fSet.variableNames.size(); ++member) {
    if (CompareNoCase(fSet.variableNames[member], written) == 0) {
      return member;
    }
  }
  return std::nullopt;
}

std::vector<Member> DichotomyReader::Members() const {
  std::vector<Member> members;
  for (std::size_t index = 0; index < fCounted.size(); ++index) {
    members.push_back({index, fSet.variableNames[index], fSet.variableLabels[index]});
  }
  return members;
}

}  // namespace standalone
