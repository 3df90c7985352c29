#include "standalone/shell/completer.h"

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

#include "standalone/language/comments.h"
#include "standalone/language/grammar.h"
#include "standalone/language/variable_list.h"
#include "standalone/shell/help.h"
#include "standalone/shell/shell_word.h"
#include "standalone/text/number_text.h"
#include "standalone/text/unicode.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

/// Names of variables looked at for one completion, so that none takes long whatever the dictionary holds.
constexpr std::size_t kMaxVisited = 20000;

constexpr std::size_t kMaxCountedValues = 100;
constexpr std::size_t kMaxLabelledVariables = 20;

bool IsHarmless(std::string_view text) {
  return Visible(text) == text;
}

bool BeginsWith(std::string_view text, std::string_view upperCaseBeginning) {
  return ToUpper(text).substr(0, upperCaseBeginning.size()) == upperCaseBeginning;
}

/// The beginning of `first` that `second` has too, without regard to case.
std::string CommonBeginning(const std::string& first, const std::string& second) {
  std::size_t one = 0;
  std::size_t other = 0;
  while (one < first.size() && other < second.size()) {
    const std::size_t length = CharacterLength(first, one);
    const std::size_t otherLength = CharacterLength(second, other);
    if (CompareNoCase(first.substr(one, length), second.substr(other, otherLength)) != 0) {
      break;
    }
    one += length;
    other += otherLength;
  }
  return first.substr(0, one);
}

bool IsInLowerCase(std::string_view text) {
  const auto isLetterOfCase = [&](char first, char last) {
    return std::any_of(text.begin(), text.end(), [=](char c) { return c >= first && c <= last; });
  };
  return isLetterOfCase('a', 'z') && !isLetterOfCase('A', 'Z');
}

bool HasLetter(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); });
}

std::string InLowerCase(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return text;
}

/// Whether what follows the last token, which ends at `offset`, is a comment that goes on to the end of the text.
bool EndsInComment(std::string_view text, std::size_t offset) {
  while (offset < text.size()) {
    if (!BeginsCommentAt(text, offset)) {
      ++offset;
      continue;
    }
    const std::size_t begin = offset;
    offset = EndOfComment(text, offset);
    const bool isClosed = offset >= begin + 4 && text.substr(offset - 2, 2) == "*/";
    if (offset == text.size() && !isClosed) {
      return true;
    }
  }
  return false;
}

/// The value as it stands in a command: quoted, or a whole number as it is. Nothing for one that cannot stand there.
std::string AsCountedValue(const Variable& variable, const std::string& value) {
  if (variable.width == 0) {
    return IsDigits(std::string_view(value).substr(value[0] == '-' ? 1 : 0)) ? value : "";
  }
  return Quoted(value);
}

/// A stretch of the dictionary, both ends included.
using Range = std::pair<int, int>;

bool Holds(const std::vector<Range>& ranges, int position) {
  return std::any_of(ranges.begin(), ranges.end(),
                     [=](const Range& range) { return range.first <= position && position <= range.second; });
}

/// Completes one text.
class Completer {
 public:
  Completer(std::string_view text, CompletionSource& source) : fText(text), fSource(source) {}

  Completion Complete();

 private:
  bool CompleteShellCommand();
  void CompleteCommand();
  void BeginWordAt(std::size_t offset);

  void AddFor(const Expectation& expectation);
  void AddCommands();
  void AddKeywords(const Expectation& expectation);
  void AddFirstOfValue(const Expectation& expectation);
  void AddInSetList(std::size_t listBegin);
  void AddSetNames(std::size_t listBegin, const std::string& before);
  void AddInVariableList(const Expectation& expectation);
  void AddEndOfRange(const Expectation& expectation);
  void AddVariables(const std::vector<Range>& listed, int from);
  void AddCountedValues(const Expectation& expectation);

  std::vector<Range> RangesOf(std::size_t begin, std::size_t end);
  std::vector<int> FirstVariablesOf(const Expectation& expectation);

  std::string InCase(std::string_view keyword) const {
    return fIsInLowerCase ? InLowerCase(std::string(keyword)) : std::string(keyword);
  }
  void AddKeyword(std::string_view keyword, const char* after = "") { Add(InCase(keyword) + after); }
  void Add(const std::string& candidate);
  void MeetCommon(const std::string& candidate);
  void SortByName();
  std::string Insertion() const;

  std::string_view fText;
  CompletionSource& fSource;
  std::vector<Token> fTokens;          // those before the word that is being typed
  std::string fWord;                   // that word in upper case
  bool fIsInLowerCase = false;         // how keywords are written
  std::optional<std::string> fCommon;  // what all candidates begin with, and those that were cut
  Completion fCompletion;
};

Completion Completer::Complete() {
  fCompletion.begin = fText.size();
  if (!CompleteShellCommand()) {
    try {
      CompleteCommand();
    } catch (const TokenizerError&) {
      // Such as a string that is being typed.
    }
  }
  fCompletion.insertion = Insertion();
  return std::move(fCompletion);
}

