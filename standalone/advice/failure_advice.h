#ifndef STANDALONE_ADVICE_FAILURE_ADVICE_H
#define STANDALONE_ADVICE_FAILURE_ADVICE_H

#include <CLI/App.hpp>

#include "standalone/advice/next_steps.h"
#include "standalone/text/error.h"

namespace standalone {

/// What to do once a subcommand has failed: where there is nothing to run, or a file that it names is missing or of
/// another kind. Nothing where the sentence of the error says it all.
NextSteps AdviceOnFailure(const CLI::App& subcommand, const Error& error);

}  // namespace standalone

#endif  // STANDALONE_ADVICE_FAILURE_ADVICE_H
