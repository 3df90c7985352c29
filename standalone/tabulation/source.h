#ifndef STANDALONE_TABULATION_SOURCE_H
#define STANDALONE_TABULATION_SOURCE_H

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

#include "standalone/cases/block.h"
#include "standalone/dataset/stored_set.h"
#include "standalone/dataset/variable.h"

namespace standalone {

/// What sets are counted in: a dictionary, sets and cases in blocks. All variables have the same blocks. Failures are
/// Errors.
class TabulationSource {
 public:
  virtual ~TabulationSource() = default;

  /// Names are looked up without regard to case. Null when there is none.
  virtual const StoredSet* FindSet(std::string_view name) = 0;
  virtual void VisitSetNames(const std::function<void(std::string_view name)>& visit) = 0;

  /// Position of a variable, -1 when there is none.
  virtual int FindVariable(std::string_view name) = 0;
  virtual const Variable& VariableAt(int position) = 0;
  virtual void VisitVariableNames(const std::function<void(std::string_view name)>& visit) = 0;

  virtual std::size_t BlockCount() = 0;
  virtual std::size_t CasesOfBlock(std::size_t number) = 0;

  /// Reads the cells of a variable into `block`, whose memory is used again.
  virtual void ReadBlock(int variable, std::size_t number, Block& block) = 0;
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_SOURCE_H
