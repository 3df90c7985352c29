#include "standalone/language/slips.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "standalone/language/comments.h"
#include "standalone/language/grammar.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

constexpr const char* kHowToComment =
    "a comment starts with * and ends with a period, or goes between /* and */ on one line";

constexpr const char* kEndWithoutComment = "there is no /* on the line of this */: a comment ends with its line";

constexpr const char* kWherePeriodEnds = "a period ends a command only at the end of a line";

constexpr std::array<std::string_view, 12> kOddQuotes = {"\u2018", "\u2019", "\u201A", "\u201B", "\u201C", "\u201D",
                                                         "\u201E", "\u201F", "\u00AB", "\u00BB", "\u00B4", "`"};

/// Whether the words begin a command: its name, and "/" or a subcommand or nothing after it.
bool BeginCommand(std::string_view name, std::string_view next) {
  return NamesKeyword(ToUpper(name), kMrsetCommand) &&
         (next.empty() || next[0] == '/' || FindSubcommand(next) != nullptr);
}

std::string_view FirstWord(std::string_view text) {
  const auto begin = std::find_if_not(text.begin(), text.end(), IsBlank);
  const auto end = std::find_if(begin, text.end(), [](char c) { return IsBlank(c) || c == '/'; });
  return text.substr(static_cast<std::size_t>(begin - text.begin()),
                     static_cast<std::size_t>(std::max<std::ptrdiff_t>(end - begin, begin == text.end() ? 0 : 1)));
}

std::string_view After(std::string_view text, std::string_view word) {
  return text.substr(static_cast<std::size_t>(word.data() - text.data()) + word.size());
}

/// Whether the token is one character and the next, directly after it, another.
bool IsPair(const std::vector<Token>& tokens, std::size_t token, const char* first, const char* second) {
  const Token& one = tokens[token];
  return one.type == TokenSequenceBase::kSymbol && one.text == first && token + 1 < tokens.size() &&
         tokens[token + 1].type == TokenSequenceBase::kSymbol && tokens[token + 1].text == second &&
         tokens[token + 1].offset == one.offset + one.length;
}

/// Looks at one token of a command.
class Slip {
 public:
  Slip(const ScriptCommand& command, const std::vector<Token>& tokens, std::size_t token)
      : fCommand(command), fTokens(tokens), fToken(token) {}

  std::optional<std::string> Hint() const;

 private:
  const Token& At() const { return fTokens[fToken]; }
  const Token& Next() const { return fTokens[fToken + 1]; }
  std::size_t EndOfFormer() const { return fTokens[fToken - 1].offset + fTokens[fToken - 1].length; }

  bool IsFirstOnLine() const {
    const std::string_view between = std::string_view(fCommand.text).substr(EndOfFormer(), At().offset - EndOfFormer());
    return between.find('\n') != std::string_view::npos;
  }

  bool BeginsAnother() const {
    const bool isComment = At().text == "*" && At().type == TokenSequenceBase::kSymbol;
    return IsFirstOnLine() && (isComment || (IsWord(At()) && BeginCommand(At().text, Next().text)));
  }

  /// Whether the line before is the beginning of a comment that ends on a later line.
  bool IsInsideComment() const {
    const std::size_t begin = EndOfFormer();
    const std::string_view between = std::string_view(fCommand.text).substr(begin, At().offset - begin);
    const std::size_t comment = between.rfind("/*");
    if (comment == std::string_view::npos || between.find("*/", comment + 2) != std::string_view::npos) {
      return false;
    }
    const std::string_view rest = std::string_view(fCommand.text).substr(At().offset);
    return rest.substr(0, rest.find("/*")).find("*/") != std::string_view::npos;
  }

  std::string MissingPeriod() const {
    const auto begin = fCommand.text.begin();
    const auto lines = std::count(begin, begin + static_cast<std::ptrdiff_t>(EndOfFormer()), '\n');
    return fmt::format("line {} has no period at its end", fCommand.line + lines);
  }

