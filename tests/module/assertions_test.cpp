#include <unistd.h>

#include <csignal>
#include <string>
#include <string_view>

#include "tests/module/assertion_report.h"
#include "tests/module/parsing.h"

namespace module_test {
namespace {

using scripted::Quoted;
using scripted::Word;

/// The report of a failed assertion of the parse phase.
std::string Report(std::string_view function, std::string_view expression) {
  return AssertionReport("backend/mrset/mrsetparse.cpp", function, expression);
}

class ParseAssertionsDeathTest : public ::testing::Test {
 protected:
  void SetUp() override { ::testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

/// Calls the parser with the only token of the command current and a record of that type.
void Enter(const Parser& parser, const scripted::Token& token, MRSetSubcommand::Type type = MRSetSubcommand::kNONE) {
  Parsing parsing(Tokens{token});
  parsing.record.fType = type;
  parsing.At(0).Run(parser);
}

void Enter(bool (*parser)(ZEVA_TokenSequence&, MRSetSubcommand&), const scripted::Token& token,
           MRSetSubcommand::Type type) {
  Enter([=](ZEVA_TokenSequence& stream, const ZEVA_DataSource&,
            MRSetSubcommand& record) { return parser(stream, record); },
        token, type);
}

void ParseWhole(const scripted::Token& name) {
  const Parsing parsing(Tokens{name});
  ZEVA_TokenSequence stream(true);
  MRSETSUBCOMMANDS subcommands;
  MRSetParse(stream, parsing.Source(), subcommands);
}

// The driver and the token helpers

TEST_F(ParseAssertionsDeathTest, ACommandBeginsWithAWord) {
  const std::string report = Report("MRSetParse", "command.Type() == TokenSequenceBase::kString");
  EXPECT_DEATH(ParseWhole(Quoted("MRSET")), report);
  EXPECT_DEATH(ParseWhole(Quoted("FROB")), report);
  EXPECT_DEATH(ParseWhole(scripted::Symbol("/")), report);
}

TEST_F(ParseAssertionsDeathTest, ACommandIsNamedMrset) {
  EXPECT_DEATH(ParseWhole(Word("FROB")), Report("MRSetParse", R"(IsTokenEqualWith(command, std:: string("MRSET")))"));
}

TEST_F(ParseAssertionsDeathTest, NothingLiesBeforeTheFirstToken) {
  EXPECT_DEATH(
      {
        Parsing parsing("MRSET");
        parsing.At(0);
        MovePrevious(parsing.Stream());
      },
      Report("MovePrevious", "pos > 0"));
}

// The attribute parsers

TEST_F(ParseAssertionsDeathTest, ParseMRNameIsEnteredAtName) {
  EXPECT_DEATH(Enter(kParseMRName, Word("LABEL")),
               Report("ParseMRName", R"(IsTokenEqualWith(command, std:: string("NAME")))"));
}

TEST_F(ParseAssertionsDeathTest, ParseLabelIsEnteredAtLabelAndNotAtLabelSource) {
  const std::string report =
      Report("ParseLabel", R"(IsTokenEqualWith(command, std:: string("LABEL")) && )"
                           R"(!IsTruncatedTokenEqualWith(command, std:: string("LABELSOURCE"), 6))");
  EXPECT_DEATH(Enter(kParseLabel, Word("NAME")), report);
  EXPECT_DEATH(
      {
        Parsing parsing("LABELSX");
        parsing.host.HostHooks().keywordMatch = Naming({"LABELSX"}, {"LABEL"});
        parsing.At(0).Run(kParseLabel);
      },
      report);
}

TEST_F(ParseAssertionsDeathTest, ParseLabelSourceIsEnteredAtItsSixCharacters) {
  EXPECT_DEATH(Enter(kParseLabelSource, Word("LABEL")),
               Report("ParseLabelSource", R"(IsTruncatedTokenEqualWith(command, std:: string("LABELSOURCE"), 6))"));
}

TEST_F(ParseAssertionsDeathTest, ParseCategoryLabelsIsEnteredAtCategorylabels) {
  EXPECT_DEATH(Enter(kParseCategoryLabels, Word("LABEL")),
               Report("ParseCategoryLabels", R"(IsTokenEqualWith(command, std:: string("CATEGORYLABELS")))"));
}

TEST_F(ParseAssertionsDeathTest, ParseValueIsEnteredAtValue) {
  EXPECT_DEATH(Enter(kParseValue, Word("LABEL")),
               Report("ParseValue", R"(IsTokenEqualWith(command, std:: string("VALUE")))"));
}

bool* watchedFlag = nullptr;

void ReportWatchedFlag(int) {
  const std::string_view text = *watchedFlag ? "the flag is set\n" : "the flag is cleared\n";
  if (write(STDERR_FILENO, text.data(), text.size()) < 0) {
    _exit(1);
  }
}

/// Enters a parser whose assertion fails, and says on standard error what its flag, set before, was at that moment.
void EnterWithFlag(bool (*parser)(ZEVA_TokenSequence&, bool&)) {
  bool flag = true;
  watchedFlag = &flag;
  std::signal(SIGABRT, ReportWatchedFlag);
  Enter([&](ZEVA_TokenSequence& stream, const ZEVA_DataSource&, MRSetSubcommand&) { return parser(stream, flag); },
        Word("NAME"));
}

TEST_F(ParseAssertionsDeathTest, ParseLabelSourceClearsItsFlagBeforeItAsserts) {
  EXPECT_DEATH(EnterWithFlag(ParseLabelSource), "Assertion .* failed\\.\nthe flag is cleared");
}

TEST_F(ParseAssertionsDeathTest, ParseCategoryLabelsClearsItsFlagBeforeItAsserts) {
  EXPECT_DEATH(EnterWithFlag(ParseCategoryLabels), "Assertion .* failed\\.\nthe flag is cleared");
}

// The subcommands of sets

TEST_F(ParseAssertionsDeathTest, ParseMDGroupIsEnteredAtMdgroup) {
  const std::string report = Report("ParseMDGroup", R"(IsTokenEqualWith(command, std:: string("MDGROUP")))");
  EXPECT_DEATH(Enter(ParseMDGroup, Word("MCGROUP"), MRSetSubcommand::kMDGROUP), report);
  EXPECT_DEATH(Enter(ParseMDGroup, Word("MCGROUP")), report);
}

TEST_F(ParseAssertionsDeathTest, ParseMDGroupHasARecordOfItsType) {
  const std::string report = Report("ParseMDGroup", "subcmd.fType == MRSetSubcommand::kMDGROUP");
  EXPECT_DEATH(Enter(ParseMDGroup, Word("MDGROUP")), report);
  EXPECT_DEATH(Enter(ParseMDGroup, Word("MDGROUP"), MRSetSubcommand::kMCGROUP), report);
}

TEST_F(ParseAssertionsDeathTest, ParseMCGroupIsEnteredAtMcgroup) {
  const std::string report = Report("ParseMCGroup", R"(IsTokenEqualWith(command, std:: string("MCGROUP")))");
  EXPECT_DEATH(Enter(ParseMCGroup, Word("MDGROUP"), MRSetSubcommand::kMCGROUP), report);
  EXPECT_DEATH(Enter(ParseMCGroup, Word("MDGROUP")), report);
}

TEST_F(ParseAssertionsDeathTest, ParseMCGroupHasARecordOfItsType) {
  const std::string report = Report("ParseMCGroup", "subcmd.fType == MRSetSubcommand::kMCGROUP");
  EXPECT_DEATH(Enter(ParseMCGroup, Word("MCGROUP")), report);
  EXPECT_DEATH(Enter(ParseMCGroup, Word("MCGROUP"), MRSetSubcommand::kMDGROUP), report);
}

void Validate(bool (*validator)(MRSetSubcommand&, const ZEVA_DataSource&), MRSetSubcommand::Type type) {
  const Parsing parsing("MRSET");
  MRSetSubcommand record = RecordOf(type);
  validator(record, parsing.Source());
}

TEST_F(ParseAssertionsDeathTest, ValidateMDGroupHasARecordOfItsType) {
  const std::string report = Report("ValidateMDGroup", "subcmd.fType == MRSetSubcommand::kMDGROUP");
  EXPECT_DEATH(Validate(ValidateMDGroup, MRSetSubcommand::kMCGROUP), report);
  EXPECT_DEATH(Validate(ValidateMDGroup, MRSetSubcommand::kNONE), report);
}

TEST_F(ParseAssertionsDeathTest, ValidateMCGroupHasARecordOfItsType) {
  const std::string report = Report("ValidateMCGroup", "subcmd.fType == MRSetSubcommand::kMCGROUP");
  EXPECT_DEATH(Validate(ValidateMCGroup, MRSetSubcommand::kMDGROUP), report);
  EXPECT_DEATH(Validate(ValidateMCGroup, MRSetSubcommand::kNONE), report);
}

// Variable lists

TEST_F(ParseAssertionsDeathTest, ParseVariablesIsEnteredAtVariables) {
  EXPECT_DEATH(Enter(kParseVariables, Word("VALUE")),
               Report("ParseVariables", R"(IsTokenEqualWith(command, std:: string("VARIABLES")))"));
}

void CheckBehindAString(int type) {
  Parsing parsing("MRSET");
  parsing.host.SetDictionary({scripted::String("a", 8), {"b", type, std::nullopt, {}}});
  std::vector<std::string> names = {"a", "b"};
  int narrowestWidth = 0;
  AreValidVariables(names, parsing.Source(), "", false, narrowestWidth);
}

TEST_F(ParseAssertionsDeathTest, NoVariableBehindAStringVariableHasANegativeType) {
  const std::string report = Report("AreValidVariables", "var.GetType() > 0");
  EXPECT_DEATH(CheckBehindAString(-1), report);
  EXPECT_DEATH(CheckBehindAString(-5), report);
}

// DISPLAY and DELETE

TEST_F(ParseAssertionsDeathTest, ParseDisplayIsEnteredAtDisplay) {
  const std::string report = Report("ParseDisplay", R"(IsTokenEqualWith(command, std:: string("DISPLAY")))");
  EXPECT_DEATH(Enter(ParseDisplay, Word("DELETE"), MRSetSubcommand::kDISPLAY), report);
  EXPECT_DEATH(Enter(ParseDisplay, Word("DELETE"), MRSetSubcommand::kDELETE), report);
}

TEST_F(ParseAssertionsDeathTest, ParseDisplayHasARecordOfItsType) {
  EXPECT_DEATH(Enter(ParseDisplay, Word("DISPLAY"), MRSetSubcommand::kDELETE),
               Report("ParseDisplay", "subcmd.fType == MRSetSubcommand::kDISPLAY"));
}

TEST_F(ParseAssertionsDeathTest, ParseDeleteIsEnteredAtDelete) {
  const std::string report = Report("ParseDelete", R"(IsTokenEqualWith(command, std:: string("DELETE")))");
  EXPECT_DEATH(Enter(ParseDelete, Word("DISPLAY"), MRSetSubcommand::kDELETE), report);
  EXPECT_DEATH(Enter(ParseDelete, Word("DISPLAY"), MRSetSubcommand::kDISPLAY), report);
}

TEST_F(ParseAssertionsDeathTest, ParseDeleteHasARecordOfItsType) {
  EXPECT_DEATH(Enter(ParseDelete, Word("DELETE"), MRSetSubcommand::kDISPLAY),
               Report("ParseDelete", "subcmd.fType == MRSetSubcommand::kDELETE"));
}

TEST_F(ParseAssertionsDeathTest, ParseNamesIsEnteredAtName) {
  EXPECT_DEATH(Enter(kParseNames, Word("LABEL")),
               Report("ParseNames", R"(IsTokenEqualWith(command, std:: string("NAME")))"));
}

TEST_F(ParseAssertionsDeathTest, ValidateMRSetNameHasARecordOfDisplayOrDelete) {
  const std::string report = Report(
      "ValidateMRSetName", "(subcmd.fType == MRSetSubcommand::kDISPLAY) || (subcmd.fType == MRSetSubcommand::kDELETE)");
  EXPECT_DEATH(Validate(ValidateMRSetName, MRSetSubcommand::kNONE), report);
  EXPECT_DEATH(Validate(ValidateMRSetName, MRSetSubcommand::kMDGROUP), report);
  EXPECT_DEATH(Validate(ValidateMRSetName, MRSetSubcommand::kMCGROUP), report);
}

TEST_F(ParseAssertionsDeathTest, FindMRSetNameHasAName) {
  EXPECT_DEATH(
      {
        const Parsing parsing("MRSET");
        FindMRSetName("", parsing.Source());
      },
      Report("FindMRSetName", "!mrSetName.empty()"));
}

}  // namespace
}  // namespace module_test
