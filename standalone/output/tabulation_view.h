#ifndef STANDALONE_OUTPUT_TABULATION_VIEW_H
#define STANDALONE_OUTPUT_TABULATION_VIEW_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "standalone/output/items.h"
#include "standalone/tabulation/tabulation.h"

namespace standalone {

// What people are shown of a tabulation, whatever the form of output: only the figures that are asked for, with their
// headings; what is below the table; the tests as tables.

/// A figure of each cell.
struct ShownFigure {
  std::string heading;
  int decimals = 0;
  bool isPercentage = false;
  Figure (*of)(const TabulationCell& cell) = nullptr;
};

std::vector<ShownFigure> ShownFigures(const Tabulation& tabulation);

/// What bars are drawn of: percentages that are shown, else counts; nothing where errors alone are.
std::optional<ShownFigure> ChartedFigure(const Tabulation& tabulation);

/// The largest of a figure, which the longest bar stands for; 0 where there is none.
double Largest(const Tabulation& tabulation, const ShownFigure& figure, std::size_t beginColumn, std::size_t endColumn);

/// Columns side by side that have the same BY; the total is one of its own, whose `by` is empty.
struct ColumnGroup {
  std::string by;
  std::size_t begin = 0;
  std::size_t end = 0;
};

std::vector<ColumnGroup> ColumnGroups(const Tabulation& tabulation);

/// A figure of each column, below the members.
struct BaseRow {
  std::string label;
  int decimals = 0;
  std::vector<Figure> figures;  ///< one for each column
};

std::vector<BaseRow> BaseRows(const Tabulation& tabulation);

/// The same of the only column, in a sentence or two.
std::vector<std::string> BaseSentences(const Tabulation& tabulation);

/// "Drinks ($drinks)", or the name alone.
std::string TitleOf(const Tabulation& tabulation);

/// What was counted: "Weight: w", "Where: age > 30" and "None chosen: -1", as far as there is any.
std::vector<std::string> ScopeOf(const Tabulation& tabulation);

/// The notes, each on one line.
std::vector<std::string> NotesOf(const Tabulation& tabulation);

/// The label of a row; that of a net says so.
std::string LabelOf(const TabulationRow& row);

/// A figure as people read it; a dash where there is none.
std::string FigureText(const Figure& figure, int decimals);

/// The tests of a BY: those of the set, then those of its members.
struct TestRow {
  std::string label;
  std::string byLabel;  ///< of a member of a BY that is a set
  Figure statistic;
  Figure corrected;
  Figure degreesOfFreedom;
  Figure p;
  Figure adjustedP;
};

std::vector<TestRow> TestRows(const Tabulation& tabulation, const TabulationTest& test);

/// The headings above these, a label or two and five figures.
std::vector<std::string> TestHeadings(const Tabulation& tabulation, const TabulationTest& test);

/// Of a test of one member they are a whole number.
int DecimalsOfDegrees(const Figure& degrees);

/// Below this a p is shown as "<0.0001".
inline constexpr double kSmallestShownP = 0.00005;

std::string TitleOf(const Tabulation& tabulation, const TabulationTest& test);

/// The tests of a BY as a table of texts.
Table TestTable(const Tabulation& tabulation, const TabulationTest& test);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_TABULATION_VIEW_H
