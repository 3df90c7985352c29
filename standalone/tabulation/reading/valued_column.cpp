#include "standalone/tabulation/reading/valued_column.h"

#include <algorithm>

namespace standalone {

void ValuedColumn::StartBlock() {
  fMeanings.assign((fBlock->isNumeric ? fBlock->numbers.size() : fBlock->texts.size()) + 1, kUnknown);
  fMeanings[0] = kMissing;
  for (std::size_t index = 0; index < fBlock->texts.size() && !fBlock->isNumeric; ++index) {
    if (ComparedText(fBlock->texts[index]).empty()) {
      fMeanings[index + 1] = kMissing;
    }
  }
}

}  // namespace standalone
