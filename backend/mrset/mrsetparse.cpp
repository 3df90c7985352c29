#include "backend/mrset/mrsetparse.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <set>

#include "backend/mrset/assertion.h"
#include "backend/mrset/diagnostics.h"
#include "host/text.h"
#include "host/variable_sets.h"

namespace {

enum SymbolCode : int {
  kEqualsSymbol = 3,
  kSlashSymbol = 11,
  kAllSetsSymbol = 35,
  kOpeningBracketSymbol = 36,
  kClosingBracketSymbol = 37
};

/// What the host's name check answers for a valid name.
constexpr int kValidName = 2;

constexpr std::size_t kMaxNameBytes = 64;
constexpr std::size_t kMaxLabelBytes = 255;

/// The bytes of LABELSOURCE that tell it from LABEL.
constexpr std::size_t kLabelSourceBytes = 6;

// The two texts for a missing "=" differ in their ends.
constexpr const char* kNoEqualsInAttribute = "MRSET ^1 was expecting \"=\". Found ^2...;";
constexpr const char* kNoEqualsInList = "MRSET ^1 was expecting \"=\". Found ^2...";

bool IsSlash(const TokenSequenceBase& command) {
  return IsTokenEqualWith(command, "/", false);
}

bool IsLabelSource(const TokenSequenceBase& command) {
  return IsTruncatedTokenEqualWith(command, "LABELSOURCE", kLabelSourceBytes);
}

/// Steps to the token after the keyword, which must be "=".
bool ReadEquals(ZEVA_TokenSequence& command, const char* keyword, const char* messageTemplate) {
  command.Next();
  if (!IsTokenEqualWith(command, "=", false)) {
    GenerateError(messageTemplate, keyword, TokenString(command));
    return false;
  }
  return true;
}

/// Reports a template whose only argument is the current token.
bool ReportToken(const TokenSequenceBase& command, const char* messageTemplate) {
  GenerateError(messageTemplate, TokenString(command), "");
  return false;
}

/// Reads a subcommand's keywords up to "/" or the end of the command; entered with the subcommand keyword current.
/// `parseKeyword` reads the one that is current and returns false after reporting. Without any keyword the result is
/// false, and only at the end of the command is that reported.
template <typename ParseKeyword>
bool ParseKeywords(ZEVA_TokenSequence& command, const char* emptyMessage, ParseKeyword parseKeyword) {
  command.Next();
  if (command.AtEnd()) {
    GenerateError(emptyMessage, "", "");
  }
  bool parsed = false;
  while (!IsSlash(command) && !command.AtEnd()) {
    parsed = parseKeyword();
    if (!parsed) {
      break;
    }
    command.Next();
  }
  MovePrevious(command);
  return parsed;
}

bool ParseMDGroupKeyword(ZEVA_TokenSequence& command, const ZEVA_DataSource& dataSource, MRSetSubcommand& subcmd) {
  if (IsTokenEqualWith(command, "NAME")) {
    return ParseMRName(command, subcmd.fName);
  }
  if (IsLabelSource(command)) {  // before LABEL, which it may begin with
    return ParseLabelSource(command, subcmd.fLabelSourceVarLabel);
  }
  if (IsTokenEqualWith(command, "LABEL")) {
    return ParseLabel(command, subcmd.fLabel);
  }
  if (IsTokenEqualWith(command, "CATEGORYLABELS")) {
    return ParseCategoryLabels(command, subcmd.fCategoryLabelsCountedValues);
  }
  if (IsTokenEqualWith(command, "VARIABLES")) {
    return ParseVariables(command, dataSource, subcmd.fVariables, subcmd.fAll);
  }
  if (IsTokenEqualWith(command, "VALUE")) {
    return ParseValue(command, subcmd.fValue, subcmd.fValueIsNumber);
  }
  return ReportToken(command, "Unexpected ^1 keyword in MDGROUP subcommand.");
}

bool ParseMCGroupKeyword(ZEVA_TokenSequence& command, const ZEVA_DataSource& dataSource, MRSetSubcommand& subcmd) {
  if (IsTokenEqualWith(command, "NAME")) {
    return ParseMRName(command, subcmd.fName);
  }
  if (IsTokenEqualWith(command, "LABEL") && !IsLabelSource(command)) {
    return ParseLabel(command, subcmd.fLabel);
  }
  if (IsTokenEqualWith(command, "VARIABLES")) {
    return ParseVariables(command, dataSource, subcmd.fVariables, subcmd.fAll);
  }
  return ReportToken(command, "Unexpected ^1 keyword in MCGROUP subcommand.");
}

bool ParseNameKeyword(ZEVA_TokenSequence& command, MRSetSubcommand& subcmd, const char* unexpectedMessage) {
  if (IsTokenEqualWith(command, "NAME")) {
    return ParseNames(command, subcmd.fNames, subcmd.fAll);
  }
  return ReportToken(command, unexpectedMessage);
}

/// Reads the names behind "[", which is current, and the "]".
bool ReadBracketedNames(ZEVA_TokenSequence& command, std::vector<std::string>& names) {
  command.Next();
  while (command.Type() == TokenSequenceBase::kString) {
    names.push_back(TokenString(command));
    command.Next();
  }
  const bool isSymbol = command.Type() == TokenSequenceBase::kSymbol;
  if (isSymbol && command.Symbol() == kClosingBracketSymbol) {
    return true;
  }
  if (command.AtEnd()) {
    GenerateError(isSymbol ? "Right square bracket expected. EoC found." : "Square bracket expected.", "", "");
    return false;
  }
  return ReportToken(command, "Name or right sq bracket expected. Found ^1...");
}

/// Length in bytes without leading and trailing blanks.
std::size_t TrimmedLength(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? 0 : text.find_last_not_of(' ') + 1 - first;
}

bool ReportDifferentType(const ZEVA_Variable& var) {
  GenerateError("^1 variable has a different type.", var.GetName(), "");
  return false;
}

using LabelSet = std::set<std::string, MRSetParseLessNoCase>;

void WarnOfDuplicateLabel(const ZEVA_Variable& var, LabelSet& labels) {
  const char* label = var.GetLabel();
  if (label != nullptr && !labels.insert(label).second) {
    GenerateWarning("Duplicate label found for variable ^1.", var.GetName(), "");
  }
}

/// The label of the counted value; null when the variable has none for it.
const char* CountedValueLabel(const ZEVA_ValueLabelMap& valueLabels, const std::string& countedValue,
                              bool isStringVariable) {
  if (isStringVariable) {
    return valueLabels.GetLabel(countedValue);
  }
  return valueLabels.GetLabel(std::strtod(countedValue.c_str(), nullptr));
}

bool IsUniqueCountedValueLabel(const ZEVA_Variable& var, const char* label, LabelSet& labels) {
  if (label == nullptr) {
    GenerateError("No countedval label for variable ^1...", var.GetName(), "");
    return false;
  }
  if (!labels.insert(label).second) {
    GenerateError("CountedVal label of variable ^1 is not unique...", var.GetName(), "");
    return false;
  }
  return true;
}

/// Compares with the first label that is not empty, which this one becomes where there is none yet.
void WarnOfDifferentLabel(const std::string& countedValue, const char* label, std::string& firstCountedValueLabel) {
  if (label == nullptr) {
    return;
  }
  if (firstCountedValueLabel.empty()) {
    firstCountedValueLabel = label;
  } else if (ZEVAMBstricmp_A(firstCountedValueLabel.c_str(), label) != 0) {
    GenerateWarning("CountVal ^1 label different in the variables.", countedValue, "");
  }
}

}  // namespace

