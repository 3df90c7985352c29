#include "tests/reference/command.h"

#include "tests/host/letters.h"

namespace reference {

bool Command::Next() {
  if (fCursor < Count()) {
    fCursor += 1;
  }
  return fCursor < Count();
}

scripted::Token Command::At(int index) const {
  return index >= 0 && index < Count() ? fTokens[static_cast<std::size_t>(index)] : fEnd;
}

std::string Command::TokenStringCaps() const {
  return scripted::UpperCase(TokenString());
}

std::vector<std::string> Command::Texts(int begin, int end) const {
  std::vector<std::string> texts;
  for (int index = begin; index < end && index < Count(); ++index) {
    texts.push_back(At(index).text);
  }
  return texts;
}

bool Command::Fail(const std::string& pattern, const std::string& first, const std::string& second) {
  fReport.Error(pattern, first, second);
  return false;
}

bool IsTokenEqualWith(const Command& command, const std::string& keyword, bool useKeywordMatch) {
  const std::string token = command.TokenStringCaps();
  return useKeywordMatch ? NamesKeyword(token, keyword) : token == keyword;
}

bool IsTruncatedTokenEqualWith(const Command& command, const std::string& keyword, std::size_t length) {
  const std::string token = command.TokenStringCaps();
  if (token.size() < length) {
    return false;
  }
  return scripted::CompareNoCase(token.substr(0, length), keyword.substr(0, length)) == 0;
}

bool IsLabelSource(const Command& command) {
  return IsTruncatedTokenEqualWith(command, "LABELSOURCE", 6);
}

void RequireKeyword(const Command& command, const std::string& keyword) {
  Require(IsTokenEqualWith(command, keyword), "IsTokenEqualWith(command, std:: string(\"" + keyword + "\"))");
}

void MovePrevious(Command& command) {
  const int pos = command.Position();
  Require(pos > 0, "pos > 0");
  command.SetPosition(pos - 1);
  command.Next();
}

bool CheckNextToken(Command& command) {
  const std::string unexpected = "Unexpected token ^1 in this context";
  command.Next();
  if (command.Type() == TokenSequenceBase::kEnd) {
    return true;
  }
  if (command.Type() == TokenSequenceBase::kSymbol) {
    if (command.Symbol() == 11) {
      MovePrevious(command);
      return true;
    }
    return command.Fail(unexpected, command.TokenString());
  }
  if (command.Type() == TokenSequenceBase::kString) {
    command.Next();
    if (command.Type() == TokenSequenceBase::kSymbol && command.Symbol() != 3) {
      return command.Fail(unexpected, command.TokenString());
    }
    MovePrevious(command);
    MovePrevious(command);
    return true;
  }
  return command.Fail(unexpected, command.TokenString());
}

}  // namespace reference
