#include "standalone/import/importer.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <thread>

#include "standalone/dataset/dataset.h"
#include "standalone/files/input_file.h"
#include "standalone/storage/database.h"
#include "tests/standalone/temporary_folder.h"

namespace standalone {
namespace {

using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

constexpr const char* kData = "survey.csv";
constexpr const char* kCodebook = "codebook.json";
constexpr const char* kDataset = "survey.mrs";

class ImporterTest : public TemporaryFolderTest {
 protected:
  static ImportSummary Import(std::optional<std::string> codebook = std::nullopt, bool replace = false) {
    return ImportSurvey({kData, std::move(codebook), kDataset, replace});
  }

  static void WriteCodebook(const std::string& fields) { Write(kCodebook, "{\"fields\": [" + fields + "]}"); }

  // Each variable as "name:width".
  static std::vector<std::string> Variables() {
    Dataset dataset(kDataset);
    std::vector<std::string> variables;
    for (int position = 0; position < dataset.VariableCount(); ++position) {
      const Variable& variable = dataset.VariableAt(position);
      variables.push_back(variable.name + ":" + std::to_string(variable.width));
    }
    return variables;
  }

  static std::vector<std::string> Cases() {
    Database database(kDataset, kDataset);
    Query rows(database, "SELECT cells FROM cases ORDER BY position");
    std::vector<std::string> cases;
    while (rows.Step()) {
      cases.push_back(rows.Text(0));
    }
    return cases;
  }

  static std::string SentenceOfImport(std::string_view csv, const std::string& fields = "") {
    Write(kData, csv);
    WriteCodebook(fields);
    const auto codebook = fields.empty() ? std::nullopt : std::optional<std::string>(kCodebook);
    return SentenceOf([&] { Import(codebook); });
  }
};

TEST_F(ImporterTest, TheFormOfValuesIsTheCodebooks) {
  Write(kData, "a,b,c,d,e,f\n-9,\"1.234,5\",ja,x,-9,12'000\n-9.5,\"-0,5\",nein,-9,7,\n 3 ,-9, ,, ,1'2'3\n");
  Write(kCodebook, R"({"missingValues": ["-9"], "fields": [
      {"name": "a", "type": "number"}, {"name": "b", "type": "number", "decimalChar": ",", "groupChar": "."},
      {"name": "c", "type": "boolean", "trueValues": ["ja"], "falseValues": ["nein"]},
      {"name": "d", "type": "string"}, {"name": "e"}, {"name": "f", "type": "integer", "groupChar": "'"}]})");
  Import(kCodebook);
  EXPECT_THAT(Variables(), ElementsAre("a:0", "b:0", "c:0", "d:1", "e:0", "f:0"));
  EXPECT_THAT(Cases(), ElementsAre(R"([null,1234.5,1,"x",null,12000])", R"([-9.5,-0.5,0,"",7,null])",
                                   R"([3,null,null,"",null,123])"));
}

TEST_F(ImporterTest, ANumberOfAnotherFormIsRefused) {
  constexpr const char* kFields = R"({"name": "q", "type": "number", "decimalChar": ",", "groupChar": "'"})";
  for (const char* cell : {"1.5", "'1", "1'", "1''2", "\"1,5'0\"", "\"1,2,3\"", "\"1',5\"", "'"}) {
    const std::string shown = std::string(cell).find('"') == 0 ? std::string(cell) : "\"" + std::string(cell) + "\"";
    EXPECT_EQ(SentenceOfImport(std::string("q\n") + cell + "\n", kFields),
              "survey.csv, line 2, column q: " + shown + " is not a number.");
  }
  EXPECT_EQ(SentenceOfImport("q\ntrue\n", R"({"name": "q", "type": "boolean", "trueValues": ["ja"]})"),
            "survey.csv, line 2, column q: \"true\" is neither true nor false.");
}

