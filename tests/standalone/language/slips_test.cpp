#include "standalone/language/slips.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace standalone {
namespace {

constexpr const char* kComment =
    "a comment starts with * and ends with a period, or goes between /* and */ on one line";
constexpr const char* kEnd = "there is no /* on the line of this */: a comment ends with its line";

/// The hint on the first token with that text.
std::string HintAt(const std::string& text, const std::string& token) {
  const ScriptCommand command{text, 7};
  const std::vector<Token> tokens = Tokenize(text);
  for (std::size_t index = 1; index < tokens.size(); ++index) {
    if (tokens[index].text == token) {
      return HintOnSlip(command, tokens, index).value_or("");
    }
  }
  return "no such token";
}

TEST(Slips, HaveAHintAtTheirTokenOrBesideIt) {
  struct Row {
    std::string command;
    std::string token;
    std::string hint;
  };
  const std::vector<Row> rows = {
      {"M VALUE=1\nMRSET\n/DISPLAY NAME=ALL", "MRSET", "line 7 has no period at its end"},
      {"M VALUE=1\n  X=2 \n\tmrs DISPLAY NAME=ALL", "mrs", "line 8 has no period at its end"},
      {"M VARIABLES=q1\n* note", "*", "line 7 has no period at its end"},
      {"M VARIABLES=q1 * note", "*", ""},
      {"M VARIABLES=q1 MRSET /DISPLAY", "MRSET", ""},
      {"M VARIABLES=q1\nMRSET q2", "MRSET", ""},
      {"M NAME=ALL. MRSET /DISPLAY", "MRSET", "a period ends a command only at the end of a line"},
      {"M NAME=ALL. MRSET /DISPLAY", "ALL.", "a period ends a command only at the end of a line"},
      {"M VALUE=1. MRSET /DISPLAY", ".", "a period ends a command only at the end of a line"},
      {"M LABEL=\u201CDrinks\u201D", "\u201C", "put texts in straight quotes, ' or \", not in \u201C"},
      {"M LABEL=\u00ABDrinks\u00BB", "Drinks", "put texts in straight quotes, ' or \", not in \u00BB"},
      {"M VARIABLES=q1, q2", ",", "separate names and keywords by blanks, not commas"},
      {"M VARIABLES=q1 q2;", ";", "a command ends with a period, not with ;"},
      {"M NAME=ALL // all", "/", kComment},
      {"M NAME=ALL / / all", "/", ""},
      {"M NAME=ALL\n# all", "#", kComment},
      {"M NAME=ALL '#all'", "#all", ""},
      {"M VARIABLES=#q1 q2", "#q1", ""},
      {"M VARIABLES=q1\n*/ VALUE=1", "*", kEnd},
      {"M NAME=ALL */", "/", kEnd},
      {"M NAME=ALL * /", "*", ""},
      {"M NAME=$a /* two\n lines */ VALUE=1", "lines", kEnd},
      {"M NAME=$a /* two */ /* more\n lines */ VALUE=1", "lines", kEnd},
      {"M NAME=$a /* one\n lines VALUE=1", "lines", ""},
      {"M NAME=$a /* one */\n lines VALUE=1 /* two */", "lines", ""},
      {"M NAME=$a /* one\n lines VALUE=1 /* two */", "lines", ""},
      {"M NAME=ALL '\u201C,;'", "\u201C,;", ""},
      {"M NAME=ALL ''", "", ""},
      {"M NAME=q1", "q1", ""},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(HintAt(row.command, row.token), row.hint) << row.command;
  }
}

TEST(Slips, AWordThatBeginsWithAHashMayBeACommentButNotAValue) {
  const std::vector<Token> tokens = Tokenize("M NAME=#a #note '#b' #");
  EXPECT_EQ(HintOnHashWord(tokens, 3), std::nullopt);
  EXPECT_EQ(HintOnHashWord(tokens, 4), kComment);
  EXPECT_EQ(HintOnHashWord(tokens, 5), std::nullopt);
  EXPECT_EQ(HintOnHashWord(tokens, 2), std::nullopt);
}

TEST(Slips, ADoubleSlashEndsASubcommand) {
  const std::vector<Token> tokens = Tokenize("M // a / / b /");
  EXPECT_EQ(HintOnEndOfSubcommand(tokens, 1), kComment);
  EXPECT_EQ(HintOnEndOfSubcommand(tokens, 4), std::nullopt);
  EXPECT_EQ(HintOnEndOfSubcommand(tokens, 7), std::nullopt);
  EXPECT_EQ(HintOnEndOfSubcommand(tokens, 8), std::nullopt);
}

TEST(Slips, HaveAHintAtTheBeginningOfACommandAndInAnOpenString) {
  EXPECT_EQ(HintOnBeginning("# note"), kComment);
  EXPECT_EQ(HintOnBeginning("// note"), kComment);
  EXPECT_EQ(HintOnBeginning("/DISPLAY"), std::nullopt);
  EXPECT_EQ(HintOnBeginning(""), std::nullopt);
  EXPECT_EQ(HintOnOpenString("'Drinks\u2019 VALUE=1"), "\u2019 does not close a text that ' opens");
  EXPECT_EQ(HintOnOpenString("'Drinks"), std::nullopt);
}

TEST(Slips, ACommentIsSearchedForACommandThatItTookIn) {
  const std::vector<std::pair<std::string, int>> rows = {{"* note\nMRSET /DISPLAY NAME=ALL", 1},
                                                         {"* note\n\r\n  mrset\r\n/DISPLAY", 2},
                                                         {"* note\nMRSET", 1},
                                                         {"* note\nMRSET/DELETE NAME=ALL", 1},
                                                         {"* note\nMRSET dis name=all", 1},
                                                         {"* MRSET /DISPLAY", 0},
                                                         {"* note\nMRSET is a command", 0},
                                                         {"* note\nMRSETS /DISPLAY", 0},
                                                         {"* note\nTABULATE $a /BY=b", 1},
                                                         {"* note\ntab $a", 1},
                                                         {"* note\nTABULATE the answers", 0},
                                                         {"* note\n\n/\n", 0},
                                                         {"*", 0}};
  for (const auto& [comment, line] : rows) {
    EXPECT_EQ(LineTakenIn(comment), line) << comment;
  }
}

TEST(Slips, ACommentThatTookInACommandIsToldOnce) {
  std::vector<std::string> told;
  const auto tell = [&told](const std::string& sentence) { told.push_back(sentence); };
  EXPECT_EQ(SplitScript("A.\n* note\nMRSET /DISPLAY NAME=ALL.\nB.\n* MRSET", "x.script", tell).size(), 2U);
  EXPECT_EQ(told,
            std::vector<std::string>{"x.script: the comment from line 2 took in line 3, because no period ends it."});
  told.clear();
  SplitScript("* note\nMRSET /DISPLAY", "", tell);
  EXPECT_EQ(told, std::vector<std::string>{"The comment from line 1 took in line 2, because no period ends it."});
}

}  // namespace
}  // namespace standalone
