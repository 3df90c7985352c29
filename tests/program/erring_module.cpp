// A module for tests in the place of mrset.so. Its command reports an error where the first variable is numeric, and
// defines a set in either case; so what the error depends on can change between two tries of one command.

#include <string>

#include "host/dictionary.h"
#include "host/output.h"
#include "host/variable_sets.h"

extern "C" __attribute__((visibility("default"))) void mrset_() {
  const BpProcedure procedure("Test", 2);
  const ProcedureDataSource source;
  if (source.GetVariable(0)->GetType() == 0) {
    BpComposite message("The first variable is numeric.", true);
    message.Finish();
    BpError(message, kBpErrorShow, kBpErrorLevelError);
  }
  const ZEVA_DataSource& parent = *source.GetParentSource();
  VARIABLESETS sets = VariableSets(parent, kMRSets);
  sets.emplace_back("$made" + std::to_string(sets.size() + 1), VariableSet::kMCSet);
  sets.back().AddVariableName("t1");
  sets.back().AddVariableName("t2");
  // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): the sets are saved to the source that comes as a constant
  SaveVariableSets(sets, const_cast<ZEVA_DataSource&>(parent), kMRSets);
}