TEST_F(ImporterTest, AColumnThatIsAStringForFewCellsIsNamed) {
  struct Row {
    std::string cells;
    std::size_t count;
    std::size_t inOtherForm;
    std::size_t line;
    std::string text;
  };
  std::string hundred;
  for (int number = 0; number < 100; ++number) {
    hundred += "," + std::to_string(number);
  }
  const std::vector<Row> rows = {{"x,1,2,3", 1, 0, 2, "x"},
                                 {"1,, x ,3,4", 1, 0, 4, "x"},
                                 {"1,x,2", 1, 0, 3, "x"},
                                 {"1,2,3,4,5,6,7,8,9,007,x,y", 3, 1, 11, "007"},
                                 {"98052,01234,10001,00501,33109,60601", 2, 2, 3, "01234"},
                                 {"+5,1,.5,2,3,4,5", 2, 2, 2, "+5"},
                                 {"a,b,c,d,e" + hundred, 5, 0, 2, "a"},
                                 {"01,02,3", 0, 0, 0, ""},
                                 {"x,1", 0, 0, 0, ""},
                                 {"x,y,1,2,3", 0, 0, 0, ""},
                                 {"a,b,c,d,e,f" + hundred, 0, 0, 0, ""},
                                 {"a,b,c", 0, 0, 0, ""},
                                 {"1,2,3", 0, 0, 0, ""}};
  for (const Row& row : rows) {
    std::string data = "q,other\n";
    for (std::size_t begin = 0; begin <= row.cells.size();) {
      const std::size_t end = std::min(row.cells.find(',', begin), row.cells.size());
      data += row.cells.substr(begin, end - begin) + ",text\n";
      begin = end + 1;
    }
    std::filesystem::remove(kDataset);
    Write(kData, data);
    const std::vector<NearlyNumericColumn> named = Import().nearlyNumeric;
    ASSERT_EQ(named.size(), row.count == 0 ? 0U : 1U) << row.cells;
    if (!named.empty()) {
      EXPECT_EQ(named[0].name, "q");
      EXPECT_EQ(named[0].odd.count, row.count) << row.cells;
      EXPECT_EQ(named[0].odd.inOtherForm, row.inOtherForm) << row.cells;
      EXPECT_EQ(named[0].odd.line, row.line) << row.cells;
      EXPECT_EQ(named[0].odd.text, row.text) << row.cells;
    }
  }
  std::filesystem::remove(kDataset);
  Write(kData, "q\nx\n1\n2\n3\n");
  WriteCodebook(R"({"name": "q", "type": "string"})");
  EXPECT_TRUE(Import(kCodebook).nearlyNumeric.empty());
}

TEST_F(ImporterTest, WithoutACodebookTypesAndWidthsComeFromTheData) {
  Write(kData,
        "num,text,mixed,none,code,plus,dec,yes\n1,Tea,1,,007,+1,1.5,true\n,\xC3\xB6l,x,,010,2,-2e3,false\n 3 "
        ",,,,1,3,0,\n");
  const ImportSummary summary = Import();
  EXPECT_EQ(summary.variables, 8U);
  EXPECT_EQ(summary.cases, 3U);
  EXPECT_THAT(Variables(), ElementsAre("num:0", "text:3", "mixed:1", "none:1", "code:3", "plus:2", "dec:0", "yes:5"));
  EXPECT_THAT(Cases(), ElementsAre(R"([1,"Tea","1","","007","+1",1.5,"true"])",
                                   "[null,\"\xC3\xB6l\",\"x\",\"\",\"010\",\"2\",-2e3,\"false\"]",
                                   R"([3,"","","","1","3",0,""])"));
}