bool MRSetParseLessNoCase::operator()(const std::string& first, const std::string& second) const {
  return ZEVAMBstricmp_A(first.c_str(), second.c_str()) > 0;
}

// Where clang-format is off, the blank in "std:: string" belongs to the expressions that are reported.

// clang-format off
bool MRSetParse(ZEVA_TokenSequence& command, const ZEVA_DataSource& dataSource, MRSETSUBCOMMANDS& subcommands) {
  command.Next();
  assert(command.Type() == TokenSequenceBase::kString);
  assert(IsTokenEqualWith(command, std:: string("MRSET")));

  while (command.Next()) {
    if (!IsSlash(command)) {
      if (!subcommands.empty()) {
        return ReportToken(command, "Begin subcommand symbol expected. Found ^1 ...");
      }
      MovePrevious(command);
    }
    MRSetSubcommand record;
    if (!ParseSubcommand(command, dataSource, record)) {
      return false;
    }
    subcommands.push_back(record);
  }

  if (subcommands.empty()) {
    GenerateError("No subcommand in MRSET command.", "", "");
    return false;
  }
  return true;
}
// clang-format on

bool ParseSubcommand(ZEVA_TokenSequence& command, const ZEVA_DataSource& dataSource, MRSetSubcommand& subcmd) {
  command.Next();
  if (IsTokenEqualWith(command, "MDGROUP")) {
    subcmd.fType = MRSetSubcommand::kMDGROUP;
    return ParseMDGroup(command, dataSource, subcmd) && ValidateMDGroup(subcmd, dataSource);
  }
  if (IsTokenEqualWith(command, "MCGROUP")) {
    subcmd.fType = MRSetSubcommand::kMCGROUP;
    return ParseMCGroup(command, dataSource, subcmd) && ValidateMCGroup(subcmd, dataSource);
  }
  if (IsTokenEqualWith(command, "DISPLAY")) {
    subcmd.fType = MRSetSubcommand::kDISPLAY;
    return ParseDisplay(command, subcmd) && ValidateMRSetName(subcmd, dataSource);
  }
  if (IsTokenEqualWith(command, "DELETE")) {
    subcmd.fType = MRSetSubcommand::kDELETE;
    return ParseDelete(command, subcmd) && ValidateMRSetName(subcmd, dataSource);
  }
  subcmd.fType = MRSetSubcommand::kNONE;
  return ReportToken(command, "Invalid MRSET subcommand. Found ^1 ..");
}

