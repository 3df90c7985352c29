#include "standalone/output/json/sets_json.h"

namespace standalone {
namespace {

constexpr const char* kDichotomy = "dichotomy";
constexpr const char* kCategory = "category";

Json ToJson(const StoredSet& set) {
  return {{"name", set.name},
          {"type", set.type == SetType::kDichotomy ? kDichotomy : kCategory},
          {"label", set.label},
          {"countedValue", set.countedValue},
          {"labelFromVariable", set.labelFromVariable},
          {"categoryLabelsFromCountedValue", set.categoryLabelsFromCountedValue},
          {"variables", set.variables}};
}

}  // namespace

Json ToJson(const std::vector<StoredSet>& sets) {
  Json array = Json::array();
  for (const StoredSet& set : sets) {
    array.push_back(ToJson(set));
  }
  return array;
}

Json ToJson(const Variable& variable) {
  Json valueLabels = Json::array();
  for (const ValueLabel& entry : variable.valueLabels) {
    valueLabels.push_back({{"value", entry.value}, {"label", entry.label}});
  }
  return {{"name", variable.name},
          {"width", variable.width},
          {"label", variable.label ? Json(*variable.label) : Json()},
          {"valueLabels", valueLabels}};
}

}  // namespace standalone
