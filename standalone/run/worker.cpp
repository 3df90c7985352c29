#include "standalone/run/worker.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <system_error>

namespace standalone {
namespace {

[[noreturn]] void ThrowSystemError(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

/// A short write cannot happen: the channel blocks, and without a reader the process ends.
void WriteAll(int descriptor, const std::string& text) {
  std::size_t written = 0;
  while (written < text.size()) {
    const ssize_t count = write(descriptor, text.data() + written, text.size() - written);
    if (count < 0 && errno != EINTR) {
      _exit(EXIT_FAILURE);
    }
    written += count < 0 ? 0 : static_cast<std::size_t>(count);
  }
}

/// An aborted command is an expected end: it leaves no memory dump on the user's disk.
void SuppressCoreDump() {
  const rlimit none{0, 0};
  setrlimit(RLIMIT_CORE, &none);
}

std::string ReadFromStart(int descriptor) {
  std::string text;
  std::array<char, 4096> buffer{};
  ssize_t count = 0;
  while ((count = pread(descriptor, buffer.data(), buffer.size(), static_cast<off_t>(text.size()))) > 0) {
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return text;
}

}  // namespace

Worker::Worker(const std::function<void(const std::function<void(const Event&)>& tell)>& work) {
  std::array<int, 2> channel{};
  if (pipe2(channel.data(), O_CLOEXEC) != 0) {
    ThrowSystemError("pipe");
  }
  fStandardError = memfd_create("standard error", MFD_CLOEXEC);
  std::fflush(nullptr);  // else the child would write it once more
  fChild = fStandardError < 0 ? -1 : fork();
  if (fChild < 0) {
    ThrowSystemError("fork");
  }
  if (fChild == 0) {
    dup2(fStandardError, STDERR_FILENO);
    SuppressCoreDump();
    work([&](const Event& event) { WriteAll(channel[1], ToLine(event) + "\n"); });
    std::fflush(nullptr);
    _exit(EXIT_SUCCESS);
  }
  close(channel[1]);
  fEvents = fdopen(channel[0], "r");
}

Worker::~Worker() {
  if (!fStatus) {
    kill(fChild, SIGKILL);
    waitpid(fChild, nullptr, 0);
  }
  std::fclose(fEvents);
  close(fStandardError);
}

std::optional<Event> Worker::Receive() {
  char* line = nullptr;
  std::size_t capacity = 0;
  const ssize_t length = getline(&line, &capacity, fEvents);
  const std::string text(line == nullptr ? "" : line, length > 0 ? static_cast<std::size_t>(length) : 0);
  std::free(line);
  // A line that the child did not complete is none.
  if (!text.empty() && text.back() == '\n') {
    return EventFromLine(text);
  }
  int status = 0;
  while (waitpid(fChild, &status, 0) < 0 && errno == EINTR) {
  }
  fStatus = status;
  return std::nullopt;
}

std::string Worker::LastWords() {
  std::string words = ReadFromStart(fStandardError);
  words.erase(words.find_last_not_of('\n') + 1);
  if (words.empty() && fStatus && WIFSIGNALED(*fStatus)) {
    const int number = WTERMSIG(*fStatus);
    return fmt::format("The command's process was ended by signal {} ({}).", number, strsignal(number));
  }
  return words;
}

}  // namespace standalone
