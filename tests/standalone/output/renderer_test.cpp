#include "standalone/output/renderer.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/standalone/output/results.h"

namespace standalone {
namespace {

Table OneSet() {
  Table table;
  table.title = "Multiple Response Sets";
  table.rowDimension = "Name";
  table.columns = {"Label"};
  table.rows = {{"$likes", {{"Likes", {}}}}};
  return table;
}

const std::string kOneSet =
    "Multiple Response Sets\n"
    "\n"
    "Name    Label\n"
    "------  -----\n"
    "$likes  Likes\n";

std::string Text(const std::vector<CommandResult>& results) {
  std::ostringstream stream;
  const std::unique_ptr<Renderer> renderer = MakeTextRenderer(stream, {});
  std::size_t number = 0;
  for (CommandResult result : results) {
    result.number = ++number;
    renderer->Write(result);
  }
  return stream.str();
}

TEST(TextRenderer, ShowsOnlyTheCommandWhenThereIsNothingToSay) {
  EXPECT_EQ(Text({Result("MRSET /DELETE NAME=ALL", {})}), "1> MRSET /DELETE NAME=ALL\n");
}

TEST(TextRenderer, ShowsTheLinesOfACommandWithoutTheBlanksAroundThem) {
  struct Row {
    std::string text;
    std::string shown;
  };
  const std::vector<Row> rows = {
      {"MRSET\n  /DELETE \r\n\t/DISPLAY NAME=ALL", "1> MRSET\n   /DELETE\n   /DISPLAY NAME=ALL\n"},
      {"MRSET\t/DISPLAY", "1> MRSET /DISPLAY\n"},
      {"MRSET \x1b[31m\u202E\a", "1> MRSET \\x1b[31m\\u202e\\x07\n"},
      {"MRSET \xFF", "1> MRSET \uFFFD\n"},
      {"", ""},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Text({Result(row.text, {})}), row.shown) << row.text;
  }
}

TEST(TextRenderer, ShowsMessagesWithTheirLevelOnOneLine) {
  const std::string longText(200, 'x');
  EXPECT_EQ(Text({Result("A",
                         {Message{Level::kWarning, "w"}, Message{Level::kError, longText},
                          Message{Level::kError, "\x1b[0m\u2067\nsecond"}, Message{Level::kFatal, "report\n"}},
                         Status::kError)}),
            "1> A\n"
            "Warning: w\n"
            "Error: " +
                longText +
                "\n"
                "Error: \\x1b[0m\\u2067\\nsecond\n"
                "Fatal: report\n");
}

TEST(TextRenderer, ShowsPlacesAndHintsUnderTheirMessage) {
  CommandResult result = Result("MRSET\n  /DISPLY \n", {}, Status::kError);
  result.source = "a.script";
  result.before = "\t";
  result.after = ".";
  Message message{Level::kError, "e"};
  message.place = Place{2, 4, 6, 9, 6};
  message.hint = "did you mean\n?";
  Message warning{Level::kWarning, "w"};
  warning.place = Place{1, 2, 5, 0, 5};
  result.items = {message, warning, OneSet()};
  result.hints = {"first", "second\x1b"};
  EXPECT_EQ(Text({result}),
            "1> MRSET\n"
            "   /DISPLY\n"
            "Error: e\n"
            "  a.script, line 2, column 4:\n"
            "      /DISPLY \n"
            "       ^^^^^^\n"
            "hint: did you mean\\n?\n"
            "Warning: w\n"
            "  a.script, line 1, column 2:\n"
            "            MRSET\n"
            "            ^^^^^\n"
            "\n" +
                kOneSet +
                "\n"
                "hint: first\n"
                "hint: second\\x1b\n");
}

TEST(TextRenderer, ShowsThePlaceOfAMessageThatIsRepeatedOnce) {
  Message first{Level::kWarning, "w"};
  first.place = Place{1, 1, 1, 0, 1};
  Message elsewhere = first;
  elsewhere.place = Place{1, 3, 1, 2, 1};
  Message other = elsewhere;
  other.text = "x";
  Message hinted = other;
  hinted.hint = "h";
  const std::string atA = "  line 1, column 1:\n    A B\n    ^\n";
  const std::string atB = "  line 1, column 3:\n    A B\n      ^\n";
  const std::string w = "Warning: w\n";
  const std::string x = "Warning: x\n";
  EXPECT_EQ(Text({Result("A B", {first, first, elsewhere, elsewhere, first, other, hinted, hinted, OneSet(), hinted}),
                  Result("A B", {hinted})}),
            "1> A B\n" + w + atA + w + w + atB + w + w + atA + x + atB + x + atB + "hint: h\n" + x + "\n" + kOneSet +
                "\n" + x + atB + "hint: h\n\n2> A B\n" + x + atB + "hint: h\n");
}

TEST(TextRenderer, SetsTablesApart) {
  EXPECT_EQ(Text({Result("A", {Message{Level::kWarning, "w"}, OneSet(), OneSet(), Message{Level::kWarning, "v"},
                               Message{Level::kWarning, "u"}})}),
            "1> A\nWarning: w\n\n" + kOneSet + "\n" + kOneSet + "\nWarning: v\nWarning: u\n");
}

TEST(TextRenderer, SaysThatAnAbortedCommandChangedNothing) {
  const std::string aborted = "The command was aborted; the dataset is as it was before it.\n";
  EXPECT_EQ(Text({Result("A", {Message{Level::kFatal, "report"}}, Status::kAborted)}),
            "1> A\nFatal: report\n" + aborted);
  EXPECT_EQ(Text({Result("A", {OneSet()}, Status::kAborted)}), "1> A\n\n" + kOneSet + "\n" + aborted);
}

TEST(TextRenderer, SetsCommandsApart) {
  EXPECT_EQ(
      Text({Result("A", {}), Result("B", {OneSet()}), Result("C", {Message{Level::kError, "e"}}), Result("D", {})}),
      "1> A\n\n2> B\n\n" + kOneSet + "\n3> C\nError: e\n\n4> D\n");
}

TEST(TextRenderer, SaysWhetherAnAbortedCommandCanHaveBeenSaved) {
  CommandResult result = Result("A", {Message{Level::kFatal, "f"}}, Status::kAborted);
  EXPECT_EQ(Text({result}), "1> A\nFatal: f\nThe command was aborted; the dataset is as it was before it.\n");
  result.isSaveOpen = true;
  EXPECT_EQ(Text({result}),
            "1> A\nFatal: f\nThe command was aborted while it was being saved; \"mrset log\" shows whether it changed "
            "the dataset.\n");
}

TEST(TextRenderer, KeepsTablesWithinTheWidth) {
  std::ostringstream stream;
  Table table = OneSet();
  table.rows[0].cells[0].value = "What you like";
  MakeTextRenderer(stream, {16})->Write(Result("A", {table}));
  EXPECT_EQ(stream.str(),
            "1> A\n"
            "\n"
            "Multiple\n"
            "Response Sets\n"
            "\n"
            "Name    Label\n"
            "------  --------\n"
            "$likes  What you\n"
            "        like\n");
}

TEST(TextRenderer, ColoursHeadingsLevelsCaretsAndHints) {
  std::ostringstream stream;
  CommandResult result = Result("MRSET\n/FOO", {Message{Level::kWarning, "w"}, OneSet()}, Status::kAborted);
  result.items.emplace_back(Message{Level::kError, "e", Place{2, 2, 3, 7, 3}, "h"});
  result.items.emplace_back(Message{Level::kFatal, "f"});
  MakeTextRenderer(stream, {80, Colour::kAnsi})->Write(result);
  EXPECT_EQ(stream.str(),
            "\x1b[1m1> MRSET\x1b[0m\n"
            "\x1b[1m   /FOO\x1b[0m\n"
            "\x1b[1;35mWarning:\x1b[0m w\n"
            "\n"
            "\x1b[1mMultiple Response Sets\x1b[0m\n" +
                kOneSet.substr(kOneSet.find('\n') + 1) +
                "\n"
                "\x1b[1;31mError:\x1b[0m e\n"
                "  line 2, column 2:\n"
                "    /FOO\n"
                "     \x1b[1;31m^^^\x1b[0m\n"
                "\x1b[36mhint:\x1b[0m h\n"
                "\x1b[1;31mFatal:\x1b[0m f\n"
                "The command was aborted; the dataset is as it was before it.\n");
}

TEST(TextRenderer, AnEmptyTitleHasNoColour) {
  std::ostringstream stream;
  Table table = OneSet();
  table.title.clear();
  MakeTextTableWriter(stream, {80, Colour::kAnsi})->Write(table);
  EXPECT_EQ(stream.str(), kOneSet.substr(kOneSet.find('\n')));
}

TEST(JsonRenderer, WritesOneObjectALine) {
  std::ostringstream stream;
  const std::unique_ptr<Renderer> renderer = MakeJsonRenderer(stream, {});
  CommandResult second = Result("B\nC", {Message{Level::kError, "\xFF"}}, Status::kError);
  second.number = 2;
  second.line = 7;
  second.procedure = "Multiple Response Set";
  renderer->Write(Result("A", {}));
  renderer->Write(second);
  EXPECT_EQ(stream.str(),
            "{\"command\":1,\"line\":1,\"text\":\"A\",\"procedure\":null,\"status\":\"ok\",\"items\":[]}\n"
            "{\"command\":2,\"line\":7,\"text\":\"B\\nC\",\"procedure\":\"Multiple Response Set\",\"status\":\"error\","
            "\"items\":[{\"kind\":\"message\",\"level\":\"error\",\"text\":\"\uFFFD\"}]}\n");
}

}  // namespace
}  // namespace standalone
