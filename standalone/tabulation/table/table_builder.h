#ifndef STANDALONE_TABULATION_TABLE_TABLE_BUILDER_H
#define STANDALONE_TABULATION_TABLE_TABLE_BUILDER_H

#include <string>
#include <vector>

#include "standalone/tabulation/counting/set_count.h"
#include "standalone/tabulation/request.h"
#include "standalone/tabulation/statistics/figures.h"
#include "standalone/tabulation/tabulation.h"

namespace standalone {

/// Makes the table of a set that was counted, with the notes on its tests and no others.
class TableBuilder {
 public:
  TableBuilder(const SetCount& count, const TabulationRequest& request, const Figures& figures);

  Tabulation Table() const;

 private:
  TabulationColumn ColumnOf(std::size_t by, const ByCategory& category) const;
  double ResponsesIn(std::size_t by, const ByCategory& category) const;
  TabulationRow RowOf(std::size_t row, bool isNet) const;
  void AddNets(Tabulation& table) const;
  void AddMembers(Tabulation& table) const;
  void AddTests(Tabulation& table) const;

  const SetCount& fCount;
  const TabulationRequest& fRequest;
  const Figures& fFigures;
  std::vector<Member> fMembers;                      // as they are shown
  std::vector<std::vector<ByCategory>> fCategories;  // of each BY
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_TABLE_TABLE_BUILDER_H
