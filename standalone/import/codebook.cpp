#include "standalone/import/codebook.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <limits>
#include <nlohmann/json.hpp>
#include <unordered_set>
#include <utility>

#include "standalone/files/input_file.h"
#include "standalone/import/importer.h"
#include "standalone/text/error.h"
#include "standalone/text/number_text.h"
#include "standalone/text/unicode.h"

namespace standalone {

namespace {

using Json = nlohmann::json;

constexpr std::array<std::pair<std::string_view, FieldType>, 6> kTypes = {{{"any", FieldType::kFromData},
                                                                           {"string", FieldType::kString},
                                                                           {"integer", FieldType::kInteger},
                                                                           {"number", FieldType::kNumber},
                                                                           {"boolean", FieldType::kBoolean},
                                                                           {"year", FieldType::kYear}}};

/// What a Table Schema has besides.
constexpr std::array<std::string_view, 10> kOtherTypes = {"date",   "time",  "datetime", "yearmonth", "duration",
                                                          "object", "array", "list",     "geopoint",  "geojson"};

std::string ReadAll(const std::string& path) {
  InputFile file(path);
  std::string text;
  std::string buffer(std::size_t{64} * 1024, '\0');
  while (const std::size_t count = file.Read(buffer.data(), buffer.size())) {
    text.append(buffer, 0, count);
  }
  return text;
}

std::size_t LineOfByte(const std::string& text, std::size_t byte) {
  const auto end = text.begin() + static_cast<std::ptrdiff_t>(std::min(byte, text.size()));
  return 1 + static_cast<std::size_t>(std::count(text.begin(), end, '\n'));
}

/// A codebook nests a handful of levels; what nests without end must not exhaust the stack of whoever walks through it.
constexpr int kMaxDepth = 64;

/// How many brackets are open at most at one place, outside of strings.
std::ptrdiff_t DeepestLevel(const std::string& json) {
  std::ptrdiff_t level = 0;
  std::ptrdiff_t deepest = 0;
  bool inString = false;
  for (std::size_t offset = 0; offset < json.size(); ++offset) {
    const char c = json[offset];
    if (c == '"') {
      inString = !inString;
    } else if (inString) {
      offset += c == '\\' ? 1 : 0;
    } else if (c == '[' || c == '{') {
      deepest = std::max(deepest, ++level);
    } else if (c == ']' || c == '}') {
      --level;
    }
  }
  return deepest;
}

// The depth is looked at beforehand: the library's own way, a callback, makes it walk through all of an array again for
// each of its elements.
Json ParseJson(const std::string& path) {
  const std::string text = ReadAll(path);
  if (DeepestLevel(text) > kMaxDepth) {
    throw Error(fmt::format("{} is nested deeper than {} levels.", path, kMaxDepth));
  }
  try {
    return Json::parse(text);
  } catch (const Json::parse_error& error) {
    const std::size_t before = error.byte == 0 ? 0 : error.byte - 1;
    throw Error(fmt::format("{}, line {}: this is not JSON (byte {}).", path, LineOfByte(text, before), error.byte));
  } catch (const Json::out_of_range&) {
    throw Error(fmt::format("{}: a number is out of range.", path));
  }
}

// Null where the member is absent or null.
const Json* Member(const Json& object, const char* key) {
  const auto found = object.find(key);
  return found == object.end() || found->is_null() ? nullptr : &*found;
}

/// Reads one field's object; failures name the field.
class FieldReader {
 public:
  /// `missingValues` are those of the whole codebook, or null.
  FieldReader(const std::string& path, const Json& json, std::size_t number, const Json* missingValues)
      : fPath(path), fJson(json), fMissingValues(missingValues), fPlace(fmt::format("field {}", number)) {}

  CodebookField Read();

 private:
  [[noreturn]] void Fail(const std::string& what) const {
    throw Error(fmt::format("{}, {}: {}.", fPath, fPlace, what));
  }

  std::string TextOf(const Json& value, const std::string& what) const;
  void ReadName();
  void ReadType();
  void ReadTitle();
  void ReadMaxLength();
  void ReadCategories();
  void ReadMissingValues();
  void ReadBooleans();
  std::string WhichAreDefaults() const;
  void ReadNumberForm();
  const Json* MemberOfTypes(const char* key, std::initializer_list<FieldType> types) const;
  const Json& ArrayIn(const Json* member, const char* key) const;
  std::vector<std::string> TextsIn(const Json* member, const char* key) const;
  std::string CharacterIn(const char* key, const Json& value) const;
  void SettleType(const Json& categories);
  ValueLabel ReadCategory(const Json& category) const;
  std::string CategoryValue(const Json& value) const;
  std::optional<double> NumberOf(const Json& value) const;
  [[noreturn]] void FailToFit(const Json& value) const;

