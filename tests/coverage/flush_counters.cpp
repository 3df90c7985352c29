// Linked into every program of a coverage build, and into none else. A process keeps its counters only when it ends
// through exit(); here those that end through _exit() or abort() write theirs too.
#include <sys/syscall.h>
#include <unistd.h>

#include <csignal>

extern "C" void __gcov_dump();

namespace {

void DumpAndAbort(int) {
  __gcov_dump();
  std::signal(SIGABRT, SIG_DFL);  // abort() goes on as if there had been no handler
}

struct AbortHandler {
  AbortHandler() { std::signal(SIGABRT, DumpAndAbort); }
};

const AbortHandler handler;

}  // namespace

/// Stands before the C library's.
extern "C" [[noreturn]] void _exit(int status) {
  __gcov_dump();
  syscall(SYS_exit_group, status);
  __builtin_unreachable();
}