  const ScriptCommand& fCommand;
  const std::vector<Token>& fTokens;
  std::size_t fToken;
};

std::optional<std::string> Slip::Hint() const {
  if (IsPair(fTokens, fToken, "*", "/") || IsInsideComment()) {
    return kEndWithoutComment;
  }
  if (BeginsAnother()) {
    return MissingPeriod();
  }
  if (IsPair(fTokens, fToken, "/", "/")) {
    return kHowToComment;
  }
  if (IsWord(At()) && At().text.back() == '.') {  // no name ends so
    return kWherePeriodEnds;
  }
  if (At().type != TokenSequenceBase::kSymbol) {
    return std::nullopt;
  }
  const std::string& symbol = At().text;
  if (std::find(kOddQuotes.begin(), kOddQuotes.end(), symbol) != kOddQuotes.end()) {
    return fmt::format("put texts in straight quotes, ' or \", not in {}", symbol);
  }
  if (symbol == ",") {
    return "separate names and keywords by blanks, not commas";
  }
  if (symbol == ".") {
    return kWherePeriodEnds;
  }
  return symbol == ";" ? std::make_optional("a command ends with a period, not with ;") : std::nullopt;
}

/// The first of the odd quotes in the text; empty for none.
std::string_view OddQuoteIn(std::string_view text) {
  const auto* found = std::find_if(kOddQuotes.begin(), kOddQuotes.end(), [text](std::string_view quote) {
    return text.find(quote) != std::string_view::npos;
  });
  return found == kOddQuotes.end() ? std::string_view() : *found;
}

}  // namespace

std::optional<std::string> HintOnSlip(const ScriptCommand& command, const std::vector<Token>& tokens,
                                      std::size_t token) {
  if (token < tokens.size() && tokens[token].text == "#" && IsWord(tokens[token])) {
    return kHowToComment;
  }
  for (const std::size_t candidate : {token, token + 1, token - std::min<std::size_t>(token, 1)}) {
    if (candidate == 0 || candidate + 1 >= tokens.size()) {
      continue;  // the command's name; its end
    }
    if (const std::optional<std::string> hint = Slip(command, tokens, candidate).Hint()) {
      return hint;
    }
  }
  return std::nullopt;
}

std::optional<std::string> HintOnEndOfSubcommand(const std::vector<Token>& tokens, std::size_t end) {
  return IsPair(tokens, end, "/", "/") ? std::make_optional(kHowToComment) : std::nullopt;
}

std::optional<std::string> HintOnHashWord(const std::vector<Token>& tokens, std::size_t token) {
  const bool isHashWord = IsWord(tokens[token]) && tokens[token].text[0] == '#';
  const bool mayBeComment = isHashWord && token > 0 && tokens[token - 1].symbol != kEqualsSymbol;
  return mayBeComment ? std::make_optional(kHowToComment) : std::nullopt;
}

std::optional<std::string> HintOnBeginning(std::string_view command) {
  const bool isComment = command.substr(0, 1) == "#" || command.substr(0, 2) == "//";
  return isComment ? std::make_optional(kHowToComment) : std::nullopt;
}

std::optional<std::string> HintOnOpenString(std::string_view string) {
  const std::string_view quote = OddQuoteIn(string);
  return quote.empty() ? std::nullopt
                       : std::make_optional(fmt::format("{} does not close a text that {} opens", quote, string[0]));
}

int LineTakenIn(std::string_view comment) {
  int line = 0;
  for (std::size_t end = comment.find('\n'); end != std::string_view::npos; end = comment.find('\n', end + 1)) {
    ++line;
    const std::string_view rest = comment.substr(end + 1);
    const std::string_view text = rest.substr(0, rest.find('\n'));
    const std::string_view name = FirstWord(text);
    if (!name.empty() && BeginCommand(name, FirstWord(After(text, name)))) {
      return line;
    }
  }
  return 0;
}

}  // namespace standalone