bool IsTokenEqualWith(const TokenSequenceBase& command, const std::string& keyword, bool useKeywordMatch) {
  const std::string token = TokenStringCaps(command);
  return useKeywordMatch ? KeywordMatch(token.c_str(), keyword.c_str()) != 0 : token == keyword;
}

bool IsTruncatedTokenEqualWith(const TokenSequenceBase& command, const std::string& keyword, std::size_t length) {
  const std::string token = TokenStringCaps(command);
  if (token.length() < length) {
    return false;
  }
  const int bytes = static_cast<int>(length);
  return ZEVAMBqstricmp_A(token.c_str(), bytes, keyword.c_str(), bytes, 0) != 0;
}

void MovePrevious(ZEVA_TokenSequence& command) {
  const int pos = command.Position();
  assert(pos > 0);
  command.SetPosition(pos - 1);
  command.Next();
}

bool CheckNextToken(ZEVA_TokenSequence& command) {
  command.Next();
  switch (command.Type()) {
    case TokenSequenceBase::kEnd:
      return true;
    case TokenSequenceBase::kSymbol:
      if (command.Symbol() == kSlashSymbol) {
        MovePrevious(command);
        return true;
      }
      break;
    case TokenSequenceBase::kString:
      command.Next();
      if (command.Type() != TokenSequenceBase::kSymbol || command.Symbol() == kEqualsSymbol) {
        MovePrevious(command);
        MovePrevious(command);
        return true;
      }
      break;
    case TokenSequenceBase::kNumber:
    case TokenSequenceBase::kQuotedString:
      break;
  }
  return ReportToken(command, "Unexpected token ^1 in this context");
}

// clang-format off
bool ParseMRName(ZEVA_TokenSequence& command, std::string& name) {
  assert(IsTokenEqualWith(command, std:: string("NAME")));
  if (!ReadEquals(command, "NAME", kNoEqualsInAttribute)) {
    return false;
  }
  command.Next();
  if (command.Type() != TokenSequenceBase::kString) {
    return ReportToken(command, "Unexpected MRSET name value ^1 was found.");
  }
  name = TokenString(command);
  if (name[0] != '$') {
    GenerateError("The MRSET name ^1 must start with $.", name, "");
    return false;
  }
  if (name.length() > kMaxNameBytes) {
    GenerateError("The MRSET name ^1 has more than 8 chars length", name, "");
    return false;
  }
  if (ValidateZEVAName(name.c_str()) != kValidName) {
    GenerateError("The MRSET name ^1 is invalid", name, "");
    return false;
  }
  return CheckNextToken(command);
}

