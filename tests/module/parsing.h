#ifndef TESTS_MODULE_PARSING_H
#define TESTS_MODULE_PARSING_H

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <iterator>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "backend/mrset/mrsetparse.h"
#include "tests/host/scripted_host.h"
#include "tests/module/run.h"

// One function of the parse phase called alone, in the middle of a command.

namespace module_test {

using Tokens = std::vector<scripted::Token>;

inline std::string InParentheses(const std::vector<std::string>& texts) {
  std::string line = "(";
  for (const std::string& text : texts) {
    line += (line.size() == 1 ? "" : " ") + text;
  }
  return line + ")";
}

/// The fields of a record that do not have their defaults, as in `MDGROUP name <$a> variables (q1 q2) value <1>
/// number`.
inline std::string ToText(const MRSetSubcommand& record) {
  static const std::vector<std::string> kTypes = {"", "MDGROUP", "MCGROUP", "DISPLAY", "DELETE"};
  std::string line = kTypes.at(static_cast<std::size_t>(record.fType));
  const auto put = [&line](bool isSet, const std::string& text) {
    if (isSet) {
      line += (line.empty() ? "" : " ") + text;
    }
  };
  put(!record.fName.empty(), "name <" + record.fName + ">");
  put(!record.fLabel.empty(), "label <" + record.fLabel + ">");
  put(!record.fVariables.empty(), "variables " + InParentheses(record.fVariables));
  put(!record.fValue.empty(), "value <" + record.fValue + ">");
  put(record.fValueIsNumber, "number");
  put(!record.fNames.empty(), "names " + InParentheses(record.fNames));
  put(record.fAll, "all");
  put(record.fLabelSourceVarLabel, "labelsource");
  put(record.fCategoryLabelsCountedValues, "countedvalues");
  return line;
}

inline Lines ToText(const MRSETSUBCOMMANDS& records) {
  Lines lines;
  std::transform(records.begin(), records.end(), std::back_inserter(lines),
                 [](const MRSetSubcommand& record) { return ToText(record); });
  return lines;
}

/// What a parser answers and leaves behind.
struct ParseOutcome {
  bool result = false;
  std::string record;  ///< as ToText() writes it
  std::string cursor;  ///< index and text of the current token, as in "5 $a"
  Lines messages = {};
};

inline bool operator==(const ParseOutcome& first, const ParseOutcome& second) {
  return first.result == second.result && first.record == second.record && first.cursor == second.cursor &&
         first.messages == second.messages;
}

inline std::ostream& operator<<(std::ostream& stream, const ParseOutcome& outcome) {
  stream << "\n  " << (outcome.result ? "true" : "false") << ", record: " << outcome.record
         << "\n  current token: " << outcome.cursor << "\n  messages:\n";
  for (const std::string& message : outcome.messages) {
    stream << "    " << message << '\n';
  }
  return stream;
}

/// What a validator answers.
struct Verdict {
  bool valid = false;
  Lines messages = {};
};

inline bool operator==(const Verdict& first, const Verdict& second) {
  return first.valid == second.valid && first.messages == second.messages;
}

inline std::ostream& operator<<(std::ostream& stream, const Verdict& verdict) {
  return stream << (verdict.valid ? "valid" : "invalid")
                << ", messages: " << ::testing::PrintToString(verdict.messages);
}

using Parser = std::function<bool(ZEVA_TokenSequence&, const ZEVA_DataSource&, MRSetSubcommand&)>;

// The keyword parsers, each on the fields of a record that it fills.

inline const Parser kParseMRName = [](ZEVA_TokenSequence& stream, const ZEVA_DataSource&, MRSetSubcommand& record) {
  return ParseMRName(stream, record.fName);
};
inline const Parser kParseLabel = [](ZEVA_TokenSequence& stream, const ZEVA_DataSource&, MRSetSubcommand& record) {
  return ParseLabel(stream, record.fLabel);
};
inline const Parser kParseLabelSource = [](ZEVA_TokenSequence& stream, const ZEVA_DataSource&,
                                           MRSetSubcommand& record) {
  return ParseLabelSource(stream, record.fLabelSourceVarLabel);
};
inline const Parser kParseCategoryLabels = [](ZEVA_TokenSequence& stream, const ZEVA_DataSource&,
                                              MRSetSubcommand& record) {
  return ParseCategoryLabels(stream, record.fCategoryLabelsCountedValues);
};
inline const Parser kParseValue = [](ZEVA_TokenSequence& stream, const ZEVA_DataSource&, MRSetSubcommand& record) {
  return ParseValue(stream, record.fValue, record.fValueIsNumber);
};
inline const Parser kParseVariables = [](ZEVA_TokenSequence& stream, const ZEVA_DataSource& source,
                                         MRSetSubcommand& record) {
  return ParseVariables(stream, source, record.fVariables, record.fAll);
};
inline const Parser kParseNames = [](ZEVA_TokenSequence& stream, const ZEVA_DataSource&, MRSetSubcommand& record) {
  return ParseNames(stream, record.fNames, record.fAll);
};

/// A record with nothing but its type.
inline MRSetSubcommand RecordOf(MRSetSubcommand::Type type) {
  MRSetSubcommand record;
  record.fType = type;
  return record;
}

/// A command that is being parsed, on a host with SurveyDictionary().
class Parsing {
 public:
  explicit Parsing(std::string_view command) : Parsing(scripted::Tokenize(command)) {}

