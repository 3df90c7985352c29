#include "standalone/run/worker.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <string_view>

#include "standalone/files/io.h"
#include "standalone/files/temporary_file.h"
#include "standalone/run/codec.h"
#include "standalone/storage/interrupt.h"
#include "standalone/text/error.h"
#include "standalone/text/notice.h"

namespace standalone {
namespace {

/// How a command came to its end; an Error follows kFailed.
enum Outcome : char { kUnchanged = 'u', kChanged = 'c', kFailed = 'f' };

constexpr const char* kSavedOrNot = "Whether its change was saved is not known.";

[[noreturn]] void FailToStart() {
  const int number = errno;
  throw Error(fmt::format("The process that runs commands cannot be started: {}.", std::strerror(number)));
}

Descriptor Checked(int descriptor) {
  if (descriptor < 0) {
    FailToStart();
  }
  return Descriptor(descriptor);
}

Descriptor MakeFileInMemory(const char* name) {
  return Checked(memfd_create(name, MFD_CLOEXEC));
}

/// Both processes share the position in the file, too.
bool Empty(const Descriptor& file) {
  return ftruncate(file.Number(), 0) == 0 && lseek(file.Number(), 0, SEEK_SET) == 0;
}

/// False, with errno, where it cannot be read.
bool ReadFromStart(const Descriptor& file, std::string& text) {
  return lseek(file.Number(), 0, SEEK_SET) == 0 && AppendAll(file.Number(), text);
}

/// The child's side.
class Child {
 public:
  Child(const Descriptor& channel, const Descriptor& output, int console)
      : fChannel(channel), fOutput(output), fConsole(console) {}

  /// Nothing may leave it: the stack below is the parent's, whose files and output are not this process's to end.
  [[noreturn]] void Work(const Worker::Begin& begin) const noexcept {
    try {
      const Worker::RunCommand run =
          begin([this](const Event& event) { Keep(event); }, [this](const std::string& sentence) { Show(sentence); });
      while (const std::optional<ScriptCommand> command = NextCommand()) {
        isInterruptRequested = false;
        End(run(*command) ? kChanged : kUnchanged);
      }
    } catch (const Error& error) {
      Fail(error);
    } catch (const std::exception& error) {
      Fail(Error(SentenceOf(error)));
    } catch (...) {
      std::abort();  // a module threw it: no more is known than of a failed assertion
    }
    std::fflush(nullptr);
    _exit(EXIT_SUCCESS);
  }

 private:
  /// Nothing where there is no further command.
  std::optional<ScriptCommand> NextCommand() const {
    std::string bytes;
    ssize_t count = 0;
    while ((count = AppendSome(fChannel.Number(), bytes)) > 0) {
      std::string_view received = bytes;
      if (std::optional<ScriptCommand> command = TakeCommand(received)) {
        return command;
      }
    }
    if (count < 0 && errno != ECONNRESET) {
      throw Error(fmt::format("The command cannot be run: {}.", std::strerror(errno)));
    }
    return std::nullopt;
  }

  /// Gives up where that fails, before the command is saved. The module is left as it stands: no exception of the host
  /// need pass through it.
  void Keep(const Event& event) const {
    const bool isKept =
        std::holds_alternative<CommandRestarted>(event) ? Empty(fOutput) : WriteAll(fOutput.Number(), Encode(event));
    if (!isKept) {
      Fail(Error(fmt::format("The results of a command cannot be kept: {}.", std::strerror(errno))));
      _exit(EXIT_FAILURE);
    }
  }

  /// Where nobody can take it in, nobody misses it.
  void Show(const std::string& sentence) const { WriteAll(fConsole, NoticeLine(sentence)); }

  void Fail(const Error& error) const {
    End(kFailed);
    WriteAll(fChannel.Number(), Encode(error));
  }

  /// Where nobody listens any more, nothing is to be done any more.
  void End(Outcome outcome) const {
    const char byte = outcome;
    if (!WriteAll(fChannel.Number(), {&byte, 1})) {
      _exit(EXIT_FAILURE);
    }
  }

  const Descriptor& fChannel;
  const Descriptor& fOutput;
  int fConsole;  // the standard error of the process that made this one
};

/// An aborted command is an expected end: it leaves no memory dump on the user's disk.
void SuppressCoreDump() {
  const rlimit none{0, 0};
  setrlimit(RLIMIT_CORE, &none);
}

/// An interruption ends no command that is being saved; other signals end the child as they come. The temporary files
/// of its parent are the parent's to remove. That nobody reads its notices must not end it.
void SetUpSignals() {
  TemporaryFile::LeaveAllToParent();
  signal(SIGPIPE, SIG_IGN);
  struct sigaction action = {};
  sigaction(SIGINT, nullptr, &action);
  if (action.sa_handler != SIG_IGN) {
    signal(SIGINT, [](int) { isInterruptRequested = true; });
  }
}

/// An exception where none may pass comes of a lack of memory.
void SetUpTermination() {
  std::set_terminate([] {
    if (std::current_exception() != nullptr) {
      _exit(EXIT_FAILURE);
    }
    std::abort();
  });
}

/// A child that nobody listens to any more must neither go on nor keep the dataset locked.
void EndWithParent(pid_t parent) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) {
    _exit(EXIT_FAILURE);
  }
}

}  // namespace

