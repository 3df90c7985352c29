#include "standalone/output/xlsx/workbook.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "standalone/output/renderer.h"
#include "tests/standalone/output/results.h"
#include "tests/standalone/output/tabulations.h"
#include "tests/standalone/temporary_folder.h"

namespace standalone {
namespace {

class XlsxRenderer : public TemporaryFolderTest {
 protected:
  /// The workbook of the results, as a program that is not ours reads it.
  static std::string Opened(const std::vector<CommandResult>& results) {
    std::ofstream stream("results.xlsx", std::ios::binary);
    const std::unique_ptr<Renderer> renderer = MakeXlsxRenderer(stream, {});
    for (const CommandResult& result : results) {
      renderer->Write(result);
    }
    EXPECT_EQ(stream.tellp(), 0) << "nothing is written before the end";
    renderer->Finish();
    stream.close();
    EXPECT_EQ(std::system("/usr/bin/python3 '" MRSET_READ_WORKBOOK "' results.xlsx > text 2>&1"), 0);
    return Read("text");
  }
};

TEST_F(XlsxRenderer, HasASheetForEachTableWithNumbersAsNumbers) {
  EXPECT_EQ(Opened({Result("TABULATE", {DrinksByRegion(), TwoSets()})}), R"('$drinks', frozen at B5
  A1 'Drinks ($drinks)'
  D2 'region'
  B3 'Total', D3 'North', F3 'South'
  B4 'Count', C4 '% of cases', D4 'Count', E4 '% of cases', F4 'Count', G4 '% of cases'
  A5 'Tea', B5 220 as 0, C5 0.9734513274336283 as 0.0%, D5 124 as 0, E5 0.96875 as 0.0%, F5 0 as 0
  A6 'Coffee', B6 80 as 0, C6 0.3539823008849557 as 0.0%, D6 7 as 0, E6 0.0546875 as 0.0%, F6 0 as 0
  A7 'Hot (net)', B7 226 as 0, C7 1 as 0.0%, D7 128 as 0, E7 1 as 0.0%, F7 0 as 0
  A9 'All cases', B9 240 as 0, D9 140 as 0, F9 2 as 0
  A10 'Answered (base)', B10 226 as 0, D10 128 as 0, F10 0 as 0
  A11 'None chosen', B11 9 as 0, D11 7 as 0, F11 2 as 0
  A12 'Missing', B12 5 as 0, D12 5 as 0, F12 0 as 0
  A14 '9 cases chose none and are not in the base; with BASE=ASKED it is 235.'
  merged: D2:G2 B3:C3 D3:E3 F3:G3
'Multiple Response Sets', frozen at B3
  A1 'Multiple Response Sets'
  A2 'Name', B2 'Label', C2 'Counted Value', D2 'Elementary Variables'
  A3 '$likes', B3 'Likes [a]', C3 '1 [b]', D3 'Tea\nCoffee'
  A4 '$other', B4 '[b]', C4 'N/A'
  A6 '[a] first'
  A7 '[b] second'
)");
}

TEST_F(XlsxRenderer, HasASheetForEachTest) {
  EXPECT_EQ(Opened({Result("TABULATE", {WeightedDrinks()})}), R"('$drinks', frozen at B7
  A1 'Drinks ($drinks)'
  A2 'Weight: w'
  A3 'Where: age > 30'
  J4 'region'
  B5 'Total', J5 'North', R5 'South'
  B6 'Unweighted cases', C6 'Count', D6 '% of cases', E6 '% of responses', F6 'Standard error', G6 'Design effect', H6 '95% from', I6 '95% to', J6 'Unweighted cases', K6 'Count', L6 '% of cases', M6 '% of responses', N6 'Standard error', O6 'Design effect', P6 '95% from', Q6 '95% to', R6 'Unweighted cases', S6 'Count', T6 '% of cases', U6 '% of responses', V6 'Standard error', W6 'Design effect', X6 '95% from', Y6 '95% to'
  A7 'Tea', B7 220 as 0, C7 247.505 as 0.00, D7 0.9734513274336283 as 0.00%, E7 0.7333333333333333 as 0.00%, F7 0.00125 as 0.00%, G7 1.335 as 0.00, H7 -1E-05 as 0.00%, I7 0.123449 as 0.00%, J7 124 as 0, K7 124 as 0.00, L7 0.96875 as 0.00%, M7 0.9465648854961831 as 0.00%, R7 0 as 0, S7 0 as 0.00
  A8 'Coffee', B8 80 as 0, C8 80 as 0.00, D8 0.3539823008849557 as 0.00%, E8 0.2666666666666667 as 0.00%, J8 7 as 0, K8 7 as 0.00, L8 0.0546875 as 0.00%, M8 0.05343511450381679 as 0.00%, R8 0 as 0, S8 0 as 0.00
  A9 'Hot (net)', B9 226 as 0, C9 226 as 0.00, D9 1 as 0.00%, J9 128 as 0, K9 128 as 0.00, L9 1 as 0.00%, R9 0 as 0, S9 0 as 0.00
  A11 'All cases', B11 240 as 0, J11 140 as 0, R11 2 as 0
  A12 'Answered', B12 226 as 0, J12 128 as 0, R12 0 as 0
  A13 'None chosen', B13 9 as 0, J13 7 as 0, R13 2 as 0
  A14 'Missing', B14 5 as 0, J14 5 as 0, R14 0 as 0
  A15 'Asked (base)', B15 235 as 0, J15 135 as 0, R15 2 as 0
  A16 'Weighted base', B16 264.375 as 0.00, J16 151.875 as 0.00, R16 2.25 as 0.00
  A17 'Effective base', B17 198.28125 as 0.00, J17 113.90625 as 0.00, R17 1.6875 as 0.00
  A18 'Responses', B18 300 as 0.00, J18 131 as 0.00, R18 0 as 0.00
  A19 'Responses per case', B19 1.327433628318584 as 0.00, J19 1.0234375 as 0.00
  A21 '9 cases chose none and are not in the base; with BASE=ASKED it is 235.'
  merged: J4:Y4 B5:I5 J5:Q5 R5:Y5
'$drinks by region', frozen at B3
  A1 'Association of $drinks with region'
  A2 'Member', B2 'Chi-square', C2 'Corrected', D2 'df', E2 'p', F2 'Adjusted p (Holm)'
  A3 'All members', B3 12.5 as 0.00, C3 11.25 as 0.00, D3 1.75 as 0.00, E3 1E-05 as [<0.00005]"<0.0001";0.0000
  A4 'Tea', B4 10.125 as 0.00, D4 1 as 0, E4 0.0125 as [<0.00005]"<0.0001";0.0000, F4 0.025 as [<0.00005]"<0.0001";0.0000
  A5 'Coffee', D5 1 as 0
)");
}

TEST_F(XlsxRenderer, TakesNoTextForAFormula) {
  EXPECT_EQ(Opened({Result("TABULATE", {HostileDrinks(kHostileText)})}), R"('$drinks', frozen at B6
  A1 '<b>&"\'`*_[x](y)|~$#\\ \\x1b[31m\\u202e,=1 ($drinks)'
  A2 'Where: <b>&"\'`*_[x](y)|~$#\\ \\x1b[31m\\u202e,=1'
  D3 'region', F3 '<b>&"\'`*_[x](y)|~$#\\ \\x1b[31m\\u202e,=1'
  B4 'Total', D4 '<b>&"\'`*_[x](y)|~$#\\ \\x1b[31m\\u202e,=1', F4 'South'
  B5 'Count', C5 '% of cases', D5 'Count', E5 '% of cases', F5 'Count', G5 '% of cases'
  A6 '<b>&"\'`*_[x](y)|~$#\\ \\x1b[31m\\u202e,=1', B6 220 as 0, C6 0.9734513274336283 as 0.0%, D6 124 as 0, E6 0.96875 as 0.0%, F6 0 as 0
  A7 '=1+1', B7 80 as 0, C7 0.3539823008849557 as 0.0%, D7 7 as 0, E7 0.0546875 as 0.0%, F7 0 as 0
  A8 'עברית\nsecond line, which is far too long to stand on one line of a terminal (net)', B8 226 as 0, C8 1 as 0.0%, D8 128 as 0, E8 1 as 0.0%, F8 0 as 0
  A10 'All cases', B10 240 as 0, D10 140 as 0, F10 2 as 0
  A11 'Answered (base)', B11 226 as 0, D11 128 as 0, F11 0 as 0
  A12 'None chosen', B12 9 as 0, D12 7 as 0, F12 2 as 0
  A13 'Missing', B13 5 as 0, D13 5 as 0, F13 0 as 0
  A15 '<b>&"\'`*_[x](y)|~$#\\ \\x1b[31m\\u202e,=1'
  merged: D3:E3 F3:G3 B4:C4 D4:E4 F4:G4
)");
}

TEST_F(XlsxRenderer, PutsMessagesOnASheetOfTheirOwn) {
  CommandResult result =
      Result("MRSET /FOO", {Message{Level::kError, "No.\n", Place{2, 7, 3, 6, 3}, "h"}}, Status::kError);
  result.source = "all.script";
  result.hints = {"advice"};
  result.dryRun = "It would change nothing.";
  CommandResult aborted = Result("MRSET", {}, Status::kAborted);
  aborted.number = 2;
  EXPECT_EQ(Opened({result, aborted}),
            "'Messages', frozen at B3\n"
            "  A1 'Messages'\n"
            "  A2 'Command', B2 'Place', C2 'Level', D2 'Text', E2 'Hint'\n"
            "  A3 '1', B3 'all.script, line 2, column 7', C3 'Error', D3 'No.', E3 'h'\n"
            "  A4 '1', B4 'all.script, line 1', C4 'Hint', D4 'advice'\n"
            "  A5 '1', B5 'all.script, line 1', C5 'Dry run', D5 'It would change nothing.'\n"
            "  A6 '2', B6 'line 1', C6 'Aborted', D6 'The command was aborted; the dataset is as it was before it.'\n");
}

TEST_F(XlsxRenderer, WritesAWorkbookThatCanBeOpenedWhereThereIsNothingToShow) {
  EXPECT_EQ(Opened({}),
            "'Messages', frozen at B3\n"
            "  A1 'Messages'\n"
            "  A2 'Command', B2 'Place', C2 'Level', D2 'Text', E2 'Hint'\n");
}

TEST_F(XlsxRenderer, SaysSoWhereATableIsLargerThanASheet) {
  Tabulation tabulation = Drinks();
  tabulation.columns.resize(Workbook::kColumns, tabulation.columns.front());
  for (TabulationRow& row : tabulation.rows) {
    row.cells.resize(tabulation.columns.size(), row.cells.front());
  }
  EXPECT_EQ(Opened({Result("A", {tabulation})}),
            "'$drinks'\n"
            "  A1 'Drinks ($drinks)'\n"
            "  A2 'A sheet cannot hold 18 rows and 32769 columns; ask for another format.'\n");
}

TEST(SheetName, IsValidAndDifferentFromThoseBefore) {
  struct Row {
    std::string name;
    std::string made;
  };
  const std::vector<Row> rows = {
      {"$drinks", "$drinks"},
      {"$DRINKS", "$DRINKS (2)"},
      {"$drinks", "$drinks (3)"},
      {"$drinks (3)", "$drinks (3) (2)"},
      {"a[b]:*?/\\'", "a_b_______"},
      {"", "Sheet"},
      {"History", "History (2)"},
      {"history", "history (3)"},
      {std::string(31, 'x'), std::string(31, 'x')},
      {std::string(32, 'x'), std::string(28, 'x') + "..."},
      {std::string(32, 'x'), std::string(24, 'x') + "... (2)"},
      {"\u05E2\n", "\u05E2_n"},
      {"\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600"
       "\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600",
       "\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600"
       "\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600\U0001F600..."},
  };
  SheetNames taken;
  for (const Row& row : rows) {
    EXPECT_EQ(SheetName(row.name, taken), row.made) << row.name;
  }
}

TEST(CellText, IsTheTextThatACellShows) {
  struct Row {
    std::string text;
    std::string cell;
  };
  const std::vector<Row> rows = {
      {"=1+1", "=1+1"},
      {"a\r\nb", "a\nb"},
      {"\x01\u202E", "\\x01\\u202e"},
      {"_x0041_", "_x005F_x0041_"},
      {"_x0041_x0041_ _x41_ _y0041_", "_x005F_x0041_x005F_x0041_ _x41_ _y0041_"},
      {"\uFFFE\uFFFF\xFF", "\uFFFD\uFFFD\uFFFD"},
      {std::string(32767, 'x'), std::string(32767, 'x')},
      {std::string(1 << 20, 'x'), std::string(32764, 'x') + "..."},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(CellText(row.text), row.cell) << row.text.substr(0, 100);
  }
}

TEST(CellText, FitsACellWhateverIsEscaped) {
  std::string text;
  for (int i = 0; i < 10000; ++i) {
    text += "_x0041";
  }
  EXPECT_LE(CellText(text).size(), 32767U);
}

}  // namespace
}  // namespace standalone
