#include "standalone/shell/terminal_input.h"

#include <cstdio>
#include <exception>
#include <utility>

#include "standalone/language/script.h"

namespace standalone {
namespace {

constexpr const char* kPrompt = "mrset> ";
constexpr const char* kContinuationPrompt = "    -> ";

/// Adds the lines of the text but the last one, which is returned.
std::string_view AddLines(std::string_view text, CommandCollector& collector) {
  std::size_t begin = 0;
  for (std::size_t end = 0; (end = text.find('\n', begin)) != std::string_view::npos; begin = end + 1) {
    collector.AddLine(text.substr(begin, end - begin));
  }
  return text.substr(begin);
}

}  // namespace

Completion CompleteInShell(std::string_view openText, std::string_view typed, CompletionSource& source) {
  CommandCollector collector;
  if (!openText.empty()) {
    collector.AddLine(AddLines(openText, collector));
  }
  const std::string_view line = AddLines(typed, collector);
  const std::string before = collector.IsOpen() ? std::string(collector.OpenText()) + '\n' : "";
  Completion completion = Complete(before + std::string(line), source);
  const std::size_t lineBegin = typed.size() - line.size();
  completion.begin = completion.begin < before.size() ? typed.size() : completion.begin - before.size() + lineBegin;
  return completion;
}

TerminalInput::TerminalInput(MakeSource makeSource)
    : fMakeSource(std::move(makeSource)),
      fHistory(HistoryPath()),
      fEditor(fHistory.Load(), [this](std::string_view typed) { return Complete(typed); }) {}

Typed TerminalInput::Read(std::string_view openText) {
  fOpenText = openText;
  Typed typed = fEditor.Read(openText.empty() ? kPrompt : kContinuationPrompt);
  if (typed.kind == Typed::Kind::kEnd) {
    std::puts("");  // what follows begins a line
  }
  return typed;
}

void TerminalInput::Remember(const std::string& lines) {
  fEditor.Remember(lines);
  fHistory.Add(lines);
}

/// Where the dataset cannot be used now there is nothing to complete; the next command says why.
Completion TerminalInput::Complete(std::string_view typed) const {
  try {
    return CompleteInShell(fOpenText, typed, *fMakeSource());
  } catch (const std::exception&) {
    return {};
  }
}

}  // namespace standalone