TEST_F(ImporterTest, TheCodebookGivesTypesWidthsAndLabels) {
  Write(kData, "A,b,c,d,e,f\n1,007,true,1999,abc,\n,.5,0,,,\n2.0,+3,FALSE,2001,\xC3\xB6\xC3\xB6\xC3\xB6,x\n");
  WriteCodebook(
      R"({"name": "f", "type": "string"}, {"name": "a", "type": "integer", "title": "An A",
          "categories": [{"value": 1, "label": "One"}, 2]}, {"name": "b", "type": "number"},
         {"name": "c", "type": "boolean"}, {"name": "d", "type": "year"},
         {"name": "e", "type": "string", "constraints": {"maxLength": 3}})");
  Import(kCodebook);
  EXPECT_THAT(Variables(), ElementsAre("A:0", "b:0", "c:0", "d:0", "e:3", "f:1"));
  EXPECT_THAT(Cases(), ElementsAre(R"([1,7,1,1999,"abc",""])", R"([null,0.5,0,null,"",""])",
                                   "[2.0,3,0,2001,\"\xC3\xB6\xC3\xB6\xC3\xB6\",\"x\"]"));
  Dataset dataset(kDataset);
  EXPECT_EQ(dataset.VariableAt(0).label, "An A");
  ASSERT_EQ(dataset.VariableAt(0).valueLabels.size(), 2U);
  EXPECT_EQ(dataset.VariableAt(0).valueLabels[0].label, "One");
  EXPECT_EQ(dataset.VariableAt(0).valueLabels[1].value, "2");
}

TEST_F(ImporterTest, AWidthIsTheMaximalLengthAlsoWhereValuesAreShorter) {
  Write(kData, "a\nx\n");
  WriteCodebook(R"({"name": "a", "type": "string", "constraints": {"maxLength": 8}})");
  Import(kCodebook);
  EXPECT_THAT(Variables(), ElementsAre("a:8"));
}

TEST_F(ImporterTest, AColumnThatTheCodebookLeavesOutIsAsTheDataAre) {
  Write(kData, "a,b,c\n1,2,x\n");
  WriteCodebook(R"({"name": "a", "type": "string"})");
  Import(kCodebook);
  EXPECT_THAT(Variables(), ElementsAre("a:1", "b:0", "c:1"));
}

TEST_F(ImporterTest, AHeaderWithoutRowsIsADatasetWithoutCases) {
  Write(kData, "a,b\n");
  EXPECT_EQ(Import().cases, 0U);
  EXPECT_THAT(Variables(), ElementsAre("a:1", "b:1"));
}

TEST_F(ImporterTest, AFileThatChangesBetweenTheTwoReadingsIsRefused) {
  Write(kData, "a,b\n1,2\n");
  ImportRequest request{kData, std::nullopt, kDataset, false};
  request.progress = [](const ImportProgress& now) {
    if (now.isForTypes) {
      Write(kData, "a,c\n1,2\n");
    }
  };
  EXPECT_EQ(SentenceOf([&] { ImportSurvey(request); }), "survey.csv changed while it was read.");
  EXPECT_FALSE(std::filesystem::exists(kDataset));
}

TEST_F(ImporterTest, AFileThatTakesThePlaceOfTheOneThatIsReadIsNotRead) {
  Write(kData, "a,b\n1,2\n");
  ImportRequest request{kData, std::nullopt, kDataset, false};
  request.progress = [](const ImportProgress& now) {
    if (now.isForTypes) {
      Write("other.csv", "c\nx\n");
      std::filesystem::rename("other.csv", kData);
    }
  };
  ImportSurvey(request);
  EXPECT_THAT(Variables(), ElementsAre("a:0", "b:0"));
  EXPECT_THAT(Cases(), ElementsAre("[1,2]"));
}

TEST_F(ImporterTest, APipeIsReadWithAndWithoutACodebook) {
  std::string csv = "a,b\n";
  for (int row = 0; row < 50000; ++row) {
    csv += std::to_string(row) + ",1\n";
  }
  csv += "1,last\n";
  for (const bool withCodebook : {false, true}) {
    ASSERT_EQ(mkfifo(kData, 0600), 0);
    std::thread writer([&csv] { Write(kData, csv); });
    WriteCodebook(R"({"name": "a", "type": "integer"}, {"name": "b", "type": "string"})");
    EXPECT_EQ(Import(withCodebook ? std::optional<std::string>(kCodebook) : std::nullopt).cases, 50001U);
    writer.join();
    EXPECT_THAT(Variables(), ElementsAre("a:0", "b:4"));
    EXPECT_EQ(Cases().at(49999), "[49999,\"1\"]");
    EXPECT_THAT(Files(), UnorderedElementsAre(kData, kCodebook, kDataset));
    std::filesystem::remove(kData);
    std::filesystem::remove(kDataset);
  }
}

