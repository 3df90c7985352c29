#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "standalone/language/nearest_name.h"
#include "standalone/tabulation/grammar/condition_parser.h"
#include "standalone/tabulation/grammar/tabulate_grammar.h"
#include "standalone/tabulation/grammar/token_reader.h"
#include "standalone/text/trim.h"

namespace standalone {
namespace {

constexpr std::int64_t kMaxMinBase = 1'000'000'000'000;
constexpr int kMaxDecimals = 15;

/// Whether the value of a subcommand stands in a command or is an option's.
enum class Door { kCommand, kOption };

bool IsMember(const Token& token) {
  return TokenReader::IsAnyWord(token) || TokenReader::IsNumber(token) || TokenReader::IsQuoted(token);
}

/// Reads the value of one subcommand.
class ValueParser {
 public:
  ValueParser(TokenReader& reader, const TabulateSubcommand& subcommand, Door door)
      : fReader(reader), fSubcommand(subcommand), fDoor(door) {}

  void ReadInto(TabulationRequest& request);

 private:
  void ReadColumns(std::vector<ByRequest>& columns);
  static void RefuseRepeated(const std::vector<ByRequest>& columns);
  ByRequest ReadColumn();
  Spoken ReadVariable();
  void ReadWhere(TabulationRequest& request);
  Spoken ReadMember();
  NetRequest ReadNet();
  Spoken ReadNetLabel();
  void ReadMembers(std::vector<Spoken>& members);
  std::size_t ReadWord();
  void ReadFigures(TabulationFigures& figures);
  double ReadConfidence();
  std::int64_t ReadWhole(std::int64_t lowest, std::int64_t highest, const std::string& range);

  bool IsAtEndOfValue() const { return fReader.IsAtEnd() || fReader.NextIs("/"); }
  bool IsNextSubcommand() const { return TokenReader::IsSymbol(fReader.AfterNext(), "="); }
  void RequireValue(TabulateExpected what);
  void RefuseRange() const;

  std::string Name() const { return fDoor == Door::kOption ? OptionOf(fSubcommand) : std::string(fSubcommand.name); }
  std::string Said(std::string_view word) const;
  std::string WordsSaid() const;

