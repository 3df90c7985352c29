#ifndef HOST_MODULE_H
#define HOST_MODULE_H

#include <string>
#include <vector>

#include "host/dictionary.h"
#include "host/output.h"
#include "host/tokens.h"

// What the module exports. A host loads the module at run time and looks up `mrset_`, or links with it.
//
// The module and its host are built as C++17, with the same C++ standard library. The module works on the thread that
// calls it, and keeps nothing from one call to the next. Every operation of host/ may throw, except for destructors:
// the exception passes through the module unchanged, after everything that the module made has been released in reverse
// order.
//
// Broken invariants end the process by an assertion, in every build type. Users can reach these: a DELETE of an empty
// list (NAME=[], or another symbol after the "=") or of a name without its "$", a DELETE of a name that is stored
// twice, and an MCGROUP without a name. A host that must survive them runs commands in a process that may end.

/// Runs the host's current command, which must be MRSET: parses it and, if that succeeded, applies it to the active
/// dataset. Does nothing when no dataset is open.
extern "C" void mrset_();

// For hosts that want the two phases by themselves. The record of a subcommand is backend/mrset/mrsetsubcommand.h.

struct MRSetSubcommand;
using MRSETSUBCOMMANDS = std::vector<MRSetSubcommand>;

/// Reads a whole command from a stream that stands before the command name, and appends a record for each subcommand to
/// `subcommands`, which is empty at first. False when the command must not be applied.
bool MRSetParse(ZEVA_TokenSequence& command, const ZEVA_DataSource& dataSource, MRSETSUBCOMMANDS& subcommands);

/// Applies the records in their order to the data source's sets and saves these, also when nothing changed. The source
/// is saved to: it must not be a constant object.
void MRSetApply(const MRSETSUBCOMMANDS& subcommands, const ZEVA_DataSource& dataSource, BpProcedure& procedure);

/// Issues a message at error level. "^1" and "^2" in the template stand for the arguments; an empty one counts as
/// absent.
void GenerateError(const std::string& messageTemplate, const std::string& first, const std::string& second);

/// The same at warning level.
void GenerateWarning(const std::string& messageTemplate, const std::string& first, const std::string& second);

#endif  // HOST_MODULE_H
