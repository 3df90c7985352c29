#ifndef HOST_TOKENS_H
#define HOST_TOKENS_H

#include <cstdint>
#include <string>
#include <vector>

class ZEVA_DataSource;

/// The tokens of one command with a cursor on the current token.
///
/// Tokens are numbered from 0, the command name. The end of the command is a token of its own after the last one.
/// Texts are NUL-free and in the host's multibyte encoding.
///
/// The module tells "/" and "=" by their text in some places and by their code in others: both must be right. Where it
/// looks at the text, the type does not matter: a quoted '/' or '=' acts as the symbol, a quoted 'NAME' as the keyword.
class TokenSequenceBase {
 public:
  enum TokenType : std::int32_t {
    kEnd = 1,           ///< after the last token
    kString = 2,        ///< a word: command name, keyword, variable name or set name
    kNumber = 3,        ///< a numeric literal
    kQuotedString = 4,  ///< a quoted string
    kSymbol = 5         ///< punctuation or a reserved word, told apart by Symbol()
  };

  TokenSequenceBase(const TokenSequenceBase&) = delete;
  TokenSequenceBase& operator=(const TokenSequenceBase&) = delete;

  /// Makes the next token current. False when that is the end of the command, which then is and stays current.
  virtual bool Next() = 0;

  /// Index of the current token; negative before the first Next().
  virtual int Position() const = 0;

  /// Moves the cursor so that the following Next() makes the token at `position` current. `position` is 0 to the index
  /// of the end. Until that Next() no token is current, and the module asks for none.
  virtual void SetPosition(int position) = 0;

  /// Type of the current token.
  virtual TokenType Type() const = 0;

  /// Code of the current token: 3 "=", 11 "/", 35 the all-sets symbol, 36 "[", 37 "]". Any other token, whatever its
  /// type, has a code of the host's that is none of these.
  virtual int Symbol() const = 0;

  /// Value of the current token, which must be a kNumber.
  virtual double NumberValue() const = 0;

  bool AtEnd() const { return Type() == kEnd; }

 protected:
  TokenSequenceBase() = default;
  ~TokenSequenceBase() = default;
};

/// The token stream of the command that the host is running.
class ZEVA_TokenSequence : public TokenSequenceBase {
 public:
  /// Opens the stream with the cursor before the command name. The meaning of `openCommand` is the host's; the module
  /// passes true. The host owns the tokens; the stream is released by the destructor.
  explicit ZEVA_TokenSequence(bool openCommand);

  bool Next() override;
  int Position() const override;
  void SetPosition(int position) override;
  TokenType Type() const override;
  int Symbol() const override;
  double NumberValue() const override;

  virtual ~ZEVA_TokenSequence();

 private:
  friend class HostAccess;  // the host's own way to the record
  void* fRecord;
};

// These functions always get a ZEVA_TokenSequence, whatever their parameter's type.

/// The current token's text as written; of a quoted string, the text between the quotes. At the end of the command, a
/// text of the host's choice that is neither "/" nor "=" nor a keyword.
std::string TokenString(const TokenSequenceBase& tokens);

/// The current token's text in upper case.
std::string TokenStringCaps(const TokenSequenceBase& tokens);

/// Non-zero when `token`, already in upper case, names `keyword` under the host's rule of abbreviation. Both are
/// NUL-terminated. `token` may be empty, and then names no keyword.
int KeywordMatch(const char* token, const char* keyword);

/// Reads a variable list in the host's syntax from the current token up to, not including, the token at `end`, and
/// appends the dictionary index of every variable that it names, in order, to `indices`. False after the host has
/// reported what is wrong with the list; `indices` then holds the variables resolved so far. `end` may be the cursor's
/// own position or lie before it, and the cursor may be on the end of the command: that list is empty, and right. The
/// cursor may be anywhere afterwards.
bool ExistingVarList(const ZEVA_DataSource& dataSource, TokenSequenceBase& tokens, std::vector<int>& indices, int end);

#endif  // HOST_TOKENS_H
