#include "standalone/console/delivery.h"

#include <fmt/format.h>
#include <signal.h>

#include <atomic>
#include <iostream>

#include "standalone/text/counted.h"
#include "standalone/text/error.h"
#include "standalone/text/notice.h"

namespace standalone {
namespace {

std::atomic<bool> isReaderGone{false};  // NOLINT(*-avoid-non-const-global-variables)

std::string lastSentence;  // NOLINT(*-avoid-non-const-global-variables)

}  // namespace

void OutliveReader() {
  struct sigaction action = {};
  sigaction(SIGPIPE, nullptr, &action);
  if (action.sa_handler != SIG_IGN) {
    signal(SIGPIPE, [](int) { isReaderGone = true; });
  }
}

std::string SentenceOfSaved(std::size_t count) {
  return fmt::format("The dataset was changed by {} and is saved; mrset log lists the changes.",
                     Counted(count, "command"));
}

void SayAtEnd(const std::string& sentence) {
  lastSentence = sentence;
}

void EndDelivery() {
  if (!lastSentence.empty()) {
    std::cerr << NoticeLine(lastSentence);
  }
  if (isReaderGone) {
    signal(SIGPIPE, SIG_DFL);
    raise(SIGPIPE);
  }
}

void FailAfterChange() {
  throw Error("There is not enough memory to tell more, but the change is saved; mrset log lists the changes.");
}

void EnsureToldOf(const std::string& change) {
  std::cout.flush();
  if (!std::cout) {
    throw Error(ErrorKind::kOutput, "Standard output cannot be written, but the change is saved: " + change + ".");
  }
}

}  // namespace standalone
