// A module for tests in the place of mrset.so. Its command ends the process without a word.

#include <csignal>

extern "C" __attribute__((visibility("default"))) void mrset_() {
  std::raise(SIGKILL);
}