bool ParseLabel(ZEVA_TokenSequence& command, std::string& label) {
  assert(IsTokenEqualWith(command, std:: string("LABEL")) && !IsTruncatedTokenEqualWith(command, std:: string("LABELSOURCE"), 6));
  if (!ReadEquals(command, "LABEL", kNoEqualsInAttribute)) {
    return false;
  }
  command.Next();
  if (command.Type() != TokenSequenceBase::kQuotedString) {
    return ReportToken(command, "A quoted label string was expected. Found ^1 ..");
  }
  label = TokenString(command);
  if (label.length() > kMaxLabelBytes) {
    GenerateWarning("The MRSET label ^1 will be truncated to a length of 255 chars.", label, "");
    std::array<char, kMaxLabelBytes + 1> buffer{};
    ZEVAMBzstncpy_A(buffer.data(), label.c_str(), static_cast<int>(buffer.size()), 0);
    label = buffer.data();
  }
  return CheckNextToken(command);
}

bool ParseLabelSource(ZEVA_TokenSequence& command, bool& labelByVariable) {
  labelByVariable = false;
  assert(IsTruncatedTokenEqualWith(command, std:: string("LABELSOURCE"), 6));
  if (!ReadEquals(command, "LABELSOURCE", kNoEqualsInAttribute)) {
    return false;
  }
  command.Next();
  if (command.Type() != TokenSequenceBase::kString || !IsTokenEqualWith(command, "VARLABEL")) {
    return ReportToken(command, "The keyword VARLABEL was expected.  Found ^1...");
  }
  labelByVariable = true;
  return CheckNextToken(command);
}

bool ParseCategoryLabels(ZEVA_TokenSequence& command, bool& countedValues) {
  countedValues = false;
  assert(IsTokenEqualWith(command, std:: string("CATEGORYLABELS")));
  if (!ReadEquals(command, "CATEGORYLABELS", kNoEqualsInAttribute)) {
    return false;
  }
  command.Next();
  if (command.Type() == TokenSequenceBase::kString && IsTokenEqualWith(command, "VARLABELS")) {
    return CheckNextToken(command);
  }
  if (command.Type() == TokenSequenceBase::kString && IsTokenEqualWith(command, "COUNTEDVALUES")) {
    countedValues = true;
    return CheckNextToken(command);
  }
  return ReportToken(command, "Expected VARLABELS or COUNTEDVALUES.  Found ^1...");
}

bool ParseValue(ZEVA_TokenSequence& command, std::string& value, bool& isNumber) {
  assert(IsTokenEqualWith(command, std:: string("VALUE")));
  if (!ReadEquals(command, "VALUE", kNoEqualsInList)) {
    return false;
  }
  command.Next();
  const TokenSequenceBase::TokenType type = command.Type();
  if (type != TokenSequenceBase::kQuotedString && type != TokenSequenceBase::kNumber) {
    return ReportToken(command, "The MRSET value was expected. Found ^1...");
  }
  value = TokenString(command);
  isNumber = type == TokenSequenceBase::kNumber;
  if (isNumber) {
    const double number = command.NumberValue();
    if (std::floor(number) != number) {  // reported, yet the parse goes on
      GenerateError("The counted value ^1 is not an integer.", value, "");
    }
  }
  return CheckNextToken(command);
}

bool ParseVariables(ZEVA_TokenSequence& command, const ZEVA_DataSource& dataSource, std::vector<std::string>& variables,
                    bool& all) {
  assert(IsTokenEqualWith(command, std:: string("VARIABLES")));
  variables.clear();
  all = false;
  if (!ReadEquals(command, "VARIABLES", kNoEqualsInList)) {
    return false;
  }
  command.Next();
  const int start = command.Position();
  while (command.Type() == TokenSequenceBase::kString) {
    command.Next();
  }
  if (command.Symbol() == kEqualsSymbol) {  // the word before it is the next keyword
    MovePrevious(command);
  }
  const int end = command.Position();

  command.SetPosition(start);
  command.Next();
  std::vector<int> indices;
  const bool accepted = ExistingVarList(dataSource, command, indices, end);
  for (const int index : indices) {
    variables.emplace_back(dataSource.GetVariable(index)->GetName());
  }
  command.SetPosition(end - 1);
  command.Next();
  return accepted;
}

