#include "host/tokens.h"

#include <algorithm>
#include <stdexcept>

#include "tests/host/call.h"
#include "tests/host/host_access.h"
#include "tests/host/letters.h"
#include "tests/host/lies.h"
#include "tests/host/names.h"
#include "tests/host/sources.h"
#include "tests/host/variable_list.h"

namespace scripted {
namespace {

std::intptr_t HandleOf(const TokenSequenceBase& tokens) {
  const auto* stream = dynamic_cast<const ZEVA_TokenSequence*>(&tokens);
  if (stream == nullptr) {
    throw std::logic_error("the token sequence is not the host's");
  }
  return HostAccess::Handle(*stream);
}

Named NameOf(const Core& core, const TokenSequenceBase& tokens) {
  return {core.record->ledger, HandleOf(tokens)};
}

/// Stands in for the stream of an object that is not alive.
Stream& NoStream() {
  static Stream stream;
  stream = Stream();
  return stream;
}

Stream& StreamOf(Core& core, const TokenSequenceBase& tokens) {
  const Object* object = Use(core, HandleOf(tokens), Kind::kTokens);
  return object == nullptr ? NoStream() : core.record->streams[object->data];
}

void CheckCurrent(Core& core, const Stream& stream, const char* what) {
  if (stream.state != Stream::kCurrent) {
    core.Violate(std::string(what) + " was asked for where no token is current");
  }
}

const Token& Current(Core& core, const TokenSequenceBase& tokens, const char* what) {
  const Stream& stream = StreamOf(core, tokens);
  CheckCurrent(core, stream, what);
  return core.TokenAt(stream.cursor);
}

bool Advance(Core& core, Stream& stream) {
  if (stream.state == Stream::kLost) {
    core.Violate("Next() was called behind a variable list before SetPosition()");
  }
  stream.cursor = std::min(stream.cursor + 1, core.TokenCount());
  if (Tells(Lie::kNextSkipsPlus) && core.TokenAt(stream.cursor).text == "+") {
    ++stream.cursor;
  }
  stream.state = Stream::kCurrent;
  return stream.cursor < core.TokenCount() || Tells(Lie::kNextIsTrueAtTheEnd);
}

void MoveTo(Core& core, Stream& stream, int position) {
  if (position < 0 || position > core.TokenCount()) {
    core.Violate("the position " + std::to_string(position) + " is outside of the command");
  }
  const bool isOneOff = Tells(Lie::kSetPositionIsOneOff) && position > 0 && position < core.TokenCount();
  stream.cursor =
      std::clamp(position + (isOneOff ? 1 : 0), 0, core.TokenCount() - (Tells(Lie::kEndHasNoPosition) ? 1 : 0)) - 1;
  stream.state = Stream::kSet;
}

int MatchKeyword(Core& core, const std::string& token, const std::string& keyword) {
  if (token != UpperCase(token)) {
    core.Violate("KeywordMatch was given a token that is not in upper case: " + token);
  }
  if (token.empty() ? Tells(Lie::kNothingIsAKeyword) : Tells(Lie::kFirstLetterIsEnough) && token[0] == keyword[0]) {
    return 1;
  }
  if (core.hooks.keywordMatch) {
    return core.hooks.keywordMatch(token, keyword);
  }
  return NamesKeyword(token, keyword) ? core.hooks.truth : 0;
}

std::vector<std::string> WordsOf(const Core& core, int begin, int end) {
  std::vector<std::string> words;
  for (int index = std::max(begin, 0); index < std::min(end, core.TokenCount()); ++index) {
    words.push_back(core.TokenAt(index).text);
  }
  return words;
}

void CheckEnd(Core& core, int end) {
  if (end < 0 || end > core.TokenCount()) {
    core.Violate("the end " + std::to_string(end) + " of a variable list is outside of the command");
  }
}

TokenSequenceBase::TokenType TypeToTell(const Token& token) {
  if (Tells(Lie::kNone)) {
    return token.type;
  }
  const struct {
    Lie lie;
    bool isMeant;
    TokenSequenceBase::TokenType type;
  } kLies[] = {
      {Lie::kEndIsSymbol, token.type == TokenSequenceBase::kEnd, TokenSequenceBase::kSymbol},
      {Lie::kNameIsSymbol, token.text[0] == '$', TokenSequenceBase::kSymbol},
      {Lie::kNumberIsWord, token.type == TokenSequenceBase::kNumber, TokenSequenceBase::kString},
      {Lie::kStringIsWord, token.type == TokenSequenceBase::kQuotedString, TokenSequenceBase::kString},
      {Lie::kBracketIsWord, token.text == "[", TokenSequenceBase::kString},
  };
  for (const auto& row : kLies) {
    if (Tells(row.lie) && row.isMeant) {
      return row.type;
    }
  }
  return token.type;
}

int SymbolToTell(const Token& token) {
  if (Tells(Lie::kBracketHasItsByte) && token.symbol == kOpenBracket) {
    return '[';
  }
  return Tells(Lie::kQuotedEqualsIsCoded) && token.text == "=" ? kEquals : token.symbol;
}

std::string TextToTell(const Token& token) {
  if (Tells(Lie::kOtherSlash) && token.symbol == kSlash) {
    return "slash";
  }
  if (Tells(Lie::kEndIsSlash) && token.type == TokenSequenceBase::kEnd) {
    return "/";
  }
  return Tells(Lie::kQuotesStay) && token.type == TokenSequenceBase::kQuotedString ? "'" + token.text + "'"
                                                                                   : token.text;
}

bool ResolveList(Core& core, const std::vector<std::string>& words, std::vector<int>& found) {
  return core.hooks.existingVarList ? core.hooks.existingVarList(words, found) : ReadVariableList(core, words, found);
}

}  // namespace
}  // namespace scripted