// A small file is read whole before its first case is taken.
TEST_F(ImporterTest, TellsHowFarItReadAndForWhat) {
  Write(kData, "a\n1\n2\n");
  ImportRequest request{kData, std::nullopt, kDataset};
  std::vector<std::string> told;
  request.progress = [&told](const ImportProgress& now) {
    told.push_back((now.isForTypes ? "types " : "cases ") + std::to_string(now.bytes) + " of " +
                   std::to_string(now.size.value_or(0)));
  };
  ImportSurvey(request);
  EXPECT_THAT(told, ElementsAre("types 6 of 6", "types 6 of 6", "cases 6 of 6", "cases 6 of 6"));
}

TEST_F(ImporterTest, OfAPipeOnlyTellsWhatItRead) {
  ASSERT_EQ(mkfifo("pipe", 0600), 0);
  std::thread writer([] { Write("pipe", "a\n1\n"); });
  ImportRequest request{"pipe", std::nullopt, kDataset};
  std::vector<bool> areSizesKnown;
  request.progress = [&areSizesKnown](const ImportProgress& now) { areSizesKnown.push_back(now.size.has_value()); };
  ImportSurvey(request);
  writer.join();
  EXPECT_THAT(areSizesKnown, ElementsAre(false, false));
}

TEST_F(ImporterTest, BadInputIsOneSentenceAndLeavesNothing) {
  struct Row {
    std::string_view csv;
    const char* fields;
    const char* sentence;
  };
  const Row rows[] = {
      {"", "", "survey.csv is empty: there is no header row."},
      {"a,b\n1,2\n3\n", "", "survey.csv, line 3: 1 cell where the header has 2."},
      {"a\n\xFF\n", "", "survey.csv, line 2: the text is not valid UTF-8."},
      {"a\n\"1\n", "", "survey.csv, line 2: the quote that opens here is not closed before the end of the file."},
      {"a,b c\n1,2\n", "", "survey.csv, column 2: \"b c\" is not a valid variable name."},
      {"a,\n1,2\n", "", "survey.csv, column 2: \"\" is not a valid variable name."},
      {"$a\n1\n", "", "survey.csv, column 1: \"$a\" is not a valid variable name."},
      {"a,b,A\n1,2,3\n", "", "survey.csv, column 3: duplicate name \"A\" (also column 1)."},
      {"a\n1\n", R"({"name": "b", "type": "string"})", "codebook.json, field \"b\": survey.csv has no such column."},
      {"a\n1\nx\n", R"({"name": "a", "type": "number"})", "survey.csv, line 3, column a: \"x\" is not a number."},
      {"a,b\n1,\"x\n\"\n,nan\n", R"({"name": "b", "type": "number"})",
       "survey.csv, line 2, column b: \"x\\n\" is not a number."},
      {"a\n1.5\n", R"({"name": "a", "type": "integer"})",
       "survey.csv, line 2, column a: \"1.5\" is not a whole number."},
      {"a\nyes\n", R"({"name": "a", "type": "boolean"})",
       "survey.csv, line 2, column a: \"yes\" is neither true nor false."},
      {"a\nx\nabcd\n", R"({"name": "a", "type": "string", "constraints": {"maxLength": 3}})",
       "survey.csv, line 3, column a: the value has 4 characters where the codebook allows 3."},
      {"a\n1\n", "{", "codebook.json, line 1: this is not JSON (byte 14)."}};
  for (const Row& row : rows) {
    EXPECT_EQ(SentenceOfImport(row.csv, row.fields), row.sentence) << ::testing::PrintToString(row.csv);
    EXPECT_THAT(Files(), UnorderedElementsAre(kData, kCodebook));
  }
}

TEST_F(ImporterTest, ALongCellIsShownByItsBeginning) {
  EXPECT_EQ(SentenceOfImport("a\n" + std::string(500, 'x') + "\n", R"({"name": "a", "type": "number"})"),
            "survey.csv, line 2, column a: \"" + std::string(60, 'x') + "...\" is not a number.");
}