  const std::string& fPath;
  const Json& fJson;
  const Json* fMissingValues;
  std::string fPlace;
  std::string fTypeName = "string";
  CodebookField fField;
};

CodebookField FieldReader::Read() {
  if (!fJson.is_object()) {
    Fail("it is not a JSON object");
  }
  ReadName();
  ReadType();
  ReadTitle();
  ReadMaxLength();
  ReadBooleans();
  ReadCategories();
  ReadMissingValues();
  ReadNumberForm();
  return std::move(fField);
}

std::string FieldReader::TextOf(const Json& value, const std::string& what) const {
  if (!value.is_string()) {
    Fail(what + " is not a string");
  }
  std::string text = value.get<std::string>();
  if (text.find('\0') != std::string::npos) {
    Fail(what + " contains a NUL character");
  }
  return text;
}

void FieldReader::ReadName() {
  const Json* name = Member(fJson, "name");
  if (name == nullptr) {
    Fail("it has no name");
  }
  fField.name = TextOf(*name, "its name");
  fPlace = fmt::format("field \"{}\"", fField.name);
}

void FieldReader::ReadType() {
  const Json* type = Member(fJson, "type");
  if (type == nullptr) {
    return;
  }
  fTypeName = TextOf(*type, "its type");
  const auto* known =
      std::find_if(kTypes.begin(), kTypes.end(), [this](const auto& entry) { return entry.first == fTypeName; });
  if (std::find(kOtherTypes.begin(), kOtherTypes.end(), fTypeName) != kOtherTypes.end()) {
    Fail(fmt::format("the type \"{}\" is not supported; with the type \"string\" the values are kept as text",
                     fTypeName));
  }
  if (known == kTypes.end()) {
    Fail(fmt::format("the type \"{}\" is not one of string, integer, number, boolean, year and any", fTypeName));
  }
  fField.type = known->second;
}

void FieldReader::ReadTitle() {
  const Json* title = Member(fJson, "title");
  if (title == nullptr) {
    return;
  }
  std::string text = TextOf(*title, "its title");
  if (!text.empty()) {
    fField.title = std::move(text);
  }
}

void FieldReader::ReadMaxLength() {
  const Json* constraints = Member(fJson, "constraints");
  if (constraints == nullptr) {
    return;
  }
  if (!constraints->is_object()) {
    Fail("its constraints are not a JSON object");
  }
  const Json* length = Member(*constraints, "maxLength");
  if (length == nullptr) {
    return;
  }
  constexpr auto kMax = static_cast<std::uint64_t>(std::numeric_limits<int>::max());
  if (!length->is_number_unsigned() || length->get<std::uint64_t>() == 0 || length->get<std::uint64_t>() > kMax) {
    Fail(fmt::format("its maxLength is not a whole number from 1 to {}", kMax));
  }
  fField.maxLength = length->get<std::size_t>();
}

const Json& ValueOf(const Json& category) {
  return category.contains("value") ? category["value"] : category;
}

void FieldReader::SettleType(const Json& categories) {
  if (fField.type != FieldType::kFromData) {
    return;
  }
  const bool hasString = std::any_of(categories.begin(), categories.end(),
                                     [](const Json& category) { return ValueOf(category).is_string(); });
  if (fField.maxLength || hasString) {
    fField.type = FieldType::kString;
  } else if (!categories.empty()) {
    fField.type = FieldType::kNumber;
    fTypeName = "number";
  }
}

void FieldReader::ReadCategories() {
  const Json& categories = ArrayIn(Member(fJson, "categories"), "categories");
  SettleType(categories);
  std::unordered_set<std::string> values;
  for (const Json& category : categories) {
    ValueLabel valueLabel = ReadCategory(category);
    if (!values.insert(valueLabel.value).second) {
      Fail(fmt::format("the value \"{}\" is labelled twice", valueLabel.value));
    }
    fField.categories.push_back(std::move(valueLabel));
  }
}

/// Those of the field take the place of those of the whole codebook.
void FieldReader::ReadMissingValues() {
  const Json* own = Member(fJson, "missingValues");
  fField.missingValues = TextsIn(own == nullptr ? fMissingValues : own, "missingValues");
}

void FieldReader::ReadBooleans() {
  if (fField.type == FieldType::kBoolean) {
    fField.trueValues = {"1", "true", "True", "TRUE"};
    fField.falseValues = {"0", "false", "False", "FALSE"};
  }
  if (const Json* values = MemberOfTypes("trueValues", {FieldType::kBoolean})) {
    fField.trueValues = TextsIn(values, "trueValues");
  }
  if (const Json* values = MemberOfTypes("falseValues", {FieldType::kBoolean})) {
    fField.falseValues = TextsIn(values, "falseValues");
  }
  for (const std::string& text : fField.trueValues) {
    if (std::find(fField.falseValues.begin(), fField.falseValues.end(), text) != fField.falseValues.end()) {
      Fail(fmt::format("the text \"{}\" is in both its trueValues and its falseValues{}", Shortened(text),
                       WhichAreDefaults()));
    }
  }
}

/// A field that gives only one of the two has the other as Table Schema sets it.
std::string FieldReader::WhichAreDefaults() const {
  for (const char* key : {"trueValues", "falseValues"}) {
    if (Member(fJson, key) == nullptr) {
      return fmt::format("; without {} it has the default", key);
    }
  }
  return "";
}

void FieldReader::ReadNumberForm() {
  if (const Json* mark = MemberOfTypes("decimalChar", {FieldType::kNumber})) {
    fField.decimalChar = CharacterIn("decimalChar", *mark);
  }
  if (const Json* mark = MemberOfTypes("groupChar", {FieldType::kNumber, FieldType::kInteger})) {
    fField.groupChar = CharacterIn("groupChar", *mark);
  }
  if (fField.groupChar == fField.decimalChar) {
    Fail("its decimalChar and its groupChar are the same");
  }
  const Json* bare = Member(fJson, "bareNumber");
  if (bare != nullptr && *bare != true) {
    Fail("bareNumber is not supported; take signs such as % out of the data, or give the field the type string");
  }
}

/// The member, null where it is absent; it is refused where it would do nothing.
const Json* FieldReader::MemberOfTypes(const char* key, std::initializer_list<FieldType> types) const {
  const Json* member = Member(fJson, key);
  if (member != nullptr && std::find(types.begin(), types.end(), fField.type) == types.end()) {
    Fail(fmt::format("{} does not go with its type; take it out, or give the field the type {}", key,
                     *types.begin() == FieldType::kBoolean ? "boolean" : "number"));
  }
  return member;
}

/// The array that a member is; an empty one where it is absent.
const Json& FieldReader::ArrayIn(const Json* member, const char* key) const {
  static const Json kNone = Json::array();
  if (member != nullptr && !member->is_array()) {
    Fail(fmt::format("its {} are not a JSON array", key));
  }
  return member == nullptr ? kNone : *member;
}

/// Each entry is a text, or an object with a text "value".
std::vector<std::string> FieldReader::TextsIn(const Json* member, const char* key) const {
  std::vector<std::string> texts;
  for (const Json& entry : ArrayIn(member, key)) {
    texts.push_back(TextOf(ValueOf(entry), fmt::format("an entry of its {}", key)));
  }
  return texts;
}

std::string FieldReader::CharacterIn(const char* key, const Json& value) const {
  std::string character = TextOf(value, fmt::format("its {}", key));
  if (CountCharacters(character) != 1 || std::string_view("0123456789+-eE").find(character) != std::string_view::npos) {
    Fail(fmt::format("its {} is not one character that numbers do without", key));
  }
  return character;
}

ValueLabel FieldReader::ReadCategory(const Json& category) const {
  if (category.is_object() && !category.contains("value")) {
    Fail("one of its categories has no value");
  }
  const std::string value = CategoryValue(ValueOf(category));
  const Json* label = Member(category, "label");
  return {value, label == nullptr ? value : TextOf(*label, "the label of a category")};
}

std::string FieldReader::CategoryValue(const Json& value) const {
  if (fField.type == FieldType::kString) {
    if (!value.is_string()) {
      FailToFit(value);
    }
    return TextOf(value, "the value of a category");
  }
  const std::optional<double> number = NumberOf(value);
  const bool mustBeWhole = fField.type == FieldType::kInteger || fField.type == FieldType::kYear;
  if (!number || (mustBeWhole && *number != std::floor(*number))) {
    FailToFit(value);
  }
  return ShortestNumber(*number);
}

std::optional<double> FieldReader::NumberOf(const Json& value) const {
  if (value.is_number()) {
    return value.get<double>();
  }
  if (fField.type == FieldType::kBoolean && value.is_boolean()) {
    return value.get<bool>() ? 1 : 0;
  }
  if (!value.is_string()) {
    return std::nullopt;
  }
  const auto& text = value.get_ref<const std::string&>();
  const auto holdsIt = [&text](const std::vector<std::string>& texts) {
    return std::find(texts.begin(), texts.end(), text) != texts.end();
  };
  if (fField.type == FieldType::kBoolean && holdsIt(fField.trueValues)) {
    return 1;
  }
  return fField.type == FieldType::kBoolean && holdsIt(fField.falseValues) ? std::optional<double>(0)
                                                                           : NumberValue(text);
}

void FieldReader::FailToFit(const Json& value) const {
  const std::string text = value.is_string() ? value.get<std::string>() : value.dump();
  Fail(fmt::format("the category \"{}\" does not fit the type {}", Shortened(text), fTypeName));
}

Json& FieldsOf(Json& codebook, const std::string& path) {
  if (!codebook.contains("fields") || !codebook["fields"].is_array()) {
    throw Error(path + " is not a Table Schema: it has no array \"fields\".");
  }
  return codebook["fields"];
}

}  // namespace

std::vector<CodebookField> ReadCodebook(const std::string& path) {
  Json codebook = ParseJson(path);
  std::vector<CodebookField> fields;
  std::unordered_set<std::string> names;
  const Json* missingValues = Member(codebook, "missingValues");
  for (Json& json : FieldsOf(codebook, path)) {
    fields.push_back(FieldReader(path, json, fields.size() + 1, missingValues).Read());
    json = nullptr;  // read, and large where there are many
    const std::string& name = fields.back().name;
    if (!names.insert(ToUpper(name)).second) {
      throw Error(fmt::format("{}, field \"{}\": the name occurs twice.", path, name));
    }
  }
  return fields;
}

}  // namespace standalone
