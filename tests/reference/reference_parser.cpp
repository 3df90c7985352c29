#include "tests/reference/reference_parser.h"

#include "tests/reference/grammar.h"
#include "tests/reference/validators.h"

namespace reference {
namespace {

Reached Fail(Report& report, const std::string& message, const std::string& text, int index) {
  report.Error(message, text);
  return {false, index};
}

/// Reads the subcommand whose keyword is at an index, and judges it.
Reached ReadAndValidate(const Input& input, int at, Record& record, Report& report, int& cursor) {
  record.fType = SubcommandNamed(input.Text(at));
  if (record.fType == Record::kNONE) {
    return Fail(report, "Invalid MRSET subcommand. Found ^1 ..", input.Text(at), at);
  }
  const Reached reached = ReadSubcommand(input, record.fType, at, record, report);
  cursor = reached.index;
  return {reached.isAccepted && Validate(record, input.Dictionary(), report), reached.index};
}

/// The command: its name, then subcommands, each behind a "/" that the first one may lack. `cursor` is kept up, for
/// where an assertion fails.
Reached ReadCommand(const Input& input, std::vector<Record>& records, Report& report, int& cursor) {
  cursor = 0;
  Require(input.At(0).type == TokenSequenceBase::kString, "command.Type() == TokenSequenceBase::kString");
  Require(NamesKeywordInAnyCase(input.Text(0), "MRSET"), "IsTokenEqualWith(command, std:: string(\"MRSET\"))");
  for (int next = 1; next < input.Count(); next = cursor + 1) {
    const bool hasSlash = IsSlash(input.At(next));
    if (!hasSlash && !records.empty()) {
      return Fail(report, "Begin subcommand symbol expected. Found ^1 ...", input.Text(next), next);
    }
    Record record;
    const Reached reached = ReadAndValidate(input, hasSlash ? next + 1 : next, record, report, cursor);
    if (!reached.isAccepted) {
      return reached;
    }
    records.push_back(record);
  }
  return records.empty() ? Fail(report, "No subcommand in MRSET command.", "", input.Count())
                         : Reached{true, input.Count()};
}

}  // namespace

scripted::Token DefaultEnd() {
  return {TokenSequenceBase::kEnd, "end of command", scripted::kNoSymbol, 0};
}

ParseResult Parse(const std::vector<scripted::Token>& tokens, const std::vector<scripted::Variable>& dictionary,
                  const scripted::Token& end) {
  const Input input(tokens, end, dictionary);
  Report report;
  ParseResult result;
  try {
    const Reached reached = ReadCommand(input, result.records, report, result.cursor);
    result.parsed = reached.isAccepted;
    result.cursor = reached.index;
  } catch (const AssertionFailed& failure) {
    result.assertion = failure.expression;
  }
  result.messages = report.Lines();
  return result;
}

}  // namespace reference
