#include "standalone/language/variable_list.h"

#include <fmt/format.h>

#include <algorithm>
#include <unordered_set>

#include "standalone/language/grammar.h"

namespace standalone {
namespace {

using Problem = std::optional<ListProblem>;

/// Reads one variable list, item by item.
class ListReader {
 public:
  ListReader(const std::vector<Token>& tokens, std::size_t begin, std::size_t end, const VariableLookup& lookup,
             std::vector<int>& positions)
      : fTokens(tokens), fNext(begin), fEnd(std::min(end, tokens.size())), fLookup(lookup), fPositions(positions) {}

  Problem Read();

 private:
  Problem ReadItem();
  Problem ReadRange(int from);
  Problem AddRange(int from, int to, std::size_t token);
  Problem AddVariable(int position, std::size_t token);
  Problem NotInDataset(std::size_t token) const;
  bool IsWord(std::size_t index) const;
  bool IsTo(std::size_t index) const;
  bool IsName(std::size_t index) const { return IsWord(index) && !IsTo(index); }
  std::string RangeWithoutBeginning() const;

  const std::vector<Token>& fTokens;
  std::size_t fNext;
  std::size_t fEnd;
  const VariableLookup& fLookup;
  std::vector<int>& fPositions;
  std::unordered_set<int> fListed;
};

Problem ListReader::Read() {
  while (fNext < fEnd) {
    if (Problem problem = ReadItem()) {
      return problem;
    }
  }
  return std::nullopt;
}

Problem ListReader::ReadItem() {
  const std::string& name = fTokens[fNext].text;
  if (!IsWord(fNext)) {
    return ListProblem{fmt::format("{} is not allowed in a list of variables.", name), fNext};
  }
  if (IsTo(fNext)) {
    return ListProblem{RangeWithoutBeginning(), fNext};
  }
  const int position = fLookup.find(name);
  if (position < 0) {
    return NotInDataset(fNext);
  }
  if (IsTo(fNext + 1)) {
    return ReadRange(position);
  }
  return AddVariable(position, fNext++);
}

Problem ListReader::ReadRange(int from) {
  const std::string& first = fTokens[fNext].text;
  if (!IsName(fNext + 2)) {
    return ListProblem{fmt::format("The range {} TO has no end.", first), fNext + 1};
  }
  const std::string& last = fTokens[fNext + 2].text;
  const int to = fLookup.find(last);
  if (to < 0) {
    return NotInDataset(fNext + 2);
  }
  if (to < from) {
    return ListProblem{
        fmt::format("The range {0} TO {1} is reversed: {0} comes after {1} in the dataset.", first, last), fNext};
  }
  const std::size_t begin = fNext;
  fNext += 3;
  return AddRange(from, to, begin);
}

Problem ListReader::AddRange(int from, int to, std::size_t token) {
  for (int position = from; position <= to; ++position) {
    if (Problem problem = AddVariable(position, token)) {
      return problem;
    }
  }
  return std::nullopt;
}

Problem ListReader::AddVariable(int position, std::size_t token) {
  if (!fListed.insert(position).second) {
    return ListProblem{fmt::format("The variable {} is listed twice.", fLookup.name(position)), token};
  }
  fPositions.push_back(position);
  return std::nullopt;
}

Problem ListReader::NotInDataset(std::size_t token) const {
  return ListProblem{fmt::format("The variable {} is not in the dataset.", fTokens[token].text), token, true};
}

bool ListReader::IsWord(std::size_t index) const {
  return index < fEnd && standalone::IsWord(fTokens[index]);
}

bool ListReader::IsTo(std::size_t index) const {
  return index < fEnd && IsRangeWord(fTokens[index]);
}

std::string ListReader::RangeWithoutBeginning() const {
  return IsName(fNext + 1) ? fmt::format("The range TO {} has no beginning.", fTokens[fNext + 1].text)
                           : "The range TO has neither a beginning nor an end.";
}

}  // namespace

std::vector<ListItem> ListItems(const std::vector<Token>& tokens, std::size_t begin, std::size_t end) {
  std::vector<ListItem> items;
  for (std::size_t index = begin; index < end; ++index) {
    const std::size_t first = index;
    const bool isRange = !IsRangeWord(tokens[first]) && first + 2 < end && IsRangeWord(tokens[first + 1]);
    index += isRange ? 2 : 0;
    items.push_back({first, index});
  }
  return items;
}

std::optional<ListProblem> ReadVariableList(const std::vector<Token>& tokens, std::size_t begin, std::size_t end,
                                            const VariableLookup& lookup, std::vector<int>& positions) {
  return ListReader(tokens, begin, end, lookup, positions).Read();
}

}  // namespace standalone
