#include "standalone/output/plain/text_tabulation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "standalone/output/plain/text_line.h"
#include "standalone/text/unicode.h"
#include "tests/standalone/output/results.h"
#include "tests/standalone/output/tabulations.h"

namespace standalone {
namespace {

TEST(TextTabulation, TellsTheBasesOfOneColumnInSentences) {
  EXPECT_EQ(TextTabulation(Drinks(), 80), R"(Drinks ($drinks)

           Total
                   % of
           Count  cases
---------  -----  -----
Tea          220   97.3
Coffee        80   35.4
Hot (net)    226  100.0

Answered 226, none chosen 9, missing 5 of 240 cases.
Base: 226 cases that answered.

9 cases chose none and are not in the base; with BASE=ASKED it is 235.
)");
}

TEST(TextTabulation, ShowsColumnsUnderTheirByWithABaseRowEach) {
  EXPECT_EQ(TextTabulation(DrinksByRegion(), 80), R"(Drinks ($drinks)

                                region --------------------
                 Total          North          South
                         % of           % of           % of
                 Count  cases   Count  cases   Count  cases
---------------  -----  -----   -----  -----   -----  -----
Tea                220   97.3     124   96.9       0      -
Coffee              80   35.4       7    5.5       0      -
Hot (net)          226  100.0     128  100.0       0      -
---------------  -----  -----   -----  -----   -----  -----
All cases          240            140              2
Answered (base)    226            128              0
None chosen          9              7              2
Missing              5              5              0

9 cases chose none and are not in the base; with BASE=ASKED it is 235.
)");
}

TEST(TextTabulation, ShowsEveryFigureAndTestThatIsAskedFor) {
  EXPECT_EQ(TextTabulation(WeightedDrinks(), 200), R"(Drinks ($drinks)
Weight: w
Where: age > 30

                                                                                           region -----------------------------------------------------------
                    Total                                                                  North
                    Unweighted            % of       % of  Standard  Design   95%    95%   Unweighted            % of       % of  Standard  Design   95%  95%
                         cases   Count   cases  responses     error  effect  from     to        cases   Count   cases  responses     error  effect  from   to
------------------  ----------  ------  ------  ---------  --------  ------  ----  -----   ----------  ------  ------  ---------  --------  ------  ----  ---
Tea                     220     247.51   97.35      73.33      0.13    1.34  0.00  12.34       124     124.00   96.88      94.66         -       -     -    -
Coffee                   80      80.00   35.40      26.67      -       -     -      -            7       7.00    5.47       5.34         -       -     -    -
Hot (net)               226     226.00  100.00       -         -       -     -      -          128     128.00  100.00       -            -       -     -    -
------------------  ----------  ------  ------  ---------  --------  ------  ----  -----   ----------  ------  ------  ---------  --------  ------  ----  ---
All cases               240                                                                    140
Answered                226                                                                    128
None chosen               9                                                                      7
Missing                   5                                                                      5
Asked (base)            235                                                                    135
Weighted base           264.38                                                                 151.88
Effective base          198.28                                                                 113.91
Responses               300.00                                                                 131.00
Responses per case        1.33                                                                   1.02

                    region ---------------------------------------------------------
                    South
                    Unweighted          % of       % of  Standard  Design   95%  95%
                         cases  Count  cases  responses     error  effect  from   to
------------------  ----------  -----  -----  ---------  --------  ------  ----  ---
Tea                       0      0.00      -          -         -       -     -    -
Coffee                    0      0.00      -          -         -       -     -    -
Hot (net)                 0      0.00      -          -         -       -     -    -
------------------  ----------  -----  -----  ---------  --------  ------  ----  ---
All cases                 2
Answered                  0
None chosen               2
Missing                   0
Asked (base)              2
Weighted base             2.25
Effective base            1.69
Responses                 0.00
Responses per case        -

Association of $drinks with region

                                                   Adjusted
             Chi-square  Corrected    df        p  p (Holm)
-----------  ----------  ---------  ----  -------  --------
All members       12.50      11.25  1.75  <0.0001    -
Tea               10.13       -     1      0.0125    0.0250
Coffee             -          -     1      -         -

9 cases chose none and are not in the base; with BASE=ASKED it is 235.
)");
}

TEST(TextTabulation, ShowsSetsAndPairsWithTheFiguresThatAreAskedFor) {
  EXPECT_EQ(TextTabulation(DrinksByFood(), 80), R"(Drinks ($drinks)

                         $food   region*sex
                                     North,
                 Total   Bread        Women
                  % of    % of
                 cases   cases   % of cases
---------------  -----   -----   ----------
Tea               97.3    88.5         20.0
Coffee            35.4    88.5         20.0
Hot (net)        100.0    88.5         20.0
---------------  -----   -----   ----------
All cases        240     120           60
Answered (base)  226     113           55
None chosen        9       4            3
Missing            5       3            2

Association of $drinks with $food

                                                Adjusted
             Chi-square  Corrected  df       p  p (Holm)
-----------  ----------  ---------  --  ------  --------
All members        -             -   -  -         -
Tea, Bread         0.50          -   1  0.5000    1.0000
)");
}

TEST(TextTabulation, SplitsAWideTableByColumnsWithTheLabelsOnceMore) {
  EXPECT_EQ(TextTabulation(DrinksByRegion(), 40), R"(Drinks ($drinks)

                 Total
                         % of
                 Count  cases
---------------  -----  -----
Tea                220   97.3
Coffee              80   35.4
Hot (net)          226  100.0
---------------  -----  -----
All cases          240
Answered (base)    226
None chosen          9
Missing              5

                 region -----
                 North
                         % of
                 Count  cases
---------------  -----  -----
Tea                124   96.9
Coffee               7    5.5
Hot (net)          128  100.0
---------------  -----  -----
All cases          140
Answered (base)    128
None chosen          7
Missing              5

                 region -----
                 South
                         % of
                 Count  cases
---------------  -----  -----
Tea                  0      -
Coffee               0      -
Hot (net)            0      -
---------------  -----  -----
All cases            2
Answered (base)      0
None chosen          2
Missing              0

9 cases chose none and are not in the
base; with BASE=ASKED it is 235.
)");
}

TEST(TextTabulation, SplitsAColumnByFiguresWhereItIsTooWideAlone) {
  EXPECT_EQ(TextTabulation(WeightedDrinks(), 60), R"(Drinks ($drinks)
Weight: w
Where: age > 30

           Total
           Unweighted            % of       % of  Standard
                cases   Count   cases  responses     error
---------  ----------  ------  ------  ---------  --------
Tea            220     247.51   97.35      73.33      0.13
Coffee          80      80.00   35.40      26.67      -
Hot (net)      226     226.00  100.00       -         -
---------  ----------  ------  ------  ---------  --------
All cases      240
Answered       226
None             9
  chosen
Missing          5
Asked          235
  (base)
Weighted       264.38
  base
Effective      198.28
  base
Responses      300.00
Responses        1.33
  per
  case

           Total
           Design   95%    95%
           effect  from     to
---------  ------  ----  -----
Tea          1.34  0.00  12.34
Coffee       -     -      -
Hot (net)    -     -      -

           region ----------------------------------------
           North
           Unweighted            % of       % of  Standard
                cases   Count   cases  responses     error
---------  ----------  ------  ------  ---------  --------
Tea            124     124.00   96.88      94.66         -
Coffee           7       7.00    5.47       5.34         -
Hot (net)      128     128.00  100.00       -            -
---------  ----------  ------  ------  ---------  --------
All cases      140
Answered       128
None             7
  chosen
Missing          5
Asked          135
  (base)
Weighted       151.88
  base
Effective      113.91
  base
Responses      131.00
Responses        1.02
  per
  case

           region ----------
           North
           Design   95%  95%
           effect  from   to
---------  ------  ----  ---
Tea             -     -    -
Coffee          -     -    -
Hot (net)       -     -    -

           region --------------------------------------
           South
           Unweighted          % of       % of  Standard
                cases  Count  cases  responses     error
---------  ----------  -----  -----  ---------  --------
Tea              0      0.00      -          -         -
Coffee           0      0.00      -          -         -
Hot (net)        0      0.00      -          -         -
---------  ----------  -----  -----  ---------  --------
All cases        2
Answered         0
None             2
  chosen
Missing          0
Asked            2
  (base)
Weighted         2.25
  base
Effective        1.69
  base
Responses        0.00
Responses        -
  per
  case

           region ----------
           South
           Design   95%  95%
           effect  from   to
---------  ------  ----  ---
Tea             -     -    -
Coffee          -     -    -
Hot (net)       -     -    -

Association of $drinks with region

                                                   Adjusted
             Chi-square  Corrected    df        p  p (Holm)
-----------  ----------  ---------  ----  -------  --------
All members       12.50      11.25  1.75  <0.0001    -
Tea               10.13       -     1      0.0125    0.0250
Coffee             -          -     1      -         -

9 cases chose none and are not in the base; with BASE=ASKED
it is 235.
)");
}

TEST(TextTabulation, WrapsLabelsAndShowsThemInTheirVisibleForm) {
  EXPECT_EQ(TextTabulation(HostileDrinks(kHostileText), 80), R"(<b>&"'`*_[x](y)|~$#\ \x1b[31m\u202e,=1 ($drinks)
Where: <b>&"'`*_[x](y)|~$#\ \x1b[31m\u202e,=1

                                                                    <b>&"'`*_[x]
                                                                    (y)|~$#\
                                                                    \x1b[31m\u20
                                                     region -----   2e,=1 ------
                                                     <b>&"'`*_[x]
                                                     (y)|~$#\
                                                     \x1b[31m\u20
                                      Total          2e,=1          South
                                              % of           % of           % of
                                      Count  cases   Count  cases   Count  cases
------------------------------------  -----  -----   -----  -----   -----  -----
<b>&"'`*_[x](y)|~$#\                    220   97.3     124   96.9       0      -
  \x1b[31m\u202e,=1
=1+1                                     80   35.4       7    5.5       0      -
עברית                                   226  100.0     128  100.0       0      -
second line, which is far too long
  to stand on one line of a terminal
  (net)
------------------------------------  -----  -----   -----  -----   -----  -----
All cases                               240            140              2
Answered (base)                         226            128              0
None chosen                               9              7              2
Missing                                   5              5              0

<b>&"'`*_[x](y)|~$#\ \x1b[31m\u202e,=1
)");
}

TEST(TextTabulation, DrawsBarsOfEighths) {
  EXPECT_EQ(TextTabulation(Drinks(), 60, Colour::kNone, Chart::kBlocks), R"(Drinks ($drinks)

           Total
                   % of  % of cases
           Count  cases  0              100.0
---------  -----  -----  --------------------
Tea          220   97.3  ███████████████████▌
Coffee        80   35.4  ███████▏
Hot (net)    226  100.0  ████████████████████

Answered 226, none chosen 9, missing 5 of 240 cases.
Base: 226 cases that answered.

9 cases chose none and are not in the base; with BASE=ASKED
it is 235.
)");
}

TEST(TextTabulation, DrawsBarsOfSignsForEachColumn) {
  EXPECT_EQ(TextTabulation(DrinksByRegion(), 80, Colour::kNone, Chart::kSigns), R"(Drinks ($drinks)

                                            region -----------------
                 Total                      North
                         % of  % of cases           % of  % of cases
                 Count  cases  0    100.0   Count  cases  0    100.0
---------------  -----  -----  ----------   -----  -----  ----------
Tea                220   97.3  ##########     124   96.9  ##########
Coffee              80   35.4  ####             7    5.5  #
Hot (net)          226  100.0  ##########     128  100.0  ##########
---------------  -----  -----  ----------   -----  -----  ----------
All cases          240                        140
Answered (base)    226                        128
None chosen          9                          7
Missing              5                          5

                 region -----------------
                 South
                         % of  % of cases
                 Count  cases  0    100.0
---------------  -----  -----  ----------
Tea                  0      -
Coffee               0      -
Hot (net)            0      -
---------------  -----  -----  ----------
All cases            2
Answered (base)      0
None chosen          2
Missing              0

9 cases chose none and are not in the base; with BASE=ASKED it is 235.
)");
}

TEST(TextTabulation, DrawsBarsOfWhatTheTableShows) {
  Tabulation tabulation = Drinks();
  tabulation.notes.clear();
  tabulation.figures = {true, false, false, true, false};
  EXPECT_EQ(TextTabulation(tabulation, 60, Colour::kNone, Chart::kSigns), R"(Drinks ($drinks)

           Total
                  Standard  Design  Count
           Count     error  effect  0      226
---------  -----  --------  ------  ----------
Tea          220         -       -  ##########
Coffee        80         -       -  ####
Hot (net)    226         -       -  ##########

Answered 226, none chosen 9, missing 5 of 240 cases.
Base: 226 cases that answered.
)");
  tabulation.figures = {false, false, true, false, false};
  EXPECT_EQ(TextTabulation(tabulation, 50, Colour::kNone, Chart::kSigns), R"(Drinks ($drinks)

           Total
                % of  % of responses
           responses  0            73.3
---------  ---------  -----------------
Tea             73.3  #################
Coffee          26.7  ######
Hot (net)        -

Answered 226, none chosen 9, missing 5 of 240
cases.
Base: 226 cases that answered.
Responses: 300, 1.33 per case.
)");
  tabulation.figures = {false, false, false, true, false};
  EXPECT_EQ(TextTabulation(tabulation, 60, Colour::kNone, Chart::kSigns), TextTabulation(tabulation, 60));
}

TEST(TextTabulation, DrawsNoBarsWhereNoneHasALength) {
  Tabulation tabulation = Drinks();
  for (TabulationRow& row : tabulation.rows) {
    row.cells.front().percentOfCases = {};
  }
  EXPECT_EQ(TextTabulation(tabulation, 60, Colour::kNone, Chart::kBlocks), TextTabulation(tabulation, 60));
}

TEST(TextTabulation, ShowsLinesOfLabelsAsLinesAndOtherTextsOnOne) {
  Tabulation tabulation = DrinksByRegion();
  tabulation.label = "Drinks\nat breakfast";
  tabulation.where = "age > 30\r\n  AND age < 40";
  tabulation.none = "-1";
  tabulation.columns[1].labels = {"North\nand more"};
  tabulation.columns.resize(2);
  tabulation.rows.resize(1);
  tabulation.rows[0].label = "Tea\nor more";
  tabulation.rows[0].cells.resize(2);
  tabulation.notes = {"One\nline."};
  EXPECT_EQ(TextTabulation(tabulation, 60), R"(Drinks at breakfast ($drinks)
Where: age > 30 AND age < 40
None chosen: -1

                                region -----
                                North
                 Total          and more
                         % of           % of
                 Count  cases   Count  cases
---------------  -----  -----   -----  -----
Tea                220   97.3     124   96.9
or more
---------------  -----  -----   -----  -----
All cases          240            140
Answered (base)    226            128
None chosen          9              7
Missing              5              5

One line.
)");
}

// Ends in time only when the work grows with the columns and not with their square.
TEST(TextTabulation, ChartsOfManyColumnsTakeTimeInProportion) {
  constexpr std::size_t kColumns = 30'000;
  Tabulation tabulation = Drinks();
  tabulation.rows.resize(1);
  tabulation.columns.resize(kColumns, TabulatedColumn("region", {"N"}, {"North"}, {140, 128, 7, 5, 128}));
  tabulation.rows[0].cells.resize(kColumns, UnweightedCell(64, 128, 128));
  const std::string text = TextTabulation(tabulation, 80, Colour::kNone, Chart::kSigns);
  EXPECT_EQ(static_cast<std::size_t>(std::count(text.begin(), text.end(), '#')), kColumns * 5 + 5);
}

TEST(TextTabulation, IsNeverWiderThanTheWindow) {
  const std::vector<Tabulation> all = {Drinks(),
                                       DrinksByRegion(),
                                       WeightedDrinks(),
                                       DrinksByFood(),
                                       HostileDrinks(kHostileText),
                                       HostileDrinks(std::string(60, 'W'))};
  for (const Tabulation& tabulation : all) {
    for (const Chart chart : {Chart::kNone, Chart::kBlocks}) {
      for (std::size_t width = 24; width <= 160; ++width) {
        std::istringstream text(TextTabulation(tabulation, width, Colour::kNone, chart));
        for (std::string line; std::getline(text, line);) {
          ASSERT_LE(DisplayWidth(line), width) << line;
        }
      }
    }
  }
}

TEST(TextTabulation, PaintsTheTitleAlone) {
  const std::string text = TextTabulation(WeightedDrinks(), 80);
  const std::string title = "Drinks ($drinks)";
  EXPECT_EQ(TextTabulation(WeightedDrinks(), 80, Colour::kAnsi),
            "\x1b[1m" + title + "\x1b[0m" + text.substr(title.size()));
}

TEST(TextTabulation, ShowsASetWithoutMembersOrLabel) {
  Tabulation tabulation = Drinks();
  tabulation.label = "$drinks";
  tabulation.rows.clear();
  tabulation.columns.front() = TabulatedColumn("", {}, {"Total"}, {1, 0, 0, 1, 0});
  tabulation.base = TabulationBase::kComplete;
  tabulation.notes.clear();
  EXPECT_EQ(TextTabulation(tabulation, 80),
            "$drinks\n"
            "\n"
            "   Total\n"
            "           % of\n"
            "   Count  cases\n"
            "-  -----  -----\n"
            "(none)\n"
            "\n"
            "Answered 0, none chosen 0, missing 1 of 1 case.\n"
            "Base: 0 cases without a missing variable.\n");
}

TEST(TextTabulation, TakesLongLabelsAndManyMembers) {
  Tabulation tabulation = DrinksByRegion();
  tabulation.rows[0].label = std::string(1 << 20, 'x');
  tabulation.columns[1].labels = {std::string(1 << 20, 'y')};
  const std::string text = TextTabulation(tabulation, 80);
  EXPECT_EQ(std::count(text.begin(), text.end(), 'x'), 1 << 20);
  EXPECT_EQ(std::count(text.begin(), text.end(), 'y'), 1 << 20);
  tabulation = DrinksByRegion();
  tabulation.rows.resize(10000, tabulation.rows.front());
  const std::string many = TextTabulation(tabulation, 40);
  EXPECT_GT(std::count(many.begin(), many.end(), '\n'), 30000);
}

TEST(TextBar, IsAsLongAsTheShareAndEmptyForNothingAlone) {
  struct Row {
    double share;
    std::size_t width;
    Chart chart;
    std::string bar;
  };
  const std::vector<Row> rows = {
      {0, 10, Chart::kBlocks, ""},
      {-1, 10, Chart::kSigns, ""},
      {1, 3, Chart::kNone, ""},
      {1, 3, Chart::kBlocks, "\u2588\u2588\u2588"},
      {2, 3, Chart::kSigns, "###"},
      {0.5, 3, Chart::kBlocks, "\u2588\u258C"},
      {0.0001, 3, Chart::kBlocks, "\u258F"},
      {0.0001, 3, Chart::kSigns, "#"},
      {0.5, 3, Chart::kSigns, "##"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(TextBar(row.share, row.width, row.chart), row.bar) << row.share;
  }
}

TEST(AlignAtPoint, PutsPointsBelowEachOther) {
  std::vector<std::string> texts = {"12.5", "-", "", "<0.001", "3", "100.25"};
  AlignAtPoint(texts);
  EXPECT_EQ(texts, (std::vector<std::string>{" 12.5  ", "  -    ", "", " <0.001", "  3    ", "100.25 "}));
}

}  // namespace
}  // namespace standalone
