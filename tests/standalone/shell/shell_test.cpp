#include "standalone/shell/shell.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "standalone/shell/help.h"
#include "standalone/shell/name_pattern.h"
#include "standalone/shell/terminal_input.h"
#include "standalone/tabulation/grammar/tabulate_grammar.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

using Texts = std::vector<std::string>;

constexpr const char* kRemark =
    "say The command above is not complete, and this line is part of it: end it with a period; Ctrl-C discards it.";

Typed Text(const std::string& text) {
  return {Typed::Kind::kText, text};
}

Typed Abandoned(const std::string& text) {
  return {Typed::Kind::kAbandoned, text};
}

/// Input that was prepared, and a note of all that happens.
class Script : public ShellInput, public ShellActions {
 public:
  Script(std::deque<Typed> typed, bool isScript) : fTyped(std::move(typed)), fIsScript(isScript) {}

  Typed Read(std::string_view openText) override {
    notes.push_back(openText.empty() ? ">" : "-> " + std::string(openText));
    if (fTyped.empty()) {
      return {};
    }
    Typed next = fTyped.front();
    fTyped.pop_front();
    return next;
  }
  void Remember(const std::string& lines) override { remembered.push_back(lines); }
  bool IsScript() const override { return fIsScript; }
  void Run(const ScriptCommand& command) override {
    notes.push_back("run " + std::to_string(command.line) + " " + command.text);
  }
  void Perform(const ShellCommand& command) override {
    notes.push_back("perform " + std::string(command.rule->name) + " " + command.argument);
  }

  void Say(const std::string& sentence) override { notes.push_back("say " + sentence); }

  Texts notes;
  Texts remembered;

 private:
  std::deque<Typed> fTyped;
  bool fIsScript;
};

struct Row {
  std::deque<Typed> typed;
  Texts notes;
  Texts remembered;
};

void ExpectNotes(bool isScript, const std::vector<Row>& rows) {
  for (const Row& row : rows) {
    Script script(row.typed, isScript);
    Shell(script, script, "test").Run();
    EXPECT_EQ(script.notes, row.notes);
    EXPECT_EQ(script.remembered, row.remembered);
  }
}

TEST(Shell, RunsEachCommandWhenItIsComplete) {
  ExpectNotes(false,
              {
                  {{}, {">"}, {}},
                  {{Text("MRSET.")}, {">", "run 1 MRSET", ">"}, {"MRSET."}},
                  {{Text("MRSET"), Text("B."), Text("C.")},
                   {">", "-> MRSET", "run 1 MRSET\nB", ">", "run 1 C", ">"},
                   {"MRSET\nB.", "C."}},
                  {{Text("MRSET"), Text("")}, {">", "-> MRSET", "run 1 MRSET", ">"}, {"MRSET"}},
                  {{Text("MRSET\nB.\nC.\nmrs")}, {">", "run 1 MRSET\nB", "run 3 C", "-> mrs"}, {"MRSET\nB.", "C."}},
                  {{Text(""), Text("* MRSET"), Text("B.")}, {">", ">", "-> * MRSET", ">"}, {"* MRSET\nB."}},
              });
}

TEST(Shell, KnowsItsOwnCommandsOnFreshLinesOnly) {
  ExpectNotes(false, {
                         {{Text("sets"), Text("help MDG.")},
                          {">", "perform sets ", ">", "perform help MDG", ">"},
                          {"sets", "help MDG."}},
                         {{Text("MRSET"), Text("sets"), Text("quit.")},
                          {">", "-> MRSET", kRemark, "-> MRSET\nsets", "run 1 MRSET\nsets\nquit", ">"},
                          {"MRSET\nsets\nquit."}},
                         {{Text("quit"), Text("MRSET.")}, {">"}, {"quit"}},
                         {{Text("Exit."), Text("MRSET.")}, {">"}, {"Exit."}},
                         {{Text("quit soon"), Text("MRSET.")},
                          {">", "perform quit soon", ">", "run 1 MRSET", ">"},
                          {"quit soon", "MRSET."}},
                         {{Text("quit\nA.")}, {">"}, {"quit"}},
                     });
}

TEST(Shell, ForgetsACommandThatIsGivenUpButKeepsItsText) {
  ExpectNotes(
      false,
      {
          {{Text("MRSET"), Abandoned("B"), Text("C.")}, {">", "-> MRSET", ">", "run 1 C", ">"}, {"MRSET\nB", "C."}},
          {{Abandoned(""), Abandoned("  ")}, {">", ">", ">"}, {}},
      });
}

