#ifndef TESTS_STANDALONE_TABULATION_MEMORY_SOURCE_H
#define TESTS_STANDALONE_TABULATION_MEMORY_SOURCE_H

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/tabulation/source.h"

namespace standalone {

/// A dataset in memory, whose cells are given as texts: "" is missing.
class MemorySource : public TabulationSource {
 public:
  /// How the blocks are kept: by codes, wider than they need be, or plain; a column whose cells are all the same is a
  /// constant but for kPlain.
  enum class Form { kCodes, kWideCodes, kPlain };

  explicit MemorySource(std::size_t casesOfBlock = 4, Form form = Form::kCodes)
      : fCasesOfBlock(casesOfBlock), fForm(form) {}

  /// The same dataset in that form.
  MemorySource In(Form form) const {
    MemorySource source = *this;
    source.fForm = form;
    return source;
  }
  MemorySource InBlocksOf(std::size_t cases) const {
    MemorySource source = *this;
    source.fCasesOfBlock = cases;
    return source;
  }

  void AddVariable(const Variable& variable, const std::vector<std::string>& cells);
  void AddNumeric(const std::string& name, const std::vector<std::string>& cells,
                  const std::vector<ValueLabel>& labels = {}, const std::string& label = "");
  void AddString(const std::string& name, const std::vector<std::string>& cells,
                 const std::vector<ValueLabel>& labels = {}, const std::string& label = "");
  void AddSet(const StoredSet& set) { fSets.push_back(set); }
  void AddDichotomies(const std::string& name, const std::vector<std::string>& variables,
                      const std::string& countedValue = "1");
  void AddCategories(const std::string& name, const std::vector<std::string>& variables);

  const StoredSet* FindSet(std::string_view name) override;
  void VisitSetNames(const std::function<void(std::string_view name)>& visit) override;
  int FindVariable(std::string_view name) override;
  const Variable& VariableAt(int position) override { return fVariables[static_cast<std::size_t>(position)]; }
  void VisitVariableNames(const std::function<void(std::string_view name)>& visit) override;
  std::size_t BlockCount() override;
  std::size_t CasesOfBlock(std::size_t number) override;
  void ReadBlock(int variable, std::size_t number, Block& block) override;

  const std::string& Cell(int variable, std::size_t position) const {
    return fCells[static_cast<std::size_t>(variable)][position];
  }
  std::size_t CaseCount() const { return fCells.empty() ? 0 : fCells[0].size(); }

  /// How many blocks were read.
  std::size_t Reads() const { return fReads; }

 private:
  std::size_t fCasesOfBlock;
  Form fForm;
  std::deque<StoredSet> fSets;
  std::deque<Variable> fVariables;
  std::vector<std::vector<std::string>> fCells;  // of each variable
  std::size_t fReads = 0;
};

}  // namespace standalone

#endif  // TESTS_STANDALONE_TABULATION_MEMORY_SOURCE_H
