#ifndef STANDALONE_TABULATION_TABULATION_H
#define STANDALONE_TABULATION_TABULATION_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace standalone {

// A set as it was counted, as values that every output format and the channel between processes share. Percentages,
// standard errors and limits are 0 to 100 and not rounded. A figure that cannot be had, as one over an empty base, is
// none.

using Figure = std::optional<double>;

/// The cases that percentages are of.
enum class TabulationBase { kAnswered, kAsked, kComplete, kAll };

/// How the p of tests are adjusted over the members.
enum class Adjustment { kHolm, kBonferroni };

/// Which figures of a cell are shown; JSON and CSV show them all, errors and limits only where one of them is asked
/// for.
struct TabulationFigures {
  bool count = true;
  bool percentOfCases = true;
  bool percentOfResponses = false;
  bool standardError = false;
  bool interval = false;
};

/// Numbers of cases, not weighted.
struct TabulatedCases {
  std::int64_t all = 0;
  std::int64_t answered = 0;
  std::int64_t noneChosen = 0;
  std::int64_t missing = 0;
  std::int64_t base = 0;
};

struct TabulationColumn {
  std::string by;                   ///< "region", "$food", "region*vegetarian"; empty for the total
  std::vector<std::string> values;  ///< none for the total, two for a pair
  std::vector<std::string> labels;  ///< of the values; "Total"
  TabulatedCases cases;
  double weightedBase = 0;
  Figure effectiveBase;
  double responses = 0;  ///< the sum of the counts of all members
  Figure responsesPerCase;
};

struct TabulationCell {
  std::int64_t cases = 0;  ///< that chose the member, not weighted
  double count = 0;
  Figure percentOfCases;
  Figure percentOfResponses;  ///< none for a net
  Figure standardError;       ///< of the percentage of cases; the last four only with ERROR or INTERVAL
  Figure low;
  Figure high;
  Figure designEffect;
};

struct TabulationRow {
  std::string member;  ///< a variable's name, or a value; of a net, its label
  std::string label;
  bool isNet = false;
  std::vector<TabulationCell> cells;  ///< one for each column
};

struct MemberTest {
  std::string member;
  std::string byMember;  ///< for a BY that is a set; else empty
  Figure statistic;
  int degreesOfFreedom = 0;
  Figure p;
  Figure adjustedP;
};

/// A set against one BY.
struct TabulationTest {
  std::string by;
  Figure statistic;  ///< X_S, the sum of those of the members
  Figure corrected;
  Figure degreesOfFreedom;
  Figure p;
  std::vector<MemberTest> members;
};

struct Tabulation {
  std::string set;
  std::string label;
  TabulationBase base = TabulationBase::kAnswered;
  std::optional<std::string> weight;
  std::optional<std::string> where;  ///< as written
  std::optional<std::string> none;   ///< the value that says that nothing applies
  bool hasErrors = false;            ///< ERROR or INTERVAL was asked for
  bool hasTests = false;             ///< TEST was asked for
  Adjustment adjustment = Adjustment::kHolm;
  TabulationFigures figures;
  double confidence = 95;
  std::int64_t minBase = 0;  ///< columns with a smaller base show no percentages; 0: none was asked for
  int decimals = 1;
  std::vector<TabulationColumn> columns;  ///< the total first, then those of each BY
  std::vector<TabulationRow> rows;        ///< in the order in which they are shown
  std::vector<TabulationTest> tests;
  std::vector<std::string> notes;  ///< sentences
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_TABULATION_H