/// Completes the argument of a command to the shell; false where there is no such command.
bool Completer::CompleteShellCommand() {
  const std::optional<ShellCommand> command = ReadShellCommand(fText);
  if (!command || (command->argument.empty() && !IsBlank(fText.back()))) {
    return false;
  }
  BeginWordAt(command->argument.empty() ? fText.size() : fText.rfind(command->argument));
  fIsInLowerCase = !HasLetter(fWord) || fIsInLowerCase;
  if (command->rule->kind == ShellCommandKind::kHelp) {
    for (const std::string_view topic : ShellTopics()) {
      AddKeyword(topic);
    }
  } else if (command->rule->kind == ShellCommandKind::kVariables) {
    AddVariables({}, 0);
  }
  return true;
}

void Completer::CompleteCommand() {
  fTokens = Tokenize(fText);
  fTokens.pop_back();  // the end of the command
  const Token last = fTokens.empty() ? Token() : fTokens.back();
  const bool isTyped = last.length != 0 && last.offset + last.length == fText.size();
  const bool isNumber = last.type == TokenSequenceBase::kNumber;
  if (EndsInComment(fText, last.offset + last.length)) {
    return;
  }
  if (isTyped && (IsWord(last) || last.symbol == kAllSymbol || isNumber)) {
    fTokens.pop_back();
    BeginWordAt(last.offset);
  } else if (isTyped && last.type == TokenSequenceBase::kQuotedString) {
    return;  // the quote may be the first of a doubled one
  } else {
    BeginWordAt(fText.size());
  }
  const Expectation expectation = ExpectedAfter(fTokens, fTokens.size());
  const bool isCountedValue =
      expectation.what == Expected::kValue && expectation.keyword->value == ValueKind::kCountedValue;
  if (!isTyped || !isNumber || isCountedValue) {
    AddFor(expectation);
  }
}

void Completer::BeginWordAt(std::size_t offset) {
  const std::string_view word = fText.substr(offset);
  fCompletion.begin = offset;
  fWord = ToUpper(word);
  fIsInLowerCase = IsInLowerCase(HasLetter(word) || fTokens.empty() ? word : std::string_view(fTokens[0].text));
}

void Completer::AddFor(const Expectation& expectation) {
  switch (expectation.what) {
    case Expected::kNothing:
      return;
    case Expected::kCommand:
      return AddCommands();
    case Expected::kSubcommand:
      for (const SubcommandRule& rule : MrsetSubcommands()) {
        AddKeyword(rule.name);
      }
      return SortByName();
    case Expected::kKeyword:
      return AddKeywords(expectation);
    case Expected::kEquals:
      return Add("=");
    case Expected::kValue:
      return AddFirstOfValue(expectation);
    case Expected::kSetNameInList:
      return AddInSetList(expectation.listBegin);
    case Expected::kVariableInList:
      return AddInVariableList(expectation);
  }
}

/// The shell's own commands only stand on a line of their own.
void Completer::AddCommands() {
  AddKeyword(kMrsetCommand);
  const std::string_view before = fText.substr(0, fCompletion.begin);
  if (!std::all_of(before.begin(), before.end(), IsBlank)) {
    return;
  }
  const bool isInUpperCase = HasLetter(fWord) && !fIsInLowerCase;
  for (const ShellCommandRule& rule : ShellCommands()) {
    Add(isInUpperCase ? ToUpper(rule.name) : std::string(rule.name));
  }
  SortByName();
}

void Completer::AddKeywords(const Expectation& expectation) {
  const bool isListOpen = expectation.what == Expected::kVariableInList;
  for (const Keyword& keyword : expectation.subcommand->keywords) {
    const bool isGiven =
        std::find(expectation.given.begin(), expectation.given.end(), &keyword) != expectation.given.end();
    if (!isGiven && !(isListOpen && &keyword == expectation.keyword)) {
      AddKeyword(keyword.name, "=");
    }
  }
  SortByName();
}

void Completer::AddFirstOfValue(const Expectation& expectation) {
  switch (expectation.keyword->value) {
    case ValueKind::kNewSetName:
      if (fWord.empty()) {
        Add("$");
      }
      return AddSetNames(fTokens.size(), "");
    case ValueKind::kSetNames:
      if (!fWord.empty() && fWord[0] == '$') {
        return AddSetNames(fTokens.size(), "[");
      }
      Add("[");
      return AddKeyword("ALL");
    case ValueKind::kText:
      return;
    case ValueKind::kOption:
      for (const std::string_view option : expectation.keyword->options) {
        AddKeyword(option);
      }
      return SortByName();
    case ValueKind::kCountedValue:
      return AddCountedValues(expectation);
    case ValueKind::kVariables:
      return AddVariables({}, 0);
  }
}

void Completer::AddInSetList(std::size_t listBegin) {
  AddSetNames(listBegin, "");
  if (fCompletion.candidates.empty() && listBegin < fTokens.size()) {
    Add("]");
  }
}

