#include "standalone/import/codebook.h"

#include <gmock/gmock.h>

#include "standalone/files/input_file.h"
#include "standalone/import/importer.h"
#include "tests/standalone/temporary_folder.h"

namespace standalone {
namespace {

constexpr const char* kFile = "codebook.json";

class CodebookTest : public TemporaryFolderTest {
 protected:
  static CodebookField FieldOf(const std::string& field) {
    Write(kFile, "{\"fields\": [" + field + "]}");
    return ReadCodebook(kFile).at(0);
  }

  static std::string LabelsOf(const std::string& field) {
    std::string text;
    for (const ValueLabel& label : FieldOf(field).categories) {
      text += label.value + "=" + label.label + ";";
    }
    return text;
  }

  static std::string SentenceOfText(std::string_view text) {
    Write(kFile, text);
    return SentenceOf([] { ReadCodebook(kFile); });
  }

  static std::string SentenceOfField(const std::string& field) {
    return SentenceOfText("{\"fields\": [" + field + "]}");
  }
};

TEST_F(CodebookTest, AFieldIsReadWithAllThatItSays) {
  const CodebookField field = FieldOf(
      R"({"name": "q1", "type": "string", "title": "T\u00f6", "constraints": {"maxLength": 7, "required": true},
          "description": "", "categories": ["a", {"value": "b", "label": "B"}, {"value": "c"}]})");
  EXPECT_EQ(field.name, "q1");
  EXPECT_EQ(field.type, FieldType::kString);
  EXPECT_EQ(field.title, "T\xC3\xB6");
  EXPECT_EQ(field.maxLength, 7U);
  EXPECT_EQ(LabelsOf(R"({"name": "q1", "type": "string", "categories": ["a", {"value": "b", "label": "B"}]})"),
            "a=a;b=B;");
}

TEST_F(CodebookTest, EveryTypeIsKnown) {
  const std::pair<const char*, FieldType> types[] = {{"string", FieldType::kString}, {"integer", FieldType::kInteger},
                                                     {"number", FieldType::kNumber}, {"boolean", FieldType::kBoolean},
                                                     {"year", FieldType::kYear},     {"any", FieldType::kFromData}};
  for (const auto& [name, type] : types) {
    EXPECT_EQ(FieldOf(std::string(R"({"name": "q", "type": ")") + name + "\"}").type, type) << name;
  }
  EXPECT_EQ(FieldOf(R"({"name": "q"})").type, FieldType::kFromData);
}

TEST_F(CodebookTest, WithoutATypeTheRestOfTheFieldTellsIt) {
  EXPECT_EQ(FieldOf(R"({"name": "q", "constraints": {"maxLength": 2}})").type, FieldType::kString);
  EXPECT_EQ(FieldOf(R"({"name": "q", "categories": ["1"]})").type, FieldType::kString);
  EXPECT_EQ(FieldOf(R"({"name": "q", "categories": [1, {"value": 2}]})").type, FieldType::kNumber);
}

TEST_F(CodebookTest, ValuesOfNumericFieldsAreTheShortestText) {
  EXPECT_EQ(LabelsOf(R"({"name": "q", "type": "number", "categories": [{"value": 1.50, "label": "x"}, 2.0, "03"]})"),
            "1.5=x;2=2;3=3;");
  EXPECT_EQ(LabelsOf(R"({"name": "q", "type": "boolean", "categories": [{"value": true, "label": "yes"},
                        {"value": false, "label": "no"}]})"),
            "1=yes;0=no;");
}

TEST_F(CodebookTest, ReadsTheFormOfValues) {
  Write(kFile, R"({"missingValues": ["-9", {"value": "n/a", "label": "not asked"}], "fields": [
      {"name": "a"}, {"name": "b", "missingValues": ["x"]}, {"name": "c", "missingValues": []}]})");
  const std::vector<CodebookField> fields = ReadCodebook(kFile);
  EXPECT_THAT(fields[0].missingValues, ::testing::ElementsAre("-9", "n/a"));
  EXPECT_THAT(fields[1].missingValues, ::testing::ElementsAre("x"));
  EXPECT_THAT(fields[2].missingValues, ::testing::IsEmpty());
  const CodebookField boolean = FieldOf(
      R"({"name": "q", "type": "boolean", "trueValues": ["ja"], "falseValues": ["nein"],
          "categories": [{"value": "ja", "label": "Yes"}, {"value": "nein", "label": "No"}]})");
  EXPECT_THAT(boolean.trueValues, ::testing::ElementsAre("ja"));
  EXPECT_THAT(boolean.falseValues, ::testing::ElementsAre("nein"));
  const CodebookField number =
      FieldOf(R"({"name": "q", "type": "number", "decimalChar": ",", "groupChar": "\u00a0", "bareNumber": true})");
  EXPECT_EQ(number.decimalChar, ",");
  EXPECT_EQ(number.groupChar, "\u00a0");
}

