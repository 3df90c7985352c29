#include "standalone/output/plain/text_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "standalone/text/unicode.h"

namespace standalone {
namespace {

using List = std::vector<std::string>;

Table SetsTable() {
  Table table;
  table.title = "Multiple Response Sets";
  table.rowDimension = "Name";
  table.columnDimension = "Attributes";
  table.columns = {"Label", "Coded As", "Counted Value", "Data Type", "Elementary Variables"};
  return table;
}

TableRow SetRow(const std::string& name, const std::string& label, const List& variables) {
  return {name, {{label, {}}, {"Dichotomies", {}}, {"1", {}}, {"Numeric", {}}, {variables, {}}}};
}

TEST(TextTable, ShowsSetsAsRowsAndOneVariableALine) {
  Table table = SetsTable();
  table.rows.push_back({"$colours",
                        {{std::monostate{}, {}},
                         {"Categories", {}},
                         {"N/A", {}},
                         {"String", {}},
                         {List{"c1", "c2(no longer exists)"}, {}}}});
  table.rows.push_back(SetRow("$likes", "Likes", {"Tea", "Coffee"}));
  EXPECT_EQ(TextTable(table, 100),
            "Multiple Response Sets\n"
            "\n"
            "Name      Label  Coded As     Counted Value  Data Type  Elementary Variables\n"
            "--------  -----  -----------  -------------  ---------  --------------------\n"
            "$colours         Categories   N/A            String     c1\n"
            "                                                        c2(no longer exists)\n"
            "\n"
            "$likes    Likes  Dichotomies  1              Numeric    Tea\n"
            "                                                        Coffee\n");
}

TEST(TextTable, RowsOfOneLineStandTogether) {
  Table table = SetsTable();
  table.columns = {"Label"};
  table.rows = {{"$a", {{"A", {}}}}, {"$b", {{"B", {}}}}};
  EXPECT_EQ(TextTable(table, 80),
            "Multiple Response Sets\n"
            "\n"
            "Name  Label\n"
            "----  -----\n"
            "$a    A\n"
            "$b    B\n");
}

TEST(TextTable, WithoutRowsShowsTheHeadings) {
  EXPECT_EQ(TextTable(SetsTable(), 80),
            "Multiple Response Sets\n"
            "\n"
            "Name  Label  Coded As  Counted Value  Data Type  Elementary Variables\n"
            "----  -----  --------  -------------  ---------  --------------------\n"
            "(none)\n");
}

TEST(TextTable, WrapsHeadingsAndCellsToTheWidth) {
  Table table = SetsTable();
  table.rows.push_back(SetRow("$likes", "What do you like to drink in the morning?",
                              {"Tea with milk or lemon, as the weather is", "Coffee"}));
  EXPECT_EQ(TextTable(table, 80),
            "Multiple Response Sets\n"
            "\n"
            "Name    Label                 Coded As     Counted  Data     Elementary\n"
            "                                           Value    Type     Variables\n"
            "------  --------------------  -----------  -------  -------  -------------------\n"
            "$likes  What do you like to   Dichotomies  1        Numeric  Tea with milk or\n"
            "        drink in the                                           lemon, as the\n"
            "        morning?                                               weather is\n"
            "                                                             Coffee\n");
}

TEST(TextTable, AnEntryWithALineEndIsNotTakenForTwo) {
  Table table;
  table.title = "T";
  table.rowDimension = "N";
  table.columns = {"A"};
  table.rows = {{"r", {{List{"one\ntwo three four", "\nfive"}, {}}}}};
  EXPECT_EQ(TextTable(table, 80),
            "T\n"
            "\n"
            "N  A\n"
            "-  ----------------\n"
            "r  one\n"
            "     two three four\n"
            "\n"
            "     five\n");
  EXPECT_EQ(TextTable(table, 13),
            "T\n"
            "\n"
            "N   A\n"
            "--  ---------\n"
            "r   one\n"
            "      two\n"
            "      three\n"
            "      four\n"
            "\n"
            "      five\n");
  EXPECT_EQ(TextTable(table, 9),
            "T\n"
            "\n"
            "N   A\n"
            "--  -----\n"
            "r   one\n"
            "    two\n"
            "    three\n"
            "    four\n"
            "\n"
            "    five\n");
}

TEST(TextTable, SameNotesShareAMarker) {
  Table table;
  table.title = "T";
  table.rowDimension = "Name";
  table.columns = {"A", "B", "C"};
  table.rows = {{"r", {{"1", "First note"}, {std::monostate{}, "Second note"}, {List{"x", "y"}, "First note"}}},
                {"s", {{"2", "Second note"}, {"", "Third note"}, {List{}, "First note"}}}};
  EXPECT_EQ(TextTable(table, 80),
            "T\n"
            "\n"
            "Name  A      B    C\n"
            "----  -----  ---  -----\n"
            "r     1 [a]  [b]  x\n"
            "                  y [a]\n"
            "\n"
            "s     2 [b]  [c]  [a]\n"
            "\n"
            "[a] First note\n"
            "[b] Second note\n"
            "[c] Third note\n");
}

TEST(TextTable, MarkersGoOnAfterTheLastLetter) {
  Table table;
  table.columns = {"A"};
  for (int i = 0; i < 28; ++i) {
    table.rows.push_back({"r", {{"x", "note " + std::to_string(i)}}});
  }
  const std::string text = TextTable(table, 80);
  const std::size_t notes = text.find("\n[z]");
  ASSERT_NE(notes, std::string::npos) << text;
  EXPECT_EQ(text.substr(notes), "\n[z] note 25\n[aa] note 26\n[ab] note 27\n");
}

TEST(TextTable, AlignsByDisplayWidth) {
  Table table;
  table.title = "T";
  table.rowDimension = "N";
  table.columns = {"A", "B"};
  table.rows = {{"\u6F22\u5B57", {{"caf\u00E9", {}}, {"1", {}}}}, {"abcd", {{"cafe\u0301", {}}, {"2", {}}}}};
  EXPECT_EQ(TextTable(table, 80),
            "T\n"
            "\n"
            "N     A     B\n"
            "----  ----  -\n"
            "\u6F22\u5B57  caf\u00E9  1\n"
            "abcd  cafe\u0301  2\n");
}

TEST(TextTable, BreaksLongWordsBetweenCharacters) {
  Table table;
  table.title = "T";
  table.rowDimension = "N";
  table.columns = {"A"};
  table.rows = {{"r", {{"\u6F22\u6F22\u6F22\u6F22\u6F22", {}}}}};
  EXPECT_EQ(TextTable(table, 9),
            "T\n"
            "\n"
            "N   A\n"
            "--  -----\n"
            "r   \u6F22\u6F22\n"
            "    \u6F22\u6F22\n"
            "    \u6F22\n");
}

TEST(TextTable, ShowsCharactersThatWouldActOnATerminal) {
  Table table;
  table.title = "T\x1b[2J\n";
  table.rowDimension = "N\t";
  table.columns = {"A\u202E"};
  table.rows = {{"r\n\u009B", {{"x\x1b]0;y\a", "n\u2066\n"}}}, {"s", {{List{"\x7f\xFF", "a\nb"}, {}}}}};
  EXPECT_EQ(TextTable(table, 80),
            "T\\x1b[2J\\n\n"
            "\n"
            "N\\t   A\\u202e\n"
            "----  -----------------\n"
            "r     x\\x1b]0;y\\x07 [a]\n"
            "\\x9b\n"
            "\n"
            "s     \\x7f\uFFFD\n"
            "      a\n"
            "        b\n"
            "\n"
            "[a] n\\u2066\\n\n");
}

TEST(TextTable, RowsWithTooFewOrTooManyCellsDoNoHarm) {
  Table table;
  table.title = "T";
  table.rowDimension = "N";
  table.columns = {"A", "B"};
  table.rows = {{"r", {}}, {"s", {{"1", {}}, {"2", {}}, {"3", {}}}}};
  EXPECT_EQ(TextTable(table, 80),
            "T\n"
            "\n"
            "N  A  B\n"
            "-  -  -\n"
            "r\n"
            "s  1  2\n");
}

std::size_t WidestLine(const std::string& text) {
  std::istringstream lines(text);
  std::size_t widest = 0;
  for (std::string line; std::getline(lines, line);) {
    widest = std::max(widest, DisplayWidth(line));
  }
  return widest;
}

/// Terminal columns of the widest words of the headings and of the gaps between them.
constexpr std::size_t kNarrowestSetsTable = 4 + 5 + 5 + 7 + 4 + 10 + 5 * 2;

TEST(TextTable, NoLineIsWiderThanTheWidthDownToTheHeadings) {
  Table table = SetsTable();
  table.title += " of a survey with a title that is rather long for a narrow terminal";
  table.rows.push_back(
      SetRow("$a_set_with_a_long_name", "\u6F22\u5B57 and a label of several words",
             {"a variable's label", "averyveryverylongnamewithoutblanks", "\u6F22\u5B57\u6F22\u5B57"}));
  table.rows.back().cells[2].note = "Using variable value labels, and a longer note than there is room for";
  for (std::size_t width = kNarrowestSetsTable; width <= 160; ++width) {
    EXPECT_LE(WidestLine(TextTable(table, width)), width) << TextTable(table, width);
  }
  for (std::size_t width = 0; width < kNarrowestSetsTable; ++width) {
    EXPECT_GE(WidestLine(TextTable(table, width)), kNarrowestSetsTable) << width;
  }
}

}  // namespace
}  // namespace standalone