TEST(Shell, DoesNotRunWhatIsOpenWhenAPersonLeaves) {
  ExpectNotes(false, {{{Text("MRSET")}, {">", "-> MRSET"}, {}}});
}

TEST(Shell, RefusesAtOnceWhatIsNoCommand) {
  const std::string others = "; type MRSET or TABULATE, or one of the commands that help lists.";
  ExpectNotes(
      false,
      {
          {{Text("set"), Text("sets")},
           {">", "say There is no command set; did you mean sets?", ">", "perform sets ", ">"},
           {"set", "sets"}},
          {{Text(" foo bar")}, {">", "say There is no command foo" + others, ">"}, {" foo bar"}},
          {{Text("/DISPLAY NAME=ALL")}, {">", "say There is no command /DISPLAY" + others, ">"}, {"/DISPLAY NAME=ALL"}},
          {{Text("redo")},
           {">", "say There is no command redo; undo right after an undo restores the sets.", ">"},
           {"redo"}},
          {{Text("#foo")},
           {">",
            "say There is no command #foo; a comment starts with * and ends with a period, or goes between /* and */ on"
            " one line.",
            ">"},
           {"#foo"}},
          {{Text("MRSTE/DISPLAY")},
           {">", "say There is no command MRSTE; did you mean MRSET?", ">"},
           {"MRSTE/DISPLAY"}},
          {{Text("mr")}, {">", "say There is no command mr; did you mean MRSET?", ">"}, {"mr"}},
          {{Text("foo\nMRSET")}, {">", "say There is no command foo" + others, "-> MRSET"}, {"foo"}},
          {{Text("foo.")}, {">", "run 1 foo", ">"}, {"foo."}},
          {{Text("/* foo")}, {">", ">"}, {"/* foo"}},
          {{Text("/* foo */ MRS/DISPLAY")}, {">", "-> MRS/DISPLAY"}, {}},
          {{Text("* foo")}, {">", "-> * foo"}, {}},
      });
}

TEST(Shell, RemarksOnceOnItsOwnCommandsWithinACommand) {
  ExpectNotes(false, {
                         {{Text("MRSET"), Text("help mdg"), Text("quit"), Abandoned(""), Text("MRS"), Text("undo")},
                          {">", "-> MRSET", kRemark, "-> MRSET\nhelp mdg", "-> MRSET\nhelp mdg\nquit", ">", "-> MRS",
                           kRemark, "-> MRS\nundo"},
                          {"MRSET\nhelp mdg\nquit"}},
                         {{Text("MRSET"), Text("log n1"), Text("variables q1 q2"), Text("sets.")},
                          {">", "-> MRSET", "-> MRSET\nlog n1", "-> MRSET\nlog n1\nvariables q1 q2",
                           "run 1 MRSET\nlog n1\nvariables q1 q2\nsets", ">"},
                          {"MRSET\nlog n1\nvariables q1 q2\nsets."}},
                     });
  ExpectNotes(true, {{{Text("MRSET"), Text("quit")}, {">", "-> MRSET", "-> MRSET\nquit", "run 1 MRSET\nquit"}, {}},
                     {{Text("foo"), Text("bar")}, {">", "-> foo", "-> foo\nbar", "run 1 foo\nbar"}, {}}});
}

TEST(Shell, ReadsAScriptToItsEnd) {
  ExpectNotes(true, {
                        {{Text("A")}, {">", "-> A", "run 1 A"}, {}},
                        {{Text("A."), Text("sets"), Text(""), Text("B"), Text("C")},
                         {">", "run 1 A", ">", "perform sets ", ">", ">", "-> B", "-> B\nC", "run 4 B\nC"},
                         {"A.", "sets"}},
                        {{Text("quit")}, {">"}, {"quit"}},
                    });
}

