#include "standalone/output/json/tabulation_json.h"

#include <cmath>
#include <cstdint>
#include <utility>

#include "standalone/output/tabulation_words.h"

namespace standalone {
namespace {

Json TextOrNull(const std::optional<std::string>& text) {
  return text ? Json(*text) : Json();
}

/// A whole number without a point, as far as a double is exact.
Json Number(double number) {
  constexpr double kExact = 9007199254740992;  // 2^53
  const bool isWhole = std::trunc(number) == number && std::abs(number) <= kExact;
  return isWhole ? Json(static_cast<std::int64_t>(number)) : Json(number);
}

Json OrNull(const Figure& figure) {
  return figure ? Number(*figure) : Json();
}

Json ToJson(const TabulatedCases& cases) {
  return {{"all", cases.all},
          {"answered", cases.answered},
          {"noneChosen", cases.noneChosen},
          {"missing", cases.missing},
          {"base", cases.base}};
}

/// Nothing for the total, a text, or of a pair an array.
Json ValueToJson(const std::vector<std::string>& values) {
  if (values.empty()) {
    return nullptr;
  }
  return values.size() == 1 ? Json(values.front()) : Json(values);
}

Json ToJson(const TabulationColumn& column) {
  return {{"by", column.by.empty() ? Json() : Json(column.by)},
          {"value", ValueToJson(column.values)},
          {"label", LabelOf(column)},
          {"cases", ToJson(column.cases)},
          {"weightedBase", Number(column.weightedBase)},
          {"effectiveBase", OrNull(column.effectiveBase)},
          {"responses", Number(column.responses)},
          {"responsesPerCase", OrNull(column.responsesPerCase)}};
}

Json ToJson(const TabulationCell& cell, bool hasErrors) {
  Json json = {{"cases", cell.cases},
               {"count", Number(cell.count)},
               {"percentOfCases", OrNull(cell.percentOfCases)},
               {"percentOfResponses", OrNull(cell.percentOfResponses)}};
  if (hasErrors) {
    json["standardError"] = OrNull(cell.standardError);
    json["low"] = OrNull(cell.low);
    json["high"] = OrNull(cell.high);
    json["designEffect"] = OrNull(cell.designEffect);
  }
  return json;
}

Json ToJson(const TabulationRow& row, bool hasErrors) {
  Json cells = Json::array();
  for (const TabulationCell& cell : row.cells) {
    cells.push_back(ToJson(cell, hasErrors));
  }
  return {{"member", row.member}, {"label", row.label}, {"net", row.isNet}, {"cells", std::move(cells)}};
}

Json ToJson(const MemberTest& test, bool isBySet) {
  Json json = {{"member", test.member}};
  if (isBySet) {
    json["byMember"] = test.byMember;
  }
  json["statistic"] = OrNull(test.statistic);
  json["degreesOfFreedom"] = test.degreesOfFreedom;
  json["p"] = OrNull(test.p);
  json["adjustedP"] = OrNull(test.adjustedP);
  return json;
}

Json ToJson(const TabulationTest& test) {
  Json members = Json::array();
  for (const MemberTest& member : test.members) {
    members.push_back(ToJson(member, IsSet(test.by)));
  }
  return {{"by", test.by},
          {"statistic", OrNull(test.statistic)},
          {"corrected", OrNull(test.corrected)},
          {"degreesOfFreedom", OrNull(test.degreesOfFreedom)},
          {"p", OrNull(test.p)},
          {"members", std::move(members)}};
}

}  // namespace

Json ToJson(const Tabulation& tabulation) {
  Json columns = Json::array();
  for (const TabulationColumn& column : tabulation.columns) {
    columns.push_back(ToJson(column));
  }
  Json rows = Json::array();
  for (const TabulationRow& row : tabulation.rows) {
    rows.push_back(ToJson(row, tabulation.hasErrors));
  }
  Json json = {{"kind", "tabulation"},
               {"set", tabulation.set},
               {"label", tabulation.label},
               {"base", NameOf(tabulation.base)},
               {"weight", TextOrNull(tabulation.weight)},
               {"where", TextOrNull(tabulation.where)},
               {"columns", std::move(columns)},
               {"rows", std::move(rows)}};
  if (tabulation.hasTests) {
    json["tests"] = Json::array();
    for (const TabulationTest& test : tabulation.tests) {
      json["tests"].push_back(ToJson(test));
    }
  }
  json["notes"] = tabulation.notes;
  return json;
}

}  // namespace standalone
