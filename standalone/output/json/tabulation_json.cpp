#include "standalone/output/json/tabulation_json.h"

#include <cmath>
#include <cstdint>

#include "standalone/output/tabulation_words.h"

namespace standalone {
namespace {

/// A whole number without a point, as far as a double is exact.
Json Number(double number) {
  constexpr double kExact = 9007199254740992;  // 2^53
  const bool isWhole = std::trunc(number) == number && std::abs(number) <= kExact;
  return isWhole ? Json(static_cast<std::int64_t>(number)) : Json(number);
}

Json OrNull(const Figure& figure) {
  return figure ? Number(*figure) : Json();
}

void WriteCases(JsonWriter& json, const TabulatedCases& cases) {
  json.Name("cases");
  json.Object([&] {
    json.Member("all", cases.all);
    json.Member("answered", cases.answered);
    json.Member("noneChosen", cases.noneChosen);
    json.Member("missing", cases.missing);
    json.Member("base", cases.base);
  });
}

/// Nothing for the total, a text, or of a pair an array.
void WriteValue(JsonWriter& json, const std::vector<std::string>& values) {
  if (values.size() > 1) {
    json.Array("value", values);
  } else {
    json.Member("value", values.empty() ? Json() : Json(values.front()));
  }
}

void WriteColumn(JsonWriter& json, const TabulationColumn& column) {
  json.Object([&] {
    json.Member("by", column.by.empty() ? Json() : Json(column.by));
    WriteValue(json, column.values);
    json.Member("label", LabelOf(column));
    WriteCases(json, column.cases);
    json.Member("weightedBase", Number(column.weightedBase));
    json.Member("effectiveBase", OrNull(column.effectiveBase));
    json.Member("responses", Number(column.responses));
    json.Member("responsesPerCase", OrNull(column.responsesPerCase));
  });
}

void WriteCell(JsonWriter& json, const TabulationCell& cell, bool hasErrors) {
  json.Object([&] {
    json.Member("cases", cell.cases);
    json.Member("count", Number(cell.count));
    json.Member("percentOfCases", OrNull(cell.percentOfCases));
    json.Member("percentOfResponses", OrNull(cell.percentOfResponses));
    if (hasErrors) {
      json.Member("standardError", OrNull(cell.standardError));
      json.Member("low", OrNull(cell.low));
      json.Member("high", OrNull(cell.high));
      json.Member("designEffect", OrNull(cell.designEffect));
    }
  });
}

void WriteRow(JsonWriter& json, const TabulationRow& row, bool hasErrors) {
  json.Object([&] {
    json.Member("member", row.member);
    json.Member("label", row.label);
    json.Member("net", row.isNet);
    json.Array("cells", row.cells, [&](const TabulationCell& cell) { WriteCell(json, cell, hasErrors); });
  });
}

void WriteMemberTest(JsonWriter& json, const MemberTest& test, bool isBySet) {
  json.Object([&] {
    json.Member("member", test.member);
    if (isBySet) {
      json.Member("byMember", test.byMember);
    }
    json.Member("statistic", OrNull(test.statistic));
    json.Member("degreesOfFreedom", test.degreesOfFreedom);
    json.Member("p", OrNull(test.p));
    json.Member("adjustedP", OrNull(test.adjustedP));
  });
}

void WriteTest(JsonWriter& json, const TabulationTest& test) {
  json.Object([&] {
    json.Member("by", test.by);
    json.Member("statistic", OrNull(test.statistic));
    json.Member("corrected", OrNull(test.corrected));
    json.Member("degreesOfFreedom", OrNull(test.degreesOfFreedom));
    json.Member("p", OrNull(test.p));
    json.Array("members", test.members,
               [&](const MemberTest& member) { WriteMemberTest(json, member, IsSet(test.by)); });
  });
}

}  // namespace

void WriteJson(JsonWriter& json, const Tabulation& tabulation) {
  json.Object([&] {
    json.Member("kind", "tabulation");
    json.Member("set", tabulation.set);
    json.Member("label", tabulation.label);
    json.Member("base", NameOf(tabulation.base));
    json.Member("weight", tabulation.weight);
    json.Member("where", tabulation.where);
    json.Array("columns", tabulation.columns, [&](const TabulationColumn& column) { WriteColumn(json, column); });
    json.Array("rows", tabulation.rows, [&](const TabulationRow& row) { WriteRow(json, row, tabulation.hasErrors); });
    if (tabulation.hasTests) {
      json.Array("tests", tabulation.tests, [&](const TabulationTest& test) { WriteTest(json, test); });
    }
    json.Array("notes", tabulation.notes);
  });
}

}  // namespace standalone
