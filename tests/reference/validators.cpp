#include "tests/reference/validators.h"

#include <algorithm>
#include <vector>

#include "tests/reference/variable_check.h"

namespace reference {
namespace {

/// What a record must not be. The message's argument is the set's name.
struct Rule {
  bool (*isBroken)(const Record& record, int width);
  const char* message;
  bool stops;
};

/// The rules before the variables are checked, and those after, when their width is known: 0 for numbers.
struct Rules {
  Record::Type type;
  const char* assertion;  ///< of a record of another type
  std::vector<Rule> before;
  std::vector<Rule> after;
};

bool HasNoVariables(const Record& record, int /*width*/) {
  return !record.fAll && record.fVariables.empty();
}

bool HasNoName(const Record& record, int /*width*/) {
  return record.fName.empty();
}

const Rules kMDGroup = {
    Record::kMDGROUP,
    "subcmd.fType == MRSetSubcommand::kMDGROUP",
    {{HasNoName, "MDGROUP has no name.", true},
     {HasNoVariables, "MDGROUP ^1 has no variable names.", true},
     {[](const Record& record, int) { return record.fValue.empty(); }, "MDGROUP ^1 has no counted value.", true}},
    {{[](const Record& record, int width) { return width == 0 && !record.fValueIsNumber; },
      "^1:variables are numbers and countedval is string.", true},
     {[](const Record& record, int width) { return width != 0 && record.fValueIsNumber; },
      "^1:variables are string and countedval is number.", true},
     {[](const Record& record, int) { return record.fLabelSourceVarLabel && !record.fCategoryLabelsCountedValues; },
      "^1:LABELSOURCE=VARLABEL requires CATEGORYLABELS=COUNTEDVALUES...", true}}};

const Rules kMCGroup = {
    Record::kMCGROUP,
    "subcmd.fType == MRSetSubcommand::kMCGROUP",
    {{HasNoName, "MCGROUP has no name.", false}, {HasNoVariables, "MCGROUP ^1 has no variable names.", true}},
    {{[](const Record& record, int) { return record.fLabelSourceVarLabel; },
      "^1:LABELSOURCE=VARLABEL is invalid for an MCGROUP...", true}}};

bool Keeps(const std::vector<Rule>& rules, const Record& record, int width, Report& report) {
  return std::all_of(rules.begin(), rules.end(), [&](const Rule& rule) {
    const bool isBroken = rule.isBroken(record, width);
    if (isBroken) {
      report.Error(rule.message, record.fName);
    }
    return !(isBroken && rule.stops);
  });
}

bool Validate(const Rules& rules, const Record& record, const Variables& dictionary, Report& report) {
  Require(record.fType == rules.type, rules.assertion);
  const bool countedValueLabels = record.fType == Record::kMDGROUP && record.fCategoryLabelsCountedValues;
  int width = -1;
  return Keeps(rules.before, record, width, report) &&
         (record.fAll ||
          AreValidVariables(record.fVariables, dictionary, record.fValue, countedValueLabels, width, report)) &&
         Keeps(rules.after, record, width, report);
}

}  // namespace

bool ValidateMDGroup(const Record& record, const Variables& dictionary, Report& report) {
  return Validate(kMDGroup, record, dictionary, report);
}

bool ValidateMCGroup(const Record& record, const Variables& dictionary, Report& report) {
  return Validate(kMCGroup, record, dictionary, report);
}

bool Validate(const Record& record, const Variables& dictionary, Report& report) {
  if (record.fType == Record::kMDGROUP) {
    return ValidateMDGroup(record, dictionary, report);
  }
  if (record.fType == Record::kMCGROUP) {
    return ValidateMCGroup(record, dictionary, report);
  }
  for (const std::string& name : record.fNames) {
    Require(!name.empty(), "!mrSetName.empty()");  // whether there is such a set is not looked at
  }
  return true;
}

}  // namespace reference
