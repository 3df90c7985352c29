#include <fmt/format.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "standalone/language/grammar.h"
#include "standalone/language/tokenizer.h"
#include "standalone/run/supervisor.h"
#include "standalone/shell/dataset_completion_source.h"
#include "standalone/tabulation/grammar/tabulate_grammar.h"
#include "standalone/text/unicode.h"
#include "tests/standalone/shell/shell_dataset.h"

namespace standalone {
namespace {

/// What completion adds is what the module reads: its own messages tell when it is not.
class CompletionPropertyTest : public ShellDatasetTest {
 protected:
  CompletionPropertyTest() {
    Dataset dataset(kFile);
    dataset.SaveSets({{"$first", SetType::kCategory, "", "", false, false, {"q1", "q2"}},
                      {"$Second", SetType::kDichotomy, "", "1", false, false, {"q1", "q2"}}},
                     "set-up");
  }

  static Completion CompletionOf(const std::string& text) {
    DatasetCompletionSource source(kFile);
    return Complete(text, source);
  }

  /// Checks every candidate for the text, each text only once.
  void Check(const std::string& text) {
    if (!fChecked.insert(text).second) {
      return;
    }
    const Completion completion = CompletionOf(text);
    EXPECT_LE(completion.begin, text.size());
    for (const std::string& candidate : completion.candidates) {
      SCOPED_TRACE(fmt::format("{} | {}", text, candidate));
      const std::string completed = text.substr(0, completion.begin) + candidate;
      EXPECT_NO_THROW(Tokenize(completed));
      if (IsKeyword(candidate)) {
        CheckWithModule(completed, completion.begin);
      }
    }
  }

  std::size_t KeywordsChecked() const { return fKeywords; }

 private:
  /// Of the commands that the module reads, not of the shell's own.
  static bool IsKeyword(const std::string& candidate) {
    std::set<std::string> keywords = {"TO", "ALL"};
    for (const SubcommandRule& rule : MrsetSubcommands()) {
      keywords.emplace(rule.name);
      for (const Keyword& keyword : rule.keywords) {
        keywords.insert(std::string(keyword.name) + "=");
        keywords.insert(keyword.options.begin(), keyword.options.end());
      }
    }
    for (const TabulateSubcommand& subcommand : TabulateSubcommands()) {
      keywords.insert(std::string(subcommand.name) + (IsValueOptional(subcommand) ? "" : "="));
      keywords.insert(subcommand.words.begin(), subcommand.words.end());
    }
    keywords.insert({"NOT", "MISSING(", "IN", "HAS", "AND", "OR"});
    return keywords.count(ToUpper(candidate)) != 0;
  }

  /// What is not there yet may be missed.
  static bool MissesWhatFollows(const Message& message) {
    return message.text.find(" TO has no end.") != std::string::npos || message.text.rfind("TEST needs BY", 0) == 0;
  }

  void CheckWithModule(const std::string& command, std::size_t keyword) {
    ++fKeywords;
    for (const Item& item : fRun.Run({command, 1}).items) {
      const auto* message = std::get_if<Message>(&item);
      if (message != nullptr && message->level == Level::kError && message->place && !MissesWhatFollows(*message)) {
        EXPECT_NE(message->place->offset, keyword) << message->text;
      }
    }
  }

  Supervisor fRun{RunRequest{kFile, false, {std::chrono::seconds(30), true, {}}}};
  std::set<std::string> fChecked;
  std::size_t fKeywords = 0;
};

TEST_F(CompletionPropertyTest, WhateverIsCutOffCommandsTheModuleReadsTheKeywordsThatFollow) {
  const std::vector<std::string> commands = {
      "MRSET /MDGROUP NAME=$a LABEL='A b' VARIABLES=q1 TO q3 VALUE=1 CATEGORYLABELS=COUNTEDVALUES LABELSOURCE=VARLABEL "
      "/MCGROUP VARIABLES = q1 q2 NAME=$b LABEL = \"x\" /DISPLAY NAME=[$a $b] /DELETE NAME=ALL",
      "mrset mdgroup labelsource=varlabel categorylabels=varlabels label='x' value=-1.5 variables=colour name=$x",
      "Mrset /Dis Nam=All /Del Nam=[$First] /Mcg Nam=$a Lab='/*' Var=q1 to q2 q3",
      "MRSET /* comment */ /DISPLAY\n  NAME = ALL\n /* another",
      "MRSET /MDGROUP NAME $a = 5 VARIABLES=q1,q2 VALUE='it''s' /X /DISPLAY NAME=(ALL)",
  };
  for (const std::string& command : commands) {
    for (std::size_t size = 0; size <= command.size(); ++size) {
      Check(command.substr(0, size));
    }
  }
  EXPECT_GT(KeywordsChecked(), 300U);
}

TEST_F(CompletionPropertyTest, WhateverIsCutOffATabulateItsKeywordsAreRead) {
  const std::vector<std::string> commands = {
      "TABULATE $first $second /BY=q1 colour*q2 $second /WEIGHT=q1 /BASE=ASKED /NONE=1 /NET='x y': q1 q2 /SHOW=COUNT "
      "CASES /SORT=NONE /LAST=q1 /CONFIDENCE=95 /TEST=HOLM /MINBASE=3 /DECIMALS=2",
      "tab $FIRST whe=not (q1 in (1, 2) or mis(colour)) and colour<>'red' and $second has q1 /tes /bas=all",
  };
  for (const std::string& command : commands) {
    for (std::size_t size = 0; size <= command.size(); ++size) {
      Check(command.substr(0, size));
    }
  }
  EXPECT_GT(KeywordsChecked(), 250U);
}

TEST_F(CompletionPropertyTest, CommandsThatAreMadeOfCandidatesAreReadAsFarAsTheyGo) {
  constexpr int kCommands = 150;
  constexpr int kSteps = 14;
  std::mt19937 random(20240501);
  for (int command = 0; command < kCommands; ++command) {
    std::string text = command % 3 == 0 ? "TABULATE $first " : "MRSET ";
    for (int step = 0; step < kSteps; ++step) {
      Check(text);
      const Completion completion = CompletionOf(text);
      std::vector<std::string> next = completion.candidates;
      const bool isValueMissing = next.empty() && text.find_last_of('=') == text.size() - 1;
      if (isValueMissing) {
        next = {"1 ", "'text' "};
      } else if (next.empty() || random() % 4 == 0) {
        next.push_back("/");
      }
      const std::string chosen = next[random() % next.size()];
      text = text.substr(0, completion.begin) + chosen;
      text += chosen.back() == '=' || chosen.back() == '[' ? "" : chosen == "$" ? "x " : " ";
    }
  }
  EXPECT_GT(KeywordsChecked(), 1000U);
}

}  // namespace
}  // namespace standalone
