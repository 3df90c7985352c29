#ifndef STANDALONE_RUN_COMMAND_CHANNEL_H
#define STANDALONE_RUN_COMMAND_CHANNEL_H

#include <optional>

#include "standalone/language/script.h"

namespace standalone {

/// Takes commands from one process to another that it made afterwards. Each of the two ends what is the other's to do.
class CommandChannel {
 public:
  /// Throws std::system_error.
  CommandChannel();
  CommandChannel(const CommandChannel&) = delete;
  CommandChannel& operator=(const CommandChannel&) = delete;
  ~CommandChannel();

  /// Returns when the command is on its way, which for a long one is when it is being received. Harmless when nobody
  /// receives any more.
  void Send(const ScriptCommand& command);

  /// The next command; waits for it. Nothing once the sender has ended sending.
  std::optional<ScriptCommand> Receive();

  void EndSending();
  void EndReceiving();

 private:
  int fSending = -1;
  int fReceiving = -1;
};

}  // namespace standalone

#endif  // STANDALONE_RUN_COMMAND_CHANNEL_H
