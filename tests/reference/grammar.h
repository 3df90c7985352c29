#ifndef TESTS_REFERENCE_GRAMMAR_H
#define TESTS_REFERENCE_GRAMMAR_H

#include <string>
#include <vector>

#include "tests/host/tokenizer.h"
#include "tests/reference/host_rules.h"
#include "tests/reference/record.h"
#include "tests/reference/report.h"

// The language of the command as tables: what its subcommands and keywords are, which values they take, and what is
// said of the others. One reader interprets the tables.

namespace reference {

using Tokens = std::vector<scripted::Token>;

/// What the reader reads. The arguments must outlive it.
class Input {
 public:
  Input(const Tokens& tokens, const scripted::Token& end, const Variables& dictionary)
      : fTokens(tokens), fEnd(end), fDictionary(dictionary) {}

  int Count() const { return static_cast<int>(fTokens.size()); }

  /// The end of the command where the index is that of no token.
  const scripted::Token& At(int index) const;
  const std::string& Text(int index) const { return At(index).text; }

  /// The index after this one; the end has none.
  int After(int index) const { return index < Count() ? index + 1 : index; }

  /// The texts of the tokens from `begin` up to, not including, `end`.
  std::vector<std::string> Texts(int begin, int end) const;

  const Variables& Dictionary() const { return fDictionary; }

 private:
  const Tokens& fTokens;
  const scripted::Token& fEnd;
  const Variables& fDictionary;
};

/// How far a part of the command was read.
struct Reached {
  bool isAccepted = false;
  int index = -1;  ///< of the token that is current then
};

/// Reads the keyword at an index, one of those of a subcommand, with its value.
Reached ReadKeyword(const Input& input, Record::Type subcommand, const std::string& keyword, int at, Record& record,
                    Report& report);

/// Reads the subcommand whose keyword is at an index, up to the next "/" or the end.
Reached ReadSubcommand(const Input& input, Record::Type subcommand, int at, Record& record, Report& report);

/// The subcommand that a word names; kNONE where it names none.
Record::Type SubcommandNamed(const std::string& word);

bool IsSlash(const scripted::Token& token);
bool NamesKeywordInAnyCase(const std::string& word, const std::string& keyword);

}  // namespace reference

#endif  // TESTS_REFERENCE_GRAMMAR_H
