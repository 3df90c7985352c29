#include "standalone/output/json/sets_json.h"
#include "standalone/sets/diff_report.h"

namespace standalone {
namespace {

Json ValueJson(const std::variant<std::string, bool>& value) {
  return std::visit([](const auto& one) { return Json(one); }, value);
}

Json VariablesJson(const DifferingSet& change) {
  return {{"field", "variables"},
          {"a", change.a.variables},
          {"b", change.b.variables},
          {"onlyInA", change.variables.onlyInA},
          {"onlyInB", change.variables.onlyInB},
          {"reordered", change.variables.reordered}};
}

Json ChangeJson(const DifferingSet& change) {
  Json fields = Json::array();
  for (const FieldDifference& field : change.fields) {
    fields.push_back({{"field", field.field}, {"a", ValueJson(field.a)}, {"b", ValueJson(field.b)}});
  }
  if (change.variablesDiffer) {
    fields.push_back(VariablesJson(change));
  }
  return {{"name", change.a.name}, {"fields", fields}};
}

}  // namespace

Json DiffJson(const SetsDifference& difference, const std::string& a, const std::string& b) {
  Json changed = Json::array();
  for (const DifferingSet& change : difference.changed) {
    changed.push_back(ChangeJson(change));
  }
  return {
      {"a", a},
      {"b", b},
      {"same", difference.IsNone()},
      {"onlyInA", ToJson(difference.onlyInA)},
      {"onlyInB", ToJson(difference.onlyInB)},
      {"changed", changed},
      {"order",
       {{"same", !difference.names.reordered}, {"a", difference.names.commonInA}, {"b", difference.names.commonInB}}}};
}

}  // namespace standalone
