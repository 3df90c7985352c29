#ifndef TESTS_FUZZ_TOKEN_INPUT_H
#define TESTS_FUZZ_TOKEN_INPUT_H

#include <cstddef>
#include <string_view>
#include <vector>

#include "tests/host/scripted_host.h"

namespace fuzz {

/// A run of the module as an input describes it.
struct TokenInput {
  std::size_t fault = 0;  ///< 0 for none, else a number from which the call that fails follows
  scripted::FaultKind faultKind = scripted::FaultKind::kStandard;
  scripted::FaultMode faultMode = scripted::FaultMode::kOnce;
  bool datasetOpen = true;
  int truth = 1;
  int cursorAfterVarList = 0;
  std::vector<scripted::Variable> dictionary;
  std::vector<scripted::SetData> sets;
  std::vector<scripted::Token> tokens;
};

/// Seven characters, each standing for its distance from "0", choose all but the tokens; the command follows as text.
/// In the text, "\x01" begins a token of any kind: a character for its type, one for its symbol code, its text up to
/// "\x02" or the end, of which what follows a "\x03" is the value of the token as a number.
TokenInput ReadTokenInput(std::string_view input);

}  // namespace fuzz

#endif  // TESTS_FUZZ_TOKEN_INPUT_H
