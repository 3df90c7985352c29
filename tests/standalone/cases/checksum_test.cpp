#include "standalone/cases/checksum.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <iostream>
#include <string>

namespace standalone {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

/// The test is run again in a process of its own, which shows what it has.
void ShowAndExit(std::uint64_t number) {
  std::cerr << "<" << number << ">";
  std::exit(0);
}

TEST(ChecksumDeathTest, IsTheSameInEveryProcess) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const std::string here = "<" + std::to_string(Checksum("tea")) + ">";
  EXPECT_EXIT(ShowAndExit(Checksum("tea")), ::testing::ExitedWithCode(0), HasSubstr(here));
}

TEST(SeededHashDeathTest, IsAnotherInEveryProcess) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EQ(SeededHash("tea"), SeededHash("tea"));
  const std::string here = "<" + std::to_string(SeededHash("tea")) + ">";
  EXPECT_EXIT(ShowAndExit(SeededHash("tea")), ::testing::ExitedWithCode(0), Not(HasSubstr(here)));
}

}  // namespace
}  // namespace standalone
