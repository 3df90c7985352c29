#include "tests/fuzz/language_checks.h"

#include <algorithm>
#include <string>
#include <vector>

#include "standalone/language/grammar.h"
#include "standalone/language/script.h"
#include "standalone/language/tokenizer.h"
#include "standalone/language/variable_list.h"
#include "standalone/text/unicode.h"
#include "tests/fuzz/check.h"
#include "tests/fuzz/script_oracle.h"

namespace fuzz {
namespace {

using standalone::Token;
using Texts = std::vector<std::string>;

/// Where a line begins, the first being line 1.
std::size_t BeginOfLine(std::string_view script, int line) {
  std::size_t begin = 0;
  for (; line > 1; --line) {
    begin = script.find('\n', begin) + 1;
    Check(begin != 0, "a command's line is a line of the script");
  }
  return begin;
}

/// Finds the command on its line, not before `begin`; answers where it ends.
std::size_t CheckPlace(std::string_view script, const standalone::ScriptCommand& command, std::size_t begin) {
  const std::size_t line = BeginOfLine(script, command.line);
  const std::size_t found = script.find(command.text, std::max(line, begin));
  Check(found != std::string_view::npos, "a command's text stands in the script, after the command before it");
  Check(script.substr(line, found - line).find('\n') == std::string_view::npos, "a command begins on its line");
  return found + command.text.size();
}

bool IsAll(const Token& token) {
  const bool isQuoted = token.type == TokenSequenceBase::kQuotedString;
  return !isQuoted && standalone::ToUpper(token.text) == "ALL";
}

/// `text` begins with the token. The word ALL is a symbol.
void CheckType(const Token& token, std::string_view text) {
  const auto expected = token.symbol == standalone::kAllSymbol ? TokenSequenceBase::kSymbol : TypeOfToken(text);
  Check(!expected || token.type == *expected, "a token is of the type with which it begins");
  Check((token.symbol == standalone::kAllSymbol) == IsAll(token), "the word ALL, and nothing else, is that symbol");
}

/// A token's text is what stands at its place, and between two tokens there is nothing.
void CheckTokens(std::string_view command, const std::vector<Token>& tokens) {
  std::size_t end = 0;
  for (const Token& token : tokens) {
    Check(token.offset >= end && token.offset + token.length <= command.size(), "a token lies in the command");
    Check(end + LengthOfBlanks(command.substr(end)) == token.offset, "a token begins after blanks and comments");
    end = token.offset + token.length;
    const bool isWritten = token.type != TokenSequenceBase::kQuotedString && token.type != TokenSequenceBase::kEnd;
    CheckType(token, command.substr(token.offset));
    Check(!isWritten || token.text == command.substr(token.offset, token.length), "a token's text is as written");
  }
  Check(end == command.size() && tokens.back().length == 0, "the last token is the end");
  Check(tokens.back().type == TokenSequenceBase::kEnd, "the last token is of the type of the end");
}

/// The tokens with one blank between them are the same tokens.
void CheckTokensApart(std::string_view command, const std::vector<Token>& tokens) {
  std::string apart;
  for (const Token& token : tokens) {
    apart.append(command, token.offset, token.length).append(" ");
  }
  const std::vector<Token> again = standalone::Tokenize(apart);
  Check(again.size() == tokens.size(), "as many tokens with blanks between them");
  for (std::size_t index = 0; index < tokens.size(); ++index) {
    CheckSame(again[index].text, tokens[index].text, "a token with blanks around it");
    Check(again[index].type == tokens[index].type, "its type");
    Check(again[index].symbol == tokens[index].symbol, "its symbol");
    Check(again[index].number == tokens[index].number, "its number");
  }
}

void CheckVariableList(const std::vector<Token>& tokens) {
  static const Texts dictionary{"Q1",
                                "Q2",
                                "Q3",
                                "S1",
                                "\xC3\x84"
                                "RGER",
                                "ALPHA"};
  const standalone::VariableLookup lookup{
      [](const std::string& name) {
        const auto found = std::find(dictionary.begin(), dictionary.end(), standalone::ToUpper(name));
        return found == dictionary.end() ? -1 : static_cast<int>(found - dictionary.begin());
      },
      [](int position) { return dictionary[static_cast<std::size_t>(position)]; }};
  Texts words;
  for (std::size_t index = 0; index + 1 < tokens.size(); ++index) {
    const bool isWord = tokens[index].type == TokenSequenceBase::kString;
    words.push_back(isWord ? standalone::ToUpper(tokens[index].text) : "");
  }
  std::vector<int> positions;
  const auto problem = standalone::ReadVariableList(tokens, 0, words.size(), lookup, positions);
  const auto expected = PlainVariableList(words, dictionary);
  Check(problem.has_value() != expected.has_value(), "a list is read or what is wrong is said");
  Check(!expected || positions == *expected, "the positions of a list");
  Check(!problem || problem->token < words.size(), "the culprit is a token of the list");
}

void CheckKeywords(const std::vector<Token>& tokens) {
  for (const std::string keyword : {"MRSET", "LABELSOURCE", "ALL"}) {
    for (const Token& token : tokens) {
      const std::string text = standalone::ToUpper(token.text);
      bool expected = text == keyword;
      for (std::size_t length = 3; length < keyword.size(); ++length) {
        expected = expected || text == keyword.substr(0, length);
      }
      Check(standalone::NamesKeyword(text, keyword) == expected, "the rule of abbreviation");
    }
  }
}

void CheckCommand(const std::string& command) {
  std::vector<Token> tokens;
  try {
    tokens = standalone::Tokenize(command);
  } catch (const standalone::TokenizerError& error) {
    Check(!IsReadable(command), "only what cannot be read is refused");
    Check(error.Offset() < command.size(), "the place of an error lies in the command");
    Check(error.Size() > 0 && error.Size() <= command.size() - error.Offset(), "nor does its end lie outside");
    return;
  }
  Check(IsReadable(command), "what cannot be read is refused");
  CheckTokens(command, tokens);
  CheckTokensApart(command, tokens);
  CheckVariableList(tokens);
  CheckKeywords(tokens);
}

/// A command on its own, with its final period, is split into itself. Not on the first line, where a byte order mark
/// would be no part of it.
void CheckAlone(const std::string& command) {
  const std::vector<standalone::ScriptCommand> alone = standalone::SplitScript("\n" + command + ".");
  Check(alone.size() == 1, "a command alone is one command");
  CheckSame(alone[0].text, command, "a command alone");
  Check(alone[0].line == 2, "a command alone begins on its line");
  CheckSame(alone[0].before + "|" + alone[0].after, "|.", "what stands around a command alone");
}

}  // namespace

void CheckScript(std::string_view script) {
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  std::size_t end = 0;
  for (const standalone::ScriptCommand& command : standalone::SplitScript(script)) {
    end = CheckPlace(script, command, std::max(end, script.find(kByteOrderMark) == 0 ? kByteOrderMark.size() : 0));
    Check(!command.text.empty() && command.text[0] != '*', "a command is neither empty nor a comment");
    CheckAlone(command.text);
    CheckCommand(command.text);
  }
  CheckCommand(std::string(script));
}

}  // namespace fuzz
