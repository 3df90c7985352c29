#include "tests/traces/trace_texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace traces {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TraceTexts TextsOf(const Lines& trace) {
  TraceTexts texts;
  ReadTrace(trace, texts);
  return texts;
}

TEST(TraceTexts, AreMessagesWithTheirLevelAndArguments) {
  const TraceTexts texts = TextsOf({R"(composite#1 = BpComposite("No \"=\" in ^1: ^2", true))",  //
                                    R"(text#1 = BpString("a\r\\", false))",                      //
                                    "composite#1.Add(text#1)", "~text#1",                        //
                                    R"(text#2 = BpString("b", false))", "composite#1.Add(text#2)",
                                    "composite#1.Finish()", "BpError(composite#1, kBpErrorShow, kBpErrorLevelWarning)",
                                    R"(composite#2 = BpComposite("Never issued", true))"});
  ASSERT_EQ(texts.messages.size(), 1U);
  EXPECT_EQ(texts.messages[0].level, "warning");
  EXPECT_EQ(texts.messages[0].pattern, "No \"=\" in ^1: ^2");
  EXPECT_THAT(texts.messages[0].arguments, ElementsAre("a\r\\", "b"));
  EXPECT_THAT(texts.displayPatterns, IsEmpty());
}

TEST(TraceTexts, AreNotThoseOfACallThatThrew) {
  const TraceTexts texts =
      TextsOf({R"(composite#1 = BpComposite("x", true))",
               "BpError(composite#1, kBpErrorShow, kBpErrorLevelError) throws", R"(BpString("y", true) throws)"});
  EXPECT_THAT(texts.messages, IsEmpty());
  EXPECT_THAT(texts.fixedTexts, IsEmpty());
}

TEST(TraceTexts, AreTheOthersByTheirUse) {
  const TraceTexts texts =
      TextsOf({R"(procedure#1 = BpProcedure("Title", 2))", R"(text#1 = BpString("Fixed", true))",
               R"(composite#1 = BpComposite("[:^1\r:$1]1", false))", R"(KeywordMatch("VAL", "VALUE") -> 1)",
               R"(KeywordMatch("VAL", "NAME") -> 0)", R"(ZEVAMBqstricmp_A("LABELS", 6, "LABELSOURCE", 6, 0) -> -2)",
               R"(ZEVAMBqstricmp_A("LABELX", 6, "OTHER", 6, 0) -> 0)"});
  EXPECT_THAT(texts.procedureTitles, ElementsAre("Title"));
  EXPECT_THAT(texts.fixedTexts, ElementsAre("Fixed"));
  EXPECT_THAT(texts.displayPatterns, ElementsAre("[:^1\r:$1]1"));
  EXPECT_THAT(texts.matchedKeywords, ElementsAre("VALUE"));
  EXPECT_THAT(texts.truncatedKeywords, ElementsAre("LABELSOURCE"));
}

}  // namespace
}  // namespace traces
