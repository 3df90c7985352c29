#ifndef STANDALONE_PROGRAM_DECLARATIONS_H
#define STANDALONE_PROGRAM_DECLARATIONS_H

#include <CLI/App.hpp>
#include <memory>

#include "standalone/program/subcommands.h"

namespace standalone {

/// The program with all subcommands and options. Help, manual, manual page and completions come from these declarations
/// alone. Parsing sets `chosen`, which must outlive the result, to what the given subcommand does.
std::unique_ptr<CLI::App> DeclareProgram(Action& chosen);

}  // namespace standalone

#endif  // STANDALONE_PROGRAM_DECLARATIONS_H