using scripted::Advance;
using scripted::Call;
using scripted::CheckCurrent;
using scripted::CheckEnd;
using scripted::Core;
using scripted::Current;
using scripted::Kind;
using scripted::Lie;
using scripted::MoveTo;
using scripted::NameOf;
using scripted::Quote;
using scripted::RequiredCore;
using scripted::ResolveList;
using scripted::Stream;
using scripted::StreamOf;
using scripted::Tells;
using scripted::WordsOf;

ZEVA_TokenSequence::ZEVA_TokenSequence(bool openCommand) : fRecord(nullptr) {
  Core& core = RequiredCore();
  Call call(core, "ZEVA_TokenSequence(", openCommand, ")");
  if (Tells(Lie::kNoTokensWithoutDataset) && core.common.fActiveDataset == nullptr) {
    throw std::logic_error("there is no dataset");
  }
  core.record->streams.emplace_back();
  if (Tells(Lie::kSecondStreamGoesOn) && core.record->streams.size() == 2) {
    core.record->streams.back().cursor = 0;
  }
  fRecord = HostAccess::ToRecord(call.Made(core.record->ledger.Add(Kind::kTokens, core.record->streams.size() - 1)));
}

ZEVA_TokenSequence::~ZEVA_TokenSequence() {
  scripted::Release(HostAccess::ToHandle(fRecord));
}

bool ZEVA_TokenSequence::Next() {
  Core& core = RequiredCore();
  Call call(core, NameOf(core, *this), ".Next()");
  const bool result = Advance(core, StreamOf(core, *this));
  call.Returns(result);
  return result;
}

int ZEVA_TokenSequence::Position() const {
  Core& core = RequiredCore();
  Call call(core, NameOf(core, *this), ".Position()");
  const Stream& stream = StreamOf(core, *this);
  if (stream.state != Stream::kBefore) {
    CheckCurrent(core, stream, "Position()");
  }
  call.Returns(stream.cursor);
  if (stream.cursor <= 0 && Tells(stream.cursor < 0 ? Lie::kPositionIsNeverNegative : Lie::kFirstTokenIsOne)) {
    return stream.cursor + 1;
  }
  return stream.cursor;
}

