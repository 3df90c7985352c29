#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "standalone/output/html/html_command.h"
#include "standalone/output/html/html_style.h"
#include "standalone/output/html/html_table.h"
#include "standalone/output/html/html_text.h"
#include "standalone/output/message_text.h"
#include "standalone/output/renderer.h"
#include "tests/standalone/output/results.h"

namespace standalone {
namespace {

TEST(HtmlText, HoldsNoMarkupAndNothingThatActs) {
  EXPECT_EQ(HtmlText(kHostileText), "&lt;b&gt;&amp;&quot;&#39;`*_[x](y)|~$#\\ \\x1b[31m\\u202e,=1");
  EXPECT_EQ(HtmlText("a\nb\xFF"), "a\\nb\uFFFD");
  EXPECT_EQ(HtmlLines("<a>\nb\r\n"), "&lt;a&gt;<br>b<br>");
  EXPECT_EQ(HtmlCode("\t<a>\n  b\x1b"), "    &lt;a&gt;\n  b\\x1b");
}

TEST(HtmlTable, NamesWhatItsCellsBelongTo) {
  EXPECT_EQ(
      HtmlTable(TwoSets(), "t"),
      "<div class=\"scroll\" role=\"group\" aria-labelledby=\"t\" tabindex=\"0\">\n"
      "<table>\n"
      "<caption id=\"t\">Multiple Response Sets</caption>\n"
      "<thead>\n"
      "<tr><th scope=\"col\">Name</th><th scope=\"col\">Label</th><th scope=\"col\" class=\"number\">Counted Value</th>"
      "<th scope=\"col\">Elementary Variables</th></tr>\n"
      "</thead>\n"
      "<tbody>\n"
      "<tr><th scope=\"row\" dir=\"auto\">$likes</th>"
      "<td dir=\"auto\">Likes<sup><a href=\"#t-note-a\" id=\"t-to-a\" aria-label=\"Note a\">a</a></sup></td>"
      "<td class=\"number\" dir=\"auto\">1<sup><a href=\"#t-note-b\" id=\"t-to-b\" aria-label=\"Note "
      "b\">b</a></sup></td>"
      "<td dir=\"auto\"><ul><li dir=\"auto\">Tea</li><li dir=\"auto\">Coffee</li></ul></td></tr>\n"
      "<tr><th scope=\"row\" dir=\"auto\">$other</th>"
      "<td dir=\"auto\"><sup><a href=\"#t-note-b\" aria-label=\"Note b\">b</a></sup></td>"
      "<td class=\"number\" dir=\"auto\">N/A</td><td dir=\"auto\"></td></tr>\n"
      "</tbody>\n"
      "</table>\n"
      "</div>\n"
      "<ul class=\"notes\">\n"
      "<li id=\"t-note-a\"><a href=\"#t-to-a\" aria-label=\"Note a, back to the table\">a</a> "
      "<span dir=\"auto\">first</span></li>\n"
      "<li id=\"t-note-b\"><a href=\"#t-to-b\" aria-label=\"Note b, back to the table\">b</a> "
      "<span dir=\"auto\">second</span></li>\n"
      "</ul>\n");
}

TEST(HtmlTable, TellsOfNoRows) {
  Table table;
  table.title = "<T>";
  table.rowDimension = "<R>";
  table.columns = {"<C>", "D"};
  EXPECT_EQ(HtmlTable(table, "t"),
            "<div class=\"scroll\" role=\"group\" aria-labelledby=\"t\" tabindex=\"0\">\n"
            "<table>\n"
            "<caption id=\"t\">&lt;T&gt;</caption>\n"
            "<thead>\n"
            "<tr><th scope=\"col\">&lt;R&gt;</th><th scope=\"col\">&lt;C&gt;</th><th scope=\"col\">D</th></tr>\n"
            "</thead>\n"
            "<tbody>\n"
            "<tr><td colspan=\"3\" class=\"none\">(none)</td></tr>\n"
            "</tbody>\n"
            "</table>\n"
            "</div>\n");
}

TEST(HtmlTable, EscapesEveryText) {
  Table table;
  table.columns = {"C", "D"};
  table.rows = {{"<n>\nm", {{"<c>\nd", {"<o>"}}, {std::vector<std::string>{"<e>\nf"}, {}}}}};
  const std::string html = HtmlTable(table, "t");
  EXPECT_NE(html.find(">&lt;n&gt;<br>m</th>"), std::string::npos) << html;
  EXPECT_NE(html.find(">&lt;c&gt;<br>d<sup>"), std::string::npos) << html;
  EXPECT_NE(html.find("<li dir=\"auto\">&lt;e&gt;<br>f</li>"), std::string::npos) << html;
  EXPECT_NE(html.find("<span dir=\"auto\">&lt;o&gt;</span>"), std::string::npos) << html;
}

TEST(HtmlTable, AColumnIsNumericWhenItHasNumbersAndNoOtherText) {
  struct Row {
    std::vector<Cell> cells;
    bool isNumeric;
  };
  const std::vector<Row> rows = {
      {{{"1", {}}, {"-2.5", {}}, {{}, {}}, {"N/A", {}}}, true},
      {{{"N/A", {}}, {{}, {}}}, false},
      {{{"1", {}}, {"red", {}}}, false},
      {{{"1", {}}, {std::vector<std::string>{"1"}, {}}}, false},
      {{}, false},
  };
  for (const Row& row : rows) {
    Table table;
    table.columns = {"C"};
    for (const Cell& cell : row.cells) {
      table.rows.push_back({"$a", {cell}});
    }
    const std::string html = HtmlTable(table, "t");
    EXPECT_EQ(html.find("class=\"number\"") != std::string::npos, row.isNumeric) << html;
  }
}

TEST(CommandHtml, ShowsTheCommandAsItsHeadingThenMessagesAndTables) {
  CommandResult result = Result("MRSET\n  /<FOO>", {Message{Level::kWarning, "w<1>\n"}}, Status::kError);
  result.number = 3;
  result.line = 8;
  result.source = "a&b.script";
  result.items.emplace_back(Message{Level::kError, "e", Place{9, 5, 3, 10, 3}, "try <BAR>"});
  result.items.emplace_back(TwoSets());
  result.items.emplace_back(TwoSets());
  result.items.emplace_back(Message{Level::kError, "end", Place{9, 9, 0, 14, 0}, {}});
  result.hints = {"and this"};
  EXPECT_EQ(
      CommandHtml(result),
      "<section class=\"command\" id=\"command-3\" aria-labelledby=\"command-3-heading\">\n"
      "<h2 id=\"command-3-heading\"><span class=\"position\">3</span> <code>MRSET\n"
      "  /&lt;FOO&gt;</code></h2>\n"
      "<p class=\"facts\"><span class=\"status error\">Error</span> a&amp;b.script, line 8</p>\n"
      "<ul class=\"messages\">\n"
      "<li class=\"warning\"><p><strong>Warning:</strong> w&lt;1&gt;</p></li>\n"
      "<li class=\"error\"><p><strong>Error:</strong> e</p><p class=\"place\">a&amp;b.script, line 9, column 5</p>"
      "<pre class=\"excerpt\">  /&lt;<mark>FOO</mark>&gt;</pre>"
      "<p class=\"hint\"><strong>Hint:</strong> try &lt;BAR&gt;</p></li>\n"
      "</ul>\n" +
          HtmlTable(TwoSets(), "command-3-table-1") + HtmlTable(TwoSets(), "command-3-table-2") +
          "<ul class=\"messages\">\n"
          "<li class=\"error\"><p><strong>Error:</strong> end</p>"
          "<p class=\"place\">a&amp;b.script, line 9, column 9</p>"
          "<pre class=\"excerpt\">  /&lt;FOO&gt;<mark>&#8203;</mark></pre></li>\n"
          "<li class=\"hint\"><p class=\"hint\"><strong>Hint:</strong> and this</p></li>\n"
          "</ul>\n"
          "</section>\n");
}

TEST(CommandHtml, ShowsThePlaceOfARepeatedMessageOnce) {
  const CommandResult result = RepeatedMessages();
  const std::string hint = "<p class=\"hint\"><strong>Hint:</strong> h</p></li>\n";
  const std::string first =
      "<ul class=\"messages\">\n"
      "<li class=\"error\"><p><strong>Error:</strong> e</p><p class=\"place\">line 1, column 1</p>"
      "<pre class=\"excerpt\"><mark>MRSET</mark> /FOO</pre>" +
      hint;
  EXPECT_EQ(CommandHtml(result),
            "<section class=\"command\" id=\"command-1\" aria-labelledby=\"command-1-heading\">\n"
            "<h2 id=\"command-1-heading\"><span class=\"position\">1</span> <code>MRSET /FOO</code></h2>\n"
            "<p class=\"facts\"><span class=\"status error\">Error</span> line 1</p>\n" +
                first + "<li class=\"error\"><p><strong>Error:</strong> e</p></li>\n</ul>\n" +
                HtmlTable(std::get<Table>(result.items[2]), "command-1-table-1") + first +
                "<li class=\"error\"><p><strong>Error:</strong> e</p><p class=\"place\">line 1, column 7</p>"
                "<pre class=\"excerpt\">MRSET <mark>/FOO</mark></pre>" +
                hint + "</ul>\n</section>\n");
}

TEST(CommandHtml, TellsOfSuccessAndOfAborts) {
  EXPECT_EQ(CommandHtml(Result("A", {})),
            "<section class=\"command\" id=\"command-1\" aria-labelledby=\"command-1-heading\">\n"
            "<h2 id=\"command-1-heading\"><span class=\"position\">1</span> <code>A</code></h2>\n"
            "<p class=\"facts\"><span class=\"status ok\">OK</span> line 1</p>\n"
            "</section>\n");
  const CommandResult aborted = Result("A", {Message{Level::kFatal, "report\n"}}, Status::kAborted);
  EXPECT_EQ(CommandHtml(aborted),
            "<section class=\"command\" id=\"command-1\" aria-labelledby=\"command-1-heading\">\n"
            "<h2 id=\"command-1-heading\"><span class=\"position\">1</span> <code>A</code></h2>\n"
            "<p class=\"facts\"><span class=\"status aborted\">Aborted</span> line 1</p>\n"
            "<ul class=\"messages\">\n"
            "<li class=\"error\"><p><strong>Fatal:</strong> report</p></li>\n"
            "</ul>\n"
            "<p class=\"outcome\">" +
                std::string(AbortedSentence(aborted)) +
                "</p>\n"
                "</section>\n");
}

TEST(CommandHtml, ALongCommandStandsBelowItsHeading) {
  const auto expected = [](const std::string& heading, const std::string& command) {
    return "<section class=\"command\" id=\"command-1\" aria-labelledby=\"command-1-heading\">\n"
           "<h2 id=\"command-1-heading\"><span class=\"position\">1</span> <code>" +
           heading +
           " ...</code></h2>\n"
           "<p class=\"facts\"><span class=\"status ok\">OK</span> line 1</p>\n"
           "<pre class=\"command-text\">" +
           command + "</pre>\n</section>\n";
  };
  std::string lines = "MRSET";
  for (int i = 0; i < 12; ++i) {
    lines += "\n/A";
  }
  EXPECT_EQ(CommandHtml(Result(lines, {})), expected("MRSET", lines));
  const std::string line = "MRSET " + std::string(600, 'x');
  EXPECT_EQ(CommandHtml(Result(line, {})), expected(line.substr(0, 80), line));
}

std::string Page(const std::vector<CommandResult>& results, bool isDryRun = false) {
  std::ostringstream stream;
  OutputLook look;
  look.dataset = "a<b>.mrset";
  look.isDryRun = isDryRun;
  const std::unique_ptr<Renderer> renderer = MakeHtmlRenderer(stream, look);
  for (std::size_t i = 0; i < results.size(); ++i) {
    CommandResult result = results[i];
    result.number = i + 1;
    renderer->Write(result);
  }
  EXPECT_EQ(stream.str(), "");
  renderer->Finish();
  return stream.str();
}

std::string PageHead(const std::string& title) {
  return "<!DOCTYPE html>\n"
         "<html lang=\"en\">\n"
         "<head>\n"
         "<meta charset=\"utf-8\">\n"
         "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src 'unsafe-inline'; "
         "base-uri 'none'; form-action 'none'\">\n"
         "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
         "<meta name=\"color-scheme\" content=\"light dark\">\n"
         "<title>" +
         title + "</title>\n<style>\n" + std::string(kPageStyle) +
         "</style>\n"
         "</head>\n"
         "<body>\n"
         "<header>\n"
         "<p class=\"kind\">Multiple response sets</p>\n"
         "<h1 dir=\"auto\">a&lt;b&gt;.mrset</h1>\n";
}

TEST(HtmlRenderer, PutsASummaryBeforeTheCommands) {
  CommandResult failed = Result("B\nC", {Message{Level::kWarning, "w"}, Message{Level::kError, "e<"}}, Status::kError);
  CommandResult aborted = Result("D", {Message{Level::kFatal, "f"}}, Status::kAborted);
  const CommandResult fine = Result("A", {Message{Level::kWarning, "w"}});
  const std::string page = Page({fine, failed, aborted});
  failed.number = 2;
  aborted.number = 3;
  EXPECT_EQ(page,
            PageHead("a&lt;b&gt;.mrset: 3 commands, 2 failed") +
                "<dl class=\"counts\">\n"
                "<div class=\"commands\"><dt>Commands</dt><dd>3</dd></div>\n"
                "<div class=\"error\"><dt>With errors</dt><dd>1</dd></div>\n"
                "<div class=\"aborted\"><dt>Aborted</dt><dd>1</dd></div>\n"
                "<div class=\"warning\"><dt>Warnings</dt><dd>2</dd></div>\n"
                "</dl>\n"
                "<nav aria-labelledby=\"failures\">\n"
                "<h2 id=\"failures\">What failed</h2>\n"
                "<ul>\n"
                "<li><a href=\"#command-2\">2&ensp;<code>B ...</code></a> <span class=\"reason\">e&lt;</span></li>\n"
                "<li><a href=\"#command-3\">3&ensp;<code>D</code></a> <span class=\"reason\">f</span></li>\n"
                "</ul>\n"
                "</nav>\n"
                "</header>\n"
                "<main>\n" +
                CommandHtml(fine) + CommandHtml(failed) + CommandHtml(aborted) +
                "</main>\n"
                "</body>\n"
                "</html>\n");
}

TEST(HtmlRenderer, SaysWhenNothingFailedAndWhenNothingWasSaved) {
  EXPECT_EQ(Page({Result("A", {})}, true), PageHead("a&lt;b&gt;.mrset: 1 command, no failure") +
                                               "<p class=\"dry-run\">A dry run: the dataset was left as it was.</p>\n"
                                               "<dl class=\"counts\">\n"
                                               "<div class=\"commands\"><dt>Commands</dt><dd>1</dd></div>\n"
                                               "<div><dt>With errors</dt><dd>0</dd></div>\n"
                                               "<div><dt>Aborted</dt><dd>0</dd></div>\n"
                                               "<div><dt>Warnings</dt><dd>0</dd></div>\n"
                                               "</dl>\n"
                                               "</header>\n"
                                               "<main>\n" +
                                               CommandHtml(Result("A", {})) +
                                               "</main>\n"
                                               "</body>\n"
                                               "</html>\n");
}

TEST(HtmlRenderer, LinksToTheFirstHundredFailures) {
  const std::vector<CommandResult> failures(103, Result("A", {Message{Level::kError, "e"}}, Status::kError));
  const std::string page = Page(failures);
  EXPECT_NE(page.find("<a href=\"#command-100\">"), std::string::npos);
  EXPECT_EQ(page.find("<a href=\"#command-101\">"), std::string::npos);
  EXPECT_NE(page.find("</ul>\n<p>and 3 more</p>\n</nav>\n"), std::string::npos);
}

/// What a page that waits in this folder says, or why there is none.
std::string PageIn(const char* folder) {
  EXPECT_EQ(setenv("TMPDIR", folder, 1), 0);
  std::string page;
  try {
    page = Page({Result("A", {})});
  } catch (const std::runtime_error& error) {
    page = error.what();
  }
  unsetenv("TMPDIR");
  return page;
}

TEST(HtmlRenderer, WaitsInTheFolderForTemporaryFiles) {
  EXPECT_EQ(PageIn("/proc"), "The output cannot be kept in /proc: No such file or directory.");
  EXPECT_EQ(PageIn("/no/such/folder"), Page({Result("A", {})}));
}

}  // namespace
}  // namespace standalone
