#include "tests/properties/generators.h"
#include "tests/properties/module_run.h"
#include "tests/properties/prediction.h"
#include "tests/properties/property.h"
#include "tests/properties/subcommand_text.h"

namespace properties {
namespace {

Parsed ParseAgain(const Case& example, const std::string& subcommands) {
  Case again;
  again.dictionary = example.dictionary;
  again.tokens = scripted::Tokenize("MRSET " + subcommands);
  return ParseByModule(again);
}

TEST(RoundTrip, SentencesCanBeTyped) {
  Check(DifferentialCases() / 36, [] {
    const Case example = *Cases(Style::kSentence);
    Require(CanBeTyped(example.tokens), "the text has other tokens");
  });
}

TEST(RoundTrip, ParsingWhatARecordPrintsGivesTheRecord) {
  Check(DifferentialCases() / 9, [] {
    const Case example = *Cases(Style::kSentence);
    if (Predict(example).parse.assertion) {
      return;
    }
    for (const reference::Record& record : ParseByModule(example).records) {
      const std::string text = SubcommandText(record);
      const Parsed again = ParseAgain(example, text);
      RequireEqual("the number of records", again.records.size(), std::size_t{1});
      RequireEqual(text.c_str(), again.records.front(), record);
    }
  });
}

TEST(RoundTrip, ParsingWhatAllRecordsPrintGivesAllRecords) {
  Check(DifferentialCases() / 18, [] {
    const Case example = *Cases(Style::kSentence);
    if (Predict(example).parse.assertion) {
      return;
    }
    const Parsed parsed = ParseByModule(example);
    std::string text;
    for (const reference::Record& record : parsed.records) {
      text += " " + SubcommandText(record);
    }
    const Parsed again = ParseAgain(example, text);
    Require(again.parsed == !parsed.records.empty(), "the text is not accepted: " + text);
    Require(again.records == parsed.records, "the records differ: " + text);
  });
}

}  // namespace
}  // namespace properties
