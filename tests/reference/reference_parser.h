#ifndef TESTS_REFERENCE_REFERENCE_PARSER_H
#define TESTS_REFERENCE_REFERENCE_PARSER_H

#include <optional>
#include <string>
#include <vector>

#include "tests/host/scripted_host.h"
#include "tests/reference/record.h"

/// The module's two phases a second time, over plain data, to compare the module with: the language as tables that one
/// reader interprets, not function by function, so that a misreading is not made twice. Makes no
/// call of the host and needs none installed; the rules of the scripted host's own are its defaults.
namespace reference {

struct ParseResult {
  bool parsed = false;
  std::vector<Record> records;           ///< the accepted ones, also of a command that did not parse
  std::vector<std::string> messages;     ///< lines as of scripted::ToText(Message)
  std::optional<std::string> assertion;  ///< the expression that failed; `parsed` is false then
  int cursor = -1;                       ///< index of the current token at the end, also of a failed assertion
};

/// The scripted host's end of a command.
scripted::Token DefaultEnd();

/// Parses the tokens of one command, the command name first and without the end.
ParseResult Parse(const std::vector<scripted::Token>& tokens, const std::vector<scripted::Variable>& dictionary,
                  const scripted::Token& end = DefaultEnd());

}  // namespace reference

#endif  // TESTS_REFERENCE_REFERENCE_PARSER_H