  TokenReader& fReader;
  const TabulateSubcommand& fSubcommand;
  Door fDoor;
};

void ValueParser::ReadInto(TabulationRequest& request) {
  switch (fSubcommand.key) {
    case TabulateKey::kBy:
      return ReadColumns(request.by);
    case TabulateKey::kWeight:
      request.weight = ReadVariable();
      return;
    case TabulateKey::kBase:
      request.base = static_cast<TabulationBase>(ReadWord());
      return;
    case TabulateKey::kWhere:
      return ReadWhere(request);
    case TabulateKey::kNone:
      request.none = ReadMember();
      return;
    case TabulateKey::kNet:
      request.nets.push_back(ReadNet());
      return;
    case TabulateKey::kShow:
      return ReadFigures(request.figures);
    case TabulateKey::kSort:
      request.sort = static_cast<Sort>(ReadWord());
      return;
    case TabulateKey::kLast:
      return ReadMembers(request.last);
    case TabulateKey::kConfidence:
      request.confidence = ReadConfidence();
      return;
    case TabulateKey::kTest:
      request.test = static_cast<Adjustment>(ReadWord());
      return;
    case TabulateKey::kMinBase:
      request.minBase = ReadWhole(1, kMaxMinBase, "from 1 to 1,000,000,000,000");
      return;
    case TabulateKey::kDecimals:
      request.decimals = static_cast<int>(ReadWhole(0, kMaxDecimals, fmt::format("from 0 to {}", kMaxDecimals)));
      return;
  }
}

void ValueParser::RequireValue(TabulateExpected what) {
  fReader.Expect(what);
  if (IsAtEndOfValue()) {
    fReader.Fail(fmt::format("The value of {} is missing.", Name()));
  }
}

std::string ValueParser::Said(std::string_view word) const {
  std::string said(word);
  if (fDoor == Door::kOption) {
    std::transform(said.begin(), said.end(), said.begin(), [](char c) { return static_cast<char>(c - 'A' + 'a'); });
  }
  return said;
}

/// As in "A, B or C".
std::string ValueParser::WordsSaid() const {
  std::string said;
  for (const std::string_view word : fSubcommand.words) {
    const bool isLast = word == fSubcommand.words.back();
    said += (said.empty() ? "" : isLast ? " or " : ", ") + Said(word);
  }
  return said;
}

void ValueParser::RefuseRange() const {
  if (fReader.NextNames("TO")) {
    fReader.Fail(fmt::format("{} takes no range with TO; give each name, and a value \"TO\" in quotes.", Name()));
  }
}

/// A word that "=" follows is the next subcommand, which lacks its "/".
void ValueParser::ReadColumns(std::vector<ByRequest>& columns) {
  RequireValue(TabulateExpected::kColumn);
  do {
    columns.push_back(ReadColumn());
    RefuseRepeated(columns);
    fReader.Expect(TabulateExpected::kColumn);
  } while (IsWord(fReader.Next()) && !IsNextSubcommand());
}

void ValueParser::RefuseRepeated(const std::vector<ByRequest>& columns) {
  const auto keyOf = [](const ByRequest& by) {
    return ToUpper(by.first.text + (by.second ? "*" + by.second->text : ""));
  };
  const ByRequest& last = columns.back();
  if (std::any_of(columns.begin(), columns.end() - 1, [&](const ByRequest& by) { return keyOf(by) == keyOf(last); })) {
    const Spoken& end = last.second.value_or(last.first);
    throw TabulationError(
        fmt::format("{}{} is listed twice.", last.first.text, last.second ? "*" + last.second->text : ""),
        last.first.offset, end.offset + end.size - last.first.offset);
  }
}

ByRequest ValueParser::ReadColumn() {
  RefuseRange();
  if (!IsWord(fReader.Next())) {
    fReader.Fail(fmt::format("{} takes variables, pairs such as region*sex, and sets: {}.", Name(), fReader.Quote()));
  }
  ByRequest column{fReader.TakeSpoken(), std::nullopt};
  if (!fReader.TakeIf("*")) {
    return column;
  }
  fReader.Expect(TabulateExpected::kVariable);
  if (!TokenReader::IsName(fReader.Next()) || column.first.text[0] == '$') {
    fReader.Fail("A pair is made of two variables, as in region*sex.");
  }
  column.second = fReader.TakeSpoken();
  if (fReader.NextIs("*")) {
    fReader.Fail("A pair is made of two variables, not more.");
  }
  return column;
}

Spoken ValueParser::ReadVariable() {
  RequireValue(TabulateExpected::kVariable);
  if (!TokenReader::IsName(fReader.Next())) {
    fReader.Fail(fmt::format("{} takes the name of a variable: {}.", Name(), fReader.Quote()));
  }
  return fReader.TakeSpoken();
}

void ValueParser::ReadWhere(TabulationRequest& request) {
  RequireValue(TabulateExpected::kCondition);
  const std::size_t begin = fReader.Next().offset;
  request.where = ReadCondition(fReader);
  request.whereText = fReader.Written(begin, fReader.EndOfFormer());
}

Spoken ValueParser::ReadMember() {
  RequireValue(TabulateExpected::kMember);
  RefuseRange();
  fReader.RefuseUnquoted();
  if (!IsMember(fReader.Next())) {
    fReader.Fail(fmt::format("A name, a number or a text in quotes must stand here: {}.", fReader.Quote()));
  }
  return fReader.TakeSpoken();
}

NetRequest ValueParser::ReadNet() {
  RequireValue(TabulateExpected::kNothing);
  NetRequest net{ReadNetLabel(), {}};
  ReadMembers(net.members);
  return net;
}

/// In quotes, or as it stands before ":".
Spoken ValueParser::ReadNetLabel() {
  Spoken label = fReader.NextIs(":") ? Spoken() : fReader.TakeSpoken();
  const std::size_t begin = label.size > 0 ? label.offset : fReader.Next().offset;
  while (!label.isQuoted && !fReader.NextIs(":") && !IsAtEndOfValue()) {
    fReader.Take();
    label.size = fReader.EndOfFormer() - begin;
    label.text = fReader.Written(begin, fReader.EndOfFormer());
  }
  if (!fReader.NextIs(":") || Trimmed(label.text).empty()) {
    fReader.Fail(fmt::format("{} takes a label, \":\" and members, as in \"Hot drinks\": drink1 drink2.", Name()));
  }
  fReader.Take();
  return label;
}

void ValueParser::ReadMembers(std::vector<Spoken>& members) {
  do {
    members.push_back(ReadMember());
    fReader.Expect(TabulateExpected::kMember);
  } while (IsMember(fReader.Next()) && !IsNextSubcommand());
}

/// The position of the word among those of the subcommand, which is that of what it stands for.
std::size_t ValueParser::ReadWord() {
  RequireValue(TabulateExpected::kWord);
  const std::vector<std::string_view>& words = fSubcommand.words;
  const auto found =
      std::find_if(words.begin(), words.end(), [&](std::string_view word) { return fReader.NextNames(word); });
  if (found == words.end()) {
    std::vector<std::string> offered;
    std::transform(words.begin(), words.end(), std::back_inserter(offered), [&](auto word) { return Said(word); });
    const bool isWord = IsWord(fReader.Next());
    fReader.Fail(fmt::format("{} takes {}: {}.", Name(), WordsSaid(), fReader.Quote()),
                 isWord ? MeantWord(fReader.Next().text, offered) : std::nullopt);
  }
  fReader.Take();
  return static_cast<std::size_t>(found - words.begin());
}

/// The figures that are named, and no others.
void ValueParser::ReadFigures(TabulationFigures& figures) {
  constexpr bool TabulationFigures::*kFigures[] = {&TabulationFigures::count, &TabulationFigures::percentOfCases,
                                                   &TabulationFigures::percentOfResponses,
                                                   &TabulationFigures::standardError, &TabulationFigures::interval};
  TabulationFigures named{false, false, false, false, false};
  do {
    named.*kFigures[ReadWord()] = true;
    fReader.Expect(TabulateExpected::kWord);
  } while (TokenReader::IsAnyWord(fReader.Next()) && !IsNextSubcommand());
  figures = named;
}

double ValueParser::ReadConfidence() {
  RequireValue(TabulateExpected::kNothing);
  const double percent = fReader.Next().number;
  if (!TokenReader::IsNumber(fReader.Next()) || !(percent > 0 && percent < 100)) {
    fReader.Fail(fmt::format("{} takes a number above 0 and below 100: {}.", Name(), fReader.Quote()));
  }
  fReader.Take();
  return percent;
}

std::int64_t ValueParser::ReadWhole(std::int64_t lowest, std::int64_t highest, const std::string& range) {
  RequireValue(TabulateExpected::kNothing);
  const double number = fReader.Next().number;
  const bool isInRange = number >= static_cast<double>(lowest) && number <= static_cast<double>(highest);
  if (!TokenReader::IsNumber(fReader.Next()) || !isInRange || number != std::floor(number)) {
    fReader.Fail(fmt::format("{} takes a whole number, {}: {}.", Name(), range, fReader.Quote()));
  }
  fReader.Take();
  return static_cast<std::int64_t>(number);
}

/// Reads a command.
class CommandParser {
 public:
  explicit CommandParser(TokenReader& reader) : fReader(reader) {}

