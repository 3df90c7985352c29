#ifndef STANDALONE_SHELL_TERMINAL_INPUT_H
#define STANDALONE_SHELL_TERMINAL_INPUT_H

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "standalone/shell/input_history.h"
#include "standalone/shell/line_editor.h"
#include "standalone/shell/shell_input.h"

namespace standalone {

/// Completes the word before the cursor, which stands at the end of `typed`, where `openText` is what there is of the
/// command from the lines before.
Completion CompleteInShell(std::string_view openText, std::string_view typed, CompletionSource& source);

/// A person at a terminal.
class TerminalInput : public ShellInput {
 public:
  /// Each completion asks a source of its own. Throws as LineEditor does.
  using MakeSource = std::function<std::unique_ptr<CompletionSource>()>;
  explicit TerminalInput(MakeSource makeSource);

  Typed Read(std::string_view openText) override;
  void Remember(const std::string& lines) override;
  bool IsScript() const override { return false; }

 private:
  Completion Complete(std::string_view typed) const;

  MakeSource fMakeSource;
  std::string fOpenText;
  HistoryFile fHistory;
  LineEditor fEditor;
};

}  // namespace standalone

#endif  // STANDALONE_SHELL_TERMINAL_INPUT_H
