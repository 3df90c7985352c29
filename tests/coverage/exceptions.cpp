// Linked into the module's tests in coverage builds. The counters are set up so that one is worked out from others, as
// though every call returned; where an exception leaves a function they are wrong. So a process in which one is thrown
// keeps no counters.
#include <dlfcn.h>

#include <cstdlib>

extern "C" void __llvm_profile_set_filename(const char* name);

namespace {

using Throw = void (*)(void*, void*, void (*)(void*));

}  // namespace

/// Stands before the C++ runtime's.
extern "C" [[noreturn]] void __cxa_throw(void* exception, void* type, void (*destructor)(void*)) {
  __llvm_profile_set_filename("/dev/null");
  reinterpret_cast<Throw>(dlsym(RTLD_NEXT, "__cxa_throw"))(exception, type, destructor);
  std::abort();
}
