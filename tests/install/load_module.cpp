// Loads the installed module into a process whose host is the scripted one, runs a command and prints what came of it.

#include <dlfcn.h>

#include <cstdlib>
#include <iostream>

#include "host/module.h"
#include "tests/host/scripted_host.h"

int main() {
  scripted::ScriptedHost host({{scripted::Numeric("q1", "Tea"), scripted::Numeric("q2", "Coffee")}, {}, true, {}},
                              "MRSET /MDGROUP NAME=$drinks VARIABLES=q1 q2 VALUE=1 /DISPLAY NAME=ALL");
  void* module = dlopen(MODULE_PATH, RTLD_NOW);
  void* entry = module == nullptr ? nullptr : dlsym(module, "mrset_");
  if (entry == nullptr) {
    std::cerr << dlerror() << '\n';
    return EXIT_FAILURE;
  }
  reinterpret_cast<decltype(&mrset_)>(entry)();
  for (const std::string& message : host.MessageLines()) {
    std::cout << message << '\n';
  }
  for (const std::string& line : host.Tables().at(0).Lines()) {
    std::cout << line << '\n';
  }
  for (const scripted::SetData& set : host.StoredSets()) {
    std::cout << "saved " << set << '\n';
  }
}
