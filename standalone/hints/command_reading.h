#ifndef STANDALONE_HINTS_COMMAND_READING_H
#define STANDALONE_HINTS_COMMAND_READING_H

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "standalone/language/tokenizer.h"

namespace standalone {

/// The cursor of a token stream on the tokens of the command.
struct TokenCursor {
  int position = -1;      ///< -1 before the first token
  bool isSet = false;     ///< the stream was set to where it stands, and nothing was read since
  bool wentBack = false;  ///< the current token was read after that: it is one that was current before
};

/// What the host sees of the module's reading of one command, and which token a message is about that the module
/// issues meanwhile. Tokens are named by their index.
class CommandReading {
 public:
  /// Whether the dataset has a variable of that name.
  using IsVariable = std::function<bool(const std::string& name)>;

  /// `tokens` must outlive this.
  CommandReading(const std::vector<Token>& tokens, IsVariable isVariable)
      : fTokens(tokens), fIsVariable(std::move(isVariable)) {}

  const std::vector<Token>& Tokens() const { return fTokens; }

  /// The stream through which the module reads, while there is one.
  void Open(const TokenCursor& cursor) { fCursor = &cursor; }
  void Close() { fCursor = nullptr; }

  /// The module asked whether the current token, in upper case, names a keyword.
  void TryKeyword(std::string_view token, std::string_view keyword, bool isNamed);

  /// A message is issued.
  void NoteMessage() { fHasMessage = true; }

  /// The module has read the whole command and begins to carry it out.
  void End() { fHasEnded = true; }
  bool HasEnded() const { return fHasEnded; }

  /// The token that is current for the first time: a message that is issued now is about it. Nothing where the module
  /// went back to a token, as it does before it checks a subcommand as a whole, and once it has read the command.
  std::optional<std::size_t> TokenJustRead() const;

  /// The token that a message is about whose first argument is `quoted`: the one just read; else, of the subcommand
  /// that is being checked, the only name or counted value with that text or, where there is not just one, the
  /// subcommand's keyword; else, of the command that is being carried out, the only name with that text. Nothing where
  /// there is none. Labels, keywords and their options are never quoted.
  std::optional<std::size_t> TokenOfMessage(const std::string& quoted) const;

  /// The keywords that the module compared the token with, in vain; none when one was named.
  std::vector<std::string> KeywordsTriedAt(std::size_t token) const;

  /// Whether the module compared the token with any keyword, and no token since.
  bool TriedLast(std::size_t token) const { return fTried && fTried->token == token; }

  /// The keyword of the subcommand to which a token belongs.
  std::size_t SubcommandOf(std::size_t token) const;

  /// The end of the subcommand whose keyword the token is: the "/" after it, or the end of the command.
  std::size_t EndOfSubcommand(std::size_t keyword) const;

  /// The end of the subcommand that the module has read and checks as a whole; nothing where it does not.
  std::optional<std::size_t> EndOfCheckedSubcommand() const;

  /// The keyword of the subcommand, without any keyword of its own, for which the module gave up the command and said
  /// nothing. Nothing where it had another reason, or did not give up.
  std::optional<std::size_t> EmptySubcommand() const;

  /// Whether the command holds a name with that text, without regard to case.
  bool HoldsName(std::string_view word) const;

 private:
  struct Tried {
    std::size_t token;
    std::vector<std::string> keywords;
    bool isNamed;
  };

  std::optional<std::size_t> CurrentToken() const;
  std::optional<std::size_t> TokenQuoted(const std::string& text, std::size_t begin, std::size_t end) const;
  std::vector<std::size_t> TwoTokens(const std::string& key, std::size_t begin, std::size_t end) const;
  const std::vector<std::size_t>& TokensWith(const std::string& key) const;
  std::optional<std::string> KeyOf(std::size_t token) const;
  bool BeginsSubcommand(std::size_t token) const;

  const std::vector<Token>& fTokens;
  IsVariable fIsVariable;
  const TokenCursor* fCursor = nullptr;
  bool fHasEnded = false;
  bool fHasMessage = false;  // since the module tried a keyword
  std::optional<Tried> fTried;

  // Many messages may be about one subcommand, so what they look up is kept.
  mutable std::unordered_map<std::string, std::vector<std::size_t>> fTokensByKey;
  mutable std::optional<std::pair<std::size_t, std::size_t>> fLastSubcommand;  // a token, the keyword
  mutable std::optional<std::pair<std::size_t, std::size_t>> fLastEnd;         // a keyword, the end
};

}  // namespace standalone

#endif  // STANDALONE_HINTS_COMMAND_READING_H
