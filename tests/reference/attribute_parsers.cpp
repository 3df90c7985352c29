#include "tests/reference/attribute_parsers.h"

#include <cmath>

#include "tests/host/letters.h"

namespace reference {
namespace {

/// Steps over the "=" to the value.
bool MoveToValue(Command& command, const std::string& keyword, const std::string& missing) {
  command.Next();
  if (!IsTokenEqualWith(command, "=", false)) {
    return command.Fail(missing, keyword, command.TokenString());
  }
  command.Next();
  return true;
}

const char kMissingWithSemicolon[] = "MRSET ^1 was expecting \"=\". Found ^2...;";
const char kMissing[] = "MRSET ^1 was expecting \"=\". Found ^2...";

bool IsWord(const Command& command, const std::string& keyword) {
  return command.Type() == TokenSequenceBase::kString && IsTokenEqualWith(command, keyword);
}

}  // namespace

bool ParseMRName(Command& command, std::string& name) {
  RequireKeyword(command, "NAME");
  if (!MoveToValue(command, "NAME", kMissingWithSemicolon)) {
    return false;
  }
  if (command.Type() != TokenSequenceBase::kString) {
    return command.Fail("Unexpected MRSET name value ^1 was found.", command.TokenString());
  }
  name = command.TokenString();
  if (name.substr(0, 1) != "$") {
    return command.Fail("The MRSET name ^1 must start with $.", name);
  }
  if (name.size() > 64) {
    return command.Fail("The MRSET name ^1 has more than 8 chars length", name);
  }
  if (!IsValidName(name)) {
    return command.Fail("The MRSET name ^1 is invalid", name);
  }
  return CheckNextToken(command);
}

bool ParseLabel(Command& command, std::string& label) {
  Require(IsTokenEqualWith(command, "LABEL") && !IsLabelSource(command),
          "IsTokenEqualWith(command, std:: string(\"LABEL\")) && "
          "!IsTruncatedTokenEqualWith(command, std:: string(\"LABELSOURCE\"), 6)");
  if (!MoveToValue(command, "LABEL", kMissingWithSemicolon)) {
    return false;
  }
  if (command.Type() != TokenSequenceBase::kQuotedString) {
    return command.Fail("A quoted label string was expected. Found ^1 ..", command.TokenString());
  }
  label = command.TokenString();
  if (label.size() > 255) {
    command.Messages().Warning("The MRSET label ^1 will be truncated to a length of 255 chars.", label);
    label = std::string(scripted::WholeCharacters(label, 255));
  }
  return CheckNextToken(command);
}

bool ParseLabelSource(Command& command, bool& labelByVariable) {
  labelByVariable = false;
  Require(IsLabelSource(command), "IsTruncatedTokenEqualWith(command, std:: string(\"LABELSOURCE\"), 6)");
  if (!MoveToValue(command, "LABELSOURCE", kMissingWithSemicolon)) {
    return false;
  }
  if (IsWord(command, "VARLABEL")) {
    labelByVariable = true;
    return CheckNextToken(command);
  }
  return command.Fail("The keyword VARLABEL was expected.  Found ^1...", command.TokenString());
}

bool ParseCategoryLabels(Command& command, bool& countedValues) {
  countedValues = false;
  RequireKeyword(command, "CATEGORYLABELS");
  if (!MoveToValue(command, "CATEGORYLABELS", kMissingWithSemicolon)) {
    return false;
  }
  if (IsWord(command, "VARLABELS")) {
    return CheckNextToken(command);
  }
  if (IsWord(command, "COUNTEDVALUES")) {
    countedValues = true;
    return CheckNextToken(command);
  }
  return command.Fail("Expected VARLABELS or COUNTEDVALUES.  Found ^1...", command.TokenString());
}

bool ParseValue(Command& command, std::string& value, bool& isNumber) {
  RequireKeyword(command, "VALUE");
  if (!MoveToValue(command, "VALUE", kMissing)) {
    return false;
  }
  if (command.Type() != TokenSequenceBase::kQuotedString && command.Type() != TokenSequenceBase::kNumber) {
    return command.Fail("The MRSET value was expected. Found ^1...", command.TokenString());
  }
  value = command.TokenString();
  isNumber = command.Type() == TokenSequenceBase::kNumber;
  if (isNumber && !(std::floor(command.NumberValue()) == command.NumberValue())) {
    command.Messages().Error("The counted value ^1 is not an integer.", value);  // reported, yet accepted
  }
  return CheckNextToken(command);
}

}  // namespace reference
