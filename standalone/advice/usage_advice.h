#ifndef STANDALONE_ADVICE_USAGE_ADVICE_H
#define STANDALONE_ADVICE_USAGE_ADVICE_H

#include <CLI/App.hpp>
#include <string>

#include "standalone/advice/next_steps.h"

namespace standalone {

/// What to say to arguments that cannot be.
struct UsageAdvice {
  std::string sentence;  ///< what is wrong
  NextSteps nextSteps;   ///< what to do about it
};

/// The advice for what CLI11 found wrong with the arguments, the last of which is `lastWord`.
UsageAdvice AdviceFor(const CLI::App& app, const CLI::ParseError& error, const std::string& lastWord);

}  // namespace standalone

#endif  // STANDALONE_ADVICE_USAGE_ADVICE_H
