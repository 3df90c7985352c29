#include "standalone/program/signals.h"

#include <signal.h>

#include "standalone/data/temporary_file.h"

namespace standalone {
namespace {

// SA_RESETHAND has put the default back; the signal comes again once this returns.
void RemoveFilesAndEnd(int number) {
  TemporaryFile::RemoveAllOnSignal();
  raise(number);
}

}  // namespace

void PrepareForSignals() {
  for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
    struct sigaction action = {};
    sigaction(number, nullptr, &action);
    if (action.sa_handler == SIG_DFL) {
      action.sa_handler = RemoveFilesAndEnd;
      action.sa_flags = static_cast<int>(SA_RESETHAND);
      sigaction(number, &action, nullptr);
    }
  }
  signal(SIGXFSZ, SIG_IGN);
}

}  // namespace standalone
