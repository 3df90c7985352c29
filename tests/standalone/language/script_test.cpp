#include "standalone/language/script.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

namespace standalone {

bool operator==(const ScriptCommand& first, const ScriptCommand& second) {
  return first.line == second.line && first.text == second.text;
}

void PrintTo(const ScriptCommand& command, std::ostream* stream) {
  *stream << command.line << ": " << testing::PrintToString(command.text);
}

namespace {

struct Row {
  std::string script;
  std::vector<ScriptCommand> commands;
};

void ExpectCommands(const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    EXPECT_EQ(SplitScript(row.script), row.commands) << testing::PrintToString(row.script);
  }
}

TEST(Script, ACommandEndsAtAPeriodThatIsTheLastThingOnItsLine) {
  ExpectCommands({
      {"A.\nB.", {{"A", 1}, {"B", 2}}},
      {"A. \t\nB.", {{"A", 1}, {"B", 2}}},
      {"A .\nB", {{"A", 1}, {"B", 2}}},
      {"A\n.\nB", {{"A", 1}, {"B", 3}}},
      {"A.B\nC.", {{"A.B\nC", 1}}},
      {"A. B.", {{"A. B", 1}}},
      {"A..\nB", {{"A.", 1}, {"B", 2}}},
      {"A VALUE=1.\nB", {{"A VALUE=1", 1}, {"B", 2}}},
      {"A VALUE=.5\nB.", {{"A VALUE=.5\nB", 1}}},
      {"A\n  /B\n  /C.\nD.", {{"A\n  /B\n  /C", 1}, {"D", 4}}},
  });
}

TEST(Script, ACommandEndsAtABlankLine) {
  ExpectCommands({
      {"A\n\nB", {{"A", 1}, {"B", 3}}},
      {"A\n \t\f\v\nB", {{"A", 1}, {"B", 3}}},
      {"A\r\n\r\nB", {{"A", 1}, {"B", 3}}},
      {"A\nB\n\n\n\nC\n", {{"A\nB", 1}, {"C", 6}}},
      {"A\n\n.\nB", {{"A", 1}, {"B", 4}}},
  });
}

TEST(Script, ACommandEndsAtTheEndOfTheScript) {
  ExpectCommands({
      {"A", {{"A", 1}}},
      {"A\n", {{"A", 1}}},
      {"\n\n  A B  \n", {{"A B", 3}}},
  });
}

TEST(Script, EmptyCommandsAreNotReturned) {
  ExpectCommands({
      {"", {}},
      {"\n", {}},
      {" \r\n\t\n", {}},
      {".", {}},
      {" . \n.\n\n.", {}},
      {"/* nothing */ .\n", {}},
      {"A.\n.\nB.", {{"A", 1}, {"B", 3}}},
  });
}

TEST(Script, LineEndsOfBothKindsAreKeptWithinACommand) {
  ExpectCommands({
      {"A\r\n/B.\r\nC.\r\n", {{"A\r\n/B", 1}, {"C", 3}}},
      {"A\n/B\n", {{"A\n/B", 1}}},
  });
}

TEST(Script, CommentsCountAsBlanks) {
  ExpectCommands({
      {"A. /* after */\nB", {{"A", 1}, {"B", 2}}},
      {"A. /* after\nB", {{"A", 1}, {"B", 2}}},
      {"A. /* one */ /* two\r\nB", {{"A", 1}, {"B", 2}}},
      {"A /* within. */ B.\nC", {{"A /* within. */ B", 1}, {"C", 2}}},
      {"A /* no end.\nB.\nC", {{"A /* no end.\nB", 1}, {"C", 3}}},
      {"A /* behind */ .\nB", {{"A", 1}, {"B", 2}}},
      {"/* first */ A.", {{"A", 1}}},
      {"/* first\n\n/* second */\nA.", {{"A", 4}}},
      {"A\n/* the last */\n", {{"A", 1}}},
      {"/*/ A.\nB.", {{"B", 2}}},  // the opening is no ending
      {"/**/A.", {{"A", 1}}},
      {"A /*", {{"A", 1}}},
      {"A /* x *", {{"A", 1}}},
      {"A /* 'x */.\nB.", {{"A", 1}, {"B", 2}}},  // no string within a comment
  });
}

TEST(Script, ALineOfCommentsIsNoBlankLine) {
  ExpectCommands({
      {"A\n/* still A */\nB.", {{"A\n/* still A */\nB", 1}}},
      {"A\n  /*\nB.", {{"A\n  /*\nB", 1}}},
  });
}

TEST(Script, ACommandThatBeginsWithAnAsteriskIsAComment) {
  ExpectCommands({
      {"* A.\nB.", {{"B", 2}}},
      {"*\nA\nB.\nC.", {{"C", 4}}},
      {"* A\n\nB", {{"B", 3}}},
      {"* A", {}},
      {"  * don't do it.\nB.", {{"B", 2}}},
      {"/* x */ * A.\nB.", {{"B", 2}}},
      {"A\n* B.\nC", {{"A\n* B", 1}, {"C", 3}}},
      {"A *.\nB", {{"A *", 1}, {"B", 2}}},
  });
}

TEST(Script, ClosedStringsHideCommentsAndPeriods) {
  ExpectCommands({
      {"A '/* no comment.'\nB.", {{"A '/* no comment.'\nB", 1}}},
      {"A \"it's /* x\".\nB", {{"A \"it's /* x\"", 1}, {"B", 2}}},
      {"A 'it''s /* x'.\nB", {{"A 'it''s /* x'", 1}, {"B", 2}}},
      {"A 'x'/* y */.\nB", {{"A 'x'", 1}, {"B", 2}}},
      {"A 'x.'\n.\nB", {{"A 'x.'", 1}, {"B", 3}}},
  });
}

TEST(Script, AStringThatIsNotClosedEndsWithItsLine) {
  ExpectCommands({
      {"A 'x.\nB.", {{"A 'x", 1}, {"B", 2}}},
      {"A 'x\n'B.\nC", {{"A 'x\n'B", 1}, {"C", 3}}},
      {"A 'x\n\nB", {{"A 'x", 1}, {"B", 3}}},
  });
}

TEST(Script, AByteOrderMarkAtTheBeginningIsSkipped) {
  ExpectCommands({
      {"\uFEFFA.", {{"A", 1}}},
      {"\uFEFF* A.\nB.", {{"B", 2}}},
      {"\uFEFF", {}},
      {"A.\n\uFEFFB.", {{"A", 1}, {"\uFEFFB", 2}}},
  });
}

TEST(Script, TextThatIsNoUtf8PassesUnchanged) {
  ExpectCommands({
      {"A \xFF\x80.\nB", {{"A \xFF\x80", 1}, {"B", 2}}},
      {std::string("A \0.\nB", 6), {{std::string("A \0", 3), 1}, {"B", 2}}},
  });
}

std::string Repeated(const std::string& text, std::size_t times) {
  std::string all;
  for (std::size_t i = 0; i < times; ++i) {
    all += text;
  }
  return all;
}

// These end in time only when the work grows with the script and not with its square.
TEST(Script, LongScriptsTakeTimeInProportion) {
  constexpr std::size_t kTimes = 1'000'000;
  EXPECT_EQ(SplitScript(Repeated("A B.\n", kTimes)).size(), kTimes);
  EXPECT_EQ(SplitScript(Repeated("A\n\n", kTimes)).back(), (ScriptCommand{"A", static_cast<int>(2 * kTimes - 1)}));
  for (const std::string part : {"q1 q2 q3 ", "/**/ x", "/* x", "''", "' /* ", "/*x*/./*", "* x\n", "a.\t"}) {
    const std::string line = "A " + Repeated(part, kTimes);
    EXPECT_EQ(SplitScript(line + "z\n\nB").back().text, "B") << part;
  }
}

TEST(Script, ACommandKnowsWhatStandsAroundItOnItsLines) {
  struct AroundRow {
    std::string script;
    std::string before;
    std::string after;
  };
  const std::vector<AroundRow> rows = {
      {"A", "", ""},
      {"\xEF\xBB\xBF A.", " ", "."},
      {"\n\tA.\n", "\t", "."},
      {"/* x */ A . /* y */ \r\n", "/* x */ ", " . /* y */ "},
      {"/* x\n A\n.\n", " ", ""},
      {"  A\n  B \r\n\nC.", "  ", " "},
      {" A /* x */\n  B/* y\n", " ", "/* y"},
  };
  for (const AroundRow& row : rows) {
    const ScriptCommand command = SplitScript(row.script, "a.script").at(0);
    EXPECT_EQ(command.before, row.before) << testing::PrintToString(row.script);
    EXPECT_EQ(command.after, row.after) << testing::PrintToString(row.script);
    EXPECT_EQ(command.source, "a.script");
  }
}

/// Each line with the text of the command that it completes, "..." while one is open, "-" while none is.
std::string Collected(CommandCollector& collector, const std::vector<std::string>& lines) {
  std::string steps;
  for (const std::string& line : lines) {
    const std::optional<ScriptCommand> command = collector.AddLine(line);
    steps += command ? "[" + std::to_string(command->line) + " " + command->text + "]" : "";
    steps += collector.IsOpen() ? "..." : "-";
  }
  return steps;
}

TEST(CommandCollector, ReturnsACommandWithTheLineThatCompletesIt) {
  struct Steps {
    std::vector<std::string> lines;
    std::string steps;
  };
  const std::vector<Steps> rows = {
      {{"A."}, "[1 A]-"},
      {{"A", "B."}, "...[1 A\nB]-"},
      {{"A", "", "B"}, "...[1 A]-..."},
      {{"", " ", "."}, "---"},
      {{"", "A. ", "B."}, "-[2 A]-[3 B]-"},
      {{"* A", "B.", "C."}, "...-[3 C]-"},
      {{"/* A", "B", "/* C */", "."}, "-......[2 B]-"},
      {{"A 'b.", "c."}, "[1 A 'b]-[2 c]-"},
      {{"A\r", "\r"}, "...[1 A]-"},
      {{"\xEF\xBB\xBF"
        "A."},
       "[1 A]-"},
  };
  for (const Steps& row : rows) {
    CommandCollector collector;
    EXPECT_EQ(Collected(collector, row.lines), row.steps) << testing::PrintToString(row.lines);
  }
}

TEST(CommandCollector, KnowsTheTextOfTheOpenCommand) {
  CommandCollector collector;
  EXPECT_EQ(collector.OpenText(), "");
  collector.AddLine("  /* one */ A");
  EXPECT_EQ(collector.OpenText(), "A");
  collector.AddLine(" B /* two");
  EXPECT_EQ(collector.OpenText(), "A\n B /* two");
  collector.Abandon();
  EXPECT_EQ(collector.OpenText(), "");
  EXPECT_FALSE(collector.End());
  EXPECT_EQ(Collected(collector, {"C."}), "[3 C]-");
}

TEST(CommandCollector, EndsTheOpenCommandWithTheScript) {
  CommandCollector collector;
  collector.AddLine("A");
  const std::optional<ScriptCommand> command = collector.End();
  ASSERT_TRUE(command);
  EXPECT_EQ(command->text, "A");
  EXPECT_FALSE(collector.End());
}

}  // namespace
}  // namespace standalone
