#include <functional>
#include <ostream>
#include <vector>

#include "backend/mrset/mrsetparse.h"
#include "tests/properties/generators.h"
#include "tests/properties/module_run.h"
#include "tests/properties/property.h"
#include "tests/properties/reading.h"
#include "tests/properties/watch.h"
#include "tests/reference/grammar.h"

// The module and the reference agree on each parser called by itself: also in what a parser that fails leaves in the
// record and where it leaves the cursor, which a whole command does not show.

namespace properties {
namespace {

using reference::Record;

/// A parser of the module, and the keyword and the subcommand by which the reference knows the same.
struct BothParsers {
  std::string keyword;
  Record::Type type;
  std::function<bool(ZEVA_TokenSequence&, const ZEVA_DataSource&, MRSetSubcommand&)> module;
};

const std::vector<BothParsers>& AllParsers() {
  static const std::vector<BothParsers> kParsers = {
      {"NAME", Record::kMDGROUP, [](auto& stream, auto&, auto& record) { return ParseMRName(stream, record.fName); }},
      {"LABEL", Record::kMDGROUP, [](auto& stream, auto&, auto& record) { return ParseLabel(stream, record.fLabel); }},
      {"LABELSOURCE", Record::kMDGROUP,
       [](auto& stream, auto&, auto& record) { return ParseLabelSource(stream, record.fLabelSourceVarLabel); }},
      {"CATEGORYLABELS", Record::kMDGROUP,
       [](auto& stream, auto&, auto& record) {
         return ParseCategoryLabels(stream, record.fCategoryLabelsCountedValues);
       }},
      {"VALUE", Record::kMDGROUP,
       [](auto& stream, auto&, auto& record) { return ParseValue(stream, record.fValue, record.fValueIsNumber); }},
      {"VARIABLES", Record::kMDGROUP,
       [](auto& stream, auto& source, auto& record) {
         return ParseVariables(stream, source, record.fVariables, record.fAll);
       }},
      {"NAME", Record::kDISPLAY,
       [](auto& stream, auto&, auto& record) { return ParseNames(stream, record.fNames, record.fAll); }},
      {"MDGROUP", Record::kMDGROUP, ParseMDGroup},
      {"MCGROUP", Record::kMCGROUP, ParseMCGroup},
      {"DISPLAY", Record::kDISPLAY, [](auto& stream, auto&, auto& record) { return ParseDisplay(stream, record); }},
      {"DELETE", Record::kDELETE, [](auto& stream, auto&, auto& record) { return ParseDelete(stream, record); }}};
  return kParsers;
}

/// A record whose every field is seen to be written or not.
Record FilledRecord(Record::Type type) {
  Record record;
  record.fType = type;
  record.fName = "$former";
  record.fLabel = "former";
  record.fVariables = {"former"};
  record.fValue = "former";
  record.fValueIsNumber = true;
  record.fNames = {"$former"};
  record.fAll = true;
  record.fLabelSourceVarLabel = true;
  record.fCategoryLabelsCountedValues = true;
  return record;
}

Parsed CallModule(const BothParsers& parsers, const Case& example, int index) {
  const Watch watch(example);
  CaseHost host(example);
  Parsed result;
  {
    ZEVA_TokenSequence stream(true);
    const ProcedureDataSource source;
    MRSetSubcommand record = ToSubcommand(FilledRecord(parsers.type));
    stream.SetPosition(index);
    stream.Next();
    result.parsed = parsers.module(stream, source, record);
    result.records.push_back(ToRecord(record));
    result.cursor = stream.Position();
  }
  result.messages = host->MessageLines();
  result.problems = host->Problems();
  return result;
}

Parsed CallReference(const BothParsers& parsers, const Case& example, int index) {
  const reference::Input input(example.tokens, example.end, example.dictionary);
  reference::Report report;
  Record record = FilledRecord(parsers.type);
  const bool isSubcommand = reference::SubcommandNamed(parsers.keyword) == parsers.type;
  const reference::Reached reached = isSubcommand
                                         ? ReadSubcommand(input, parsers.type, index, record, report)
                                         : ReadKeyword(input, parsers.type, parsers.keyword, index, record, report);
  Parsed result;
  result.parsed = reached.isAccepted;
  result.records.push_back(record);
  result.cursor = reached.index;
  result.messages = report.Lines();
  return result;
}

TEST(Differential, ModuleAndReferenceAgreeOnEveryParserCalledAlone) {
  Check(DifferentialCases() / 6, [] {
    const Case example = *AnyCases();
    const Reading reading(example);
    for (const BothParsers& parsers : AllParsers()) {
      for (int index = 1; index < reading.Count(); ++index) {
        if (reading.CanEnter(index, parsers.keyword)) {
          const std::string what = parsers.keyword + " at token " + std::to_string(index);
          RequireEqual(what.c_str(), CallModule(parsers, example, index), CallReference(parsers, example, index));
        }
      }
    }
  });
}

}  // namespace
}  // namespace properties