TEST_F(ImporterTest, FilesThatCannotBeReadAreOneSentence) {
  EXPECT_EQ(SentenceOf([] { Import(); }), SentenceOf([] { InputFile file(kData); }));
  Write(kData, "a\n1\n");
  EXPECT_EQ(SentenceOf([] { Import(kCodebook); }), SentenceOf([] { InputFile file(kCodebook); }));
  EXPECT_EQ(SentenceOf([] {
              ImportSurvey({".", std::nullopt, kDataset, false});
            }),
            SentenceOf([] { InputFile file("."); }));
  EXPECT_THAT(Files(), ElementsAre(kData));
}

TEST_F(ImporterTest, ADatasetThatExistsIsReplacedOnlyWhenAsked) {
  Write(kData, "a,b\n1,2\n");
  Import();
  const std::string before = Read(kDataset);
  Write(kData, "b,c\n3,x\n4,y\n");
  EXPECT_EQ(SentenceOf([] { Import(); }),
            "survey.mrs already exists; --replace replaces its variables and cases and keeps its sets.");
  EXPECT_EQ(Read(kDataset), before);
  Import(std::nullopt, true);
  EXPECT_THAT(Variables(), ElementsAre("b:0", "c:1"));
  EXPECT_THAT(Cases(), ElementsAre("[3,\"x\"]", "[4,\"y\"]"));
}

TEST_F(ImporterTest, AReplacementThatFailsLeavesTheDatasetAsItWas) {
  Write(kData, "a,b\n1,2\n");
  Import();
  const std::string before = Read(kDataset);
  Write(kData, "a,b\n1,2\n3\n");
  EXPECT_EQ(SentenceOf([] { Import(std::nullopt, true); }), "survey.csv, line 3: 1 cell where the header has 2.");
  EXPECT_EQ(Read(kDataset), before);
  EXPECT_THAT(Files(), UnorderedElementsAre(kData, kDataset));
}

/// The two public surveys, in the survey folder that the environment or the build names.
class SurveyTest : public ImporterTest {
 protected:
  void SetUp() override {
    const char* folder = std::getenv("MRSET_SURVEYS");
    fFolder = folder == nullptr ? std::string(MRSET_SURVEYS_DEFAULT) : std::string(folder);
    if (!std::filesystem::exists(fFolder + "/thanksgiving.csv")) {
      GTEST_SKIP() << "the survey folder is not here; set MRSET_SURVEYS to it";
    }
  }

  ImportSummary ImportFrom(const std::string& survey, bool withCodebook) {
    const auto codebook =
        withCodebook ? std::optional<std::string>(fFolder + "/" + survey + ".schema.json") : std::nullopt;
    return ImportSurvey({fFolder + "/" + survey + ".csv", codebook, survey, false});
  }

  std::string fFolder;
};

TEST_F(SurveyTest, AreImportedWithTheirCodebooks) {
  const ImportSummary thanksgiving = ImportFrom("thanksgiving", true);
  EXPECT_EQ(thanksgiving.variables, 102U);
  EXPECT_EQ(thanksgiving.cases, 1058U);
  Dataset dataset("thanksgiving");
  const int side = dataset.FindVariable("SIDE1");
  ASSERT_GE(side, 0);
  EXPECT_EQ(dataset.VariableAt(side).width, 0);
  EXPECT_EQ(dataset.VariableAt(side).valueLabels.at(0).label, "Not selected");
  EXPECT_GT(dataset.VariableAt(dataset.FindVariable("pie_t1")).width, 0);
  const ImportSummary starWars = ImportFrom("star_wars", true);
  EXPECT_EQ(starWars.variables, 44U);
  EXPECT_EQ(starWars.cases, 1186U);
}

TEST_F(SurveyTest, AreImportedWithoutTheirCodebooks) {
  EXPECT_EQ(ImportFrom("thanksgiving", false).cases, 1058U);
  Dataset dataset("thanksgiving");
  EXPECT_EQ(dataset.VariableAt(dataset.FindVariable("side1")).width, 0);
  EXPECT_EQ(ImportFrom("star_wars", false).cases, 1186U);
}

}  // namespace
}  // namespace standalone
