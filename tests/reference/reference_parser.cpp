#include "tests/reference/reference_parser.h"

#include "tests/reference/command.h"
#include "tests/reference/groups.h"
#include "tests/reference/name_lists.h"

namespace reference {
namespace {

bool ParseSubcommand(Command& command, Record& subcmd) {
  command.Next();
  if (IsTokenEqualWith(command, "MDGROUP")) {
    subcmd.fType = Record::kMDGROUP;
    return ParseMDGroup(command, subcmd) && ValidateMDGroup(command, subcmd);
  }
  if (IsTokenEqualWith(command, "MCGROUP")) {
    subcmd.fType = Record::kMCGROUP;
    return ParseMCGroup(command, subcmd) && ValidateMCGroup(command, subcmd);
  }
  if (IsTokenEqualWith(command, "DISPLAY")) {
    subcmd.fType = Record::kDISPLAY;
    return ParseDisplay(command, subcmd) && ValidateMRSetName(command, subcmd);
  }
  if (IsTokenEqualWith(command, "DELETE")) {
    subcmd.fType = Record::kDELETE;
    return ParseDelete(command, subcmd) && ValidateMRSetName(command, subcmd);
  }
  subcmd.fType = Record::kNONE;
  return command.Fail("Invalid MRSET subcommand. Found ^1 ..", command.TokenString());
}

bool MRSetParse(Command& command, std::vector<Record>& subcommands) {
  command.Next();
  Require(command.Type() == TokenSequenceBase::kString, "command.Type() == TokenSequenceBase::kString");
  RequireKeyword(command, "MRSET");
  while (command.Next()) {
    if (!IsTokenEqualWith(command, "/", false)) {
      if (!subcommands.empty()) {
        return command.Fail("Begin subcommand symbol expected. Found ^1 ...", command.TokenString());
      }
      MovePrevious(command);
    }
    Record record;
    if (!ParseSubcommand(command, record)) {
      return false;
    }
    subcommands.push_back(record);
  }
  if (subcommands.empty()) {
    return command.Fail("No subcommand in MRSET command.");
  }
  return true;
}

}  // namespace

scripted::Token DefaultEnd() {
  return {TokenSequenceBase::kEnd, "end of command", scripted::kNoSymbol, 0};
}

ParseResult Parse(const std::vector<scripted::Token>& tokens, const std::vector<scripted::Variable>& dictionary,
                  const scripted::Token& end) {
  Command command(tokens, end, dictionary);
  ParseResult result;
  try {
    result.parsed = MRSetParse(command, result.records);
  } catch (const AssertionFailed& failure) {
    result.assertion = failure.expression;
  }
  result.messages = command.Messages().Lines();
  result.cursor = command.Position();
  return result;
}

}  // namespace reference
