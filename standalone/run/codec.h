#ifndef STANDALONE_RUN_CODEC_H
#define STANDALONE_RUN_CODEC_H

#include <optional>
#include <string>
#include <string_view>

#include "standalone/language/script.h"
#include "standalone/run/events.h"
#include "standalone/text/error.h"

namespace standalone {

// What passes between the program and the process that runs its commands. Both are the same build, so the form is no
// contract. Each value stands in a frame: its size, then its bytes.

std::string Encode(const ScriptCommand& command);
std::string Encode(const Event& event);
std::string Encode(const Error& error);

/// Take a value from the front of the bytes; nothing, and the bytes as they are, where it is not complete.
std::optional<ScriptCommand> TakeCommand(std::string_view& bytes);
std::optional<Event> TakeEvent(std::string_view& bytes);
std::optional<Error> TakeError(std::string_view& bytes);

}  // namespace standalone

#endif  // STANDALONE_RUN_CODEC_H