  explicit Parsing(Tokens tokens) : fTokens(std::move(tokens)), host({SurveyDictionary(), {}, true, {}}) {
    host.SetTokens(fTokens);
    const scripted::Quiet quiet;
    fOpen = std::make_unique<Open>();
  }

  ~Parsing() {
    const scripted::Quiet quiet;
    fOpen.reset();
  }

  Parsing(const Parsing&) = delete;
  Parsing& operator=(const Parsing&) = delete;

  /// Makes the token of that index, or the first of that text as written, current.
  Parsing& At(int index) {
    const scripted::Quiet quiet;
    Stream().SetPosition(index);
    Stream().Next();
    return *this;
  }

  Parsing& At(std::string_view text) {
    const auto found =
        std::find_if(fTokens.begin(), fTokens.end(), [&](const auto& token) { return token.text == text; });
    EXPECT_NE(found, fTokens.end()) << "no token " << text;
    return At(static_cast<int>(found - fTokens.begin()));
  }

  ZEVA_TokenSequence& Stream() { return fOpen->stream; }
  const ZEVA_DataSource& Source() const { return fOpen->source; }

  std::string Cursor() {
    const scripted::Quiet quiet;
    return std::to_string(Stream().Position()) + " " + TokenString(Stream());
  }

  ParseOutcome Run(const Parser& parser) {
    const bool result = parser(Stream(), Source(), record);
    EXPECT_EQ(host.Violations(), Lines{});
    return {result, ToText(record), Cursor(), host.MessageLines()};
  }

  /// The lines of the trace that have the text in them.
  Lines Calls(std::string_view text) const {
    Lines lines;
    std::copy_if(host.Trace().begin(), host.Trace().end(), std::back_inserter(lines),
                 [&](const std::string& line) { return line.find(text) != std::string::npos; });
    return lines;
  }

 private:
  struct Open {
    ZEVA_TokenSequence stream{true};
    ProcedureDataSource source;
  };

  Tokens fTokens;

 public:
  scripted::ScriptedHost host;
  MRSetSubcommand record;

 private:
  std::unique_ptr<Open> fOpen;
};

/// A host's rule under which the tokens that are listed name the keywords that are listed, each every one of them, and
/// every keyword names itself.
inline std::function<int(const std::string&, const std::string&)> Naming(std::vector<std::string> tokens,
                                                                         std::vector<std::string> keywords) {
  const auto has = [](const std::vector<std::string>& texts, const std::string& text) {
    return std::find(texts.begin(), texts.end(), text) != texts.end();
  };
  return [=](const std::string& token, const std::string& keyword) {
    return token == keyword || (has(tokens, token) && has(keywords, keyword)) ? 1 : 0;
  };
}

/// A token as no tokenizer makes it.
inline scripted::Token Odd(TokenSequenceBase::TokenType type, std::string text, int symbol = scripted::kNoSymbol,
                           double number = 0) {
  return {type, std::move(text), symbol, number};
}

/// `tokens` and `more`, one after the other.
inline Tokens operator+(Tokens tokens, const Tokens& more) {
  tokens.insert(tokens.end(), more.begin(), more.end());
  return tokens;
}

}  // namespace module_test

#endif  // TESTS_MODULE_PARSING_H
