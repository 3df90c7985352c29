#ifndef TESTS_PROPERTIES_PROPERTY_H
#define TESTS_PROPERTIES_PROPERTY_H

#include <gtest/gtest.h>
#include <rapidcheck.h>

#include <cstddef>
#include <sstream>
#include <string>
#include <utility>

namespace properties {

/// The number of commands that are compared with the reference: 60,000 (10,000 under sanitizers or with measurement of
/// coverage), or what MRSET_PROPERTY_CASES says. The counts of the other properties are parts of it.
std::size_t DifferentialCases();

/// Prepares RapidCheck: the seed is a fixed one unless MRSET_PROPERTY_CASES or RC_PARAMS is set.
void Configure();

/// Checks the property on so many cases as part of the running test. On failure the test fails with the shrunk case,
/// and RapidCheck prints the RC_PARAMS that repeat it.
template <class Testable>
void Check(std::size_t cases, Testable&& testable) {
  const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
  rc::detail::TestMetadata metadata;
  metadata.id = std::string(test->test_suite_name()) + "/" + test->name();
  metadata.description = test->name();
  rc::detail::TestParams params = rc::detail::configuration().testParams;
  params.maxSuccess = static_cast<int>(cases);
  const auto result = rc::detail::checkTestable(std::forward<Testable>(testable), metadata, params);
  std::ostringstream text;
  rc::detail::printResultMessage(result, text);
  EXPECT_TRUE(result.template is<rc::detail::SuccessResult>()) << text.str();
}

/// Within a property: fails with both values unless they are equal.
template <class Value>
void RequireEqual(const char* what, const Value& actual, const Value& expected) {
  if (!(actual == expected)) {
    std::ostringstream text;
    text << what << "\nis:       " << actual << "\nexpected: " << expected;
    RC_FAIL(text.str());
  }
}

/// Within a property: fails unless the condition holds.
inline void Require(bool holds, const std::string& sentence) {
  if (!holds) {
    RC_FAIL(sentence);
  }
}

}  // namespace properties

#endif  // TESTS_PROPERTIES_PROPERTY_H
