// Text into the grammar of TABULATE, as a command, as a condition and as the value of an option: what is read can be
// written and read again, and says the same; what is refused has a sentence and a place; completion follows any of it.

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/tabulation/grammar/tabulate_grammar.h"
#include "standalone/tabulation/tabulation_error.h"
#include "tests/fuzz/check.h"
#include "tests/fuzz/tabulate_text.h"
#include "tests/fuzz/target.h"

namespace fuzz {
namespace {

using standalone::Spoken;
using standalone::TabulationRequest;
using standalone::Token;

void CheckError(const standalone::TabulationError& error, std::string_view text) {
  const std::string sentence = error.what();
  Check(!sentence.empty() && sentence.back() == '.', "an error is a sentence");
  Check(error.Offset() <= text.size() && error.Size() <= text.size() - error.Offset(), "its place lies in the text");
}

void CheckSpoken(const std::vector<Spoken>& list, std::string_view text) {
  for (const Spoken& one : list) {
    Check(one.offset <= text.size() && one.size <= text.size() - one.offset, "a word lies in the text");
    Check(one.isQuoted || one.text == text.substr(one.offset, one.size), "a word is as it is written");
  }
}

void CheckRequest(const TabulationRequest& request, std::string_view text) {
  Check(!request.sets.empty(), "a command has a set");
  Check(request.confidence > 0 && request.confidence < 100, "the confidence is in its range");
  Check(request.decimals >= 0 && request.decimals <= 15 && request.minBase >= 0, "the numbers are in their ranges");
  Check(request.where.has_value() == !request.whereText.empty(), "a condition has its text");
  CheckSpoken(request.sets, text);
  CheckSpoken(request.last, text);
  for (const standalone::NetRequest& net : request.nets) {
    Check(!net.members.empty(), "a net has members");
    CheckSpoken({net.label}, text);
    CheckSpoken(net.members, text);
  }
}

/// A label may go over lines; a quoted one does not.
bool CanBeWritten(const TabulationRequest& request) {
  return std::none_of(request.nets.begin(), request.nets.end(), [](const standalone::NetRequest& net) {
    return net.label.text.find_first_of("\n\r") != std::string::npos;
  });
}

void CheckRoundTrip(const TabulationRequest& request) {
  const std::string command = ToCommand(request);
  const TabulationRequest again = standalone::ParseTabulate(standalone::Tokenize(command), command);
  CheckSame(ToCommand(again), command, "a request that is written and read again");
}

void TryCommand(const std::string& command) {
  const std::vector<Token> tokens = standalone::Tokenize(command);
  constexpr std::size_t kMaxFollowed = 60;
  for (std::size_t count = 1; count < std::min(tokens.size(), kMaxFollowed); ++count) {
    standalone::ExpectedInTabulate(tokens, count, command);
  }
  try {
    const TabulationRequest request = standalone::ParseTabulate(tokens, command);
    CheckRequest(request, command);
    if (CanBeWritten(request)) {
      CheckRoundTrip(request);
    }
  } catch (const standalone::TabulationError& error) {
    CheckError(error, command);
  }
}

void TryOptions(const std::string& text) {
  const std::vector<Token> tokens = standalone::Tokenize(text);
  for (const standalone::TabulateSubcommand& subcommand : standalone::TabulateSubcommands()) {
    TabulationRequest request;
    try {
      standalone::ParseTabulateOption(subcommand, tokens, text, request);
    } catch (const standalone::TabulationError& error) {
      CheckError(error, text);
    }
  }
}

void Try(const std::string& text) {
  try {
    TryCommand("TABULATE " + text);
    TryCommand("TABULATE $a /WHERE=" + text);
    TryOptions(text);
  } catch (const standalone::TokenizerError&) {
    // The tokenizer has a target of its own.
  }
}

}  // namespace
}  // namespace fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Try({reinterpret_cast<const char*>(data), size});
  return 0;
}
