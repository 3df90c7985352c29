#include "tests/properties/reading.h"

#include <algorithm>

#include "tests/host/letters.h"
#include "tests/host/names.h"

namespace properties {

int Reading::Count() const {
  return static_cast<int>(fExample.tokens.size());
}

const scripted::Token& Reading::At(int index) const {
  return index < Count() ? fExample.tokens[static_cast<std::size_t>(index)] : fExample.end;
}

int Reading::OrEnd(int index) const {
  return std::min(index, Count());
}

bool Reading::IsEnd(int index) const {
  return At(index).type == TokenSequenceBase::kEnd;
}

bool Reading::IsWord(int index) const {
  return At(index).type == TokenSequenceBase::kString;
}

bool Reading::Names(int index, const std::string& keyword) const {
  return scripted::NamesKeyword(scripted::UpperCase(At(index).text), keyword);
}

bool Reading::IsLabelSource(int index) const {
  return scripted::UpperCase(At(index).text).substr(0, 6) == "LABELS";
}

bool Reading::CanEnter(int index, const std::string& keyword) const {
  if (keyword == "LABELSOURCE") {
    return IsLabelSource(index);
  }
  return Names(index, keyword) && !(keyword == "LABEL" && IsLabelSource(index));
}

}  // namespace properties
