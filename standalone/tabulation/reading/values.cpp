#include "standalone/tabulation/reading/values.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "standalone/text/number_text.h"
#include "standalone/text/trim.h"

namespace standalone {

std::string_view ComparedText(std::string_view text) {
  return Trimmed(text);
}

std::size_t Values::IndexOf(double number) {
  const auto [place, isNew] = fIndexOfNumber.emplace(number, fNumbers.size());
  if (isNew) {
    fNumbers.push_back(number);
  }
  return place->second;
}

std::size_t Values::IndexOf(std::string_view text) {
  const std::string_view compared = ComparedText(text);
  if (const auto found = fIndexOfText.find(compared); found != fIndexOfText.end()) {
    return found->second;
  }
  fTexts.emplace_back(compared);
  fIndexOfText.emplace(fTexts.back(), fTexts.size() - 1);
  return fTexts.size() - 1;
}

std::optional<std::size_t> Values::IndexOfWritten(const std::string& written) {
  if (!fIsNumeric) {
    return IndexOf(std::string_view(written));
  }
  const std::optional<double> number = NumberValue(ComparedText(written));
  return number ? std::optional(IndexOf(*number)) : std::nullopt;
}

std::optional<std::size_t> Values::Find(double number) const {
  const auto found = fIndexOfNumber.find(number);
  return found == fIndexOfNumber.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::size_t> Values::Find(std::string_view text) const {
  const auto found = fIndexOfText.find(ComparedText(text));
  return found == fIndexOfText.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::size_t> Values::FindWritten(const std::string& written) const {
  if (!fIsNumeric) {
    return Find(std::string_view(written));
  }
  const std::optional<double> number = NumberValue(ComparedText(written));
  return number ? Find(*number) : std::nullopt;
}

std::string Values::TextOf(std::size_t index) const {
  return fIsNumeric ? ShortestNumber(fNumbers[index]) : fTexts[index];
}

bool Values::IsLess(std::size_t first, std::size_t second) const {
  return fIsNumeric ? fNumbers[first] < fNumbers[second] : fTexts[first] < fTexts[second];
}

void ValueLabels::Add(const std::vector<ValueLabel>& labels) {
  for (const ValueLabel& entry : labels) {
    const std::size_t before = fValues.Size();
    if (!entry.label.empty() && fValues.IndexOfWritten(entry.value) && fValues.Size() > before) {
      fLabels.push_back(entry.label);
    }
  }
}

std::string ValueLabels::LabelOf(const std::string& value) const {
  const std::optional<std::size_t> found = fValues.FindWritten(value);
  return found ? fLabels[*found] : value;
}

std::vector<std::size_t> ValueLabels::Ordered(const std::vector<std::size_t>& indexes, const Values& values) const {
  std::vector<std::pair<std::size_t, std::size_t>> places;  // in the labels, and index
  for (const std::size_t index : indexes) {
    places.emplace_back(fValues.FindWritten(values.TextOf(index)).value_or(fValues.Size()), index);
  }
  std::sort(places.begin(), places.end(), [&values](const auto& first, const auto& second) {
    return first.first != second.first ? first.first < second.first : values.IsLess(first.second, second.second);
  });
  std::vector<std::size_t> ordered;
  std::transform(places.begin(), places.end(), std::back_inserter(ordered),
                 [](const auto& place) { return place.second; });
  return ordered;
}

}  // namespace standalone
