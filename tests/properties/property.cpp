#include "tests/properties/property.h"

#include <climits>
#include <cstdlib>
#include <iostream>

namespace properties {
namespace {

constexpr std::size_t kUsualCases = PROPERTY_CASES;

[[noreturn]] void Refuse(const std::string& text) {
  std::cerr << "MRSET_PROPERTY_CASES is not a number of at least 1000: " << text << '\n';
  std::exit(2);
}

std::size_t CasesFrom(const std::string& text) {
  char* end = nullptr;
  const long count = std::strtol(text.c_str(), &end, 10);
  if (text.empty() || *end != '\0' || count < 1000 || count > INT_MAX) {
    Refuse(text);
  }
  return static_cast<std::size_t>(count);
}

}  // namespace

std::size_t DifferentialCases() {
  const char* wanted = std::getenv("MRSET_PROPERTY_CASES");
  return wanted == nullptr ? kUsualCases : CasesFrom(wanted);
}

void Configure() {
  DifferentialCases();
  if (std::getenv("MRSET_PROPERTY_CASES") == nullptr) {
    setenv("RC_PARAMS", "seed=20240229", 0);
  }
}

}  // namespace properties