bool ParseNames(ZEVA_TokenSequence& command, std::vector<std::string>& names, bool& all) {
  assert(IsTokenEqualWith(command, std:: string("NAME")));
  names.clear();
  all = false;
  command.Next();
  if (!IsTokenEqualWith(command, "=", false)) {
    return ReportToken(command, "Names \"=\" was expected. Found ^1...");
  }
  command.Next();
  if (command.Type() != TokenSequenceBase::kSymbol && command.Symbol() != kOpeningBracketSymbol &&
      command.Symbol() != kAllSetsSymbol) {
    GenerateError("Square bracket expected.", "", "");
    return false;
  }
  if (command.Symbol() == kOpeningBracketSymbol) {
    return ReadBracketedNames(command, names);
  }
  all = command.Symbol() == kAllSetsSymbol;
  return true;
}

bool ParseMDGroup(ZEVA_TokenSequence& command, const ZEVA_DataSource& dataSource, MRSetSubcommand& subcmd) {
  assert(IsTokenEqualWith(command, std:: string("MDGROUP")));
  assert(subcmd.fType == MRSetSubcommand::kMDGROUP);
  return ParseKeywords(command, "Empty MDGroup found",
                       [&] { return ParseMDGroupKeyword(command, dataSource, subcmd); });
}

bool ParseMCGroup(ZEVA_TokenSequence& command, const ZEVA_DataSource& dataSource, MRSetSubcommand& subcmd) {
  assert(IsTokenEqualWith(command, std:: string("MCGROUP")));
  assert(subcmd.fType == MRSetSubcommand::kMCGROUP);
  return ParseKeywords(command, "Empty MCGroup found",
                       [&] { return ParseMCGroupKeyword(command, dataSource, subcmd); });
}

bool ParseDisplay(ZEVA_TokenSequence& command, MRSetSubcommand& subcmd) {
  assert(IsTokenEqualWith(command, std:: string("DISPLAY")));
  assert(subcmd.fType == MRSetSubcommand::kDISPLAY);
  return ParseKeywords(command, "Empty Display found", [&] {
    return ParseNameKeyword(command, subcmd, "Unexpected ^1 keyword in DISPLAY subcommand.");
  });
}

bool ParseDelete(ZEVA_TokenSequence& command, MRSetSubcommand& subcmd) {
  assert(IsTokenEqualWith(command, std:: string("DELETE")));
  assert(subcmd.fType == MRSetSubcommand::kDELETE);
  return ParseKeywords(command, "Empty Delete found", [&] {
    return ParseNameKeyword(command, subcmd, "Unexpected ^1 keyword in DELETE subcommand.");
  });
}
// clang-format on

bool ValidateMDGroup(MRSetSubcommand& subcmd, const ZEVA_DataSource& dataSource) {
  assert(subcmd.fType == MRSetSubcommand::kMDGROUP);
  if (subcmd.fName.empty()) {
    GenerateError("MDGROUP has no name.", "", "");
    return false;
  }
  if (!subcmd.fAll && subcmd.fVariables.empty()) {
    GenerateError("MDGROUP ^1 has no variable names.", subcmd.fName, "");
    return false;
  }
  if (subcmd.fValue.empty()) {
    GenerateError("MDGROUP ^1 has no counted value.", subcmd.fName, "");
    return false;
  }
  int type = -1;  // every variable of the dataset counts as a string variable
  if (!subcmd.fAll &&
      !AreValidVariables(subcmd.fVariables, dataSource, subcmd.fValue, subcmd.fCategoryLabelsCountedValues, type)) {
    return false;
  }
  if (type == 0 && !subcmd.fValueIsNumber) {
    GenerateError("^1:variables are numbers and countedval is string.", subcmd.fName, "");
    return false;
  }
  if (type != 0 && subcmd.fValueIsNumber) {
    GenerateError("^1:variables are string and countedval is number.", subcmd.fName, "");
    return false;
  }
  if (subcmd.fLabelSourceVarLabel && !subcmd.fCategoryLabelsCountedValues) {
    GenerateError("^1:LABELSOURCE=VARLABEL requires CATEGORYLABELS=COUNTEDVALUES...", subcmd.fName, "");
    return false;
  }
  return true;
}

