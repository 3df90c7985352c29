#include "standalone/run/worker.h"

#include <fcntl.h>
#include <fmt/format.h>
#include <signal.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <sstream>
#include <system_error>

#include "standalone/text/notice.h"

namespace standalone {
namespace {

[[noreturn]] void ThrowSystemError(const char* what) {
  throw std::system_error(errno, std::generic_category(), what);
}

int MakeFileInMemory(const char* name) {
  const int descriptor = memfd_create(name, MFD_CLOEXEC);
  if (descriptor < 0) {
    ThrowSystemError("memfd_create");
  }
  return descriptor;
}

/// In the child, which cannot do without its channel.
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
    WriteAll(fCurrentCommand, line);
    if (std::holds_alternative<CommandDone>(event) || std::holds_alternative<RunFailed>(event)) {
      WriteAll(fChannel, fUnsent);
      Forget();
    }
  }

 private:
  /// Where nobody can take it in, nobody misses it.
  void ShowAtOnce(const std::string& line) const {
    if (write(fConsole, line.data(), line.size()) < 0) {
      return;
    }
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

/// Signals end the child as they come: what the handlers of its parent do is the parent's to do. That nobody reads its
/// notices must not end it.
void SetUpSignals() {
  signal(SIGPIPE, SIG_IGN);
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction action = {};
    sigaction(number, nullptr, &action);
    if (action.sa_handler != SIG_IGN) {
      signal(number, SIG_DFL);
    }
  }
}

/// A child that nobody listens to any more must neither go on nor keep the dataset locked.
void EndWithParent(pid_t parent) {
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) {
    _exit(EXIT_FAILURE);
  }
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

Worker::Worker(const std::function<void(const Tell& tell)>& work)
    : fCurrentCommand(MakeFileInMemory("events")), fStandardError(MakeFileInMemory("standard error")) {
  std::array<int, 2> channel{};
  if (pipe2(channel.data(), O_CLOEXEC) != 0) {
    ThrowSystemError("pipe2");
  }
  std::fflush(nullptr);  // else the child would write it once more
  const pid_t parent = getpid();
  fChild = fork();
  if (fChild < 0) {
    ThrowSystemError("fork");
  }
  if (fChild == 0) {
    SetUpSignals();
    EndWithParent(parent);
    close(channel[0]);
    const int console = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    dup2(fStandardError, STDERR_FILENO);
    SuppressCoreDump();
    work(Sender(channel[1], fCurrentCommand, console));
    std::fflush(nullptr);
    _exit(EXIT_SUCCESS);
  }
  close(channel[1]);
  fEvents = fdopen(channel[0], "r");
}

Worker::~Worker() {
  if (!fStatus) {
    kill(fChild, SIGKILL);
    WaitForEnd();
  }
  std::fclose(fEvents);
  close(fCurrentCommand);
  close(fStandardError);
}

std::optional<Event> Worker::Receive() {
  char* line = nullptr;
  std::size_t capacity = 0;
  const ssize_t length = getline(&line, &capacity, fEvents);
  std::string text(line == nullptr ? "" : line, length > 0 ? static_cast<std::size_t>(length) : 0);
  std::free(line);
  // A line that the child did not complete is none.
  if (!text.empty() && text.back() == '\n') {
    text.pop_back();
    return EventFromLine(text);
  }
  WaitForEnd();
  return std::nullopt;
}

std::vector<Event> Worker::EventsOfLastCommand() const {
  std::vector<Event> events;
  std::istringstream lines(ReadFromStart(fCurrentCommand));
  std::string line;
  while (std::getline(lines, line) && !lines.eof()) {  // one without its end was not completed
    events.push_back(EventFromLine(line));
  }
  return events;
}

std::string Worker::LastWords() const {
  std::string words = ReadFromStart(fStandardError);
  words.erase(words.find_last_not_of('\n') + 1);
  if (words.empty() && fStatus && WIFSIGNALED(*fStatus)) {
    const int number = WTERMSIG(*fStatus);
    return fmt::format("The command's process was ended by signal {} ({}).", number, strsignal(number));
  }
  return words;
}

void Worker::WaitForEnd() {
  int status = 0;
  while (waitpid(fChild, &status, 0) < 0 && errno == EINTR) {
  }
  fStatus = status;
}

}  // namespace standalone
