#include "standalone/tabulation/reading/named_values.h"

#include <cmath>
#include <string_view>

#include "standalone/text/number_text.h"

namespace standalone {
namespace {

constexpr std::size_t kMostOffers = 100'000;  // that are compared with an unknown value

std::string Written(double number) {
  return ShortestNumber(number);
}

std::string Written(std::string_view text) {
  return std::string(ComparedText(text));
}

bool IsMissing(double number) {
  return std::isnan(number);
}

bool IsMissing(std::string_view text) {
  return ComparedText(text).empty();
}

}  // namespace

void NamedValues::Add(std::size_t index, const std::string& written, const ValueLabels& labels) {
  const auto [place, isNew] = fNamed.emplace(index, Named{labels.HasValue(written), NearestName(written)});
  if (isNew && !place->second.isKnown) {
    ++fUnknown;
    labels.VisitValues([&named = place->second](const std::string& value) { named.nearest.Offer(value); });
  }
}

template <class Value>
void NamedValues::MeetValue(const Value& value, const Values& values) {
  if (IsMissing(value)) {
    return;
  }
  if (const std::optional<std::size_t> index = values.Find(value)) {
    const auto named = fNamed.find(*index);
    if (named != fNamed.end() && !named->second.isKnown) {
      named->second.isKnown = true;
      --fUnknown;
    }
  }
  for (auto named = fNamed.begin(); fUnknown > 0 && fOffers < kMostOffers && named != fNamed.end(); ++named) {
    if (!named->second.isKnown) {
      ++fOffers;
      named->second.nearest.Offer(Written(value));
    }
  }
}

template <class List>
void NamedValues::MeetAll(const List& list, const Values& values) {
  for (auto value = list.begin(); fUnknown > 0 && value != list.end(); ++value) {
    MeetValue(*value, values);
  }
}

void NamedValues::Meet(const Block& block, const Values& values) {
  if (block.isNumeric) {
    MeetAll(block.form == BlockForm::kNumbers ? block.cellNumbers : block.numbers, values);
  } else {
    MeetAll(block.form == BlockForm::kTexts ? block.cellTexts : block.texts, values);
  }
}

bool NamedValues::IsKnown(std::size_t index) const {
  const auto named = fNamed.find(index);
  return named != fNamed.end() && named->second.isKnown;
}

std::optional<std::string> NamedValues::Nearest(std::size_t index) const {
  const auto named = fNamed.find(index);
  return named == fNamed.end() ? std::nullopt : named->second.nearest.Result();
}

}  // namespace standalone
