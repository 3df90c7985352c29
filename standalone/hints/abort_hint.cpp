#include "standalone/hints/abort_hint.h"

#include <fmt/format.h>

#include <cstddef>
#include <vector>

#include "standalone/language/grammar.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

using Tokens = std::vector<Token>;

/// Whether NAME= stands at `index`.
bool NamesSets(const SubcommandRule& rule, const Tokens& tokens, std::size_t index) {
  const Keyword* keyword = IsWord(tokens[index]) ? FindKeyword(rule, tokens[index].text) : nullptr;
  return keyword != nullptr && keyword->name == "NAME" && tokens[index + 1].symbol == kEqualsSymbol;
}

/// On what stands at `index`, where a list of names does.
std::optional<std::string> HintOnNames(const Tokens& tokens, std::size_t index) {
  if (tokens[index].symbol != kOpeningBracketSymbol) {
    return tokens[index].symbol == kAllSymbol ? std::nullopt
                                              : std::make_optional("put names of sets in brackets: NAME=[$name]");
  }
  if (tokens[index + 1].symbol == kClosingBracketSymbol) {
    return "the list in the brackets is empty";
  }
  for (++index; IsWord(tokens[index]); ++index) {
    if (tokens[index].text[0] != '$') {
      return fmt::format("names of sets begin with $; {} does not", tokens[index].text);
    }
  }
  return std::nullopt;
}

/// On the subcommand whose tokens these are; the last one ends it.
std::optional<std::string> HintOnSubcommand(const SubcommandRule& rule, const Tokens& tokens, std::size_t begin,
                                            std::size_t end) {
  bool hasName = false;
  for (std::size_t index = begin + 1; index + 1 < end; ++index) {
    if (NamesSets(rule, tokens, index)) {
      hasName = true;
      const std::optional<std::string> hint = rule.name == "DELETE" ? HintOnNames(tokens, index + 2) : std::nullopt;
      if (hint) {
        return hint;
      }
    }
  }
  return rule.name == "MCGROUP" && !hasName ? std::make_optional("MCGROUP has no name: add NAME=$name") : std::nullopt;
}

}  // namespace

std::optional<std::string> HintOnAbort(const std::string& command) {
  const Tokens tokens = Tokenize(command);
  std::size_t begin = 1;
  for (std::size_t end = begin + 1; end < tokens.size(); ++end) {
    if (tokens[end].symbol != kSlashSymbol && tokens[end].type != TokenSequenceBase::kEnd) {
      continue;
    }
    begin += tokens[begin].symbol == kSlashSymbol ? 1 : 0;
    const SubcommandRule* rule = IsWord(tokens[begin]) ? FindSubcommand(tokens[begin].text) : nullptr;
    const std::optional<std::string> hint =
        rule == nullptr ? std::nullopt : HintOnSubcommand(*rule, tokens, begin, end);
    if (hint) {
      return hint;
    }
    begin = end;
  }
  return std::nullopt;
}

}  // namespace standalone
