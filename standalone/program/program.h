#ifndef STANDALONE_PROGRAM_PROGRAM_H
#define STANDALONE_PROGRAM_PROGRAM_H

#include <CLI/App.hpp>
#include <memory>

#include "standalone/commands/subcommands.h"

namespace standalone {

/// The program with all subcommands and options; help, manual, manual page and completions come from these
/// declarations. Parsing sets `chosen`, which must outlive the result, to what the given subcommand does.
std::unique_ptr<CLI::App> DeclareProgram(Action& chosen);

/// The program mrset: reads the arguments, does what they say and returns the exit status. Results go to standard
/// output, everything else to standard error.
int RunProgram(int argc, const char* const* argv);

}  // namespace standalone

#endif  // STANDALONE_PROGRAM_PROGRAM_H
