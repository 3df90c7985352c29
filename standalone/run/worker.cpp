#include "standalone/run/worker.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <sstream>
#include <utility>

#include "standalone/data/interrupt.h"
#include "standalone/data/temporary_file.h"
#include "standalone/run/run_error.h"
#include "standalone/text/notice.h"

namespace standalone {
namespace {

[[noreturn]] void FailToStart() {
  const int number = errno;
  throw RunError(fmt::format("The process that runs commands cannot be started: {}.", std::strerror(number)));
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

/// False, with errno, where not all could be written.
bool WriteAll(int descriptor, const std::string& text) {
  std::size_t written = 0;
  while (written < text.size()) {
    const ssize_t count = write(descriptor, text.data() + written, text.size() - written);
    if (count < 0 && errno != EINTR) {
      return false;
    }
    written += count < 0 ? 0 : static_cast<std::size_t>(count);
  }
  return true;
}

/// The child's end of the channel.
class Sender {
 public:
  Sender(int channel, int currentCommand, int console)
      : fChannel(channel), fCurrentCommand(currentCommand), fConsole(console) {}

  void operator()(const Event& event) {
    if (const auto* noticed = std::get_if<Noticed>(&event)) {
      ShowAtOnce(NoticeLine(noticed->sentence));
      return;
    }
    if (std::holds_alternative<CommandRestarted>(event)) {
      Forget();
      return;
    }
    const std::string line = ToLine(event) + "\n";
    fUnsent += line;
    const bool isFailure = std::holds_alternative<RunFailed>(event);
    const bool isEnd = isFailure || std::holds_alternative<CommandDone>(event);
    // What was saved is told even where it cannot be kept here.
    if (!isFailure && !WriteAll(fCurrentCommand, line) && !isEnd) {
      GiveUp(std::strerror(errno));
    }
    if (isEnd) {
      Send();
    }
  }

 private:
  /// Where nobody can take it in, nobody misses it.
  void ShowAtOnce(const std::string& line) const {
    if (write(fConsole, line.data(), line.size()) < 0) {
      return;
    }
  }

  /// Before the command is saved. The module is left as it stands: no exception of the host need pass through it.
  [[noreturn]] void GiveUp(const std::string& reason) {
    fUnsent = ToLine(RunFailed{fmt::format("The results of a command cannot be kept: {}.", reason)}) + "\n";
    Send();
    _exit(EXIT_FAILURE);
  }

  /// Where nobody listens any more, nothing is to be done any more.
  void Send() {
    if (!WriteAll(fChannel, fUnsent)) {
      _exit(EXIT_FAILURE);
    }
    Forget();
  }

  void Forget() {
    fUnsent.clear();
    if (ftruncate(fCurrentCommand, 0) != 0 || lseek(fCurrentCommand, 0, SEEK_SET) != 0) {
      _exit(EXIT_FAILURE);
    }
  }

  int fChannel;
  int fCurrentCommand;
  int fConsole;  // the standard error of the process that made this one
  std::string fUnsent;
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

[[noreturn]] void FailToReadResults(int number) {
  throw RunError(fmt::format("The results of a command cannot be read: {}. Whether its change was saved is not known.",
                             std::strerror(number)));
}

std::string ReadFromStart(int descriptor) {
  std::string text;
  std::array<char, 4096> buffer{};
  ssize_t count = 0;
  while ((count = pread(descriptor, buffer.data(), buffer.size(), static_cast<off_t>(text.size()))) > 0 ||
         (count < 0 && errno == EINTR)) {
    text.append(buffer.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  }
  if (count < 0) {
    FailToReadResults(errno);
  }
  return text;
}

}  // namespace

Worker::Worker(const std::function<void(const Tell& tell)>& work)
    : fCurrentCommand(MakeFileInMemory("events")), fStandardError(MakeFileInMemory("standard error")) {
  std::array<int, 2> ends{};
  if (pipe2(ends.data(), O_CLOEXEC) != 0) {
    FailToStart();
  }
  fEvents = Descriptor(ends[0]);
  Descriptor channel(ends[1]);
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
    fEvents.Close();
    const int console = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    dup2(fStandardError.Number(), STDERR_FILENO);
    SuppressCoreDump();
    work(Sender(channel.Number(), fCurrentCommand.Number(), console));
    std::fflush(nullptr);
    _exit(EXIT_SUCCESS);
  }
}

Worker::~Worker() {
  if (!fStatus) {
    kill(fChild, SIGKILL);
    WaitForEnd();
  }
}

void Worker::Interrupt() {
  if (!fStatus) {
    kill(fChild, SIGINT);
  }
}

std::optional<Event> Worker::Receive() {
  std::array<char, 65536> buffer{};
  std::size_t searched = fTaken;
  while (!fStatus) {
    if (const std::size_t end = fReceived.find('\n', searched); end != std::string::npos) {
      const std::size_t begin = std::exchange(fTaken, end + 1);
      return EventFromLine(fReceived.substr(begin, end - begin));
    }
    fReceived.erase(0, std::exchange(fTaken, 0));
    searched = fReceived.size();
    const ssize_t count = read(fEvents.Number(), buffer.data(), buffer.size());
    if (count > 0) {
      fReceived.append(buffer.data(), static_cast<std::size_t>(count));
    } else if (count == 0) {
      WaitForEnd();  // a line that the child did not complete is none
    } else if (errno != EINTR) {
      const int number = errno;
      fEvents.Close();  // the child ends when it has saved what it is saving
      Interrupt();
      WaitForEnd();
      FailToReadResults(number);
    }
  }
  return std::nullopt;
}

std::vector<Event> Worker::EventsOfLastCommand() const {
  std::vector<Event> events;
  std::istringstream lines(ReadFromStart(fCurrentCommand.Number()));
  std::string line;
  while (std::getline(lines, line) && !lines.eof()) {  // one without its end was not completed
    events.push_back(EventFromLine(line));
  }
  return events;
}

std::string Worker::LastWords() const {
  std::string words = ReadFromStart(fStandardError.Number());
  words.erase(words.find_last_not_of('\n') + 1);
  if (words.empty() && fStatus && WIFSIGNALED(*fStatus)) {
    const int number = WTERMSIG(*fStatus);
    return fmt::format("The command's process was ended by signal {} ({}).", number, strsignal(number));
  }
  return words;
}

bool Worker::HasGivenUp() const {
  return fStatus && WIFEXITED(*fStatus) && WEXITSTATUS(*fStatus) != EXIT_SUCCESS;
}

void Worker::WaitForEnd() {
  int status = 0;
  while (waitpid(fChild, &status, 0) < 0 && errno == EINTR) {
  }
  fStatus = status;
}

}  // namespace standalone