TEST_F(CodebookTest, WhatIsNotSupportedIsRefusedByName) {
  constexpr const char* kMisplaced = " does not go with its type; take it out, or give the field the type ";
  const std::vector<std::pair<std::string, std::string>> rows = {
      {R"("type": "date")", R"(the type "date" is not supported; with the type "string" the values are kept as text)"},
      {R"("type": "geojson")",
       R"(the type "geojson" is not supported; with the type "string" the values are kept as text)"},
      {R"("type": "number", "bareNumber": false)",
       "bareNumber is not supported; take signs such as % out of the data, or give the field the type string"},
      {R"("type": "string", "trueValues": ["yes"])", std::string("trueValues") + kMisplaced + "boolean"},
      {R"("falseValues": ["no"])", std::string("falseValues") + kMisplaced + "boolean"},
      {R"("decimalChar": ",")", std::string("decimalChar") + kMisplaced + "number"},
      {R"("type": "integer", "decimalChar": ",")", std::string("decimalChar") + kMisplaced + "number"},
      {R"("type": "year", "groupChar": ",")", std::string("groupChar") + kMisplaced + "number"},
      {R"("type": "number", "groupChar": ".")", "its decimalChar and its groupChar are the same"},
      {R"("type": "number", "decimalChar": "ab")", "its decimalChar is not one character that numbers do without"},
      {R"("type": "number", "decimalChar": "")", "its decimalChar is not one character that numbers do without"},
      {R"("type": "number", "groupChar": "1")", "its groupChar is not one character that numbers do without"},
      {R"("type": "number", "groupChar": 1)", "its groupChar is not a string"},
      {R"("missingValues": "x")", "its missingValues are not a JSON array"},
      {R"("missingValues": [-9])", "an entry of its missingValues is not a string"},
      {R"("type": "boolean", "trueValues": ["ja", "x"], "falseValues": ["x"])",
       R"(the text "x" is in both its trueValues and its falseValues)"},
      {R"("type": "boolean", "trueValues": ["0"])",
       R"(the text "0" is in both its trueValues and its falseValues; without falseValues it has the default)"},
      {R"("type": "boolean", "falseValues": ["1", "no"])",
       R"(the text "1" is in both its trueValues and its falseValues; without trueValues it has the default)"},
      {R"("type": "boolean", "trueValues": [1])", "an entry of its trueValues is not a string"}};
  for (const auto& [members, reason] : rows) {
    EXPECT_EQ(SentenceOfField(R"({"name": "q", )" + members + "}"), "codebook.json, field \"q\": " + reason + ".");
  }
}

TEST_F(CodebookTest, ATitleThatIsEmptyOrNullIsNone) {
  EXPECT_EQ(FieldOf(R"({"name": "q", "title": ""})").title, std::nullopt);
  EXPECT_EQ(FieldOf(R"({"name": "q", "title": null})").title, std::nullopt);
}

TEST_F(CodebookTest, WhatIsNoTableSchemaIsOneSentence) {
  EXPECT_EQ(SentenceOf([] { ReadCodebook(kFile); }), SentenceOf([] { InputFile file(kFile); }));
  EXPECT_EQ(SentenceOf([] { ReadCodebook("."); }), SentenceOf([] { InputFile file("."); }));
  EXPECT_EQ(SentenceOfText(""), "codebook.json, line 1: this is not JSON (byte 1).");
  EXPECT_EQ(SentenceOfText("{\n\"fields\": [,]}"), "codebook.json, line 2: this is not JSON (byte 14).");
  EXPECT_EQ(SentenceOfText("{\"fields\": [\"\xFF\"]}"), "codebook.json, line 1: this is not JSON (byte 14).");
  EXPECT_EQ(SentenceOfText("{\"fields\": [1e999]}"), "codebook.json: a number is out of range.");
  EXPECT_EQ(SentenceOfText("[]"), "codebook.json is not a Table Schema: it has no array \"fields\".");
  EXPECT_EQ(SentenceOfText("{}"), "codebook.json is not a Table Schema: it has no array \"fields\".");
  EXPECT_EQ(SentenceOfText("{\"fields\": {}}"), "codebook.json is not a Table Schema: it has no array \"fields\".");
  EXPECT_EQ(SentenceOfText(std::string(1000000, '[')), "codebook.json is nested deeper than 64 levels.");
}

TEST_F(CodebookTest, BracketsNestOutsideOfStringsOnly) {
  const std::string open(100, '[');
  for (const char* begin : {R"(a)", R"(a\")", R"(a\\\")", R"(\"\")"}) {
    EXPECT_TRUE(FieldOf(R"({"name": "q", "title": ")" + std::string(begin) + open + "\"}").title) << begin;
  }
  for (const char* string : {R"("a")", R"("a\"")", R"("a\\")", R"("\"\\")"}) {
    EXPECT_EQ(SentenceOfField("{\"title\": " + std::string(string) + ", \"x\": " + open),
              "codebook.json is nested deeper than 64 levels.")
        << string;
  }
}

