#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "standalone/output/csv/csv_text.h"
#include "standalone/output/message_text.h"
#include "standalone/output/renderer.h"
#include "tests/standalone/output/results.h"

namespace standalone {
namespace {

TEST(CsvCell, QuotesOnlyWhatNeedsQuotes) {
  EXPECT_EQ(CsvCell(""), "");
  EXPECT_EQ(CsvCell("a b;c'd"), "a b;c'd");
  EXPECT_EQ(CsvCell("a,b"), "\"a,b\"");
  EXPECT_EQ(CsvCell("a\"b\""), "\"a\"\"b\"\"\"");
  EXPECT_EQ(CsvCell("a\nb"), "\"a\nb\"");
  EXPECT_EQ(CsvCell("a\rb"), "\"a\rb\"");
}

TEST(CsvCell, IsNoFormula) {
  struct Row {
    std::string text;
    std::string shown;
  };
  const std::vector<Row> rows = {
      {"=1+1", "'=1+1"},       {"+SUM(A1)", "'+SUM(A1)"},
      {"-A1", "'-A1"},         {"@x", "'@x"},
      {"\t=1", "'\t=1"},       {"\r=1", "'\r=1"},
      {"\n=1", "'\n=1"},       {"\uFF1D1", "'\uFF1D1"},
      {"\uFF0B1", "'\uFF0B1"}, {"\uFF0D1", "'\uFF0D1"},
      {"\uFF20x", "'\uFF20x"}, {"'=1", "''=1"},
      {"''@", "'''@"},         {"-1", "-1"},
      {"+1.5e3", "+1.5e3"},    {"-", "'-"},
      {"-1-1", "'-1-1"},       {"a=1", "a=1"},
      {"'tis", "'tis"},        {"'", "'"},
      {" =1", " =1"},          {"", ""},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(HarmlessInSpreadsheets(row.text), row.shown) << row.text;
  }
}

TEST(WriteCsvRecord, EndsWithCrLf) {
  std::ostringstream stream;
  WriteCsvRecord(stream, {"a", "", "b,c"});
  WriteCsvRecord(stream, {"d"});
  EXPECT_EQ(stream.str(), "a,,\"b,c\"\r\nd\r\n");
}

/// What results become, and what is said beside them.
struct Written {
  std::string table;
  std::string messages;
};

Written Csv(const std::vector<CommandResult>& results, bool isTerminal = false) {
  std::ostringstream stream;
  std::ostringstream messages;
  OutputLook look;
  look.isTerminal = isTerminal;
  look.messages = &messages;
  const std::unique_ptr<Renderer> renderer = MakeCsvRenderer(stream, look);
  for (std::size_t i = 0; i < results.size(); ++i) {
    CommandResult result = results[i];
    result.number = i + 1;
    renderer->Write(result);
  }
  renderer->Finish();
  return {stream.str(), messages.str()};
}

TEST(CsvRenderer, WritesTheRowsOfAllTablesUnderOneHeader) {
  const Written written = Csv({Result("A", {TwoSets(), TwoSets()}), Result("B", {}), Result("C", {TwoSets()})});
  const auto rows = [](const std::string& place) {
    return place +
           ",Multiple Response Sets,$likes,Likes,1,\"Tea\nCoffee\",\"Label: first\nCounted Value: second\"\r\n" +
           place + ",Multiple Response Sets,$other,,N/A,,Label: second\r\n";
  };
  EXPECT_EQ(written.table, "Command,Table,Title,Name,Label,Counted Value,Elementary Variables,Notes\r\n" + rows("1,1") +
                               rows("1,2") + rows("3,1"));
  EXPECT_EQ(written.messages, "");
}

TEST(CsvRenderer, GivesTablesWithOtherColumnsAHeaderOfTheirOwn) {
  Table narrow = TwoSets();
  narrow.columns.resize(1);
  narrow.rows = {{"$a", {{"A", {}}}}};
  Table wide = TwoSets();
  wide.rows.clear();
  EXPECT_EQ(Csv({Result("A", {narrow}), Result("B", {wide, narrow})}).table,
            "Command,Table,Title,Name,Label,Notes\r\n"
            "1,1,Multiple Response Sets,$a,A,\r\n"
            "Command,Table,Title,Name,Label,Counted Value,Elementary Variables,Notes\r\n"
            "Command,Table,Title,Name,Label,Notes\r\n"
            "2,2,Multiple Response Sets,$a,A,\r\n");
}

TEST(CsvRenderer, TellsMessagesAndHintsBeside) {
  CommandResult first = Result("MRSET /FOO", {Message{Level::kWarning, "w\x1b\nv"}}, Status::kError);
  first.line = 7;
  first.items.emplace_back(Message{Level::kError, "e", Place{7, 8, 3, 7, 3}, "try BAR"});
  first.hints = {"and this"};
  CommandResult second = Result("B", {Message{Level::kFatal, "report\n"}}, Status::kAborted);
  second.source = "a.script";
  const Written written = Csv({first, second});
  EXPECT_EQ(written.table, "");
  EXPECT_EQ(written.messages,
            "line 7: Warning: w\\x1b\\nv\n"
            "line 7, column 8: Error: e\n"
            "hint: try BAR\n"
            "hint: and this\n"
            "a.script, line 1: Fatal: report\n"
            "a.script, line 1: " +
                std::string(AbortedSentence(second)) + "\n");
}

TEST(CsvRenderer, KeepsCharactersForProgramsAndShowsThemOnTerminals) {
  Table table = TwoSets();
  table.columns = {"Label"};
  table.rows = {{"=a", {{std::string("x\ny\x1b\xFF\u202E"), {}}}}};
  const auto row = [&](bool isTerminal) {
    const std::string text = Csv({Result("A", {table})}, isTerminal).table;
    return text.substr(text.find("1,1"));
  };
  EXPECT_EQ(row(false), "1,1,Multiple Response Sets,'=a,\"x\ny\x1b\uFFFD\u202E\",\r\n");
  EXPECT_EQ(row(true), "1,1,Multiple Response Sets,'=a,x\\ny\\x1b\uFFFD\\u202e,\r\n");
}

TEST(CsvRenderer, KeepsAnEntryOfAListOnItsLine) {
  Table table = TwoSets();
  table.rows = {{"$a", {{}, {}, {std::vector<std::string>{"one\r\ntwo", "three"}, {"n\no"}}}}};
  const std::string text = Csv({Result("A", {table})}).table;
  EXPECT_EQ(text.substr(text.find("1,1")),
            "1,1,Multiple Response Sets,$a,,,\"one  two\nthree\",Elementary Variables: n o\r\n");
}

TEST(CsvTableWriter, WritesAPlainTableWithoutPlaceAndNotes) {
  std::ostringstream stream;
  MakeCsvTableWriter(stream, {})->Write(TwoSets());
  EXPECT_EQ(stream.str(),
            "Name,Label,Counted Value,Elementary Variables\r\n"
            "$likes,Likes,1,\"Tea\nCoffee\"\r\n"
            "$other,,N/A,\r\n");
}

}  // namespace
}  // namespace standalone
