#include "standalone/tabulation/reading/where_reader.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "standalone/tabulation/reading/counted_set.h"
#include "standalone/tabulation/reading/set_reader.h"
#include "standalone/tabulation/reading/unknown_member.h"
#include "standalone/tabulation/tabulation_error.h"
#include "standalone/text/number_text.h"

namespace standalone {
namespace {

double NumberOf(const Spoken& value, const std::string& variable) {
  const std::optional<double> number = NumberValue(value.text);
  if (value.isQuoted || !number) {
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

/// The columns of which one must hold what makes a case choose the member.
std::vector<TestedColumn> ColumnsOfMember(const Condition& condition, const TabulationRequest& request,
                                          TabulationSource& source, Columns& columns) {
  const Spoken& member = condition.values.front();
  Columns unread(source);
  const std::unique_ptr<SetReader> reader = MakeSetReader(FindCountedSet(condition.name, source), request, unread);
  const CountedSet& set = reader->Set();
  const std::optional<std::size_t> found = reader->Find(member.text);
  if (!found || (set.isCategory && request.none && reader->Find(request.none->text) == found)) {
    throw UnknownMember(member, {reader.get()});
  }
  if (!set.isCategory) {
    return {TestedColumn(columns.Need(set.variables[*found]), TestOfValue(set.countedValue, set.isNumeric))};
  }
  std::vector<TestedColumn> tested;
  for (const int variable : set.variables) {
    tested.emplace_back(columns.Need(variable), TestOfValue(member.text, set.isNumeric));
  }
  return tested;
}

}  // namespace

WhereReader::WhereReader(const Condition& condition, const TabulationRequest& request, TabulationSource& source,
                         Columns& columns)
    : fKind(condition.kind) {
  for (const Condition& part : condition.parts) {
    fParts.emplace_back(part, request, source, columns);
  }
  if (fKind == Condition::Kind::kHas) {
    fColumns = ColumnsOfMember(condition, request, source, columns);
  } else if (condition.parts.empty()) {
    const int variable = FindVariable(condition.name, source);
    ValueTest test = TestOf(condition, source.VariableAt(variable));
    fColumns.emplace_back(columns.Need(variable), std::move(test));
  }
}

void WhereReader::StartBlock() {
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