Worker::Worker(const Begin& begin)
    : fOutput(MakeFileInMemory("output")), fStandardError(MakeFileInMemory("standard error")) {
  std::array<int, 2> ends{};
  if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
    FailToStart();
  }
  fChannel = Descriptor(ends[0]);
  const Descriptor channelOfChild(ends[1]);
  std::fflush(nullptr);  // else the child would write it once more
  const pid_t parent = getpid();
  fChild = fork();
  if (fChild < 0) {
    FailToStart();
  }
  if (fChild == 0) {
    SetUpSignals();
    SetUpTermination();
    EndWithParent(parent);
    fChannel.Close();
    const int console = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    dup2(fStandardError.Number(), STDERR_FILENO);
    SuppressCoreDump();
    Child(channelOfChild, fOutput, console).Work(begin);
  }
}

Worker::~Worker() {
  if (!fStatus) {
    kill(fChild, SIGKILL);
    WaitForEnd();
  }
}

std::optional<bool> Worker::Run(const ScriptCommand& command) {
  if (!Empty(fOutput) || !Send(Encode(command))) {
    throw Error(fmt::format("The command cannot be run: {}.", std::strerror(errno)));
  }
  char outcome = 0;
  const ssize_t count = ReadSome(fChannel.Number(), &outcome, 1);
  const bool hasEnded = count == 0 || (count < 0 && errno == ECONNRESET);  // before it took the command, if it is reset
  if (hasEnded) {
    WaitForEnd();
    return std::nullopt;
  }
  if (count < 0) {
    FailToReadResults();
  }
  if (outcome == kFailed) {
    ThrowReceivedError();
  }
  return outcome == kChanged;
}

void Worker::ThrowReceivedError() const {
  std::string bytes;
  AppendAll(fChannel.Number(), bytes);
  std::string_view received = bytes;
  throw TakeError(received).value_or(
      Error(fmt::format("The command cannot be run: its process ended. {}", kSavedOrNot)));
}

/// A child that has ended is found out when its outcome is read.
bool Worker::Send(const std::string& bytes) const {
  std::string_view rest = bytes;
  while (!rest.empty()) {
    const ssize_t count = send(fChannel.Number(), rest.data(), rest.size(), MSG_NOSIGNAL);
    if (count < 0 && errno != EINTR) {
      return errno == EPIPE || errno == ECONNRESET;
    }
    rest.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
  }
  return true;
}

std::vector<Event> Worker::Output() const {
  std::string bytes;
  if (!ReadFromStart(fOutput, bytes)) {
    throw Error(fmt::format("The results of a command cannot be read: {}.", std::strerror(errno)));
  }
  std::vector<Event> events;
  std::string_view rest = bytes;
  while (std::optional<Event> event = TakeEvent(rest)) {
    events.push_back(std::move(*event));
  }
  return events;
}

void Worker::Finish() {
  fIsFinished = true;
  fChannel.Close();
  WaitForEnd();
}

std::string Worker::LastWords() const {
  std::string words;
  ReadFromStart(fStandardError, words);
  words.erase(words.find_last_not_of('\n') + 1);
  if (words.empty() && fStatus && WIFSIGNALED(*fStatus)) {
    const int number = WTERMSIG(*fStatus);
    return fmt::format("The command's process was ended by signal {} ({}).", number, strsignal(number));
  }
  return words.empty() && fStatus && !fIsFinished ? "The command's process ended before the command did." : words;
}

bool Worker::HasGivenUp() const {
  return fStatus && WIFEXITED(*fStatus) && WEXITSTATUS(*fStatus) != EXIT_SUCCESS;
}

void Worker::WaitForEnd() {
  if (fStatus) {
    return;
  }
  int status = 0;
  while (waitpid(fChild, &status, 0) < 0 && errno == EINTR) {
  }
  fStatus = status;
}

/// The child ends when it has saved what it is saving.
void Worker::FailToReadResults() {
  const int number = errno;
  fChannel.Close();
  kill(fChild, SIGINT);
  WaitForEnd();
  throw Error(fmt::format("The results of a command cannot be read: {}. {}", std::strerror(number), kSavedOrNot));
}

}  // namespace standalone
