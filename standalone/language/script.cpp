#include "standalone/language/script.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "standalone/language/blanks.h"

namespace standalone {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Reads a script line by line and collects its commands.
class Splitter {
 public:
  Splitter(std::string_view script, const std::string& source) : fScript(script), fSource(source) {}

  std::vector<ScriptCommand> Split();

 private:
  void ReadLine(std::size_t begin, std::size_t end);
  bool ReadCharacters(std::size_t begin, std::size_t end);
  void AddCharacter(std::size_t offset);
  void EndCommand(std::size_t textEnd);
  std::string RestOfLine(std::size_t offset) const;

  std::string_view fScript;
  const std::string& fSource;
  std::vector<ScriptCommand> fCommands;
  int fLine = 1;
  std::size_t fLineBegin = 0;

  // The command that is being read, from its first character to behind its last one; comments and blanks are not
  // characters of it.
  bool fIsOpen = false;
  int fFirstLine = 1;
  std::size_t fFirstLineBegin = 0;
  std::size_t fBegin = 0;
  std::size_t fEnd = 0;
  std::size_t fEndWithoutLast = 0;
};

std::vector<ScriptCommand> Splitter::Split() {
  for (std::size_t begin = 0; begin < fScript.size(); ++fLine) {
    const std::size_t end = std::min(fScript.find('\n', begin), fScript.size());
    ReadLine(begin, end);
    begin = end + 1;
  }
  EndCommand(fEnd);
  return std::move(fCommands);
}

void Splitter::ReadLine(std::size_t begin, std::size_t end) {
  const bool isBlankLine = !ReadCharacters(begin, end);
  const bool endsInPeriod = fIsOpen && fScript[fEnd - 1] == '.';
  if (endsInPeriod) {
    EndCommand(fEndWithoutLast);
  } else if (isBlankLine) {
    EndCommand(fEnd);
  }
}

/// Whether the line holds anything but blanks. A string that is not closed ends with its line, so that a period there
/// still ends the command.
bool Splitter::ReadCharacters(std::size_t begin, std::size_t end) {
  fLineBegin = begin;
  bool holdsAnything = false;
  char quote = '\0';
  for (std::size_t offset = begin; offset < end;) {
    const char c = fScript[offset];
    if (quote == '\0' && BeginsCommentAt(fScript, offset)) {
      holdsAnything = true;
      offset = EndOfComment(fScript, offset);
      continue;
    }
    if (!IsBlank(c)) {
      holdsAnything = true;
      AddCharacter(offset);
    }
    if (c == quote) {
      quote = '\0';
    } else if (quote == '\0' && (c == '\'' || c == '"')) {
      quote = c;
    }
    ++offset;
  }
  return holdsAnything;
}

void Splitter::AddCharacter(std::size_t offset) {
  if (!fIsOpen) {
    fIsOpen = true;
    fFirstLine = fLine;
    fFirstLineBegin = fLineBegin;
    fBegin = fEnd = offset;
  }
  fEndWithoutLast = fEnd;
  fEnd = offset + 1;
}

void Splitter::EndCommand(std::size_t textEnd) {
  const bool isOpen = std::exchange(fIsOpen, false);
  if (!isOpen || textEnd == fBegin || fScript[fBegin] == '*') {
    return;
  }
  fCommands.push_back({std::string(fScript.substr(fBegin, textEnd - fBegin)), fFirstLine,
                       std::string(fScript.substr(fFirstLineBegin, fBegin - fFirstLineBegin)), RestOfLine(textEnd),
                       fSource});
}

std::string Splitter::RestOfLine(std::size_t offset) const {
  std::string_view rest = fScript.substr(offset, fScript.find('\n', offset) - offset);
  if (!rest.empty() && rest.back() == '\r') {
    rest.remove_suffix(1);
  }
  return std::string(rest);
}

}  // namespace

std::vector<ScriptCommand> SplitScript(std::string_view script, const std::string& source) {
  if (script.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
    script.remove_prefix(kByteOrderMark.size());
  }
  return Splitter(script, source).Split();
}

}  // namespace standalone
