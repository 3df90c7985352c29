#include <algorithm>
#include <cstdio>
#include <ostream>

#include "tests/host/rendering.h"
#include "tests/host/scripted_host.h"

namespace scripted {

Fault::Fault(std::size_t call) : fCall(call) {
  std::snprintf(fWhat.data(), fWhat.size(), "host call %zu fails", call);
}

bool operator==(const Argument& first, const Argument& second) {
  return first.isList == second.isList && first.texts == second.texts;
}

std::ostream& operator<<(std::ostream& stream, const Argument& argument) {
  const std::string text = Join(argument.texts, ", ");
  return argument.isList ? stream << "[" << text << "]" : stream << text;
}

Argument Text(std::string text) {
  return {false, {std::move(text)}};
}

Argument List(std::vector<std::string> entries) {
  return {true, std::move(entries)};
}

std::string ToText(const Message& message) {
  std::string level = "level " + std::to_string(message.level);
  if (message.level == kBpErrorLevelError) {
    level = "error";
  } else if (message.level == kBpErrorLevelWarning) {
    level = "warning";
  }
  return (message.fromHost ? "host " : "") + level + ": " + message.text;
}

std::ostream& operator<<(std::ostream& stream, const Message& message) {
  return stream << ToText(message);
}

bool operator==(const Event& first, const Event& second) {
  return first.constructed == second.constructed && first.object == second.object;
}

std::ostream& operator<<(std::ostream& stream, const Event& event) {
  return stream << (event.constructed ? "+" : "~") << event.object;
}

}  // namespace scripted
