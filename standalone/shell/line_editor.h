#ifndef STANDALONE_SHELL_LINE_EDITOR_H
#define STANDALONE_SHELL_LINE_EDITOR_H

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/shell/completer.h"
#include "standalone/shell/shell_input.h"

namespace standalone {

/// Reads lines that a person edits on the terminal that standard input and output are: UTF-8, history and its search,
/// completion by Tab. One editor exists at a time. Keys can be bound in the user's ~/.editrc.
class LineEditor {
 public:
  /// Completes what stands before the cursor in the text that is being typed, which may have several lines.
  using Complete = std::function<Completion(std::string_view typed)>;

  /// `history` is what was typed before, the newest last. Throws std::runtime_error, one sentence, where the terminal
  /// cannot be used.
  LineEditor(const std::vector<std::string>& history, Complete complete);
  LineEditor(const LineEditor&) = delete;
  LineEditor& operator=(const LineEditor&) = delete;
  ~LineEditor();

  /// What is typed at the prompt; of several lines where an entry of the history has them.
  Typed Read(const std::string& prompt);

  /// Makes the text the newest entry of the history.
  void Remember(const std::string& entry);

 private:
  class Implementation;
  std::unique_ptr<Implementation> fImplementation;
};

}  // namespace standalone

#endif  // STANDALONE_SHELL_LINE_EDITOR_H
