#include "standalone/hints/proposed_variable.h"

#include <algorithm>

#include "standalone/language/variable_list.h"

namespace standalone {
namespace {

/// Positions in the dictionary, both inclusive. A list may hold a range that is reversed.
struct Positions {
  int first;
  int last;
};

/// A list in which one word stands for a variable that it does not name.
class MendedList {
 public:
  MendedList(Dataset& dataset, const std::vector<Token>& tokens, std::size_t word, int position)
      : fDataset(dataset), fTokens(tokens), fWord(word), fPosition(position) {}

  bool Fits(const ListTokens& list, std::optional<VariableKind> wanted);

 private:
  bool HoldsWord(const ListItem& item) const { return item.first <= fWord && fWord <= item.last; }
  int PositionOf(std::size_t token);
  bool TakeIn(const ListItem& item);
  bool GoesWith(const ListItem& item);
  bool IsOfOneKind();
  VariableKind KindOf(int position);

  Dataset& fDataset;
  const std::vector<Token>& fTokens;
  std::size_t fWord;
  int fPosition;
  Positions fProposed{-1, -1};   // with all that the word's range takes in
  bool fHasKnownOthers = false;  // variables of the list that are named
};

bool MendedList::Fits(const ListTokens& list, std::optional<VariableKind> wanted) {
  const std::vector<ListItem> items = ListItems(fTokens, list.begin, list.end);
  const auto own = std::find_if(items.begin(), items.end(), [&](const ListItem& item) { return HoldsWord(item); });
  if (own == items.end() || !TakeIn(*own) || !IsOfOneKind()) {
    return false;
  }
  const bool goesWithAll =
      std::all_of(items.begin(), items.end(), [&](const ListItem& item) { return HoldsWord(item) || GoesWith(item); });
  return goesWithAll && (fHasKnownOthers || !wanted || KindOf(fPosition) == *wanted);
}

int MendedList::PositionOf(std::size_t token) {
  return token == fWord ? fPosition : fDataset.FindVariable(fTokens[token].text);
}

/// False where the range would be reversed, or begin and end with the same variable.
bool MendedList::TakeIn(const ListItem& item) {
  const int first = PositionOf(item.first);
  const int last = PositionOf(item.last);
  if (item.first == item.last || first < 0 || last < 0) {
    fProposed = {fPosition, fPosition};
    return true;
  }
  fProposed = {first, last};
  fHasKnownOthers = true;
  return first < last;
}

/// Where one end of a range is unknown, the other counts.
bool MendedList::GoesWith(const ListItem& item) {
  const int first = PositionOf(item.first);
  const int last = PositionOf(item.last);
  const int lowest = first < 0 || last < 0 ? std::max(first, last) : std::min(first, last);
  const int highest = std::max(first, last);
  if (lowest < 0) {
    return true;
  }
  fHasKnownOthers = true;
  const VariableKind kind = KindOf(fPosition);
  return (highest < fProposed.first || fProposed.last < lowest) && KindOf(lowest) == kind && KindOf(highest) == kind;
}

bool MendedList::IsOfOneKind() {
  const VariableKind kind = KindOf(fPosition);
  for (int position = fProposed.first; position <= fProposed.last; ++position) {
    if (KindOf(position) != kind) {
      return false;
    }
  }
  return true;
}

VariableKind MendedList::KindOf(int position) {
  return fDataset.VariableAt(position).width > 0 ? VariableKind::kString : VariableKind::kNumeric;
}

}  // namespace

bool FitsInList(Dataset& dataset, const std::vector<Token>& tokens, const ListTokens& list, std::size_t word,
                int position, std::optional<VariableKind> wanted) {
  return MendedList(dataset, tokens, word, position).Fits(list, wanted);
}

}  // namespace standalone
