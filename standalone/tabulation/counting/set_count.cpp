#include "standalone/tabulation/counting/set_count.h"

#include <algorithm>

namespace standalone {

namespace {

/// How many joint sums each test of the request may need.
std::size_t ShareOfSums(const TabulationRequest& request) {
  return JointSums::kMostSums / std::max<std::size_t>(request.sets.size() * request.by.size(), 1);
}

}  // namespace

SetCount::SetCount(SetReader& set, const ByReaders& by, const TabulationRequest& request)
    : fSet(set),
      fBy(by),
      fBaseKind(request.base),
      fIsTested(request.test.has_value()),
      fSums(by.size()),
      fJointSums(by.size(), JointSums(ShareOfSums(request))) {
  for (const NetRequest& net : request.nets) {
    CountedNet counted{net.label.text, {}};
    for (const Spoken& member : net.members) {
      if (const std::optional<std::size_t> found = set.Find(member.text)) {
        counted.members.push_back(*found);
      }
    }
    fNets.push_back(std::move(counted));
  }
  fNetCases.resize(fNets.size());
}

void SetCount::ReadBase(const Bits& cases) {
  const Answers& answers = fSet.Current();
  switch (fBaseKind) {
    case TabulationBase::kAnswered:
      fBase = answers.answered;
      return;
    case TabulationBase::kAsked:
      fBase = answers.answered;
      AddTo(fBase, answers.noneChosen);
      return;
    case TabulationBase::kComplete:
      fBase = answers.complete;
      return;
    case TabulationBase::kAll:
      fBase = cases;
      return;
  }
}

void SetCount::ReadNets() {
  for (std::size_t net = 0; net < fNets.size(); ++net) {
    const std::vector<std::size_t>& members = fNets[net].members;
    fNetCases[net].fill(0);
    for (const CaseGroup& group : fSet.Current().chosen) {
      if (std::find(members.begin(), members.end(), group.index) != members.end()) {
        AddTo(fNetCases[net], group.cases);
      }
    }
    KeepIn(fNetCases[net], fBase);
  }
}

std::vector<RowOfChunk> SetCount::Rows(const Bits& cases) {
  const Answers& answers = fSet.Current();
  std::vector<RowOfChunk> rows = {
      {kAllRow, &cases}, {kAnsweredRow, &answers.answered}, {kNoneChosenRow, &answers.noneChosen}, {kBaseRow, &fBase}};
  for (std::size_t net = 0; net < fNets.size(); ++net) {
    rows.push_back({kFirstNetRow + net, &fNetCases[net]});
  }
  if (fBaseKind == TabulationBase::kComplete) {
    fChosen = answers.chosen;
    std::for_each(fChosen.begin(), fChosen.end(), [this](CaseGroup& group) { KeepIn(group.cases, fBase); });
  }
  for (const CaseGroup& group : fBaseKind == TabulationBase::kComplete ? fChosen : answers.chosen) {
    rows.push_back({RowOf(group.index), &group.cases});
  }
  return rows;
}

void SetCount::Add(const Bits& cases, const Weights* weights) {
  ReadBase(cases);
  ReadNets();
  if (fIsTested) {
    fLists.Read(fSet.Current().chosen);
  }
  const std::vector<RowOfChunk> rows = Rows(cases);
  for (std::size_t by = 0; by < fBy.size(); ++by) {
    fSums[by].Add(rows, *fBy[by], weights);
    if (fIsTested && by > 0) {
      fJointSums[by].Add(fBase, fLists, fSet.IndexCount(), *fBy[by], weights);
    }
  }
}

void SetCount::EndBlock() {
  std::for_each(fSums.begin(), fSums.end(), [](Sums& sums) { sums.EndBlock(); });
  std::for_each(fJointSums.begin(), fJointSums.end(), [](JointSums& sums) { sums.EndBlock(); });
}

}  // namespace standalone
