#include "tests/reference/groups.h"

#include "tests/reference/attribute_parsers.h"
#include "tests/reference/variable_lists.h"

namespace reference {
namespace {

bool Fail(Report& report, const std::string& pattern, const std::string& first = {}) {
  report.Error(pattern, first);
  return false;
}

bool ParseMDKeyword(Command& command, Record& subcmd) {
  if (IsTokenEqualWith(command, "NAME")) {
    return ParseMRName(command, subcmd.fName);
  }
  if (IsLabelSource(command)) {
    return ParseLabelSource(command, subcmd.fLabelSourceVarLabel);
  }
  if (IsTokenEqualWith(command, "LABEL")) {
    return ParseLabel(command, subcmd.fLabel);
  }
  if (IsTokenEqualWith(command, "CATEGORYLABELS")) {
    return ParseCategoryLabels(command, subcmd.fCategoryLabelsCountedValues);
  }
  if (IsTokenEqualWith(command, "VARIABLES")) {
    return ParseVariables(command, subcmd.fVariables, subcmd.fAll);
  }
  if (IsTokenEqualWith(command, "VALUE")) {
    return ParseValue(command, subcmd.fValue, subcmd.fValueIsNumber);
  }
  return command.Fail("Unexpected ^1 keyword in MDGROUP subcommand.", command.TokenString());
}

bool ParseMCKeyword(Command& command, Record& subcmd) {
  if (IsTokenEqualWith(command, "NAME")) {
    return ParseMRName(command, subcmd.fName);
  }
  if (IsTokenEqualWith(command, "LABEL") && !IsLabelSource(command)) {
    return ParseLabel(command, subcmd.fLabel);
  }
  if (IsTokenEqualWith(command, "VARIABLES")) {
    return ParseVariables(command, subcmd.fVariables, subcmd.fAll);
  }
  return command.Fail("Unexpected ^1 keyword in MCGROUP subcommand.", command.TokenString());
}

template <class KeywordParser>
bool ParseKeywords(Command& command, Record& subcmd, KeywordParser parseKeyword) {
  bool result = false;
  while (!IsTokenEqualWith(command, "/", false) && !command.AtEnd()) {
    result = parseKeyword(command, subcmd);
    if (!result) {
      break;
    }
    command.Next();
  }
  MovePrevious(command);
  return result;
}

}  // namespace

bool ParseMDGroup(Command& command, Record& subcmd) {
  RequireKeyword(command, "MDGROUP");
  Require(subcmd.fType == Record::kMDGROUP, "subcmd.fType == MRSetSubcommand::kMDGROUP");
  command.Next();
  if (command.AtEnd()) {
    command.Messages().Error("Empty MDGroup found");
  }
  return ParseKeywords(command, subcmd, ParseMDKeyword);
}

bool ParseMCGroup(Command& command, Record& subcmd) {
  RequireKeyword(command, "MCGROUP");
  Require(subcmd.fType == Record::kMCGROUP, "subcmd.fType == MRSetSubcommand::kMCGROUP");
  command.Next();
  if (command.AtEnd()) {
    command.Messages().Error("Empty MCGroup found");
  }
  return ParseKeywords(command, subcmd, ParseMCKeyword);
}

bool ValidateMDGroup(Command& command, Record& subcmd) {
  return ValidateMDGroup(subcmd, command.Dictionary(), command.Messages());
}

bool ValidateMCGroup(Command& command, Record& subcmd) {
  return ValidateMCGroup(subcmd, command.Dictionary(), command.Messages());
}

bool ValidateMDGroup(const Record& subcmd, const Variables& dictionary, Report& report) {
  Require(subcmd.fType == Record::kMDGROUP, "subcmd.fType == MRSetSubcommand::kMDGROUP");
  if (subcmd.fName.empty()) {
    return Fail(report, "MDGROUP has no name.");
  }
  if (!subcmd.fAll && subcmd.fVariables.empty()) {
    return Fail(report, "MDGROUP ^1 has no variable names.", subcmd.fName);
  }
  if (subcmd.fValue.empty()) {
    return Fail(report, "MDGROUP ^1 has no counted value.", subcmd.fName);
  }
  int type = -1;
  if (!subcmd.fAll && !AreValidVariables(subcmd.fVariables, dictionary, subcmd.fValue,
                                         subcmd.fCategoryLabelsCountedValues, type, report)) {
    return false;
  }
  if (type == 0 && !subcmd.fValueIsNumber) {
    return Fail(report, "^1:variables are numbers and countedval is string.", subcmd.fName);
  }
  if (type != 0 && subcmd.fValueIsNumber) {
    return Fail(report, "^1:variables are string and countedval is number.", subcmd.fName);
  }
  if (subcmd.fLabelSourceVarLabel && !subcmd.fCategoryLabelsCountedValues) {
    return Fail(report, "^1:LABELSOURCE=VARLABEL requires CATEGORYLABELS=COUNTEDVALUES...", subcmd.fName);
  }
  return true;
}

bool ValidateMCGroup(const Record& subcmd, const Variables& dictionary, Report& report) {
  Require(subcmd.fType == Record::kMCGROUP, "subcmd.fType == MRSetSubcommand::kMCGROUP");
  if (subcmd.fName.empty()) {
    report.Error("MCGROUP has no name.");  // reported, yet accepted
  }
  if (!subcmd.fAll && subcmd.fVariables.empty()) {
    return Fail(report, "MCGROUP ^1 has no variable names.", subcmd.fName);
  }
  int narrowestWidth = -1;
  if (!subcmd.fAll && !AreValidVariables(subcmd.fVariables, dictionary, subcmd.fValue, false, narrowestWidth, report)) {
    return false;
  }
  if (subcmd.fLabelSourceVarLabel) {
    return Fail(report, "^1:LABELSOURCE=VARLABEL is invalid for an MCGROUP...", subcmd.fName);
  }
  return true;
}

}  // namespace reference
