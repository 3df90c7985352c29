// Runs a program and says what it cost: run_and_weigh REPORT PROGRAM [ARGUMENT]...
//
// Standard streams are passed on. REPORT gets one line: seconds by the clock, seconds of the processor as user and as
// system, and the peak of memory in KiB, of the program and of those it waited for. Exit status: the program's, or 125
// when it did not run or did not come to its own end.
//
// A program of its own, since the peak includes what the process was before it became the program: that of a shell or
// an interpreter would hide small ones.

#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>

namespace {

constexpr int kNoResult = 125;

double Seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

bool Write(const char* path, double wall, const rusage& usage) {
  std::FILE* report = std::fopen(path, "w");
  if (report == nullptr) {
    return false;
  }
  std::fprintf(report, "%.6f %.6f %.6f %ld\n", wall, Seconds(usage.ru_utime), Seconds(usage.ru_stime), usage.ru_maxrss);
  return std::fclose(report) == 0;
}

int Fail(const char* what, int reason) {
  std::fprintf(stderr, "%s: %s\n", what, std::strerror(reason));
  return kNoResult;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) {
    std::fputs("usage: run_and_weigh REPORT PROGRAM [ARGUMENT]...\n", stderr);
    return kNoResult;
  }
  const auto begin = std::chrono::steady_clock::now();
  pid_t child = 0;
  if (const int reason = posix_spawnp(&child, argv[2], nullptr, nullptr, argv + 2, environ)) {
    return Fail(argv[2], reason);
  }
  int status = 0;
  rusage usage{};
  if (wait4(child, &status, 0, &usage) < 0) {
    return Fail(argv[2], errno);
  }
  const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - begin;
  if (!Write(argv[1], wall.count(), usage)) {
    return Fail(argv[1], errno);
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : kNoResult;
}
