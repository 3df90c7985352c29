#include "tests/properties/module_run.h"

#include <algorithm>
#include <iterator>
#include <ostream>
#include <tuple>

#include "backend/mrset/mrset.h"
#include "backend/mrset/mrsetparse.h"
#include "tests/properties/code.h"
#include "tests/properties/watch.h"

namespace properties {
namespace {

void Print(std::ostream& stream, const char* heading, const Lines& lines) {
  stream << heading << '\n';
  for (const std::string& line : lines) {
    stream << "    " << line << '\n';
  }
}

template <class Values>
Lines TextsOf(const Values& values) {
  Lines lines;
  std::transform(values.begin(), values.end(), std::back_inserter(lines),
                 [](const auto& value) { return ToText(value); });
  return lines;
}

auto Fields(const Parsed& parsed) {
  return std::tie(parsed.parsed, parsed.records, parsed.messages, parsed.cursor, parsed.problems);
}

auto Fields(const Outcome& outcome) {
  return std::tie(outcome.messages, outcome.tables, outcome.saved, outcome.saves, outcome.problems);
}

bool ParseOnHost(Parsed& result) {
  ZEVA_TokenSequence stream(true);
  const ProcedureDataSource source;
  MRSETSUBCOMMANDS records;
  result.parsed = MRSetParse(stream, source, records);
  std::transform(records.begin(), records.end(), std::back_inserter(result.records), ToRecord);
  result.cursor = stream.Position();
  return result.parsed;
}

}  // namespace

bool operator==(const Parsed& first, const Parsed& second) {
  return Fields(first) == Fields(second);
}

std::ostream& operator<<(std::ostream& stream, const Parsed& parsed) {
  stream << (parsed.parsed ? "true" : "false") << ", cursor " << parsed.cursor << '\n';
  Print(stream, "  records:", TextsOf(parsed.records));
  Print(stream, "  messages:", parsed.messages);
  Print(stream, "  problems:", parsed.problems);
  return stream;
}

bool operator==(const Outcome& first, const Outcome& second) {
  return Fields(first) == Fields(second);
}

std::ostream& operator<<(std::ostream& stream, const Outcome& outcome) {
  stream << outcome.saves << " saves\n";
  Print(stream, "  messages:", outcome.messages);
  for (const Lines& table : outcome.tables) {
    Print(stream, "  table:", table);
  }
  Print(stream, outcome.saved ? "  saved:" : "  nothing saved", TextsOf(outcome.saved.value_or(Sets())));
  Print(stream, "  problems:", outcome.problems);
  return stream;
}

reference::Record ToRecord(const MRSetSubcommand& subcommand) {
  reference::Record record;
  record.fType = static_cast<reference::Record::Type>(subcommand.fType);
  record.fName = subcommand.fName;
  record.fLabel = subcommand.fLabel;
  record.fVariables = subcommand.fVariables;
  record.fValue = subcommand.fValue;
  record.fValueIsNumber = subcommand.fValueIsNumber;
  record.fNames = subcommand.fNames;
  record.fAll = subcommand.fAll;
  record.fLabelSourceVarLabel = subcommand.fLabelSourceVarLabel;
  record.fCategoryLabelsCountedValues = subcommand.fCategoryLabelsCountedValues;
  return record;
}

MRSetSubcommand ToSubcommand(const reference::Record& record) {
  MRSetSubcommand subcommand;
  subcommand.fType = static_cast<MRSetSubcommand::Type>(record.fType);
  subcommand.fName = record.fName;
  subcommand.fLabel = record.fLabel;
  subcommand.fVariables = record.fVariables;
  subcommand.fValue = record.fValue;
  subcommand.fValueIsNumber = record.fValueIsNumber;
  subcommand.fNames = record.fNames;
  subcommand.fAll = record.fAll;
  subcommand.fLabelSourceVarLabel = record.fLabelSourceVarLabel;
  subcommand.fCategoryLabelsCountedValues = record.fCategoryLabelsCountedValues;
  return subcommand;
}

CaseHost::CaseHost(const Case& example) : fHost(SetupOf(example)) {
  fHost.SetTracing(false);
  fHost.SetEnd(example.end.text, example.end.symbol);
  fHost.SetTokens(example.tokens);
}

Parsed ParseByModule(const Case& example) {
  const Watch watch(example);
  CaseHost host(example);
  Parsed result;
  ParseOnHost(result);
  result.messages = host->MessageLines();
  result.problems = host->Problems();
  return result;
}

Outcome RunByModule(const Case& example) {
  const Watch watch(example);
  CaseHost host(example);
  return RunByModule(*host);
}

Outcome RunByModule(scripted::ScriptedHost& host) {
  mrset_();
  return OutcomeOf(host);
}

Outcome OutcomeOf(const scripted::ScriptedHost& host) {
  Outcome outcome;
  outcome.messages = host.MessageLines();
  for (const scripted::Table& table : host.Tables()) {
    outcome.tables.push_back(table.Lines());
  }
  outcome.saved = host.SavedSets();
  outcome.saves = host.SaveCount();
  outcome.problems = host.Problems();
  return outcome;
}

}  // namespace properties
