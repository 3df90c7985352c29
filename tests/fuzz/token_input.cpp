#include "tests/fuzz/token_input.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <string>

namespace fuzz {
namespace {

using scripted::Categories;
using scripted::Dichotomies;
using scripted::Numeric;
using scripted::SetData;
using scripted::String;
using scripted::Token;
using scripted::Variable;

constexpr std::string_view::size_type kHeaderSize = 7;

unsigned char Distance(std::string_view text, std::size_t index) {
  return static_cast<unsigned char>(text[index] - '0');
}

/// Those of the first eight entries whose bit is not set, and all that follow.
template <typename Entry>
std::vector<Entry> Without(std::vector<Entry> entries, unsigned mask) {
  std::vector<Entry> kept;
  for (std::size_t index = 0; index < entries.size(); ++index) {
    if (index >= 8 || (mask >> index & 1U) == 0) {
      kept.push_back(std::move(entries[index]));
    }
  }
  return kept;
}

std::vector<Variable> AllVariables() {
  return {Numeric("q1", "Tea", {{1.0, "Yes"}, {0.0, "No"}}),
          Numeric("q2", "Coffee", {{1.0, "Yes"}, {0.0, "No"}}),
          Numeric("q3", "Tea", {{1.0, "Drinks"}, {2.5, "Half"}}),
          Numeric("Q4", std::nullopt, {{1.0, ""}}),
          Numeric("q5", ""),
          String("s8", 8, "Wide", {{std::string("a"), "A"}, {std::string("12345678"), "Long"}}),
          String("s3", 3, "Narrow", {{std::string("a"), "B"}}),
          String("s3b", 3, std::nullopt, {{std::string("a"), "A"}}),
          Numeric("\xC3\xA4q", "\xC3\x84pfel"),
          String("s1", 1)};
}

std::vector<SetData> AllSets() {
  SetData fromLabels = Dichotomies("$labels", "1", {"q1", "q2"});
  fromLabels.labelSetByVariable = true;
  fromLabels.useVariableCategoryLabels = true;
  SetData plain = Categories("$plain", {"q1"});
  plain.type = VariableSet::kVarSet;
  return {Dichotomies("$a", "1", {"q1", "q2"}, "Likes"),
          Categories("$B", {"s3", "s8"}),
          fromLabels,
          Categories("$gone", {"gone", "Q3"}, "Gone"),
          Dichotomies("$\xC3\xA4", "abc", {"s8", "s3"}),
          Dichotomies("$empty", "1", {}),
          Categories("$A", {"q1"}),
          plain};
}

int SymbolOf(char character) {
  constexpr std::array<int, 7> kCodes = {scripted::kNoSymbol,    scripted::kEquals,      scripted::kSlash,
                                         scripted::kAllSets,     scripted::kOpenBracket, scripted::kCloseBracket,
                                         scripted::kOtherSymbols};
  return kCodes[static_cast<unsigned char>(character - '0') % kCodes.size()];
}

TokenSequenceBase::TokenType TypeOf(char character) {
  return static_cast<TokenSequenceBase::TokenType>(2 + static_cast<unsigned char>(character - '0') % 4);
}

/// The token that the escape's text, without its marks, describes.
Token EscapedToken(std::string_view escape) {
  Token token = scripted::Word("");
  if (escape.size() < 2) {
    return token;
  }
  token.type = TypeOf(escape[0]);
  token.symbol = SymbolOf(escape[1]);
  const std::size_t number = escape.find('\x03', 2);
  token.text = std::string(escape.substr(0, number).substr(2));
  token.number =
      number == std::string_view::npos ? 0 : std::strtod(std::string(escape.substr(number + 1)).c_str(), nullptr);
  return token;
}

void AppendTokens(std::string_view text, std::vector<Token>& tokens) {
  for (Token& token : scripted::Tokenize(text)) {
    tokens.push_back(std::move(token));
  }
}

std::vector<Token> ReadTokens(std::string_view text) {
  std::vector<Token> tokens;
  std::size_t mark = text.find('\x01');
  while (mark != std::string_view::npos) {
    AppendTokens(text.substr(0, mark), tokens);
    text.remove_prefix(mark + 1);
    const std::size_t end = std::min(text.find('\x02'), text.size());
    tokens.push_back(EscapedToken(text.substr(0, end)));
    text.remove_prefix(std::min(end + 1, text.size()));
    mark = text.find('\x01');
  }
  AppendTokens(text, tokens);
  return tokens;
}

void ReadHeader(std::string_view header, TokenInput& input) {
  constexpr std::array<int, 4> kTruths = {1, -1, 2, 256};
  input.fault = Distance(header, 0) + std::size_t{256} * Distance(header, 1);
  const unsigned options = Distance(header, 2);
  input.faultKind = (options & 1U) == 0 ? scripted::FaultKind::kStandard : scripted::FaultKind::kOdd;
  input.faultMode = (options & 2U) == 0 ? scripted::FaultMode::kOnce : scripted::FaultMode::kFromThenOn;
  input.truth = kTruths[options >> 2U & 3U];
  input.datasetOpen = (options >> 4U & 7U) != 7;
  input.dictionary = Without(AllVariables(), Distance(header, 3));
  input.sets = Without(AllSets(), static_cast<unsigned>(~Distance(header, 4)));
  input.cursorAfterVarList = Distance(header, 5);
  if (Distance(header, 6) % 2 == 1) {
    std::reverse(input.sets.begin(), input.sets.end());
  }
}

}  // namespace

TokenInput ReadTokenInput(std::string_view text) {
  std::string clean(text);
  std::replace(clean.begin() + static_cast<std::ptrdiff_t>(std::min(kHeaderSize, clean.size())), clean.end(), '\0',
               ' ');  // the boundary's texts hold no NUL
  clean.resize(std::max(clean.size(), kHeaderSize), '0');
  TokenInput input;
  ReadHeader(std::string_view(clean).substr(0, kHeaderSize), input);
  input.tokens = ReadTokens(std::string_view(clean).substr(kHeaderSize));
  input.cursorAfterVarList %= static_cast<int>(input.tokens.size()) + 1;
  return input;
}

}  // namespace fuzz
