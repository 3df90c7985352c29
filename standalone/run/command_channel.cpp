#include "standalone/run/command_channel.h"

#include <fmt/format.h>
#include <sys/socket.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <string>
#include <utility>

#include "standalone/run/run_error.h"

namespace standalone {
namespace {

// A command is sent as its line and then its texts, whatever their bytes, each behind its size.

using Number = std::uint64_t;

void AppendNumber(std::string& message, Number number) {
  std::array<char, sizeof number> bytes{};
  std::memcpy(bytes.data(), &number, sizeof number);
  message.append(bytes.data(), bytes.size());
}

void SendBytes(int socket, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = send(socket, bytes.data(), bytes.size(), MSG_NOSIGNAL);
    if (count < 0 && errno != EINTR) {
      return;
    }
    bytes.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
  }
}

/// False when the sender ended.
bool ReceiveBytes(int socket, char* bytes, std::size_t size) {
  while (size > 0) {
    const ssize_t count = recv(socket, bytes, size, 0);
    if (count == 0 || (count < 0 && errno != EINTR)) {
      return false;
    }
    bytes += count < 0 ? 0 : count;
    size -= count < 0 ? 0 : static_cast<std::size_t>(count);
  }
  return true;
}

bool ReceiveNumber(int socket, Number& number) {
  std::array<char, sizeof number> bytes{};
  const bool isThere = ReceiveBytes(socket, bytes.data(), bytes.size());
  std::memcpy(&number, bytes.data(), sizeof number);
  return isThere;
}

bool ReceiveText(int socket, std::string& text) {
  Number size = 0;
  if (!ReceiveNumber(socket, size)) {
    return false;
  }
  text.resize(size);
  return ReceiveBytes(socket, text.data(), text.size());
}

void Close(int& descriptor) {
  if (descriptor >= 0) {
    close(std::exchange(descriptor, -1));
  }
}

}  // namespace

CommandChannel::CommandChannel() {
  std::array<int, 2> ends{};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
    throw RunError(fmt::format("The process that runs commands cannot be started: {}.", std::strerror(errno)));
  }
  fSending = ends[0];
  fReceiving = ends[1];
}

CommandChannel::~CommandChannel() {
  EndSending();
  EndReceiving();
}

void CommandChannel::Send(const ScriptCommand& command) {
  std::string message;
  AppendNumber(message, static_cast<Number>(command.line));
  for (const std::string* text : {&command.text, &command.before, &command.behind, &command.source}) {
    AppendNumber(message, text->size());
    message += *text;
  }
  SendBytes(fSending, message);
}

std::optional<ScriptCommand> CommandChannel::Receive() {
  Number line = 0;
  ScriptCommand command;
  if (!ReceiveNumber(fReceiving, line)) {
    return std::nullopt;
  }
  for (std::string* text : {&command.text, &command.before, &command.behind, &command.source}) {
    if (!ReceiveText(fReceiving, *text)) {
      return std::nullopt;
    }
  }
  command.line = static_cast<int>(line);
  return command;
}

void CommandChannel::EndSending() {
  Close(fSending);
}

void CommandChannel::EndReceiving() {
  Close(fReceiving);
}

}  // namespace standalone
