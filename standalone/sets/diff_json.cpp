#include "standalone/output/json/sets_json.h"
#include "standalone/sets/diff_report.h"

namespace standalone {
namespace {

Json ValueJson(const std::variant<std::string, bool>& value) {
  return std::visit([](const auto& one) { return Json(one); }, value);
}

void WriteField(JsonWriter& json, const FieldDifference& field) {
  json.Object([&] {
    json.Member("field", field.field);
    json.Member("a", ValueJson(field.a));
    json.Member("b", ValueJson(field.b));
  });
}

void WriteVariables(JsonWriter& json, const DifferingSet& change) {
  json.Object([&] {
    json.Member("field", "variables");
    json.Array("a", change.a.variables);
    json.Array("b", change.b.variables);
    json.Array("onlyInA", change.variables.onlyInA);
    json.Array("onlyInB", change.variables.onlyInB);
    json.Member("reordered", change.variables.reordered);
  });
}

void WriteChange(JsonWriter& json, const DifferingSet& change) {
  json.Object([&] {
    json.Member("name", change.a.name);
    json.Name("fields");
    json.Array([&] {
      for (const FieldDifference& field : change.fields) {
        WriteField(json, field);
      }
      if (change.variablesDiffer) {
        WriteVariables(json, change);
      }
    });
  });
}

void WriteSets(JsonWriter& json, const char* name, const std::vector<StoredSet>& sets) {
  json.Array(name, sets, [&](const StoredSet& set) { json.Object([&] { WriteMembers(json, set); }); });
}

}  // namespace

void WriteDiffJson(JsonWriter& json, const SetsDifference& difference, const std::string& a, const std::string& b) {
  json.Object([&] {
    json.Member("a", a);
    json.Member("b", b);
    json.Member("same", difference.IsNone());
    WriteSets(json, "onlyInA", difference.onlyInA);
    WriteSets(json, "onlyInB", difference.onlyInB);
    json.Array("changed", difference.changed, [&](const DifferingSet& change) { WriteChange(json, change); });
    json.Name("order");
    json.Object([&] {
      json.Member("same", !difference.names.reordered);
      json.Array("a", difference.names.commonInA);
      json.Array("b", difference.names.commonInB);
    });
  });
}

}  // namespace standalone
