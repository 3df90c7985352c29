#include "tests/reference/host_rules.h"

#include <gmock/gmock.h>

#include <random>
#include <string>
#include <vector>

#include "tests/host/names.h"

namespace reference {
namespace {

/// A text made at random of the given parts.
std::vector<std::string> Parts(std::mt19937& random, const std::vector<std::string>& parts, std::size_t most) {
  std::vector<std::string> chosen(random() % (most + 1));
  for (std::string& part : chosen) {
    part = parts[random() % parts.size()];
  }
  return chosen;
}

std::string Joined(const std::vector<std::string>& parts) {
  std::string text;
  for (const std::string& part : parts) {
    text += part;
  }
  return text;
}

TEST(HostRules, AgreeWithTheScriptedHostOnNames) {
  std::mt19937 random(1);
  const std::vector<std::string> parts{
      "$", "a", "Z", "5", "_", ".", "@", "#", "-", "all", "To", std::string(31, 'x'), "\xC3\xA9"};
  int valid = 0;
  for (int round = 0; round < 20000; ++round) {
    const std::string name = Joined(Parts(random, parts, 4));
    EXPECT_EQ(IsValidName(name), scripted::IsValidName(name)) << name;
    valid += IsValidName(name) ? 1 : 0;
  }
  EXPECT_GT(valid, 2000);
  for (const std::string& name : {"$" + std::string(63, 'x'), "$" + std::string(64, 'x')}) {
    EXPECT_EQ(IsValidName(name), scripted::IsValidName(name)) << name;
  }
}

TEST(HostRules, AgreeWithTheScriptedHostOnKeywords) {
  for (const std::string keyword : {"NAME", "LABELSOURCE", "VARLABELS", "AB"}) {
    for (std::size_t length = 0; length <= keyword.size(); ++length) {
      for (const std::string& token : {keyword.substr(0, length), keyword.substr(0, length) + "X"}) {
        EXPECT_EQ(NamesKeyword(token, keyword), scripted::NamesKeyword(token, keyword)) << token << " for " << keyword;
      }
    }
  }
}

TEST(HostRules, AgreeWithTheScriptedHostOnVariableLists) {
  const Variables dictionary{scripted::Numeric("A"), scripted::Numeric("b"), scripted::Numeric("\xC3\x89t"),
                             scripted::Numeric("a"), scripted::String("D", 3)};
  scripted::ScriptedHost host({dictionary, {}, true, {}});
  std::mt19937 random(2);
  int accepted = 0;
  for (int round = 0; round < 5000; ++round) {
    const auto words = Parts(random, {"a", "B", "\xC3\xA9T", "d", "to", "TO", "gone"}, 5);
    std::vector<scripted::Token> tokens;
    for (const std::string& word : words) {
      tokens.push_back(scripted::Word(word));
    }
    host.SetTokens(tokens);
    ZEVA_TokenSequence sequence(true);
    const ProcedureDataSource source;
    sequence.Next();
    std::vector<int> expected;
    const bool result = ExistingVarList(source, sequence, expected, static_cast<int>(words.size()));
    std::vector<int> indices;
    Report report;
    EXPECT_EQ(ReadVariableList(dictionary, words, indices, report), result);
    EXPECT_EQ(indices, expected);
    EXPECT_EQ(report.Lines(), host.MessageLines()) << testing::PrintToString(words);
    accepted += result ? 1 : 0;
  }
  EXPECT_GT(accepted, 500);
}

}  // namespace
}  // namespace reference
