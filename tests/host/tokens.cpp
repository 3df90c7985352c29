#include "host/tokens.h"

#include <algorithm>
#include <stdexcept>

#include "tests/host/call.h"
#include "tests/host/host_access.h"
#include "tests/host/letters.h"
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
  stream.state = Stream::kCurrent;
  return stream.cursor < core.TokenCount();
}

void MoveTo(Core& core, Stream& stream, int position) {
  if (position < 0 || position > core.TokenCount()) {
    core.Violate("the position " + std::to_string(position) + " is outside of the command");
  }
  stream.cursor = std::clamp(position, 0, core.TokenCount()) - 1;
  stream.state = Stream::kSet;
}

int MatchKeyword(Core& core, const std::string& token, const std::string& keyword) {
  if (token != UpperCase(token)) {
    core.Violate("KeywordMatch was given a token that is not in upper case: " + token);
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
using scripted::MoveTo;
using scripted::NameOf;
using scripted::Quote;
using scripted::RequiredCore;
using scripted::ResolveList;
using scripted::Stream;
using scripted::StreamOf;
using scripted::WordsOf;

ZEVA_TokenSequence::ZEVA_TokenSequence(bool openCommand) : fRecord(nullptr) {
  Core& core = RequiredCore();
  Call call(core, "ZEVA_TokenSequence(", openCommand, ")");
  core.record->streams.emplace_back();
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
  const TokenType type = Current(core, *this, "Type()").type;
  call.Returns(type);
  return type;
}

int ZEVA_TokenSequence::Symbol() const {
  Core& core = RequiredCore();
  Call call(core, NameOf(core, *this), ".Symbol()");
  const int symbol = Current(core, *this, "Symbol()").symbol;
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
  return token.number;
}

std::string TokenString(const TokenSequenceBase& tokens) {
  Core& core = RequiredCore();
  Call call(core, "TokenString(", NameOf(core, tokens), ")");
  const std::string& text = Current(core, tokens, "TokenString").text;
  std::string result = call.ForCaller([&] { return std::string(text); });
  call.Returns(Quote(std::string_view(result)));
  return result;
}

std::string TokenStringCaps(const TokenSequenceBase& tokens) {
  Core& core = RequiredCore();
  Call call(core, "TokenStringCaps(", NameOf(core, tokens), ")");
  const std::string text = scripted::UpperCase(Current(core, tokens, "TokenStringCaps").text);
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
  const bool result = ResolveList(core, WordsOf(core, stream.cursor, end), found);
  stream = {core.hooks.cursorAfterVarList.value_or(std::clamp(end, 0, core.TokenCount())), Stream::kLost};
  call.ForCaller([&] { indices.insert(indices.end(), found.begin(), found.end()); });
  call.Returns(result, ", ", indices);
  return result;
}
