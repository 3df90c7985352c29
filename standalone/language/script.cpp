#include "standalone/language/script.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <utility>

#include "standalone/language/comments.h"
#include "standalone/language/slips.h"

namespace standalone {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

std::optional<ScriptCommand> CommandCollector::AddLine(std::string_view line) {
  if (++fLine == 1 && line.substr(0, kByteOrderMark.size()) == kByteOrderMark) {
    line.remove_prefix(kByteOrderMark.size());
  }
  if (fIsOpen) {
    fLines += '\n';
  } else {
    fLines.clear();
  }
  const std::size_t begin = fLines.size();
  fLines += line;
  const bool isBlankLine = !ReadCharacters(begin);
  const bool endsInPeriod = fIsOpen && fLines[fEnd - 1] == '.';
  if (endsInPeriod) {
    return EndCommand(fEndWithoutLast);
  }
  return isBlankLine ? EndCommand(fEnd) : std::nullopt;
}

std::optional<ScriptCommand> CommandCollector::End() {
  return EndCommand(fEnd);
}

std::string_view CommandCollector::OpenText() const {
  return fIsOpen ? std::string_view(fLines).substr(fBegin) : std::string_view();
}

/// Whether the line holds anything but blanks. A string that is not closed ends with its line, so that a period there
/// still ends the command.
bool CommandCollector::ReadCharacters(std::size_t begin) {
  bool holdsAnything = false;
  char quote = '\0';
  for (std::size_t offset = begin; offset < fLines.size();) {
    const char c = fLines[offset];
    if (quote == '\0' && BeginsCommentAt(fLines, offset)) {
      holdsAnything = true;
      offset = EndOfComment(fLines, offset);
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

void CommandCollector::AddCharacter(std::size_t offset) {
  if (!fIsOpen) {
    fIsOpen = true;
    fFirstLine = fLine;
    fBegin = fEnd = offset;
  }
  fEndWithoutLast = fEnd;
  fEnd = offset + 1;
}

std::optional<ScriptCommand> CommandCollector::EndCommand(std::size_t textEnd) {
  const bool isOpen = std::exchange(fIsOpen, false);
  if (isOpen && fLines[fBegin] == '*') {
    RemarkOnComment();
  }
  if (!isOpen || textEnd == fBegin || fLines[fBegin] == '*') {
    return std::nullopt;
  }
  return ScriptCommand{fLines.substr(fBegin, textEnd - fBegin), fFirstLine, fLines.substr(0, fBegin),
                       RestOfLine(textEnd), fSource};
}

void CommandCollector::RemarkOnComment() {
  if (const int lines = LineTakenIn(std::string_view(fLines).substr(fBegin))) {
    fRemark = fmt::format("{}he comment from line {} took in line {}, because no period ends it.",
                          fSource.empty() ? "T" : fSource + ": t", fFirstLine, fFirstLine + lines);
  }
}

std::string CommandCollector::RestOfLine(std::size_t offset) const {
  std::string_view rest = std::string_view(fLines).substr(offset);
  rest = rest.substr(0, rest.find('\n'));
  if (!rest.empty() && rest.back() == '\r') {
    rest.remove_suffix(1);
  }
  return std::string(rest);
}

std::vector<ScriptCommand> SplitScript(std::string_view script, const std::string& source,
                                       const std::function<void(const std::string& sentence)>& remark) {
  CommandCollector collector(source);
  std::vector<ScriptCommand> commands;
  const auto keep = [&](std::optional<ScriptCommand> command) {
    if (command) {
      commands.push_back(*std::move(command));
    }
    if (const std::optional<std::string> sentence = collector.TakeRemark(); sentence && remark) {
      remark(*sentence);
    }
  };
  for (std::size_t begin = 0; begin < script.size();) {
    const std::size_t end = std::min(script.find('\n', begin), script.size());
    keep(collector.AddLine(script.substr(begin, end - begin)));
    begin = end + 1;
  }
  keep(collector.End());
  return commands;
}

}  // namespace standalone
