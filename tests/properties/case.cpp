#include "tests/properties/case.h"

#include <ostream>

#include "tests/properties/code.h"

namespace properties {
namespace {

std::string InQuotes(const std::string& text) {
  std::string quoted = "'";
  for (const char character : text) {
    quoted.append(character == '\'' ? 2 : 1, character);
  }
  return quoted + "'";
}

}  // namespace

std::string CommandText(const Tokens& tokens) {
  std::string text;
  for (const scripted::Token& token : tokens) {
    text += token.type == TokenSequenceBase::kQuotedString ? InQuotes(token.text) : token.text;
    text += ' ';
  }
  return text + ".";  // else a period that ends the last word would be taken for the command's
}

bool CanBeTyped(const Tokens& tokens) {
  return scripted::Tokenize(CommandText(tokens)) == tokens;
}

scripted::HostSetup SetupOf(const Case& example) {
  scripted::HostSetup setup{example.dictionary, example.sets, true, {}};
  setup.hooks.truth = example.truth;
  setup.hooks.cursorAfterVarList = example.cursorAfterVarList;
  return setup;
}

std::ostream& operator<<(std::ostream& stream, const Case& example) {
  if (CanBeTyped(example.tokens)) {
    stream << "\ncommand:    " << CommandText(example.tokens);
  }
  stream << "\ntokens:     " << ToCode(example.tokens) << "\nend:        " << ToCode(example.end)
         << "\ndictionary: " << ToCode(example.dictionary) << "\nsets:       " << ToCode(example.sets);
  if (example.truth != 1) {
    stream << "\ntruth:      " << example.truth;
  }
  if (example.cursorAfterVarList) {
    stream << "\ncursor after a variable list: " << *example.cursorAfterVarList;
  }
  return stream << '\n';
}

}  // namespace properties
