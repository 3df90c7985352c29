#include "tests/reference/name_lists.h"

namespace reference {
namespace {

bool ParseKeywords(Command& command, Record& subcmd, const std::string& emptyMessage,
                   const std::string& unknownMessage) {
  command.Next();
  if (command.AtEnd()) {
    command.Messages().Error(emptyMessage);
  }
  bool result = false;
  while (!IsTokenEqualWith(command, "/", false) && !command.AtEnd()) {
    if (!IsTokenEqualWith(command, "NAME")) {
      result = command.Fail(unknownMessage, command.TokenString());
      break;
    }
    result = ParseNames(command, subcmd.fNames, subcmd.fAll);
    if (!result) {
      break;
    }
    command.Next();
  }
  MovePrevious(command);
  return result;
}

/// Entered with the token that ends a bracketed list of names.
bool CheckListEnd(Command& command) {
  const std::string notAName = "Name or right sq bracket expected. Found ^1...";
  if (command.Type() == TokenSequenceBase::kSymbol && command.Symbol() == 37) {
    return true;
  }
  if (command.Type() == TokenSequenceBase::kSymbol) {
    if (command.AtEnd()) {
      return command.Fail("Right square bracket expected. EoC found.");
    }
    return command.Fail(notAName, command.TokenString());
  }
  if (command.AtEnd()) {
    return command.Fail("Square bracket expected.");
  }
  return command.Fail(notAName, command.TokenString());
}

/// Every name counts as found, so that no warning is ever given.
bool FindMRSetName(const std::string& mrSetName) {
  Require(!mrSetName.empty(), "!mrSetName.empty()");
  return false;
}

}  // namespace

bool ParseDisplay(Command& command, Record& subcmd) {
  RequireKeyword(command, "DISPLAY");
  Require(subcmd.fType == Record::kDISPLAY, "subcmd.fType == MRSetSubcommand::kDISPLAY");
  return ParseKeywords(command, subcmd, "Empty Display found", "Unexpected ^1 keyword in DISPLAY subcommand.");
}

bool ParseDelete(Command& command, Record& subcmd) {
  RequireKeyword(command, "DELETE");
  Require(subcmd.fType == Record::kDELETE, "subcmd.fType == MRSetSubcommand::kDELETE");
  return ParseKeywords(command, subcmd, "Empty Delete found", "Unexpected ^1 keyword in DELETE subcommand.");
}

bool ParseNames(Command& command, std::vector<std::string>& names, bool& all) {
  RequireKeyword(command, "NAME");
  names.clear();
  all = false;
  command.Next();
  if (!IsTokenEqualWith(command, "=", false)) {
    return command.Fail("Names \"=\" was expected. Found ^1...", command.TokenString());
  }
  command.Next();
  if (command.Type() != TokenSequenceBase::kSymbol && command.Symbol() != 36 && command.Symbol() != 35) {
    return command.Fail("Square bracket expected.");
  }
  if (command.Symbol() == 36) {
    command.Next();
    while (command.Type() == TokenSequenceBase::kString) {
      names.push_back(command.TokenString());
      command.Next();
    }
    return CheckListEnd(command);
  }
  if (command.Symbol() == 35) {
    all = true;
  }
  return true;  // also for any other symbol
}

bool ValidateMRSetName(Command& command, Record& subcmd) {
  Require(subcmd.fType == Record::kDISPLAY || subcmd.fType == Record::kDELETE,
          "(subcmd.fType == MRSetSubcommand::kDISPLAY) || (subcmd.fType == MRSetSubcommand::kDELETE)");
  for (const std::string& name : subcmd.fNames) {
    if (FindMRSetName(name)) {
      command.Messages().Warning("The MRSET ^1 is not in the dataset.", name);
    }
  }
  return true;
}

}  // namespace reference
