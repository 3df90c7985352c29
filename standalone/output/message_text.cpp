#include "standalone/output/message_text.h"

#include <fmt/format.h>

#include <algorithm>

#include "standalone/text/trim.h"
#include "standalone/text/visible.h"

namespace standalone {

namespace {

bool AreSame(const Message& first, const Message& second) {
  const auto begins = [](const Message& message) { return message.place ? message.place->offset : std::string::npos; };
  return first.text == second.text && first.hint == second.hint && begins(first) == begins(second);
}

}  // namespace

std::string_view LevelName(Level level) {
  switch (level) {
    case Level::kWarning:
      return "Warning";
    case Level::kFatal:
      return "Fatal";
    case Level::kError:
      break;
  }
  return "Error";
}

std::string_view TrimmedText(const Message& message) {
  return Trimmed(message.text, "\r\n");
}

bool LastMessage::IsRepeatedBy(const Message& message) {
  const bool isRepeated = fMessage != nullptr && AreSame(*fMessage, message);
  fMessage = &message;
  return isRepeated;
}

std::string CommandInWords(const CommandResult& result) {
  if (result.line == 0) {
    return {};
  }
  return fmt::format("{}line {}", result.source.empty() ? "" : Visible(result.source) + ", ", result.line);
}

std::string_view AbortedSentence(const CommandResult& result) {
  return result.isSaveOpen
             ? "The command was aborted while it was being saved; \"mrset log\" shows whether it changed the dataset."
             : "The command was aborted; the dataset is as it was before it.";
}

}  // namespace standalone
