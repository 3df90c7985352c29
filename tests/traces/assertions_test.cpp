// Every assertion of the module's sources fails in a unit test, and its report is what its source says.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <tuple>

#include "tests/traces/assertion_provokers.h"
#include "tests/traces/golden.h"
#include "tests/traces/options.h"
#include "tests/traces/rows.h"
#include "tests/traces/source_scan.h"

namespace traces {
namespace {

/// An assertion by its file, the name of its function and its expression.
using Assertion = std::tuple<std::string, std::string, std::string>;

std::string ToText(const Assertion& assertion) {
  return std::get<0>(assertion) + ": " + std::get<1>(assertion) + ": " + std::get<2>(assertion);
}

std::map<Assertion, SourceAssertion> AssertionsOfTheModule() {
  std::map<Assertion, SourceAssertion> all;
  for (const std::string& file : SourceFiles("backend/mrset")) {
    for (const SourceAssertion& assertion : ScanFile(file).assertions) {
      const Assertion key(file, NameInHead(assertion.function), assertion.expression);
      EXPECT_TRUE(all.emplace(key, assertion).second) << "asserted twice: " << ToText(key);
    }
  }
  EXPECT_GT(all.size(), 30U);
  return all;
}

std::set<Assertion> UnfailingAssertions() {
  std::set<Assertion> all;
  for (const auto& row : ReadRows("tests/traces/unfailing_assertions.txt", 4)) {
    all.emplace(row[0], row[1], row[2]);
  }
  return all;
}

bool IsDeathTest(const Source& source, const std::string& head) {
  const auto function = std::find_if(source.functions.begin(), source.functions.end(),
                                     [&](const SourceFunction& one) { return one.head == head; });
  return head.find("DeathTest, ") != std::string::npos && function != source.functions.end() &&
         function->body.find("EXPECT_DEATH(") != std::string::npos;
}

/// What the death tests of a file expect: each has a function Report of the file's own, which hands its file, and maybe
/// the function, to AssertionReport.
void CollectExpected(const std::string& file, std::set<Assertion>& expected) {
  const Source source = ScanFile(file);
  std::string assertingFile;
  std::string fixedFunction;
  for (const SourceLiteral& literal : source.literals) {
    if (literal.callee == "AssertionReport") {
      (literal.argument == 0 ? assertingFile : fixedFunction) = literal.text;
    }
  }
  std::string function;
  for (const SourceLiteral& literal : source.literals) {
    if (literal.callee != "Report" || !IsDeathTest(source, literal.function)) {
      continue;
    }
    if (literal.argument == 0 && fixedFunction.empty()) {
      function = literal.text;
    } else {
      expected.emplace(assertingFile, fixedFunction.empty() ? function : fixedFunction, literal.text);
    }
  }
}

TEST(Assertions, FailInADeathTestOrCannotFail) {
  const auto assertions = AssertionsOfTheModule();
  const std::set<Assertion> unfailing = UnfailingAssertions();
  std::set<Assertion> expected;
  for (const std::string& file : SourceFiles("tests/module")) {
    CollectExpected(file, expected);
  }
  for (const auto& [assertion, source] : assertions) {
    EXPECT_NE(expected.count(assertion), unfailing.count(assertion))
        << ToText(assertion)
        << (unfailing.count(assertion) == 1 ? ": fails in a death test and is listed as one that cannot"
                                            : ": no death test");
  }
  for (const Assertion& assertion : expected) {
    EXPECT_EQ(assertions.count(assertion), 1U) << "a death test expects what is not asserted: " << ToText(assertion);
  }
  for (const Assertion& assertion : unfailing) {
    EXPECT_EQ(assertions.count(assertion), 1U) << "listed and not asserted: " << ToText(assertion);
  }
  std::cout << assertions.size() << " assertions: " << expected.size() << " fail in death tests, " << unfailing.size()
            << " cannot fail\n";
}

/// Without the names of the parameters, and with the blanks and the name of std::string as every compiler writes them.
std::string Normalised(std::string signature) {
  const auto replace = [&signature](const std::string& from, const std::string& to) {
    for (std::size_t at = signature.find(from); at != std::string::npos; at = signature.find(from, at + to.size())) {
      signature.replace(at, from.size(), to);
    }
  };
  replace("std::__cxx11::basic_string<char>", "std::string");
  for (const char* punctuation : {"&", "*", "<", ">", ",", "(", ")"}) {
    replace(std::string(" ") + punctuation, punctuation);
    replace(std::string(punctuation) + " ", punctuation);
  }
  return signature;
}

/// The signature of a function's head.
std::string Signature(const std::string& head) {
  const std::size_t open = head.find('(');
  std::string signature = head.substr(0, open + 1);
  std::istringstream parameters(head.substr(open + 1, head.rfind(')') - open - 1));
  for (std::string parameter; std::getline(parameters, parameter, ',');) {
    signature += (signature.back() == '(' ? "" : ",") + parameter.substr(0, parameter.find_last_of(' '));
  }
  return Normalised(signature + ")");
}

TEST(AssertionReport, HasTheExpressionTheRelativeFileTheLineAndTheSignature) {
  std::set<Assertion> failed;
  const auto assertions = AssertionsOfTheModule();
  for (const auto& [assertion, source] : assertions) {
    const AssertionProvoker* provoker = FindProvoker(std::get<1>(assertion), std::get<2>(assertion));
    if (provoker == nullptr) {
      EXPECT_EQ(UnfailingAssertions().count(assertion), 1U) << ToText(assertion) << ": is not provoked";
      continue;
    }
    const std::string report = EndOf(*provoker).report;
    const std::string begin = std::get<0>(assertion) + ":" + std::to_string(source.line) + ": ";
    const std::string end = ": Assertion `" + source.expression + "' failed.\n";
    const std::size_t at = report.find(": ") + 2;  // behind the program's name
    ASSERT_GE(report.size(), at + begin.size() + end.size()) << ToText(assertion) << ": " << report;
    EXPECT_EQ(report.substr(at, begin.size()), begin) << report;
    EXPECT_EQ(report.substr(report.size() - end.size()), end) << report;
    const std::string signature = report.substr(at + begin.size(), report.size() - end.size() - at - begin.size());
    EXPECT_EQ(Normalised(signature), Signature(source.function)) << report;
    failed.insert(assertion);
  }
  std::cout << failed.size() << " of " << assertions.size() << " reports compared whole\n";
}

TEST(CallsBeforeAnAssertion, AreThoseOfTheGoldenFile) {
  const Lines actual = AssertionGoldenLines();
  const Lines expected = ReadLines(AssertionGoldenPath());
  EXPECT_TRUE(actual == expected) << AssertionGoldenPath() << " differs " << Difference(expected, actual)
                                  << HowToUpdate();
}

}  // namespace
}  // namespace traces
