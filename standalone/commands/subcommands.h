#ifndef STANDALONE_COMMANDS_SUBCOMMANDS_H
#define STANDALONE_COMMANDS_SUBCOMMANDS_H

#include <CLI/App.hpp>
#include <functional>
#include <string>

#include "standalone/console/exit_status.h"

namespace standalone {

/// What a subcommand does once its options are read. What it throws, derived from std::exception, is a sentence for the
/// user.
using Action = std::function<ExitStatus()>;

/// One subcommand of the program.
struct Subcommand {
  const char* name;
  const char* description;
  Action (*declare)(CLI::App& options);  ///< declares the options; the action owns what they are read into
};

Action DeclareImport(CLI::App& options);
Action DeclareRun(CLI::App& options);
Action DeclareSets(CLI::App& options);
Action DeclareVariables(CLI::App& options);
Action DeclareLog(CLI::App& options);
Action DeclareUndo(CLI::App& options);
Action DeclareCheck(CLI::App& options);
Action DeclareShell(CLI::App& options);
Action DeclareScript(CLI::App& options);
Action DeclareDiff(CLI::App& options);
Action DeclareCopy(CLI::App& options);
Action DeclareTabulate(CLI::App& options);

}  // namespace standalone

#endif  // STANDALONE_COMMANDS_SUBCOMMANDS_H
