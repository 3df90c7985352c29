#ifndef TESTS_REFERENCE_COMMAND_H
#define TESTS_REFERENCE_COMMAND_H

#include <cstddef>
#include <string>
#include <vector>

#include "tests/host/tokenizer.h"
#include "tests/reference/host_rules.h"
#include "tests/reference/report.h"

namespace reference {

using Tokens = std::vector<scripted::Token>;

/// The command that is being parsed: its tokens with a cursor, the dictionary, and what has been reported.
class Command {
 public:
  /// The cursor stands before the first token. The arguments must outlive the command.
  Command(const Tokens& tokens, const scripted::Token& end, const Variables& dictionary)
      : fTokens(tokens), fEnd(end), fDictionary(dictionary) {}

  /// False when the end of the command is, or stays, current.
  bool Next();
  int Position() const { return fCursor; }
  void SetPosition(int position) { fCursor = position - 1; }

  scripted::Token Current() const { return At(fCursor); }
  TokenSequenceBase::TokenType Type() const { return Current().type; }
  int Symbol() const { return Current().symbol; }
  double NumberValue() const { return Current().number; }
  std::string TokenString() const { return Current().text; }
  std::string TokenStringCaps() const;
  bool AtEnd() const { return Type() == TokenSequenceBase::kEnd; }

  /// The texts of the tokens from `begin` up to, not including, `end`.
  std::vector<std::string> Texts(int begin, int end) const;

  const Variables& Dictionary() const { return fDictionary; }
  Report& Messages() { return fReport; }

  /// Reports an error and answers false.
  bool Fail(const std::string& pattern, const std::string& first = {}, const std::string& second = {});

 private:
  int Count() const { return static_cast<int>(fTokens.size()); }
  scripted::Token At(int index) const;

  const Tokens& fTokens;
  const scripted::Token& fEnd;
  const Variables& fDictionary;
  int fCursor = -1;
  Report fReport;
};

bool IsTokenEqualWith(const Command& command, const std::string& keyword, bool useKeywordMatch = true);
bool IsTruncatedTokenEqualWith(const Command& command, const std::string& keyword, std::size_t length);
bool IsLabelSource(const Command& command);

/// Asserts that the current token names the keyword.
void RequireKeyword(const Command& command, const std::string& keyword);

void MovePrevious(Command& command);
bool CheckNextToken(Command& command);

}  // namespace reference

#endif  // TESTS_REFERENCE_COMMAND_H
