#include "standalone/shell/candidate_list.h"

#include <algorithm>

#include "standalone/text/unicode.h"

namespace standalone {
namespace {

constexpr std::size_t kGap = 2;

std::size_t WidestOf(const std::vector<std::string>& texts) {
  std::size_t widest = 0;
  for (const std::string& text : texts) {
    widest = std::max(widest, DisplayWidth(text));
  }
  return widest;
}

}  // namespace

std::string CandidateList(const Completion& completion, std::size_t width) {
  const std::vector<std::string>& candidates = completion.candidates;
  const std::size_t cell = WidestOf(candidates) + kGap;
  const std::size_t columns = std::max<std::size_t>((width + kGap) / cell, 1);
  const std::size_t rows = (candidates.size() + columns - 1) / columns;
  std::string list;
  for (std::size_t row = 0; row < rows; ++row) {
    std::size_t blanks = 0;
    for (std::size_t index = row; index < candidates.size(); index += rows) {
      list += std::string(blanks, ' ') + candidates[index];
      blanks = cell - DisplayWidth(candidates[index]);
    }
    list += '\n';
  }
  return list + (completion.isCut ? "... and more\n" : "");
}

}  // namespace standalone