  TabulationRequest Read();

 private:
  void ReadSets();
  void ReadSubcommands();
  const TabulateSubcommand& ReadName();
  void ReadValue(const TabulateSubcommand& subcommand);
  void RequireEndOfValue(const TabulateSubcommand& subcommand) const;
  std::vector<TabulateKey>& Given();

  TokenReader& fReader;
  TabulationRequest fRequest;
  std::vector<TabulateKey> fGiven;
  Spoken fTest;  // the subcommand
};

TabulationRequest CommandParser::Read() {
  fReader.Take();  // TABULATE
  ReadSets();
  ReadSubcommands();
  RequireColumnsToTest(fRequest, fTest, "TEST", "BY");
  return std::move(fRequest);
}

void CommandParser::ReadSets() {
  fReader.Expect(TabulateExpected::kSetName);
  while (TokenReader::IsSetName(fReader.Next())) {
    fRequest.sets.push_back(fReader.TakeSpoken());
    if (TabulateExpectation* expectation = fReader.Expectation()) {
      expectation->sets.push_back(fRequest.sets.back().text);
    }
    fReader.Expect(TabulateExpected::kSetName);
  }
  const bool isSubcommand = fReader.IsAtEnd() || fReader.NextIs("/") ||
                            (IsWord(fReader.Next()) && TokenReader::IsSymbol(fReader.AfterNext(), "=")) ||
                            (IsWord(fReader.Next()) && FindTabulateSubcommand(fReader.Next().text) != nullptr);
  if (!isSubcommand) {
    fReader.Fail(fmt::format("The name of a set begins with $: {}.", fReader.Quote()));
  }
  if (fRequest.sets.empty()) {
    fReader.Fail("TABULATE needs the name of a set, such as $drinks.");
  }
}

/// The first subcommand may do without its "/".
void CommandParser::ReadSubcommands() {
  while (!fReader.IsAtEnd()) {
    fReader.TakeIf("/");
    const TabulateSubcommand& subcommand = ReadName();
    ReadValue(subcommand);
    RequireEndOfValue(subcommand);
  }
}

const TabulateSubcommand& CommandParser::ReadName() {
  fReader.Expect(TabulateExpected::kSubcommand);
  if (fReader.IsAtEnd()) {
    fReader.Fail("A subcommand must follow \"/\".");
  }
  const TabulateSubcommand* subcommand = IsWord(fReader.Next()) ? FindTabulateSubcommand(fReader.Next().text) : nullptr;
  if (subcommand == nullptr) {
    std::vector<std::string> names;
    for (const TabulateSubcommand& one : TabulateSubcommands()) {
      names.emplace_back(one.name);
    }
    fReader.Fail(fmt::format("Unknown subcommand: {}.", fReader.Quote()), MeantWord(fReader.Next().text, names));
  }
  if (std::find(fGiven.begin(), fGiven.end(), subcommand->key) != fGiven.end()) {
    fReader.Fail(fmt::format("{} is given twice.", subcommand->name));
  }
  return *subcommand;
}

void CommandParser::ReadValue(const TabulateSubcommand& subcommand) {
  const Spoken name = fReader.TakeSpoken();
  fTest = subcommand.key == TabulateKey::kTest ? name : fTest;
  if (!Repeats(subcommand)) {
    fGiven.push_back(subcommand.key);
  }
  if (TabulateExpectation* expectation = fReader.Expectation()) {
    expectation->subcommand = &subcommand;
    expectation->given = fGiven;
    expectation->valueBegin = fReader.Position() + 1;
  }
  fReader.Expect(TabulateExpected::kEquals);
  if (fReader.TakeIf("=")) {
    return ValueParser(fReader, subcommand, Door::kCommand).ReadInto(fRequest);
  }
  if (!IsValueOptional(subcommand)) {
    fReader.Fail(fmt::format("{} must be followed by \"=\" and its value.", subcommand.name));
  }
  fRequest.test = Adjustment::kHolm;
}

void CommandParser::RequireEndOfValue(const TabulateSubcommand& subcommand) const {
  if (TabulateExpectation* expectation = fReader.Expectation()) {
    expectation->isComplete = fReader.IsAtEnd();
  }
  if (fReader.IsAtEnd() || fReader.NextIs("/")) {
    return;
  }
  if (IsWord(fReader.Next()) && FindTabulateSubcommand(fReader.Next().text) != nullptr) {
    fReader.Fail(fmt::format("A \"/\" is missing before {}.", fReader.Quote()));
  }
  fReader.Fail(fmt::format("Unexpected after the value of {}: {}.", subcommand.name, fReader.Quote()));
}

}  // namespace

void RequireColumnsToTest(const TabulationRequest& request, const Spoken& test, std::string_view testName,
                          std::string_view byName) {
  if (request.test && request.by.empty()) {
    throw TabulationError(fmt::format("{} needs {}, which the set is tested against.", testName, byName), test.offset,
                          test.size);
  }
}

TabulationRequest ParseTabulate(const std::vector<Token>& tokens, std::string_view text) {
  TokenReader reader(tokens, text);
  return CommandParser(reader).Read();
}

void ParseTabulateOption(const TabulateSubcommand& subcommand, const std::vector<Token>& tokens, std::string_view text,
                         TabulationRequest& request) {
  TokenReader reader(tokens, text);
  ValueParser(reader, subcommand, Door::kOption).ReadInto(request);
  if (!reader.IsAtEnd()) {
    reader.Fail(fmt::format("Unexpected after the value of {}: {}.", OptionOf(subcommand), reader.Quote()));
  }
}

TabulateExpectation ExpectedInTabulate(const std::vector<Token>& tokens, std::size_t count, std::string_view text) {
  std::vector<Token> first(tokens.begin(), tokens.begin() + static_cast<std::ptrdiff_t>(count));
  const std::size_t end = first.empty() ? 0 : first.back().offset + first.back().length;
  Token endToken;
  endToken.offset = end;
  first.push_back(endToken);
  TabulateExpectation expectation;
  TokenReader reader(first, text, &expectation);
  try {
    CommandParser(reader).Read();
  } catch (const TabulationError&) {
    // What is wrong before the end leaves nothing expected.
  }
  return expectation;
}

}  // namespace standalone
