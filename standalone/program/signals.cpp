#include "standalone/program/signals.h"

#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <array>

#include "standalone/files/temporary_file.h"

namespace standalone {
namespace {

/// Signals that end no process, or that no process can handle.
constexpr std::array<int, 10> kHarmless = {SIGKILL, SIGSTOP, SIGCHLD, SIGCONT,  SIGTSTP,
                                           SIGTTIN, SIGTTOU, SIGURG,  SIGWINCH, SIGXFSZ};

// SA_RESETHAND has put the default back, which ends every process but the first one of a container.
void RemoveFilesAndEnd(int number) {
  constexpr int kEndedBySignal = 128;
  TemporaryFile::RemoveAllOnSignal();
  raise(number);
  _exit(kEndedBySignal + number);
}

void PrepareFor(int number) {
  struct sigaction action = {};
  if (sigaction(number, nullptr, &action) == 0 && action.sa_handler == SIG_DFL) {
    action.sa_handler = RemoveFilesAndEnd;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_NODEFER);
    sigaction(number, &action, nullptr);
  }
}

}  // namespace

void PrepareForSignals() {
  for (int number = 1; number <= SIGRTMAX; ++number) {
    if (std::find(kHarmless.begin(), kHarmless.end(), number) == kHarmless.end()) {
      PrepareFor(number);
    }
  }
  signal(SIGXFSZ, SIG_IGN);
  signal(SIGCHLD, SIG_DFL);  // else nobody could be told how a child ended
}

}  // namespace standalone