TEST_F(CodebookTest, ABadFieldIsOneSentenceThatNamesIt) {
  const std::pair<const char*, const char*> rows[] = {
      {"1", "codebook.json, field 1: it is not a JSON object."},
      {R"({"name": "a"}, {"type": "string"})", "codebook.json, field 2: it has no name."},
      {R"({"name": 5})", "codebook.json, field 1: its name is not a string."},
      {R"({"name": "a\u0000"})", "codebook.json, field 1: its name contains a NUL character."},
      {R"({"name": "q", "type": "colour"})",
       "codebook.json, field \"q\": the type \"colour\" is not one of string, integer, number, boolean, year and any."},
      {R"({"name": "q", "type": 1})", "codebook.json, field \"q\": its type is not a string."},
      {R"({"name": "q", "title": ["x"]})", "codebook.json, field \"q\": its title is not a string."},
      {R"({"name": "q", "type": "integer", "categories": ["a\u0000b"]})",
       "codebook.json, field \"q\": the category \"a\\x00b\" does not fit the type integer."},
      {R"({"name": "q", "type": "string", "categories": ["a\u0000b"]})",
       "codebook.json, field \"q\": the value of a category contains a NUL character."},
      {R"({"name": "q", "type": "integer", "categories": [{"value": "\u001b\u0000"}]})",
       "codebook.json, field \"q\": the category \"\\x1b\\x00\" does not fit the type integer."},
      {R"({"name": "q", "categories": [{"value": 1, "label": "a\u0000"}]})",
       "codebook.json, field \"q\": the label of a category contains a NUL character."},
      {R"({"name": "q", "type": "in\u0000t"})", "codebook.json, field \"q\": its type contains a NUL character."},
      {R"({"name": "q", "title": "\u0000"})", "codebook.json, field \"q\": its title contains a NUL character."},
      {R"({"name": "q", "constraints": 1})", "codebook.json, field \"q\": its constraints are not a JSON object."},
      {R"({"name": "q", "constraints": {"maxLength": 0}})",
       "codebook.json, field \"q\": its maxLength is not a whole number from 1 to 2147483647."},
      {R"({"name": "q", "constraints": {"maxLength": -1}})",
       "codebook.json, field \"q\": its maxLength is not a whole number from 1 to 2147483647."},
      {R"({"name": "q", "constraints": {"maxLength": 1.5}})",
       "codebook.json, field \"q\": its maxLength is not a whole number from 1 to 2147483647."},
      {R"({"name": "q", "constraints": {"maxLength": "5"}})",
       "codebook.json, field \"q\": its maxLength is not a whole number from 1 to 2147483647."},
      {R"({"name": "q", "constraints": {"maxLength": 2147483648}})",
       "codebook.json, field \"q\": its maxLength is not a whole number from 1 to 2147483647."},
      {R"({"name": "q", "categories": 5})", "codebook.json, field \"q\": its categories are not a JSON array."},
      {R"({"name": "q", "type": "string", "categories": [{"label": "x"}]})",
       "codebook.json, field \"q\": one of its categories has no value."},
      {R"({"name": "q", "type": "string", "categories": [{"value": "x", "label": 1}]})",
       "codebook.json, field \"q\": the label of a category is not a string."},
      {R"({"name": "q", "type": "integer", "categories": [{"value": 1, "label": "x"}, {"value": 1.0, "label": "y"}]})",
       "codebook.json, field \"q\": the value \"1\" is labelled twice."},
      {R"({"name": "q", "type": "string", "categories": ["x", "x"]})",
       "codebook.json, field \"q\": the value \"x\" is labelled twice."},
      {R"({"name": "q", "type": "integer", "categories": ["x"]})",
       "codebook.json, field \"q\": the category \"x\" does not fit the type integer."},
      {R"({"name": "q", "type": "integer", "categories": [1.5]})",
       "codebook.json, field \"q\": the category \"1.5\" does not fit the type integer."},
      {R"({"name": "q", "type": "number", "categories": [true]})",
       "codebook.json, field \"q\": the category \"true\" does not fit the type number."},
      {R"({"name": "q", "type": "string", "categories": [1]})",
       "codebook.json, field \"q\": the category \"1\" does not fit the type string."},
      {R"({"name": "q", "categories": ["a", 1]})",
       "codebook.json, field \"q\": the category \"1\" does not fit the type string."},
      {R"({"name": "q"}, {"name": "Q"})", "codebook.json, field \"Q\": the name occurs twice."}};
  for (const auto& [field, sentence] : rows) {
    EXPECT_EQ(SentenceOfField(field), sentence) << field;
  }
}

}  // namespace
}  // namespace standalone