/// The sets that the list does not hold yet.
void Completer::AddSetNames(std::size_t listBegin, const std::string& before) {
  std::set<std::string> listed;
  for (std::size_t index = listBegin; index < fTokens.size(); ++index) {
    listed.insert(ToUpper(fTokens[index].text));
  }
  for (const std::string& name : fSource.SetNames()) {
    if (BeginsWith(name, fWord) && IsHarmless(name) && listed.count(ToUpper(name)) == 0) {
      fCompletion.candidates.push_back(before + name);
      MeetCommon(before + name);
    }
  }
  SortByName();
}

void Completer::AddInVariableList(const Expectation& expectation) {
  const std::size_t last = fTokens.size() - 1;
  if (IsRangeWord(fTokens[last])) {
    return AddEndOfRange(expectation);
  }
  AddKeywords(expectation);
  const bool endsRange = last >= expectation.listBegin + 2 && IsRangeWord(fTokens[last - 1]);
  if (!endsRange) {
    AddKeyword("TO");
  }
  SortByName();
  AddVariables(RangesOf(expectation.listBegin, fTokens.size()), 0);
}

void Completer::AddEndOfRange(const Expectation& expectation) {
  const std::size_t to = fTokens.size() - 1;
  const int from = to > expectation.listBegin ? fSource.FindVariable(fTokens[to - 1].text) : -1;
  if (from >= 0) {
    AddVariables(RangesOf(expectation.listBegin, to), from + 1);
  }
}

void Completer::AddVariables(const std::vector<Range>& listed, int from) {
  std::vector<std::pair<int, std::string>> found;
  std::size_t visited = 0;
  fSource.VisitVariables(fWord, from, [&](int position, const std::string& name) {
    if (++visited > kMaxVisited) {
      fCompletion.isCut = true;
      MeetCommon(fWord);  // nobody knows how the others go on
      return false;
    }
    if (Holds(listed, position) || !IsHarmless(name)) {
      return true;
    }
    MeetCommon(name);
    if (found.size() < kMaxVariables) {
      found.emplace_back(position, name);
    } else {
      fCompletion.isCut = true;
    }
    return !fCompletion.isCut || fCommon->size() > fWord.size();
  });
  std::sort(found.begin(), found.end());
  for (auto& [position, name] : found) {
    fCompletion.candidates.push_back(std::move(name));
  }
}

void Completer::AddCountedValues(const Expectation& expectation) {
  std::set<std::string> added;
  for (const int position : FirstVariablesOf(expectation)) {
    const Variable& variable = fSource.VariableAt(position);
    for (const ValueLabel& entry : variable.valueLabels) {
      const std::string value = AsCountedValue(variable, entry.value);
      if (!value.empty() && added.size() < kMaxCountedValues && added.insert(value).second) {
        Add(value);
      }
    }
  }
}

std::vector<Range> Completer::RangesOf(std::size_t begin, std::size_t end) {
  std::vector<Range> ranges;
  for (const ListItem& item : ListItems(fTokens, begin, end)) {
    const int first = fSource.FindVariable(fTokens[item.first].text);
    const int last = item.last == item.first ? first : fSource.FindVariable(fTokens[item.last].text);
    if (first >= 0 && last >= first) {
      ranges.emplace_back(first, last);
    }
  }
  return ranges;
}

std::vector<int> Completer::FirstVariablesOf(const Expectation& expectation) {
  std::vector<int> positions;
  for (const auto& [first, last] : RangesOf(expectation.variablesBegin, expectation.variablesEnd)) {
    for (int position = first; position <= last && positions.size() < kMaxLabelledVariables; ++position) {
      positions.push_back(position);
    }
  }
  return positions;
}

void Completer::Add(const std::string& candidate) {
  if (BeginsWith(candidate, fWord) && IsHarmless(candidate)) {
    fCompletion.candidates.push_back(candidate);
    MeetCommon(candidate);
  }
}

void Completer::MeetCommon(const std::string& candidate) {
  fCommon = fCommon ? CommonBeginning(*fCommon, candidate) : candidate;
}

void Completer::SortByName() {
  std::sort(fCompletion.candidates.begin(), fCompletion.candidates.end(),
            [](const std::string& first, const std::string& second) { return CompareNoCase(first, second) < 0; });
}

/// A single candidate is inserted whole, and the next word can begin where one may.
std::string Completer::Insertion() const {
  if (fCompletion.candidates.size() == 1 && !fCompletion.isCut) {
    const std::string& only = fCompletion.candidates.front();
    const bool goesOn = only.back() == '=' || only.back() == '[' || only == "$";
    return only + (goesOn ? "" : " ");
  }
  return fCommon && ToUpper(*fCommon).size() > fWord.size() ? *fCommon : "";
}

}  // namespace

Completion Complete(std::string_view text, CompletionSource& source) {
  return Completer(text, source).Complete();
}

}  // namespace standalone
