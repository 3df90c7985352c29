#include "backend/mrset/mrset.h"

#include "backend/mrset/mrsetapply.h"
#include "backend/mrset/mrsetparse.h"
#include "backend/mrset/mrsetsubcommand.h"
#include "host/dictionary.h"
#include "host/output.h"
#include "host/tokens.h"

void mrset_() {
  BpProcedure procedure("Multiple Response Set", 2);
  ZEVA_TokenSequence command(true);
  if (CmnDic->fActiveDataset == nullptr) {
    return;
  }

  // Names are checked against the procedure's own source; the sets are kept with its parent.
  ProcedureDataSource dataSource;
  MRSETSUBCOMMANDS subcommands;
  if (MRSetParse(command, dataSource, subcommands)) {
    MRSetApply(subcommands, *dataSource.GetParentSource(), procedure);
  }
}
