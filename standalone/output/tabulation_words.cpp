#include "standalone/output/tabulation_words.h"

#include <fmt/format.h>

namespace standalone {

std::string_view NameOf(TabulationBase base) {
  switch (base) {
    case TabulationBase::kAsked:
      return "asked";
    case TabulationBase::kComplete:
      return "complete";
    case TabulationBase::kAll:
      return "all";
    case TabulationBase::kAnswered:
      break;
  }
  return "answered";
}

std::string LabelOf(const TabulationColumn& column) {
  return fmt::format("{}", fmt::join(column.labels, ", "));
}

bool IsSet(std::string_view by) {
  return !by.empty() && by.front() == '$';
}

}  // namespace standalone
