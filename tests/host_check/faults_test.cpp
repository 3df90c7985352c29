#include <gmock/gmock.h>

#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/host/lies.h"
#include "tests/host_check/scripted_factory.h"

namespace {

using scripted::Lie;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// Every line of a report without what it says of the sentence, and the sentences that are broken.
struct Report {
  std::vector<std::string> sentences;
  std::vector<std::string> broken;
  std::string text;
  int result = 0;
};

Report Try(Lie lie) {
  Report report;
  std::stringstream stream;
  ScriptedFactory factory;
  Tell(lie);
  report.result = RunHostCheck(factory, stream);
  Tell(Lie::kNone);
  report.text = stream.str();
  for (std::string line; std::getline(stream, line);) {
    if (line.rfind("host/", 0) == 0) {
      report.sentences.push_back(line);
    } else if (line.find("BROKEN") != std::string::npos) {
      report.broken.push_back(report.sentences.back());
    }
  }
  return report;
}

/// A wrong answer and the words of the sentence against which it is.
struct Row {
  Lie lie;
  const char* sentence;
};

const Row kRows[] = {
    {Lie::kCaseMatters, "Compares without regard to case"},
    {Lie::kOrderForTruth, "Whether the first `firstLength` bytes"},
    {Lie::kCutLetterAgrees, "`firstLength` may end within a character"},
    {Lie::kUpperCaseUpToUnderscore, "Upper-cases a buffer in place"},
    {Lie::kCutsLetters, "Copies at most `size` - 1 bytes"},
    {Lie::kTakesEveryName, "Checks a name against the host"},
    {Lie::kRefusesCapitals, "The names are those of sets"},
    {Lie::kFirstTokenIsOne, "Tokens are numbered from 0"},
    {Lie::kEndIsSymbol, "The end of the command is a token of its own"},
    {Lie::kOtherSlash, "both must be right"},
    {Lie::kNameIsSymbol, "a word: command name"},
    {Lie::kNumberIsWord, "a numeric literal"},
    {Lie::kStringIsWord, "a quoted string"},
    {Lie::kBracketIsWord, "punctuation or a reserved word"},
    {Lie::kNextSkipsPlus, "Makes the next token current"},
    {Lie::kNextIsTrueAtTheEnd, "False when that is the end"},
    {Lie::kPositionIsNeverNegative, "Index of the current token"},
    {Lie::kSetPositionIsOneOff, "Moves the cursor so that"},
    {Lie::kEndHasNoPosition, "`position` is 0 to the index of the end"},
    {Lie::kBracketHasItsByte, "Code of the current token"},
    {Lie::kQuotedEqualsIsCoded, "Any other token, whatever its type"},
    {Lie::kNumberIsRounded, "Value of the current token"},
    {Lie::kSecondStreamGoesOn, "Opens the stream with the cursor"},
    {Lie::kQuotesStay, "text as written; of a quoted string"},
    {Lie::kEndIsSlash, "At the end of the command, a text"},
    {Lie::kCapsAsWritten, "The current token's text in upper case"},
    {Lie::kFirstLetterIsEnough, "Non-zero when `token`"},
    {Lie::kNothingIsAKeyword, "`token` may be empty"},
    {Lie::kListReplacesIndices, "Reads a variable list"},
    {Lie::kListIsRefusedInSilence, "False after the host has reported"},
    {Lie::kEmptyListIsRefused, "`end` may be the cursor's own position"},
    {Lie::kNamesShareABuffer, "Owned by its data source and valid"},
    {Lie::kNamesInLowerCase, "The name as defined"},
    {Lie::kNumbersHaveAWidth, "0 for a numeric variable"},
    {Lie::kNameForLabel, "The variable label; null or empty"},
    {Lie::kValueLabelsShareABuffer, "The texts it hands out belong to the host"},
    {Lie::kNumberHasEmptyLabel, "Label of a numeric value"},
    {Lie::kStringHasEmptyLabel, "Label of a string value"},
    {Lie::kLongValueHasALabel, "The value comes as the command has it"},
    {Lie::kNoParent, "The source with which the variable sets are kept"},
    {Lie::kParentHasNoVariables, "The variables of sets are looked up"},
    {Lie::kOneVariableMore, "Number of variables"},
    {Lie::kLastVariableIsTheFirst, "The variable at `index`"},
    {Lie::kFindsByCase, "Index of the variable of that name"},
    {Lie::kDatasetSeemsOpen, "null when no dataset is open"},
    {Lie::kNoTokensWithoutDataset, "It looks after it has opened"},
    {Lie::kNoCommonDictionary, "The host's common dictionary"},
    {Lie::kNewSetHasAFlag, "A set with no label"},
    {Lie::kVariablesOnlyOnce, "Appends the name of one"},
    {Lie::kLabelInUpperCase, "The label; empty when there is none"},
    {Lie::kValueWithoutBlanks, "Sets the counted value"},
    {Lie::kLabelFlagStays, "Whether the set's label is taken"},
    {Lie::kCategoryFlagIsTurned, "Whether the categories are labelled"},
    {Lie::kSetNameInUpperCase, "The set's name."},
    {Lie::kUpperCaseAsStored, "The upper-case form is the one"},
    {Lie::kVariablesInUpperCase, "The elementary variables' names"},
    {Lie::kSetsReversed, "Copies of the data source"},
    {Lie::kSaveAppends, "Replaces the data source"},
    {Lie::kOneTableStays, "Each object is the caller"},
    {Lie::kOneNote, "A footnote that can be attached"},
    {Lie::kShortNotes, "An annotation with this text"},
    {Lie::kTextLosesCarets, "A text as it stands"},
    {Lie::kArgumentsReversed, "A text made of a pattern"},
    {Lie::kLinesInOne, "In a cell, the pattern"},
    {Lie::kLastEntryCounts, "Fills the next placeholder"},
    {Lie::kTextIsNotCopied, "The text is copied"},
    {Lie::kEntriesFillPlaceholders, "Begins a list"},
    {Lie::kListIsDropped, "A list that no placeholder takes"},
    {Lie::kUnfinishedIsEmpty, "A text is usable without it"},
    {Lie::kReleasedCategoryCounts, "Fills the cell at this category"},
    {Lie::kOnlyCellHasNoNote, "Attaches a footnote to that cell"},
    {Lie::kFourthCategoryFirst, "Categories are kept in the order"},
    {Lie::kFirstDimensionIsColumns, "One dimension of a pivot table"},
    {Lie::kTitleIsLost, "Adds a table"},
    {Lie::kProcedureHasNoTitle, "The output of one procedure"},
    {Lie::kOneMessage, "Issues a message"},
    {Lie::kEveryMessageIsAnError, "How grave"},
};

TEST(HostCheck, FindsNothingWrongWithTheScriptedHost) {
  const Report report = Try(Lie::kNone);
  EXPECT_EQ(report.result, 0) << report.text;
  EXPECT_THAT(report.broken, IsEmpty());
  EXPECT_THAT(report.text, Not(HasSubstr("not tried")));
}

TEST(HostCheck, NamesTheSentenceAgainstWhichAnAnswerIsAndNoOther) {
  std::set<std::string> broken;
  for (const Row& row : kRows) {
    const Report report = Try(row.lie);
    EXPECT_EQ(report.result, 1) << row.sentence;
    EXPECT_THAT(report.broken, ElementsAre(HasSubstr(row.sentence)));
    broken.insert(report.broken.begin(), report.broken.end());
  }
  const std::vector<std::string> sentences = Try(Lie::kNone).sentences;
  EXPECT_EQ(broken, std::set<std::string>(sentences.begin(), sentences.end()));
  EXPECT_EQ(std::size(kRows), static_cast<std::size_t>(Lie::kCount) - 1);
}

}  // namespace
