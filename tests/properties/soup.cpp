#include "tests/properties/soup.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "tests/properties/dictionaries.h"

namespace properties {
namespace {

using scripted::Quoted;
using scripted::Symbol;
using scripted::Token;
using scripted::Word;

const Lines& Keywords() {
  static const Lines kKeywords = {"MDGROUP", "MCGROUP",        "DISPLAY", "DELETE",      "NAME",  "LABEL",
                                  "LABELSO", "CATEGORYLABELS", "VALUE",   "VARIABLES",   "MRSET", "VARLABEL",
                                  "VARL",    "COUNTEDVALUES",  "LABELSX", "LABELSOURCE", "var",   "na"};
  return kKeywords;
}

std::string AnyText(Dice& dice, const Variables& dictionary) {
  static const Lines kTexts = {"/", "=", "[", "]", "ALL", "TO", "", "$a", "$", "1", "q1", "Likes", "^1", "\xC3\xB1"};
  if (!dictionary.empty() && dice.Percent(30)) {
    return dice.Pick(dictionary).name;
  }
  return dice.Percent(40) ? InAnyCase(dice.Pick(Keywords()), dice) : dice.Pick(kTexts);
}

int AnyCode(Dice& dice) {
  static const std::vector<int> kCodes = {0, 3, 11, 35, 36, 37, 1000};
  return dice.Pick(kCodes);
}

Token OddToken(Dice& dice, const Variables& dictionary) {
  using Base = TokenSequenceBase;
  static const std::vector<Base::TokenType> kTypes = {Base::kString, Base::kString,       Base::kNumber,
                                                      Base::kNumber, Base::kQuotedString, Base::kQuotedString,
                                                      Base::kSymbol, Base::kSymbol,       Base::kEnd};
  static const std::vector<double> kNumbers = {1, 2.5, -0.0, std::numeric_limits<double>::infinity(),
                                               std::numeric_limits<double>::quiet_NaN()};
  return {dice.Pick(kTypes), AnyText(dice, dictionary), AnyCode(dice), dice.Pick(kNumbers)};
}

Token PlainToken(Dice& dice, const Variables& dictionary) {
  static const Lines kSymbols = {"=", "=", "=", "/", "/", "[", "]", "ALL", ",", "("};
  static const Lines kNumbers = {"1", "2.5", "-1", "0"};
  switch (dice.Below(8)) {
    case 0:
    case 1:
    case 2:
      return Symbol(dice.Pick(kSymbols));
    case 3:
    case 4:
      return Word(InAnyCase(dice.Pick(Keywords()), dice));
    case 5:
      return Word(dice.Percent(50) || dictionary.empty() ? SetName(dice) : dice.Pick(dictionary).name);
    case 6:
      return scripted::Number(dice.Pick(kNumbers));
    default:
      return Quoted(AnyText(dice, dictionary));
  }
}

/// Rarely the command name, whose loss ends everything.
std::ptrdiff_t PlaceIn(const Tokens& tokens, Dice& dice) {
  const bool isAnywhere = tokens.size() == 1 || dice.OneIn(30);
  return static_cast<std::ptrdiff_t>(isAnywhere ? dice.Below(tokens.size()) : dice.Between(1, tokens.size() - 1));
}

void MutateOnce(Tokens& tokens, Dice& dice, const Variables& dictionary) {
  if (tokens.empty()) {
    tokens.push_back(AnyToken(dice, dictionary));
    return;
  }
  const auto at = tokens.begin() + PlaceIn(tokens, dice);
  const Token copy = *at;
  switch (dice.Below(7)) {
    case 0:
    case 1:
      tokens.erase(at);
      break;
    case 2:
      tokens.insert(at, copy);
      break;
    case 3:
      std::iter_swap(at, tokens.begin() + PlaceIn(tokens, dice));
      break;
    case 4:
      *at = AnyToken(dice, dictionary);
      break;
    case 5:
      tokens.insert(at, AnyToken(dice, dictionary));
      break;
    default:
      tokens.erase(at, tokens.end());
      break;
  }
}

/// The words of a command in an order that gets somewhere.
void PutPhrase(Tokens& tokens, Dice& dice, const Variables& dictionary) {
  static const Lines kPhrases = {"NAME=ALL",        "NAME=[$a $b]",    "NAME=$likes",       "VALUE=1",  "VALUE='1'",
                                 "LABEL='Likes'",   "/DISPLAY",        "/DISPLAY NAME=ALL", "/MDGROUP", "/MCGROUP",
                                 "/DELETE NAME=[$", "VARIABLES=q1 q2", "VARIABLES="};
  const std::string& phrase = dice.Pick(kPhrases);
  const Tokens more = scripted::Tokenize(phrase);
  tokens.insert(tokens.end(), more.begin(), more.end());
  for (std::size_t count = phrase == "VARIABLES=" ? 2 : 0; count > 0 && !dictionary.empty(); --count) {
    tokens.push_back(Word(dice.Pick(dictionary).name));
  }
}

void PutTokens(Tokens& tokens, Dice& dice, const Variables& dictionary) {
  tokens.push_back(AnyToken(dice, dictionary));
  if (dice.Percent(40) && tokens.back().type == TokenSequenceBase::kString) {
    tokens.push_back(Symbol("="));  // else few get past the first keyword
  }
}

}  // namespace

Token AnyToken(Dice& dice, const Variables& dictionary) {
  return dice.Percent(25) ? OddToken(dice, dictionary) : PlainToken(dice, dictionary);
}

Tokens MakeSoup(Dice& dice, const Variables& dictionary) {
  static const Lines kSubcommands = {"MDGROUP", "MCGROUP", "DISPLAY", "DELETE"};
  Tokens tokens;
  if (!dice.OneIn(25)) {
    tokens.push_back(Word("MRSET"));
  }
  if (dice.Percent(80)) {
    tokens.push_back(Word(dice.Pick(kSubcommands)));
  }
  for (std::size_t count = dice.Below(dice.Percent(50) ? 6 : 20); count > 0; --count) {
    dice.Percent(40) ? PutPhrase(tokens, dice, dictionary) : PutTokens(tokens, dice, dictionary);
  }
  return tokens;
}

void Mutate(Tokens& tokens, Dice& dice, const Variables& dictionary) {
  for (std::size_t count = dice.Percent(60) ? 1 : dice.Between(2, 3); count > 0; --count) {
    MutateOnce(tokens, dice, dictionary);
  }
}

Token AnyEnd(Dice& dice) {
  static const Lines kTexts = {"end of command", "", "/", "=", "]", "MDGROUP", "NAME", "$a"};
  const std::string& text = dice.Pick(kTexts);
  return {TokenSequenceBase::kEnd, text, text == "=" ? scripted::kNoSymbol : AnyCode(dice), 0};
}

}  // namespace properties
