#ifndef BACKEND_MRSET_MRSETAPPLY_H
#define BACKEND_MRSET_MRSETAPPLY_H

#include <string>
#include <vector>

#include "backend/mrset/export.h"
#include "backend/mrset/mrsetsubcommand.h"
#include "host/dictionary.h"
#include "host/output.h"
#include "host/variable_sets.h"

// The apply phase: from subcommand records to the edited list of sets and the display. It only warns; what a user can
// get wrong was refused by the parse phase, and the rest is asserted. Sets are found and ordered by the upper-case
// forms of their names, which are unique in the list.

/// Loads the data source's sets, applies the records in their order and saves the sets, also when nothing changed. A
/// DISPLAY of a list that is not empty leaves it in the order of names.
MRSET_EXPORT void MRSetApply(const MRSETSUBCOMMANDS& subcommands, const ZEVA_DataSource& dataSource,
                             BpProcedure& procedure);

/// Adds the dichotomy set of an MDGROUP record, or replaces the set of that name.
void AddMDGroup(const MRSetSubcommand& subcmd, const ZEVA_DataSource& dataSource, VARIABLESETS& sets);

/// Adds the category set of an MCGROUP record, or replaces the set of that name.
void AddMCGroup(const MRSetSubcommand& subcmd, const ZEVA_DataSource& dataSource, VARIABLESETS& sets);

/// Puts a copy of the set in the place of the set of that name, else at the end.
void ReplaceVarSet(const VariableSet& set, VARIABLESETS& sets);

/// Removes the sets that a DELETE record names.
void DeleteMRSets(const MRSetSubcommand& subcmd, VARIABLESETS& sets);

/// Removes the set of that name, or warns that there is none. The other sets keep their order.
void RemoveVarSet(const std::string& name, VARIABLESETS& sets);

/// Writes the table of the sets that a DISPLAY record names, in the order of `sets`, which is not empty. Names that
/// match no set are listed in a warning.
void DisplayMRSets(const MRSetSubcommand& subcmd, const ZEVA_DataSource& dataSource, const VARIABLESETS& sets,
                   BpProcedure& procedure);

/// "Numeric" or "String", after the first of the variables that exists; "Unknown" when none does.
std::string GetVarSetDataType(const std::vector<std::string>& variableNames, const ZEVA_DataSource& dataSource);

/// Matches the set whose name has the given upper-case form.
class FindVarSetNamePred {
 public:
  explicit FindVarSetNamePred(const std::string& upperCaseName);
  bool operator()(const VariableSet& set) const;

 private:
  std::string fUpperCaseName;
};

/// Orders sets by the bytes of their upper-case names.
struct SortVarSetNamePred {
  bool operator()(const VariableSet& first, const VariableSet& second) const;
};

#endif  // BACKEND_MRSET_MRSETAPPLY_H
