#include "tests/properties/child.h"

#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <optional>
#include <stdexcept>

namespace properties {
namespace {

constexpr int kReturned = 77;  // no status that a runtime or a sanitizer ends with

constexpr unsigned kLongestRun = 20;  // seconds

const std::function<Lines()>* theLastWords = nullptr;

/// Written by means that a handler must not use: the process is lost anyway.
void SayLastWords(int) {
  signal(SIGABRT, SIG_DFL);
  std::string text;
  for (const std::string& line : (*theLastWords)()) {
    text += "\n" + line;
  }
  const ssize_t written = write(STDERR_FILENO, text.data(), text.size());
  static_cast<void>(written);
}

[[noreturn]] void RunChild(const std::function<void()>& work, const std::function<Lines()>& lastWords, int errors) {
  dup2(errors, STDERR_FILENO);
  const rlimit none{0, 0};
  setrlimit(RLIMIT_CORE, &none);
  for (const int ending : {SIGSEGV, SIGBUS, SIGFPE, SIGALRM}) {
    signal(ending, SIG_DFL);
  }
  theLastWords = &lastWords;
  signal(SIGABRT, SayLastWords);
  alarm(kLongestRun);
  work();
  _exit(kReturned);
}

std::string ReadAll(int file) {
  std::string text;
  std::array<char, 4096> buffer{};
  ssize_t count = 0;
  while ((count = read(file, buffer.data(), buffer.size())) > 0 || (count < 0 && errno == EINTR)) {
    text.append(buffer.data(), count > 0 ? static_cast<std::size_t>(count) : 0);
  }
  return text;
}

/// The expression in the standard report of a failed assertion, and what follows the report.
std::optional<std::string> ReadAssertion(const std::string& errors) {
  static const std::string kBegin = "Assertion `";
  static const std::string kEnd = "' failed.\n";
  const std::size_t begin = errors.find(kBegin);
  const std::size_t end = errors.find(kEnd, begin);
  if (begin == std::string::npos || end == std::string::npos) {
    return std::nullopt;
  }
  const std::size_t expression = begin + kBegin.size();
  return AssertionEnd(errors.substr(expression, end - expression), {}) + errors.substr(end + kEnd.size());
}

std::string Describe(int status, const std::string& errors) {
  if (WIFEXITED(status) && WEXITSTATUS(status) == kReturned) {
    return "returned";
  }
  if (WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT) {
    if (const auto assertion = ReadAssertion(errors)) {
      return *assertion;
    }
  }
  return (WIFSIGNALED(status) ? "signal " + std::to_string(WTERMSIG(status))
                              : "status " + std::to_string(WEXITSTATUS(status))) +
         ": " + errors;
}

}  // namespace

std::string AssertionEnd(const std::string& expression, const Lines& lastWords) {
  std::string text = "assertion: " + expression;
  for (const std::string& line : lastWords) {
    text += "\n" + line;
  }
  return text;
}

std::string EndOfChild(const std::function<void()>& work, const std::function<Lines()>& lastWords) {
  std::array<int, 2> errors{};
  if (pipe(errors.data()) != 0) {
    throw std::runtime_error("no pipe for a child");
  }
  const pid_t child = fork();
  if (child < 0) {
    throw std::runtime_error("no process for a child");
  }
  if (child == 0) {
    close(errors[0]);
    RunChild(work, lastWords, errors[1]);
  }
  close(errors[1]);
  const std::string text = ReadAll(errors[0]);
  close(errors[0]);
  int status = 0;
  while (waitpid(child, &status, 0) < 0 && errno == EINTR) {
  }
  return Describe(status, text);
}

}  // namespace properties
