#ifndef STANDALONE_TABULATION_COUNTING_SET_COUNT_H
#define STANDALONE_TABULATION_COUNTING_SET_COUNT_H

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "standalone/tabulation/counting/joint_sums.h"
#include "standalone/tabulation/counting/sums.h"
#include "standalone/tabulation/reading/by_reader.h"
#include "standalone/tabulation/reading/set_reader.h"
#include "standalone/tabulation/request.h"

namespace standalone {

/// The total, then each BY.
using ByReaders = std::vector<std::unique_ptr<ByReader>>;

/// A net, and which of its members the set may have.
struct CountedNet {
  std::string label;
  std::vector<std::size_t> members;
};

/// Counts a set in the total and each BY.
class SetCount {
 public:
  SetCount(SetReader& set, const ByReaders& by, const TabulationRequest& request);

  /// Counts the chunk that the readers have read; `weights` is null where each case's is 1.
  void Add(const Bits& cases, const Weights* weights);
  void EndBlock();

  SetReader& Set() const { return fSet; }
  const ByReaders& By() const { return fBy; }
  const std::vector<CountedNet>& Nets() const { return fNets; }
  std::size_t RowOf(std::size_t member) const { return kFirstNetRow + fNets.size() + member; }
  const Sums& SumsOf(std::size_t by) const { return fSums[by]; }
  const JointSums& JointSumsOf(std::size_t by) const { return fJointSums[by]; }

 private:
  void ReadBase(const Bits& cases);
  void ReadNets();
  std::vector<RowOfChunk> Rows(const Bits& cases);

  SetReader& fSet;
  const ByReaders& fBy;
  TabulationBase fBaseKind;
  bool fIsTested;
  std::vector<CountedNet> fNets;
  std::vector<Sums> fSums;            // one for each BY
  std::vector<JointSums> fJointSums;  // likewise
  Bits fBase{};                       // of the chunk, as what follows
  std::vector<CaseGroup> fChosen;     // only with a base that those who chose need not be in
  std::vector<Bits> fNetCases;
  ChosenLists fLists;
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_COUNTING_SET_COUNT_H
