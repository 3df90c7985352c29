#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "standalone/output/markdown/markdown_text.h"
#include "standalone/output/message_text.h"
#include "standalone/output/renderer.h"
#include "tests/standalone/output/results.h"

namespace standalone {
namespace {

TEST(MarkdownText, HoldsNoMarkup) {
  struct Row {
    std::string text;
    std::string markdown;
  };
  const std::vector<Row> rows = {
      {"", ""},
      {"Tea, coffee (black); 50 % - \"it's\" a/b?", "Tea, coffee (black); 50 % - \"it's\" a/b?"},
      {kHostileText, "\\<b\\>\\&\"'\\`\\*\\_\\[x\\](y)\\|\\~\\$\\#\\\\ \\\\x1b\\[31m\\\\u202e,\\=1"},
      {"!{^}@", "\\!\\{\\^\\}\\@"},
      {"http://x a:b ://", "http\\://x a:b \\://"},
      {"www.x wWw.y ww.z w.w.w.", "www\\.x wWw\\.y ww.z w.w.w."},
      {"a\nb\xFF", "a\\\\nb\uFFFD"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(MarkdownText(row.text), row.markdown) << row.text;
  }
}

TEST(MarkdownLines, KeepsLinesApart) {
  EXPECT_EQ(MarkdownLines({}), "");
  EXPECT_EQ(MarkdownLines({"a|b\nc", "d"}), "a\\|b<br>c<br>d");
  EXPECT_EQ(MarkdownLines({"\na\n", "", "b"}), "<br>a<br><br><br>b");
}

TEST(MarkdownCode, CannotBeLeft) {
  EXPECT_EQ(MarkdownCode("a\n``b\x1b"), "```\na\n``b\\x1b\n```\n");
  EXPECT_EQ(MarkdownCode("```\nx````"), "`````\n```\nx````\n`````\n");
}

std::string Markdown(const std::vector<CommandResult>& results) {
  std::ostringstream stream;
  const std::unique_ptr<Renderer> renderer = MakeMarkdownRenderer(stream, {});
  for (std::size_t i = 0; i < results.size(); ++i) {
    CommandResult result = results[i];
    result.number = i + 1;
    renderer->Write(result);
  }
  renderer->Finish();
  return stream.str();
}

TEST(MarkdownRenderer, WritesCommandsMessagesAndTables) {
  CommandResult first = Result("MRSET\n  /FOO", {Message{Level::kWarning, "w_w"}, TwoSets()}, Status::kError);
  first.items.emplace_back(Message{Level::kError, "e", Place{2, 4, 3, 9, 3}, "try *BAR*"});
  first.hints = {"and this"};
  first.source = "a_b.script";
  const CommandResult second = Result("B", {Message{Level::kFatal, "report\n"}}, Status::kAborted);
  EXPECT_EQ(Markdown({first, second}),
            "## Command 1\n"
            "\n"
            "```\n"
            "MRSET\n"
            "  /FOO\n"
            "```\n"
            "\n"
            "**Warning:** w\\_w\n"
            "\n"
            "**Multiple Response Sets**\n"
            "\n"
            "| Name | Label | Counted Value | Elementary Variables |\n"
            "| --- | --- | --- | --- |\n"
            "| \\$likes | Likes \\[a\\] | 1 \\[b\\] | Tea<br>Coffee |\n"
            "| \\$other | \\[b\\] | N/A |  |\n"
            "\n"
            "\\[a\\] first\n"
            "\n"
            "\\[b\\] second\n"
            "\n"
            "**Error:** e\n"
            "\n"
            "a\\_b.script, line 2, column 4:\n"
            "\n"
            "```\n"
            "  /FOO\n"
            "   ^^^\n"
            "```\n"
            "\n"
            "*hint:* try \\*BAR\\*\n"
            "\n"
            "*hint:* and this\n"
            "\n"
            "## Command 2\n"
            "\n"
            "```\n"
            "B\n"
            "```\n"
            "\n"
            "**Fatal:** report\n"
            "\n" +
                std::string(AbortedSentence(second)) + "\n");
}

TEST(MarkdownRenderer, ShowsThePlaceOfARepeatedMessageOnce) {
  const std::string place = "\nline 1, column 1:\n\n```\nMRSET /FOO\n^^^^^\n```\n\n*hint:* h\n\n";
  const std::string command =
      "```\nMRSET /FOO\n```\n\n"
      "**Error:** e\n" +
      place +
      "**Error:** e\n\n"
      "**T**\n\n|  | C |\n| --- | --- |\n\n(none)\n\n"
      "**Error:** e\n" +
      place + "**Error:** e\n\nline 1, column 7:\n\n```\nMRSET /FOO\n      ^^^^\n```\n\n*hint:* h\n";
  EXPECT_EQ(Markdown({RepeatedMessages(), RepeatedMessages()}),
            "## Command 1\n\n" + command + "\n## Command 2\n\n" + command);
}

TEST(MarkdownTableWriter, CountsTheNotesOfEachTableAnewAndTellsOfNoRows) {
  std::ostringstream stream;
  const std::unique_ptr<TableWriter> writer = MakeMarkdownTableWriter(stream, {});
  Table table = TwoSets();
  table.columns = {"L|M"};
  table.rows = {{"$a\nb", {{"A", {"x<y"}}}}};
  writer->Write(table);
  table.rows[0].cells[0].note = "z";
  writer->Write(table);
  table.rows.clear();
  writer->Write(table);
  const std::string head = "**Multiple Response Sets**\n\n| Name | L\\|M |\n| --- | --- |\n";
  EXPECT_EQ(stream.str(), head + "| \\$a<br>b | A \\[a\\] |\n\n\\[a\\] x\\<y\n" + head +
                              "| \\$a<br>b | A \\[a\\] |\n\n\\[a\\] z\n" + head + "\n(none)\n");
}

}  // namespace
}  // namespace standalone
