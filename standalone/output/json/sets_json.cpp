#include "standalone/output/json/sets_json.h"

namespace standalone {

void WriteMembers(JsonWriter& json, const StoredSet& set) {
  json.Member("name", set.name);
  json.Member("type", set.type == SetType::kDichotomy ? "dichotomy" : "category");
  json.Member("label", set.label);
  json.Member("countedValue", set.countedValue);
  json.Member("labelFromVariable", set.labelFromVariable);
  json.Member("categoryLabelsFromCountedValue", set.categoryLabelsFromCountedValue);
  json.Array("variables", set.variables);
}

void WriteMembers(JsonWriter& json, const Variable& variable) {
  json.Member("name", variable.name);
  json.Member("width", variable.width);
  json.Member("label", variable.label);
  json.Array("valueLabels", variable.valueLabels, [&](const ValueLabel& entry) {
    json.Object([&] {
      json.Member("value", entry.value);
      json.Member("label", entry.label);
    });
  });
}

}  // namespace standalone
