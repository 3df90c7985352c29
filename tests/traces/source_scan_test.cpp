#include "tests/traces/source_scan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace traces {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// As in `3 Report 1 in "bool F(int a)": text`.
std::vector<std::string> Literals(const Source& source) {
  std::vector<std::string> lines;
  for (const SourceLiteral& literal : source.literals) {
    std::string line = std::to_string(literal.line) + " ";
    line += literal.callee.empty() ? "" : literal.callee + " " + std::to_string(literal.argument) + " ";
    line += literal.assignedTo.empty() ? "" : "= " + literal.assignedTo + " ";
    lines.push_back(line + "in <" + NameInHead(literal.function) + ">: " + literal.text);
  }
  return lines;
}

TEST(SourceScan, FindsLiteralsWithTheCallThatTheyAreGivenTo) {
  EXPECT_THAT(Literals(Scan(R"(
namespace {
bool F(int a) {
  Report(a, "first");
  const Text text("second", true);
  return Outer(a, [&] { return Inner(a, b, "third"); }) && Is(std:: string("fourth")) && Call(c ? "x" : "y");
}
}  // namespace
)")),
              ElementsAre("4 Report 1 in <F>: first", "5 Text 0 in <F>: second", "6 Inner 2 in <F>: third",
                          "6 Is 0 in <F>: fourth", "6 Call 0 in <F>: x", "6 Call 0 in <F>: y"));
}

TEST(SourceScan, FindsLiteralsThatAreGivenToNoCall) {
  EXPECT_THAT(Literals(Scan("constexpr const char* kText = \"a\";\n"
                            "std::string G() { return name + \"b\"; }\n"
                            "struct S { explicit S(int a) : text(Make(\"c\")) {} };\n")),
              ElementsAre("1 = kText in <>: a", "2 in <G>: b", "3 Make 0 in <>: c"));
}

TEST(SourceScan, ResolvesEscapesAndJoinsNeighbours) {
  EXPECT_THAT(Literals(Scan(R"x(void F() {
  G("a\"b\r", 'c', '"');
  G(R"(d\")" R"-(e)")-" "f");
})x")),
              ElementsAre("2 G 0 in <F>: a\"b\r", "3 G 0 in <F>: d\\\"e)\"f"));
}

TEST(SourceScan, PassesOverCommentsAndThePreprocessor) {
  EXPECT_THAT(
      Literals(Scan("#include \"a.h\"\n#define B \\\n  \"b\"\n// \"c\"\n/* \"d\"\n */\nint x = 1'000; // \"e\"")),
      IsEmpty());
}

TEST(SourceScan, FindsAssertionsWholeWithTheirFunction) {
  const Source source = Scan(R"(
template <class T>
bool F(const T& command,
       int other) {
  assert(Is(command, std:: string("NAME")) &&
         other[0] == ')');
  return true;
}

void G() { assert(ok); }
)");
  ASSERT_EQ(source.assertions.size(), 2U);
  EXPECT_EQ(source.assertions[0].line, 5U);
  EXPECT_EQ(source.assertions[0].expression, "Is(command, std:: string(\"NAME\")) && other[0] == ')'");
  EXPECT_EQ(source.assertions[0].function, "template <class T> bool F(const T& command, int other)");
  EXPECT_EQ(source.assertions[1].expression, "ok");
  EXPECT_EQ(source.assertions[1].function, "void G()");
  EXPECT_THAT(source.literals, IsEmpty());
}

TEST(SourceScan, FindsFunctionsWithTheirBodies) {
  const Source source =
      Scan("// one\nTEST(Suite, Name) { Run(\"x\"); }\nint a;\nvoid F();\nvoid H() { if (a) { b(); } }");
  ASSERT_EQ(source.functions.size(), 2U);
  EXPECT_EQ(source.functions[0].head, "TEST(Suite, Name)");
  EXPECT_EQ(source.functions[0].body, " Run(\"x\"); ");
  EXPECT_EQ(source.functions[1].head, "void H()");
  EXPECT_EQ(source.functions[1].body, " if (a) { b(); } ");
}

}  // namespace
}  // namespace traces
