#ifndef STANDALONE_PROGRAM_FAILURE_ADVICE_H
#define STANDALONE_PROGRAM_FAILURE_ADVICE_H

#include <CLI/App.hpp>
#include <string>

#include "standalone/program/next_steps.h"

namespace standalone {

/// What to do once a subcommand has failed with this sentence: where there is nothing to run, or a file that it names
/// is none of those that are wanted. Nothing where the sentence says it all.
NextSteps AdviceOnFailure(const CLI::App& subcommand, const std::string& sentence);

}  // namespace standalone

#endif  // STANDALONE_PROGRAM_FAILURE_ADVICE_H
