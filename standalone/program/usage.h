#ifndef STANDALONE_PROGRAM_USAGE_H
#define STANDALONE_PROGRAM_USAGE_H

#include <CLI/App.hpp>
#include <string>
#include <vector>

namespace standalone {

/// What to say to arguments that cannot be.
struct UsageAdvice {
  std::string sentence;               ///< what is wrong
  std::vector<std::string> nextStep;  ///< what to do about it, in lines
};

/// The advice for what CLI11 found wrong with the arguments.
UsageAdvice AdviceFor(const CLI::App& app, const CLI::ParseError& error);

}  // namespace standalone

#endif  // STANDALONE_PROGRAM_USAGE_H
