#include "backend/mrset/diagnostics.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <type_traits>
#include <vector>

#include "tests/module/run.h"

namespace module_test {
namespace {

using scripted::Message;
using scripted::ScriptedHost;
using scripted::Text;
using testing::ElementsAre;
using testing::IsEmpty;

using Generate = void (*)(const std::string&, const std::string&, const std::string&);
static_assert(std::is_same_v<decltype(&GenerateError), Generate>);
static_assert(std::is_same_v<decltype(&GenerateWarning), Generate>);

const std::string kUnexpectedToken = "Unexpected token ^1 in this context";

TEST(Diagnostics, ErrorFillsTheTokenIntoItsTemplateAndIsIssuedAtErrorLevel) {
  ScriptedHost host;
  GenerateError(kUnexpectedToken, "?", "");

  EXPECT_EQ(host.TraceText(), R"(composite#1 = BpComposite("Unexpected token ^1 in this context", true)
text#1 = BpString("?", false)
composite#1.Add(text#1)
~text#1
composite#1.Finish()
BpError(composite#1, kBpErrorShow, kBpErrorLevelError)
~composite#1
)");
  ASSERT_EQ(host.Messages().size(), 1U);
  const Message& message = host.Messages().front();
  EXPECT_EQ(message.text, "Unexpected token ? in this context");
  EXPECT_EQ(message.level, 4);
  EXPECT_EQ(message.show, 2);
  EXPECT_TRUE(message.flag);
  EXPECT_TRUE(message.finished);
  EXPECT_THAT(message.arguments, ElementsAre(Text("?")));
  EXPECT_THAT(host.Problems(), IsEmpty());
}

TEST(Diagnostics, WarningWithoutArgumentsIssuesItsTemplateAsItStandsAtWarningLevel) {
  ScriptedHost host;
  GenerateWarning("No MRSETs to delete", "", "");

  EXPECT_EQ(host.TraceText(), R"(composite#1 = BpComposite("No MRSETs to delete", true)
composite#1.Finish()
BpError(composite#1, kBpErrorShow, kBpErrorLevelWarning)
~composite#1
)");
  ASSERT_EQ(host.Messages().size(), 1U);
  const Message& message = host.Messages().front();
  EXPECT_EQ(message.text, "No MRSETs to delete");
  EXPECT_EQ(message.level, 2);
  EXPECT_EQ(message.show, 2);
  EXPECT_TRUE(message.flag);
  EXPECT_TRUE(message.finished);
  EXPECT_THAT(message.arguments, IsEmpty());
}

TEST(Diagnostics, ErrorAndWarningDifferInTheLevelAlone) {
  ScriptedHost host;
  GenerateError("Of ^1 and ^2.", "one", "two");
  Lines trace = host.Trace();
  host.StartOver();
  GenerateWarning("Of ^1 and ^2.", "one", "two");

  ASSERT_EQ(trace.size(), 10U);
  EXPECT_EQ(trace[8], "BpError(composite#1, kBpErrorShow, kBpErrorLevelError)");
  trace[8] = "BpError(composite#1, kBpErrorShow, kBpErrorLevelWarning)";
  EXPECT_EQ(host.Trace(), trace);
}

struct ArgumentsRow {
  std::string messageTemplate;
  std::string first;
  std::string second;
  std::vector<std::string> added;
  std::string text;
};

TEST(Diagnostics, ArgumentsThatAreNotEmptyFillThePlaceholdersInOrder) {
  const std::string nul(1, '\0');
  const ArgumentsRow kRows[] = {
      {"Of ^1 and ^2.", "one", "two", {"one", "two"}, "Of one and two."},
      {"Of ^1 and ^2.", "one", "", {"one"}, "Of one and ."},
      {"Of ^1 and ^2.", "", "two", {"two"}, "Of two and ."},  // moves up
      {"Of ^1 and ^2.", "", "", {}, "Of  and ."},
      {"Of ^2 and ^1.", "one", "two", {"one", "two"}, "Of two and one."},
      {"Of ^1.", " ", "", {" "}, "Of  ."},
      {"Of ^1 and ^2.", "^2", "two", {"^2", "two"}, "Of ^2 and two."},
      {"No placeholder.", "one", "two", {"one", "two"}, "No placeholder."},
      {"", "one", "", {"one"}, ""},
      // Each text ends at its first NUL; one that begins with it is there and yet empty.
      {"Of ^1." + nul + "Of ^2.", "one" + nul + "1", "two" + nul + "2", {"one", "two"}, "Of one."},
      {"Of ^1 and ^2.", nul + "one", "two", {"", "two"}, "Of  and two."},
  };
  for (const ArgumentsRow& row : kRows) {
    for (const Generate generate : {&GenerateError, &GenerateWarning}) {
      SCOPED_TRACE("template \"" + row.messageTemplate + "\" with \"" + row.first + "\" and \"" + row.second + "\"");
      ScriptedHost host;
      generate(row.messageTemplate, row.first, row.second);
      ASSERT_EQ(host.Messages().size(), 1U);
      EXPECT_EQ(host.Messages().front().text, row.text);
      EXPECT_EQ(host.Messages().front().pattern, row.messageTemplate.c_str());
      Lines added;
      for (const scripted::Argument& argument : host.Messages().front().arguments) {
        EXPECT_FALSE(argument.isList);
        added.insert(added.end(), argument.texts.begin(), argument.texts.end());
      }
      EXPECT_EQ(added, row.added);
      EXPECT_THAT(host.Problems(), IsEmpty());
    }
  }
}

TEST(Diagnostics, HowAnUnfilledPlaceholderLooksIsTheHosts) {
  ScriptedHost host;
  host.HostHooks().render = [](const std::string& pattern, const std::vector<scripted::Argument>& arguments) {
    return pattern + " with " + std::to_string(arguments.size());
  };
  GenerateError("Of ^1 and ^2.", "", "two");
  EXPECT_THAT(host.MessageLines(), ElementsAre("error: Of ^1 and ^2. with 1"));
}

TEST(Diagnostics, CallerGoesOnAfterAMessage) {
  ScriptedHost host;
  GenerateError("First.", "", "");
  GenerateWarning("Second.", "", "");
  GenerateError("Third.", "", "");
  EXPECT_THAT(host.MessageLines(), ElementsAre("error: First.", "warning: Second.", "error: Third."));
  EXPECT_THAT(host.Problems(), IsEmpty());
}

TEST(Diagnostics, ArgumentsAndMessageAreReleasedWhenTheHostThrows) {
  const struct {
    std::string call;
    Lines released;
  } kRows[] = {
      {"BpComposite(", {}},
      {"BpString(", {"~composite#1"}},
      {".Add(", {"~text#1", "~composite#1"}},
      {".Finish(", {"~text#1", "~composite#1"}},  // the argument was released before
      {"BpError(", {"~text#1", "~composite#1"}},
  };
  ScriptedHost host;
  GenerateWarning(kUnexpectedToken, "?", "");
  const Lines trace = host.Trace();
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.call + " throws");
    host.StartOver();
    host.FailAtCall(CallNumber(trace, row.call));
    EXPECT_THROW(GenerateWarning(kUnexpectedToken, "?", ""), scripted::Fault);
    Lines released;
    for (const scripted::Event& event : host.Events()) {
      if (!event.constructed) {
        released.push_back("~" + event.object);
      }
    }
    EXPECT_EQ(released, row.released);
    EXPECT_THAT(host.Messages(), IsEmpty());
    EXPECT_THAT(host.Problems(), IsEmpty());
  }
}

// Which messages are warnings. "The MRSET ^1 is not in the dataset." is one too, but no command leads to it: while a
// command is parsed no name counts as missing.

struct WarningRow {
  std::string command;
  Lines messages;
};

TEST(Diagnostics, MessagesOfACommandThatIsCarriedOutAllTheSameAreWarnings) {
  const std::string label(256, 'x');
  const WarningRow kRows[] = {
      {"MRSET /MCGROUP NAME=$a VARIABLES=n1 n2 LABEL='" + label + "'",
       {"warning: The MRSET label " + label + " will be truncated to a length of 255 chars."}},
      {"MRSET /MDGROUP NAME=$a VARIABLES=q1 q2 VALUE=1", {"warning: CountVal 1 label different in the variables."}},
      {"MRSET /MDGROUP NAME=$a VARIABLES=s8 s9 VALUE='x'", {"warning: Duplicate label found for variable s9."}},
      {"MRSET /DISPLAY NAME=[$none]", {"warning: No MRSET to display"}},
      {"MRSET /DELETE NAME=ALL", {"warning: No MRSETs to delete"}},
      {"MRSET /DELETE NAME=[$none]", {"warning: $none MRSET can not be found in the dataset."}},
      {"MRSET /MCGROUP NAME=$a VARIABLES=n1 n2 /DISPLAY NAME=[$none $a $nor]",
       {"warning: One or more of the sets specified do not exist... $none, $nor"}},
  };
  for (const WarningRow& row : kRows) {
    SCOPED_TRACE(row.command);
    std::vector<scripted::Variable> dictionary = SurveyDictionary();
    dictionary.push_back(scripted::String("s9", 9, "Wide"));
    ScriptedHost host({dictionary, {}, true, {}});
    const Outcome outcome = RunCommand(host, row.command);
    EXPECT_EQ(outcome.messages, row.messages);
    EXPECT_TRUE(outcome.saved);
  }
}

TEST(Diagnostics, MessagesOfACommandThatIsRefusedAreErrors) {
  const WarningRow kRows[] = {
      {"MRSET /MCGROUP NAME=$a 5 VARIABLES=n1 n2", {"error: Unexpected token 5 in this context"}},
      {"MRSET /MCGROUP NAME=$a VARIABLES=n1", {"error: Only one variable n1 was found."}},
      {"MRSET", {"error: No subcommand in MRSET command."}},
      {"MRSET /MCGROUP NAME 5", {"error: MRSET NAME was expecting \"=\". Found 5...;"}},
  };
  for (const WarningRow& row : kRows) {
    SCOPED_TRACE(row.command);
    const Outcome outcome = RunOnSurvey(row.command);
    EXPECT_EQ(outcome.messages, row.messages);
    EXPECT_FALSE(outcome.saved);
  }
}

}  // namespace
}  // namespace module_test