void ZEVA_TokenSequence::SetPosition(int position) {
  Core& core = RequiredCore();
  const Call call(core, NameOf(core, *this), ".SetPosition(", position, ")");
  MoveTo(core, StreamOf(core, *this), position);
}

TokenSequenceBase::TokenType ZEVA_TokenSequence::Type() const {
  Core& core = RequiredCore();
  Call call(core, NameOf(core, *this), ".Type()");
  const TokenType type = scripted::TypeToTell(Current(core, *this, "Type()"));
  call.Returns(type);
  return type;
}

int ZEVA_TokenSequence::Symbol() const {
  Core& core = RequiredCore();
  Call call(core, NameOf(core, *this), ".Symbol()");
  const int symbol = scripted::SymbolToTell(Current(core, *this, "Symbol()"));
  call.Returns(symbol);
  return symbol;
}

double ZEVA_TokenSequence::NumberValue() const {
  Core& core = RequiredCore();
  Call call(core, NameOf(core, *this), ".NumberValue()");
  const scripted::Token& token = Current(core, *this, "NumberValue()");
  if (token.type != kNumber) {
    core.Violate("NumberValue() was asked of " + token.text + ", which is no number");
  }
  call.Returns(token.number);
  return Tells(Lie::kNumberIsRounded) ? static_cast<int>(token.number) : token.number;
}

std::string TokenString(const TokenSequenceBase& tokens) {
  Core& core = RequiredCore();
  Call call(core, "TokenString(", NameOf(core, tokens), ")");
  const std::string text = scripted::TextToTell(Current(core, tokens, "TokenString"));
  std::string result = call.ForCaller([&] { return std::string(text); });
  call.Returns(Quote(std::string_view(result)));
  return result;
}

std::string TokenStringCaps(const TokenSequenceBase& tokens) {
  Core& core = RequiredCore();
  Call call(core, "TokenStringCaps(", NameOf(core, tokens), ")");
  const std::string& written = Current(core, tokens, "TokenStringCaps").text;
  const std::string text = Tells(Lie::kCapsAsWritten) ? written : scripted::UpperCase(written);
  std::string result = call.ForCaller([&] { return std::string(text); });
  call.Returns(Quote(std::string_view(result)));
  return result;
}

int KeywordMatch(const char* token, const char* keyword) {
  Core& core = RequiredCore();
  Call call(core, "KeywordMatch(", Quote(token), ", ", Quote(keyword), ")");
  const int result = scripted::MatchKeyword(core, token, keyword);
  call.Returns(result);
  return result;
}

bool ExistingVarList(const ZEVA_DataSource& dataSource, TokenSequenceBase& tokens, std::vector<int>& indices, int end) {
  Core& core = RequiredCore();
  Call call(core, "ExistingVarList(", SourceName(core, dataSource), ", ", NameOf(core, tokens), ", ", indices, ", ",
            end, ")");
  CheckSource(core, dataSource);
  Stream& stream = StreamOf(core, tokens);
  CheckCurrent(core, stream, "ExistingVarList");
  CheckEnd(core, end);
  std::vector<int> found;
  bool result = ResolveList(core, WordsOf(core, stream.cursor, end), found);
  if (Tells(Lie::kListIsRefusedInSilence) && !result) {
    core.record->messages.clear();
  }
  if (Tells(Lie::kListReplacesIndices) && !found.empty()) {
    indices.clear();
  }
  result = result && !(Tells(Lie::kEmptyListIsRefused) && end < stream.cursor);
  stream = {core.hooks.cursorAfterVarList.value_or(std::clamp(end, 0, core.TokenCount())), Stream::kLost};
  call.ForCaller([&] { indices.insert(indices.end(), found.begin(), found.end()); });
  call.Returns(result, ", ", indices);
  return result;
}
