#include <functional>

#include "backend/mrset/mrsetparse.h"
#include "tests/properties/generators.h"
#include "tests/properties/module_run.h"
#include "tests/properties/prediction.h"
#include "tests/properties/property.h"
#include "tests/properties/reading.h"
#include "tests/properties/watch.h"

// Every parser is called at every token that it can be entered with, wherever in a random command that stands.

namespace properties {
namespace {

using Parser = std::function<bool(ZEVA_TokenSequence&, const ZEVA_DataSource&)>;

struct Move {
  bool result = false;
  int cursor = -1;
};

/// Calls the parser with the token at `index` current.
Move CallAt(const Case& example, int index, const Parser& parser) {
  const Watch watch(example);
  CaseHost host(example);
  Move move;
  {
    ZEVA_TokenSequence stream(true);
    const ProcedureDataSource source;
    stream.SetPosition(index);
    stream.Next();
    move.result = parser(stream, source);
    move.cursor = stream.Position();
  }
  Require(host->Problems().empty(), testing::PrintToString(host->Problems()));
  return move;
}

void RequireCursor(const std::string& parser, int index, const Move& move, int expected) {
  if (move.result) {
    RequireEqual((parser + " at token " + std::to_string(index)).c_str(), move.cursor, expected);
  }
}

// --- where each parser stands after it succeeded ---

/// The value, or the end when the value was the last token.
int AfterAttribute(const Reading& reading, int keyword) {
  const int value = keyword + 2;
  return reading.IsEnd(value + 1) ? reading.OrEnd(value + 1) : value;
}

/// The last word of the list, but for the one before "=".
int AfterVariables(const Reading& reading, int keyword) {
  int end = reading.OrEnd(keyword + 2);
  while (end < reading.Count() && reading.IsWord(end)) {
    ++end;
  }
  const bool nextIsKeyword = reading.At(end).symbol == scripted::kEquals;
  return nextIsKeyword ? end - 2 : end - 1;
}

/// The "]", or the one token that is no list.
int AfterNames(const Reading& reading, int keyword) {
  int at = reading.OrEnd(keyword + 2);
  if (reading.At(at).symbol != scripted::kOpenBracket) {
    return at;
  }
  for (++at; at < reading.Count() && reading.IsWord(at);) {
    ++at;
  }
  return at;
}

// --- the parsers ---

struct KeywordParser {
  std::string keyword;
  Parser parse;
  std::function<int(const Reading&, int)> after;
};

const std::vector<KeywordParser>& KeywordParsers() {
  static const std::vector<KeywordParser> kParsers = {{"NAME",
                                                       [](auto& stream, auto&) {
                                                         std::string name;
                                                         return ParseMRName(stream, name);
                                                       },
                                                       AfterAttribute},
                                                      {"LABEL",
                                                       [](auto& stream, auto&) {
                                                         std::string label;
                                                         return ParseLabel(stream, label);
                                                       },
                                                       AfterAttribute},
                                                      {"LABELSOURCE",
                                                       [](auto& stream, auto&) {
                                                         bool byVariable = true;
                                                         return ParseLabelSource(stream, byVariable);
                                                       },
                                                       AfterAttribute},
                                                      {"CATEGORYLABELS",
                                                       [](auto& stream, auto&) {
                                                         bool countedValues = true;
                                                         return ParseCategoryLabels(stream, countedValues);
                                                       },
                                                       AfterAttribute},
                                                      {"VALUE",
                                                       [](auto& stream, auto&) {
                                                         std::string value;
                                                         bool isNumber = false;
                                                         return ParseValue(stream, value, isNumber);
                                                       },
                                                       AfterAttribute},
                                                      {"VARIABLES",
                                                       [](auto& stream, auto& source) {
                                                         Lines variables;
                                                         bool all = true;
                                                         return ParseVariables(stream, source, variables, all) || all;
                                                       },
                                                       AfterVariables},
                                                      {"NAME",
                                                       [](auto& stream, auto&) {
                                                         Lines names;
                                                         bool all = true;
                                                         return ParseNames(stream, names, all);
                                                       },
                                                       AfterNames}};
  return kParsers;
}

struct SubcommandParser {
  std::string keyword;
  MRSetSubcommand::Type type;
  std::function<bool(ZEVA_TokenSequence&, const ZEVA_DataSource&, MRSetSubcommand&)> parse;
};

const std::vector<SubcommandParser>& SubcommandParsers() {
  static const std::vector<SubcommandParser> kParsers = {
      {"MDGROUP", MRSetSubcommand::kMDGROUP, ParseMDGroup},
      {"MCGROUP", MRSetSubcommand::kMCGROUP, ParseMCGroup},
      {"DISPLAY", MRSetSubcommand::kDISPLAY,
       [](auto& stream, auto&, auto& record) { return ParseDisplay(stream, record); }},
      {"DELETE", MRSetSubcommand::kDELETE,
       [](auto& stream, auto&, auto& record) { return ParseDelete(stream, record); }}};
  return kParsers;
}

/// On true the next token is the one that ended the subcommand; on false the cursor is still within the command.
void RequireSubcommandEnd(const Reading& reading, const std::string& keyword, int index, const Move& move) {
  const std::string where = keyword + " at token " + std::to_string(index) + " ends at " + std::to_string(move.cursor);
  Require(move.cursor >= index && move.cursor < reading.Count(), where);
  if (move.result) {
    Require(reading.IsEnd(move.cursor + 1) || reading.At(move.cursor + 1).text == "/", where);
  }
}

/// One call of the parser at each token at which it can be entered; gives the number of successful ones.
std::size_t CallEverywhere(const Case& example, const KeywordParser& parser) {
  const Reading reading(example);
  std::size_t successes = 0;
  for (int index = 0; index < reading.Count(); ++index) {
    if (reading.CanEnter(index, parser.keyword)) {
      const Move move = CallAt(example, index, parser.parse);
      RequireCursor(parser.keyword, index, move, parser.after(reading, index));
      successes += move.result ? 1 : 0;
    }
  }
  return successes;
}

std::size_t CallEverywhere(const Case& example, const SubcommandParser& parser) {
  const Reading reading(example);
  std::size_t successes = 0;
  for (int index = 0; index < reading.Count(); ++index) {
    if (reading.Names(index, parser.keyword)) {
      const Move move = CallAt(example, index, [&](auto& stream, auto& source) {
        MRSetSubcommand record;
        record.fType = parser.type;
        return parser.parse(stream, source, record);
      });
      RequireSubcommandEnd(reading, parser.keyword, index, move);
      successes += move.result ? 1 : 0;
    }
  }
  return successes;
}

/// Checks the parsers of the list, and that each of them succeeded often enough to tell.
template <class Parsers>
void CheckParsers(const Parsers& parsers) {
  std::vector<std::size_t> successes(parsers.size(), 0);
  const std::size_t cases = DifferentialCases() / 12;
  Check(cases, [&] {
    const Case example = *AnyCases();
    for (std::size_t index = 0; index < parsers.size(); ++index) {
      successes[index] += CallEverywhere(example, parsers[index]);
    }
  });
  for (std::size_t index = 0; index < parsers.size(); ++index) {
    EXPECT_GT(successes[index], cases / 50) << parsers[index].keyword;
  }
}

TEST(Cursor, StandsOnTheLastTokenAfterAKeyword) {
  CheckParsers(KeywordParsers());
}

TEST(Cursor, StandsBeforeTheTokenThatEndedASubcommand) {
  CheckParsers(SubcommandParsers());
}

TEST(Cursor, StandsOnTheEndAfterACommandThatParses) {
  Check(DifferentialCases() / 18, [] {
    const Case example = *AnyCases();
    if (Predict(example).parse.assertion) {
      return;
    }
    const Parsed parsed = ParseByModule(example);
    if (parsed.parsed) {
      RequireEqual("the cursor", parsed.cursor, static_cast<int>(example.tokens.size()));
    }
  });
}

TEST(Cursor, IsNotMovedByTestsOfTheToken) {
  Check(DifferentialCases() / 36, [] {
    const Case example = *AnyCases();
    const Reading reading(example);
    for (int index = 0; index <= reading.Count(); ++index) {
      const Move move = CallAt(example, index, [](auto& stream, auto&) {
        return IsTokenEqualWith(stream, "NAME") || IsTokenEqualWith(stream, "/", false) ||
               IsTruncatedTokenEqualWith(stream, "LABELSOURCE", 6);
      });
      RequireEqual("the cursor", move.cursor, index);
      const bool expected =
          reading.Names(index, "NAME") || reading.At(index).text == "/" || reading.IsLabelSource(index);
      RequireEqual("the test", move.result, expected);
    }
  });
}

TEST(Cursor, GoesBackByOneToken) {
  Check(DifferentialCases() / 36, [] {
    const Case example = *AnyCases();
    for (int index = 1; index <= Reading(example).Count(); ++index) {
      const Move move = CallAt(example, index, [](auto& stream, auto&) {
        MovePrevious(stream);
        return true;
      });
      RequireEqual("the cursor", move.cursor, index - 1);
    }
  });
}

/// What CheckNextToken() answers with the value at this token.
bool IsLegalFollower(const Reading& reading, int index) {
  const int next = reading.OrEnd(index + 1);
  const scripted::Token& follower = reading.At(next);
  if (reading.IsEnd(next)) {
    return true;
  }
  if (follower.type == TokenSequenceBase::kSymbol) {
    return follower.symbol == scripted::kSlash;
  }
  const scripted::Token& second = reading.At(reading.OrEnd(next + 1));
  return follower.type == TokenSequenceBase::kString &&
         (second.type != TokenSequenceBase::kSymbol || second.symbol == scripted::kEquals);
}

TEST(Cursor, IsRestoredByTheLookBehindAValue) {
  Check(DifferentialCases() / 36, [] {
    const Case example = *AnyCases();
    const Reading reading(example);
    for (int index = 0; index < reading.Count(); ++index) {
      const Move move = CallAt(example, index, [](auto& stream, auto&) { return CheckNextToken(stream); });
      RequireEqual("the look", move.result, IsLegalFollower(reading, index));
      RequireCursor("the look", index, move, reading.IsEnd(index + 1) ? index + 1 : index);
    }
  });
}

}  // namespace
}  // namespace properties
