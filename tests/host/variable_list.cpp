#include "tests/host/variable_list.h"

#include "tests/host/letters.h"

namespace scripted {
namespace {

/// Its functions answer false, or -1, after they have reported an error.
class Reader {
 public:
  Reader(Core& core, const std::vector<std::string>& words, std::vector<int>& indices)
      : fCore(core), fWords(words), fIndices(indices), fListed(core.dictionary->variables.size(), false) {}

  bool All() {
    while (fAt < fWords.size()) {
      if (!NameOrRange()) {
        return false;
      }
    }
    return true;
  }

 private:
  bool IsTo(std::size_t at) const { return at < fWords.size() && UpperCase(fWords[at]) == "TO"; }

  bool Fail(const std::string& sentence) {
    fCore.ReportHostError(sentence);
    return false;
  }

  int Find(const std::string& word) {
    const int index = fCore.dictionary->Find(word);
    if (index < 0) {
      Fail("Variable " + word + " is not in the dictionary.");
    }
    return index;
  }

  bool NameOrRange() {
    if (IsTo(fAt)) {
      return Fail("TO has no variable before it.");
    }
    const std::string& first = fWords[fAt++];
    const int index = Find(first);
    if (index < 0) {
      return false;
    }
    return IsTo(fAt) ? Range(first, index) : Add(index);
  }

  bool Range(const std::string& first, int begin) {
    if (++fAt == fWords.size()) {
      return Fail("The range from " + first + " has no end.");
    }
    const std::string& last = fWords[fAt++];
    const int end = Find(last);
    if (end < 0) {
      return false;
    }
    if (end < begin) {
      return Fail("The range from " + first + " to " + last + " is reversed.");
    }
    for (int index = begin; index <= end; ++index) {
      if (!Add(index)) {
        return false;
      }
    }
    return true;
  }

  bool Add(int index) {
    const auto variable = static_cast<std::size_t>(index);
    if (fListed[variable]) {
      return Fail("Variable " + fCore.dictionary->variables[variable].data.name + " is listed twice.");
    }
    fListed[variable] = true;
    fIndices.push_back(index);
    return true;
  }

  Core& fCore;
  const std::vector<std::string>& fWords;
  std::vector<int>& fIndices;
  std::vector<bool> fListed;  // by variable
  std::size_t fAt = 0;
};

}  // namespace

bool ReadVariableList(Core& core, const std::vector<std::string>& words, std::vector<int>& indices) {
  return Reader(core, words, indices).All();
}

}  // namespace scripted