bool ValidateMCGroup(MRSetSubcommand& subcmd, const ZEVA_DataSource& dataSource) {
  assert(subcmd.fType == MRSetSubcommand::kMCGROUP);
  if (subcmd.fName.empty()) {  // unlike an MDGROUP's, reported only
    GenerateError("MCGROUP has no name.", "", "");
  }
  if (!subcmd.fAll && subcmd.fVariables.empty()) {
    GenerateError("MCGROUP ^1 has no variable names.", subcmd.fName, "");
    return false;
  }
  int narrowestWidth = -1;
  if (!subcmd.fAll && !AreValidVariables(subcmd.fVariables, dataSource, subcmd.fValue, false, narrowestWidth)) {
    return false;
  }
  if (subcmd.fLabelSourceVarLabel) {
    GenerateError("^1:LABELSOURCE=VARLABEL is invalid for an MCGROUP...", subcmd.fName, "");
    return false;
  }
  return true;
}

bool ValidateMRSetName(MRSetSubcommand& subcmd, const ZEVA_DataSource& dataSource) {
  assert((subcmd.fType == MRSetSubcommand::kDISPLAY) || (subcmd.fType == MRSetSubcommand::kDELETE));
  for (const std::string& name : subcmd.fNames) {
    if (FindMRSetName(name, dataSource)) {
      GenerateWarning("The MRSET ^1 is not in the dataset.", name, "");
    }
  }
  return true;
}

bool FindMRSetName(const std::string& mrSetName, const ZEVA_DataSource& dataSource) {
  assert(!mrSetName.empty());
  const VARIABLESETS sets = VariableSets(dataSource, kMRSets);
  return false;
}

bool AreValidVariables(std::vector<std::string>& variableNames, const ZEVA_DataSource& dataSource,
                       // NOLINTNEXTLINE(performance-unnecessary-value-param): the signature is given
                       std::string countedValue, bool countedValueLabels, int& narrowestWidth) {
  narrowestWidth = -1;
  if (variableNames.size() == 1) {
    GenerateError("Only one variable ^1 was found.", variableNames.front(), "");
    return false;
  }
  if (variableNames.empty()) {
    GenerateError("No variable was found.", "", "");
    return false;
  }

  LabelSet labels;
  std::string firstCountedValueLabel;
  for (const std::string& name : variableNames) {
    const int index = dataSource.FindVarIndex(name.c_str(), 0);
    if (index == -1) {
      GenerateError("^1 variable not in the dataset.", name, "");
      return false;
    }
    const ZEVA_Variable& var = *dataSource.GetVariable(index);
    if (narrowestWidth == -1) {
      narrowestWidth = var.GetType();
    } else if (narrowestWidth == 0) {
      if (var.GetType() > 0) {
        return ReportDifferentType(var);
      }
    } else if (narrowestWidth > 0) {
      if (var.GetType() == 0) {
        return ReportDifferentType(var);
      }
      assert(var.GetType() > 0);
      narrowestWidth = std::min(narrowestWidth, var.GetType());
    }
    if (countedValue.empty()) {
      continue;
    }

    if (!countedValueLabels) {
      WarnOfDuplicateLabel(var, labels);
    }
    if (narrowestWidth > 0 && static_cast<std::size_t>(narrowestWidth) < TrimmedLength(countedValue)) {
      GenerateError("CountVal ^1 is wider than the narrowest variable.", countedValue, "");
      return false;
    }
    ZEVA_ValueLabelMap valueLabels(var.GetValueLabels());
    valueLabels.Reset();
    const char* label = CountedValueLabel(valueLabels, countedValue, narrowestWidth != 0);
    if (!countedValueLabels) {
      WarnOfDifferentLabel(countedValue, label, firstCountedValueLabel);
    } else if (!IsUniqueCountedValueLabel(var, label, labels)) {
      return false;
    }
  }
  return true;
}
