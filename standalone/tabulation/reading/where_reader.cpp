#include "standalone/tabulation/reading/where_reader.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include "standalone/tabulation/reading/counted_set.h"
#include "standalone/tabulation/reading/unknown_member.h"
#include "standalone/tabulation/tabulation_error.h"
#include "standalone/text/number_text.h"

namespace standalone {
namespace {

double NumberOf(const Spoken& value, const std::string& variable) {
  const std::optional<double> number = NumberValue(value.text);
  if (value.isQuoted && number) {
    throw TabulationError(fmt::format("{} is numeric: write {} without quotes.", variable, value.text), value.offset,
                          value.size);
  }
  if (!number) {
    throw TabulationError(fmt::format("{} is numeric, and \"{}\" is not a number.", variable, value.text), value.offset,
                          value.size);
  }
  return *number;
}

const std::string& TextOf(const Spoken& value, const std::string& variable) {
  if (!value.isQuoted && NumberValue(value.text)) {
    throw TabulationError(
        fmt::format("{} is a string variable, and {} is a number: put it in quotes.", variable, value.text),
        value.offset, value.size);
  }
  return value.text;
}

ValueTest TestOf(const Condition& condition, const Variable& variable) {
  ValueTest test;
  test.isOfMissing = condition.kind == Condition::Kind::kMissing;
  test.compare = condition.kind == Condition::Kind::kComparison ? condition.compare : Condition::Operator::kEqual;
  for (const Spoken& value : condition.values) {
    if (variable.width == 0) {
      test.numbers.push_back(NumberOf(value, variable.name));
    } else {
      test.texts.emplace_back(ComparedText(TextOf(value, variable.name)));
    }
  }
  return test;
}

}  // namespace

WhereReader::WhereReader(const Condition& condition, const TabulationRequest& request, TabulationSource& source,
                         Columns& columns)
    : fKind(condition.kind) {
  for (const Condition& part : condition.parts) {
    fParts.emplace_back(part, request, source, columns);
  }
  if (fKind == Condition::Kind::kHas) {
    ReadHas(condition, request, source, columns);
  } else if (condition.parts.empty()) {
    const int variable = FindVariable(condition.name, source);
    ValueTest test = TestOf(condition, source.VariableAt(variable));
    fColumns.emplace_back(columns.Need(variable), std::move(test));
  }
}

/// One of the columns must hold what makes a case choose the member. Whether a category set has it is known when all
/// cases are read.
void WhereReader::ReadHas(const Condition& condition, const TabulationRequest& request, TabulationSource& source,
                          Columns& columns) {
  fValue = condition.values.front();
  CountedSet set = FindCountedSet(condition.name, source);
  if (!set.isCategory) {
    Columns unread(source);
    const std::unique_ptr<SetReader> reader = MakeSetReader(std::move(set), request, unread);
    const std::optional<std::size_t> found = reader->Find(fValue.text);
    if (!found) {
      throw UnknownMember(fValue, {reader.get()});
    }
    const CountedSet& kept = reader->Set();
    fColumns.emplace_back(columns.Need(kept.variables[*found]), TestOfValue(kept.countedValue, kept.isNumeric));
    return;
  }
  for (const int variable : set.variables) {
    fColumns.emplace_back(columns.Need(variable), TestOfValue(fValue.text, set.isNumeric));
  }
  fCategories = MakeSetReader(std::move(set), request, columns);
  const std::optional<std::size_t> found = fCategories->Find(fValue.text);
  if (!found || (request.none && fCategories->Find(request.none->text) == found)) {
    throw UnknownMember(fValue, {fCategories.get()});
  }
}

void WhereReader::VisitCategories(const Visit& visit) const {
  std::for_each(fParts.begin(), fParts.end(), [&](const WhereReader& part) { part.VisitCategories(visit); });
  if (fCategories) {
    visit(*fCategories, fValue);
  }
}

void WhereReader::StartBlock() {
  if (fCategories) {
    fCategories->StartBlock();
  }
  std::for_each(fParts.begin(), fParts.end(), [](WhereReader& part) { part.StartBlock(); });
  std::for_each(fColumns.begin(), fColumns.end(), [](TestedColumn& column) { column.StartBlock(); });
}

Bits WhereReader::Read(const Chunk& chunk) const {
  Bits bits{};
  if (fKind == Condition::Kind::kNot) {
    return Without(FirstCases(chunk.cases), fParts.front().Read(chunk));
  }
  if (fKind == Condition::Kind::kAnd) {
    bits = FirstCases(chunk.cases);
    std::for_each(fParts.begin(), fParts.end(), [&](const WhereReader& part) { KeepIn(bits, part.Read(chunk)); });
    return bits;
  }
  std::for_each(fParts.begin(), fParts.end(), [&](const WhereReader& part) { AddTo(bits, part.Read(chunk)); });
  for (const TestedColumn& column : fColumns) {
    Bits found = FirstCases(chunk.cases);
    column.Keep(chunk, found);
    AddTo(bits, found);
  }
  return bits;
}

}  // namespace standalone
