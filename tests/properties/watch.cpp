#include "tests/properties/watch.h"

#include <signal.h>
#include <unistd.h>

#include <array>
#include <iostream>

namespace properties {
namespace {

constexpr unsigned kLongestRun = 20;  // seconds
constexpr std::array<int, 5> kSignals = {SIGABRT, SIGSEGV, SIGBUS, SIGFPE, SIGALRM};

const Case* theCase = nullptr;
std::array<struct sigaction, kSignals.size()> theFormer{};

void RestoreHandlers() {
  for (std::size_t index = 0; index < kSignals.size(); ++index) {
    sigaction(kSignals[index], &theFormer[index], nullptr);
  }
}

/// Prints by means that a handler must not use: the process is lost anyway. The former handler then sees the signal
/// again, as the failing instruction is repeated.
void PrintCase(int signal) {
  RestoreHandlers();
  if (theCase != nullptr) {
    std::cerr << "\nsignal " << signal << " at this case:" << *theCase << std::endl;
  }
  if (signal == SIGALRM) {
    raise(SIGALRM);
  }
}

void InstallHandlers() {
  struct sigaction action {};
  action.sa_handler = PrintCase;
  for (std::size_t index = 0; index < kSignals.size(); ++index) {
    sigaction(kSignals[index], &action, &theFormer[index]);
  }
}

}  // namespace

Watch::Watch(const Case& example) {
  static const bool kInstalled = (InstallHandlers(), true);
  static_cast<void>(kInstalled);
  theCase = &example;
  alarm(kLongestRun);
}

Watch::~Watch() {
  theCase = nullptr;
  alarm(0);
}

}  // namespace properties