TEST(NamePattern, StandsForNames) {
  struct PatternRow {
    std::string pattern;
    Texts matching;
    Texts other;
    std::string beginning;
  };
  const std::vector<PatternRow> rows = {
      {"", {"a", ""}, {}, ""},
      {"q", {"q", "Q1", "quite"}, {"aq"}, "Q"},
      {"q*", {"q", "Q1"}, {"aq"}, "Q"},
      {"q?", {"q1", "qä", "q\xFF"}, {"q", "q12"}, "Q"},
      {"*1", {"1", "q1", "11", "a1b1"}, {"q12", ""}, ""},
      {"q*_?", {"q_1", "q1_2_3"}, {"q_", "q12", "q_12"}, "Q"},
      {"*a*b*", {"ab", "xaxbx", "aab"}, {"ba", "a"}, ""},
      {"gr\u00F6\u00DFe", {"GR\u00D6\u00DFE1"}, {"GROSSE"}, "GR\u00D6\u00DFE"},
      {"???", {"abc", "äöü"}, {"ab", "abcd"}, ""},
  };
  for (const PatternRow& row : rows) {
    const NamePattern pattern(row.pattern);
    for (const std::string& name : row.matching) {
      EXPECT_TRUE(pattern.Matches(name)) << row.pattern << " " << name;
    }
    for (const std::string& name : row.other) {
      EXPECT_FALSE(pattern.Matches(name)) << row.pattern << " " << name;
    }
    EXPECT_EQ(pattern.Beginning(), row.beginning) << row.pattern;
  }
}

TEST(Help, FitsTheScreenAndCanBeShortened) {
  Texts topics = {""};
  for (const std::string_view topic : ShellTopics()) {
    topics.emplace_back(topic);
    EXPECT_EQ(HelpInShell(ToUpper(topic).substr(0, 3)).has_value(), true) << topic;
  }
  for (const std::string& topic : topics) {
    std::istringstream lines(HelpInShell(topic).value());
    for (std::string line; std::getline(lines, line);) {
      EXPECT_LE(DisplayWidth(line), 80U) << line;
    }
  }
  EXPECT_EQ(HelpOn("md"), std::nullopt);
  EXPECT_EQ(HelpOn("mdgroup"), HelpOn("MDGROUP"));
  EXPECT_EQ(HelpOn("undo"), std::nullopt);
}

TEST(Help, ThatOnTabulateNamesEveryWordAndItsExamplesAreCommands) {
  const std::string help = HelpOn("TABULATE").value_or("");
  for (const TabulateSubcommand& subcommand : TabulateSubcommands()) {
    EXPECT_THAT(help, testing::HasSubstr("    /" + std::string(subcommand.name)));
    for (const std::string_view word : subcommand.words) {
      EXPECT_THAT(help, testing::HasSubstr(std::string(word)));
    }
  }
  int examples = 0;
  std::istringstream lines(help);
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind("  TABULATE ", 0) == 0 && line.back() == '.') {
      const std::string command = line.substr(2, line.size() - 3);
      EXPECT_NO_THROW(ParseTabulate(Tokenize(command), command)) << command;
      ++examples;
    }
  }
  EXPECT_EQ(examples, 2);
}

TEST(Help, IsOnEachCommandOfTheShell) {
  for (const ShellCommandRule& rule : ShellCommands()) {
    EXPECT_EQ(HelpInShell(rule.name).value_or("").find(rule.name), 0U) << rule.name;
  }
}

class NoSource : public CompletionSource {
 public:
  Texts SetNames() override { return {"$a"}; }
  std::optional<StoredSet> FindSet(const std::string& /*name*/) override { return std::nullopt; }
  void VisitVariables(std::string_view /*beginning*/, int /*from*/, const VisitName& /*visit*/) override {}
  int FindVariable(const std::string& /*name*/) override { return -1; }
  const Variable& VariableAt(int /*position*/) override { throw std::out_of_range("none"); }
};

TEST(CompleteInShell, TakesTheOpenCommandAndTheLinesThatAreTyped) {
  struct LinesRow {
    std::string open;
    std::string typed;
    std::string result;
  };
  const std::vector<LinesRow> rows = {
      {"", "mr", "mrset "},
      {"MRSET", "/di", "/display "},
      {"MRSET\n  /DISPLAY", " na", " name="},
      {"MRSET /DISPLAY NAME=[", "", "$a "},
      {"", "MRSET\n/di", "MRSET\n/display "},
      {"MRSET", "/DISPLAY\n na", "/DISPLAY\n name="},
      {"", "MRSET /DISPLAY NAME=ALL.\nmr", "MRSET /DISPLAY NAME=ALL.\nmrset "},
      {"MRSET", "/DISPLAY NAME=ALL.\nmr", "/DISPLAY NAME=ALL.\nmrset "},
      {"* no", "mr", "mr"},
      {"MRSET", "qu", "qu"},
  };
  for (const LinesRow& row : rows) {
    NoSource source;
    const Completion completion = CompleteInShell(row.open, row.typed, source);
    const std::string result =
        completion.insertion.empty() ? row.typed : row.typed.substr(0, completion.begin) + completion.insertion;
    EXPECT_EQ(result, row.result) << row.open << "|" << row.typed;
  }
}

}  // namespace
}  // namespace standalone
