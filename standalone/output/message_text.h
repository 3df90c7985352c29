#ifndef STANDALONE_OUTPUT_MESSAGE_TEXT_H
#define STANDALONE_OUTPUT_MESSAGE_TEXT_H

#include <string>
#include <string_view>

#include "standalone/output/items.h"

namespace standalone {

/// "Warning", "Error" or "Fatal".
std::string_view LevelName(Level level);

/// The message's text without the line ends around it.
std::string_view TrimmedText(const Message& message);

/// The message that a command showed last, so that one that repeats it is shown without its place and hint.
class LastMessage {
 public:
  /// Whether the message says the same of the same place as the last one. It becomes the last one, and must live until
  /// the next call.
  bool IsRepeatedBy(const Message& message);

  /// Something else was shown since.
  void Forget() { fMessage = nullptr; }

 private:
  const Message* fMessage = nullptr;
};

/// Where the command begins: "all.script, line 3"; harmless on a terminal.
std::string CommandInWords(const CommandResult& result);

/// What is said of a command that was aborted.
std::string_view AbortedSentence(const CommandResult& result);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_MESSAGE_TEXT_H
