#include "standalone/tabulation/reading/weight_reader.h"

#include <fmt/format.h>

#include "standalone/tabulation/reading/counted_set.h"
#include "standalone/tabulation/tabulation_error.h"
#include "standalone/text/number_text.h"

namespace standalone {
namespace {

const Block& BlockOf(const Spoken& name, TabulationSource& source, Columns& columns) {
  const int variable = FindVariable(name, source);
  if (source.VariableAt(variable).width != 0) {
    throw TabulationError(
        fmt::format("{} is a string variable; a weight must be numeric.", source.VariableAt(variable).name),
        name.offset, name.size);
  }
  return columns.Need(variable);
}

bool IsWithinLimits(double weight) {
  return weight >= kLeastWeight && weight <= kGreatestWeight;
}

}  // namespace

WeightReader::WeightReader(const Spoken& name, TabulationSource& source, Columns& columns)
    : fSpoken(name), fBlock(&BlockOf(name, source, columns)) {
  fName = source.VariableAt(source.FindVariable(name.text)).name;
}

/// Names the first weight of the chunk that is beyond the limits.
void WeightReader::RefuseWeight() const {
  double refused = 0;
  ForEachCase(fValid, [&](std::size_t place) {
    const double weight = fWeights[place].once;
    refused = refused == 0 && !IsWithinLimits(weight) ? weight : refused;
  });
  throw TabulationError(
      fmt::format("{} holds the weight {}; weights must be from {} to {}.", fName, ShortestNumber(refused),
                  ShortestNumber(kLeastWeight), ShortestNumber(kGreatestWeight)),
      fSpoken.offset, fSpoken.size);
}

template <class Number>
void WeightReader::Take(std::size_t cases, Number number) {
  bool areWithinLimits = true;
  for (std::size_t place = 0; place < cases; ++place) {
    const double weight = number(place);
    const bool isValid = weight > 0;  // a missing one is not a number, which nothing compares with
    fWeights[place] = {weight, weight * weight};
    fValid[place / kCasesOfWord] |= std::uint64_t{isValid ? 1U : 0U} << (place % kCasesOfWord);
    areWithinLimits = areWithinLimits && (!isValid || IsWithinLimits(weight));
  }
  if (!areWithinLimits) {
    RefuseWeight();
  }
}

void WeightReader::Read(const Chunk& chunk) {
  fValid.fill(0);
  const auto ofCode = [this](std::size_t code) { return code == 0 ? 0.0 : fBlock->numbers[code - 1]; };
  switch (fBlock->form) {
    case BlockForm::kConstant:
      Take(chunk.cases, [&](std::size_t /*place*/) { return fBlock->numbers.empty() ? 0.0 : fBlock->numbers[0]; });
      return;
    case BlockForm::kByteCodes:
      Take(chunk.cases, [&](std::size_t place) { return ofCode(fBlock->byteCodes[chunk.begin + place]); });
      return;
    case BlockForm::kWordCodes:
      Take(chunk.cases, [&](std::size_t place) { return ofCode(fBlock->wordCodes[chunk.begin + place]); });
      return;
    case BlockForm::kNumbers:
      Take(chunk.cases, [&](std::size_t place) { return fBlock->cellNumbers[chunk.begin + place]; });
      return;
    case BlockForm::kTexts:
      return;
  }
}

}  // namespace standalone
