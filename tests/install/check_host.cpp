// Tries the scripted host with the installed host check, as an engineer would try theirs.

#include <cstdlib>
#include <iostream>

#include "tests/host_check/scripted_factory.h"

int main() {
  ScriptedFactory factory;
  return RunHostCheck(factory, std::cout) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
