#include "host/tokens.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "standalone/host/command_context.h"
#include "standalone/host/records.h"
#include "standalone/language/grammar.h"
#include "standalone/language/variable_list.h"
#include "standalone/text/unicode.h"

using standalone::CommandContext;
using standalone::Token;

namespace {

const Token& CurrentToken(const TokenSequenceBase& tokens) {
  const std::vector<Token>& all = CommandContext::Current().Tokens();
  const int position = HostAccess::Cursor(tokens).position;
  return position < 0 ? all.back() : all[static_cast<std::size_t>(position)];
}

int EndPosition() {
  return static_cast<int>(CommandContext::Current().Tokens().size()) - 1;
}

standalone::VariableLookup LookupIn(standalone::Dataset& dataset) {
  return {[&dataset](const std::string& name) { return dataset.FindVariable(name); },
          [&dataset](int position) { return dataset.VariableAt(position).name; }};
}

}  // namespace

ZEVA_TokenSequence::ZEVA_TokenSequence(bool /*openCommand*/) : fRecord(new standalone::TokenCursor) {
  CommandContext::Current().Reading().Open(HostAccess::Cursor(*this));
}

ZEVA_TokenSequence::~ZEVA_TokenSequence() {
  CommandContext::Current().Reading().Close();
  delete static_cast<standalone::TokenCursor*>(fRecord);
}

bool ZEVA_TokenSequence::Next() {
  standalone::TokenCursor& cursor = HostAccess::Cursor(*this);
  cursor.position = std::min(cursor.position + 1, EndPosition());
  cursor.wentBack = std::exchange(cursor.isSet, false);
  return cursor.position < EndPosition();
}

int ZEVA_TokenSequence::Position() const {
  return HostAccess::Cursor(*this).position;
}

void ZEVA_TokenSequence::SetPosition(int position) {
  standalone::TokenCursor& cursor = HostAccess::Cursor(*this);
  cursor.position = std::clamp(position, 0, EndPosition()) - 1;
  cursor.isSet = true;
}

TokenSequenceBase::TokenType ZEVA_TokenSequence::Type() const {
  return CurrentToken(*this).type;
}

int ZEVA_TokenSequence::Symbol() const {
  return CurrentToken(*this).symbol;
}

double ZEVA_TokenSequence::NumberValue() const {
  return CurrentToken(*this).number;
}

std::string TokenString(const TokenSequenceBase& tokens) {
  return CurrentToken(tokens).text;
}

std::string TokenStringCaps(const TokenSequenceBase& tokens) {
  return standalone::ToUpper(CurrentToken(tokens).text);
}

int KeywordMatch(const char* token, const char* keyword) {
  const bool isNamed = standalone::NamesKeyword(token, keyword);
  CommandContext::Current().Reading().TryKeyword(token, keyword, isNamed);
  return isNamed ? 1 : 0;
}

bool ExistingVarList(const ZEVA_DataSource& /*dataSource*/, TokenSequenceBase& tokens, std::vector<int>& indices,
                     int end) {
  CommandContext& context = CommandContext::Current();
  const auto begin = static_cast<std::size_t>(std::max(tokens.Position(), 0));
  const auto last = static_cast<std::size_t>(std::clamp(end, 0, EndPosition()));
  const std::optional<standalone::ListProblem> problem =
      ReadVariableList(context.Tokens(), begin, last, LookupIn(context.Data()), indices);
  if (problem) {
    context.IssueProblem(*problem, {begin, last});
  }
  return !problem;
}
