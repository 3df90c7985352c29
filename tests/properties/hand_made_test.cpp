#include "tests/properties/hand_made.h"

#include <ostream>
#include <vector>

#include "backend/mrset/mrsetapply.h"
#include "backend/mrset/mrsetparse.h"
#include "tests/properties/child.h"
#include "tests/properties/module_run.h"
#include "tests/properties/property.h"
#include "tests/properties/watch.h"
#include "tests/reference/reference_apply.h"
#include "tests/reference/validators.h"
#include "tests/reference/variable_check.h"

// The validators and the apply phase on records that no command gives.

namespace properties {
namespace {

using reference::Record;

struct Verdict {
  bool valid = false;
  int narrowestWidth = 0;
  Lines messages;
  Lines problems;
};

bool operator==(const Verdict& first, const Verdict& second) {
  return first.valid == second.valid && first.narrowestWidth == second.narrowestWidth &&
         first.messages == second.messages && first.problems == second.problems;
}

std::ostream& operator<<(std::ostream& stream, const Verdict& verdict) {
  return stream << verdict.valid << ", width " << verdict.narrowestWidth
                << ", messages: " << testing::PrintToString(verdict.messages)
                << ", problems: " << testing::PrintToString(verdict.problems);
}

/// Calls the check with a data source and the verdict whose width it may set.
template <class ModuleCheck>
Verdict VerdictOfModule(const Case& example, ModuleCheck check) {
  const Watch watch(example);
  CaseHost host(example);
  Verdict verdict;
  {
    const ProcedureDataSource source;
    verdict.valid = check(source, verdict.narrowestWidth);
  }
  verdict.messages = host->MessageLines();
  verdict.problems = host->Problems();
  return verdict;
}

template <class ReferenceCheck>
Verdict VerdictOfReference(ReferenceCheck check) {
  reference::Report report;
  Verdict verdict;
  verdict.valid = check(verdict.narrowestWidth, report);
  verdict.messages = report.Lines();
  return verdict;
}

void RequireSameVariableCheck(const Case& example, const Record& record) {
  const bool labels = record.fCategoryLabelsCountedValues;
  Lines variables = record.fVariables;
  const Verdict actual = VerdictOfModule(example, [&](const ZEVA_DataSource& source, int& width) {
    return AreValidVariables(variables, source, record.fValue, labels, width);
  });
  const Verdict expected = VerdictOfReference([&](int& width, reference::Report& report) {
    return reference::AreValidVariables(record.fVariables, example.dictionary, record.fValue, labels, width, report);
  });
  RequireEqual("AreValidVariables", actual, expected);
  RequireEqual("the variables", variables.size(), record.fVariables.size());
}

void RequireSameGroupCheck(const Case& example, const Record& record) {
  const bool isMD = record.fType == Record::kMDGROUP;
  MRSetSubcommand subcommand = ToSubcommand(record);
  const Verdict actual = VerdictOfModule(example, [&](const ZEVA_DataSource& source, int&) {
    return isMD ? ValidateMDGroup(subcommand, source) : ValidateMCGroup(subcommand, source);
  });
  const Verdict expected = VerdictOfReference([&](int&, reference::Report& report) {
    return isMD ? reference::ValidateMDGroup(record, example.dictionary, report)
                : reference::ValidateMCGroup(record, example.dictionary, report);
  });
  RequireEqual("the validator", actual, expected);
  RequireEqual("the validated record", ToRecord(subcommand), record);
}

void ApplyByModule(const std::vector<Record>& records) {
  MRSETSUBCOMMANDS subcommands;
  for (const Record& record : records) {
    subcommands.push_back(ToSubcommand(record));
  }
  BpProcedure procedure("Multiple Response Set", 2);
  const ProcedureDataSource source;
  MRSetApply(subcommands, *source.GetParentSource(), procedure);
}

void RequireSameApplication(const HandMade& handMade) {
  const Case& example = handMade.example;
  const auto expected = reference::Apply(handMade.records, example.dictionary, example.sets);
  CaseHost host(example);
  const auto apply = [&] { ApplyByModule(handMade.records); };
  if (expected.assertion) {
    RequireEqual("the end", EndOfChild(apply, [&] { return host->MessageLines(); }),
                 AssertionEnd(*expected.assertion, expected.messages));
    return;
  }
  const Watch watch(example);
  apply();
  RequireEqual("the apply phase", OutcomeOf(*host), Outcome{expected.messages, expected.tables, expected.saved, 1, {}});
}

TEST(HandMadeRecords, ModuleAndReferenceAgreeOnTheirVariables) {
  Check(DifferentialCases() / 6, [] {
    const HandMade handMade = *HandMadeRecords();
    for (const Record& record : handMade.records) {
      RequireSameVariableCheck(handMade.example, record);
    }
  });
}

TEST(HandMadeRecords, ModuleAndReferenceAgreeOnTheirValidity) {
  Check(DifferentialCases() / 6, [] {
    const HandMade handMade = *HandMadeRecords();
    for (const Record& record : handMade.records) {
      if (record.fType == Record::kMDGROUP || record.fType == Record::kMCGROUP) {
        RequireSameGroupCheck(handMade.example, record);
      }
    }
  });
}

TEST(HandMadeRecords, ModuleAndReferenceAgreeOnTheirApplication) {
  Check(DifferentialCases() / 12, [] { RequireSameApplication(*HandMadeRecords()); });
}

}  // namespace
}  // namespace properties
