#include "standalone/tabulation/grammar/condition_parser.h"

#include <fmt/format.h>

#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace standalone {
namespace {

/// A recursive descent parser; its depth is limited.
class ConditionParser {
 public:
  explicit ConditionParser(TokenReader& reader) : fReader(reader) {}

  Condition ReadAlternatives() { return ReadJoined(Condition::Kind::kOr, "OR", &ConditionParser::ReadConjunction); }

 private:
  Condition ReadConjunction() { return ReadJoined(Condition::Kind::kAnd, "AND", &ConditionParser::ReadNegation); }
  Condition ReadJoined(Condition::Kind kind, std::string_view word, Condition (ConditionParser::*readPart)());
  Condition ReadNegation();
  Condition ReadPrimary();
  Condition ReadInParentheses();
  Condition ReadMissing();
  Condition ReadHas();
  Condition ReadComparison();
  void ReadListOfValues(Condition& condition);
  Condition::Operator TakeOperator(const std::string& name);
  Spoken TakeValue(const std::string& name, std::string_view after);

  bool NextIsNot() const;
  void Descend();
  void Close(std::string_view opened);

  TokenReader& fReader;
  int fDepth = 0;
};

struct OperatorRule {
  std::string_view symbols;
  Condition::Operator meaning;
};

/// Those of two characters first.
constexpr std::array<OperatorRule, 6> kOperators = {{
    {"<>", Condition::Operator::kNotEqual},
    {"<=", Condition::Operator::kLessOrEqual},
    {">=", Condition::Operator::kGreaterOrEqual},
    {"=", Condition::Operator::kEqual},
    {"<", Condition::Operator::kLess},
    {">", Condition::Operator::kGreater},
}};

bool BeginsOperator(const Token& token) {
  return token.type == TokenSequenceBase::kSymbol && (token.text == "=" || token.text == "<" || token.text == ">");
}

/// One part is that part itself.
Condition ConditionParser::ReadJoined(Condition::Kind kind, std::string_view word,
                                      Condition (ConditionParser::*readPart)()) {
  Condition joined;
  joined.kind = kind;
  joined.parts.push_back((this->*readPart)());
  for (fReader.Expect(TabulateExpected::kConnective); fReader.NextNames(word);
       fReader.Expect(TabulateExpected::kConnective)) {
    fReader.Take();
    joined.parts.push_back((this->*readPart)());
  }
  return joined.parts.size() == 1 ? std::move(joined.parts.front()) : joined;
}

/// A variable may be called NOT: then a comparison follows, or IN and its values.
bool ConditionParser::NextIsNot() const {
  const bool isIn = TokenReader::Names(fReader.AfterNext(), "IN") && TokenReader::IsSymbol(fReader.AfterNext(2), "(");
  return fReader.NextNames("NOT") && !isIn && !BeginsOperator(fReader.AfterNext());
}

Condition ConditionParser::ReadNegation() {
  if (!NextIsNot()) {
    return ReadPrimary();
  }
  Descend();
  fReader.Take();
  Condition negation;
  negation.kind = Condition::Kind::kNot;
  negation.parts.push_back(ReadNegation());
  --fDepth;
  return negation;
}

Condition ConditionParser::ReadPrimary() {
  fReader.Expect(TabulateExpected::kCondition);
  if (fReader.NextIs("(")) {
    return ReadInParentheses();
  }
  if (fReader.NextNames("MISSING") && TokenReader::IsSymbol(fReader.AfterNext(), "(")) {
    return ReadMissing();
  }
  if (TokenReader::IsSetName(fReader.Next())) {
    return ReadHas();
  }
  if (TokenReader::IsName(fReader.Next())) {
    return ReadComparison();
  }
  fReader.Fail(fmt::format("A condition must stand here, such as region = \"N\", MISSING(region) or $drinks HAS tea{}",
                           fReader.IsAtEnd() ? "." : ": " + fReader.Quote() + "."));
}

Condition ConditionParser::ReadInParentheses() {
  Descend();
  fReader.Take();
  Condition inner = ReadAlternatives();
  Close("(");
  --fDepth;
  return inner;
}

Condition ConditionParser::ReadMissing() {
  Condition missing;
  missing.kind = Condition::Kind::kMissing;
  fReader.Take();
  fReader.Take();
  fReader.Expect(TabulateExpected::kVariable);
  if (!TokenReader::IsName(fReader.Next())) {
    fReader.Fail("MISSING needs the name of a variable in parentheses.");
  }
  missing.name = fReader.TakeSpoken();
  Close("MISSING(");
  return missing;
}

Condition ConditionParser::ReadHas() {
  Condition has;
  has.kind = Condition::Kind::kHas;
  has.name = fReader.TakeSpoken();
  fReader.Expect(TabulateExpected::kHas, has.name.text);
  if (!fReader.NextNames("HAS")) {
    fReader.Fail(fmt::format("HAS and a member must follow the set {}.", Shortened(has.name.text)));
  }
  fReader.Take();
  fReader.Expect(TabulateExpected::kMemberOfSet, has.name.text);
  fReader.RefuseUnquoted();
  const Token& member = fReader.Next();
  if (!TokenReader::IsAnyWord(member) && !TokenReader::IsNumber(member) && !TokenReader::IsQuoted(member)) {
    fReader.Fail("A member of the set must follow HAS: the name of a variable, or a value.");
  }
  has.values.push_back(fReader.TakeSpoken());
  return has;
}

Condition ConditionParser::ReadComparison() {
  Condition comparison;
  comparison.name = fReader.TakeSpoken();
  fReader.Expect(TabulateExpected::kComparison, comparison.name.text);
  if (fReader.NextNames("IN")) {
    ReadListOfValues(comparison);
    return comparison;
  }
  comparison.kind = Condition::Kind::kComparison;
  comparison.compare = TakeOperator(comparison.name.text);
  comparison.values.push_back(TakeValue(comparison.name.text, "a comparison"));
  return comparison;
}

void ConditionParser::ReadListOfValues(Condition& condition) {
  condition.kind = Condition::Kind::kIn;
  fReader.Take();
  if (!fReader.TakeIf("(")) {
    fReader.Fail("IN must be followed by values in parentheses, such as (1, 2).");
  }
  do {
    condition.values.push_back(TakeValue(condition.name.text, "\"(\" or \",\""));
  } while (fReader.TakeIf(","));
  Close("IN (");
}

/// Two characters that make one operator stand side by side.
Condition::Operator ConditionParser::TakeOperator(const std::string& name) {
  const Token& first = fReader.Next();
  const Token& second = fReader.AfterNext();
  const bool areTwo = second.type == TokenSequenceBase::kSymbol && second.offset == first.offset + first.length;
  const std::string both = first.text + (areTwo ? second.text : "");
  for (const OperatorRule& rule : kOperators) {
    if (first.type == TokenSequenceBase::kSymbol && both.compare(0, rule.symbols.size(), rule.symbols) == 0) {
      for (std::size_t taken = 0; taken < rule.symbols.size(); ++taken) {
        fReader.Take();
      }
      return rule.meaning;
    }
  }
  const bool isOtherNotEqual = both == "!=" || both == "~=";
  fReader.Fail(fmt::format("A comparison (= <> < <= > >= or IN) must follow {}.", Shortened(name)),
               isOtherNotEqual ? std::make_optional<std::string>("<>") : std::nullopt);
}

Spoken ConditionParser::TakeValue(const std::string& name, std::string_view after) {
  fReader.Expect(TabulateExpected::kValueOfVariable, name);
  fReader.RefuseUnquoted();
  if (!TokenReader::IsNumber(fReader.Next()) && !TokenReader::IsQuoted(fReader.Next())) {
    fReader.Fail(fmt::format("A number or a text in quotes must follow {}.", after));
  }
  return fReader.TakeSpoken();
}

void ConditionParser::Descend() {
  if (++fDepth > kMaxConditionDepth) {
    fReader.Fail(fmt::format("Parentheses and NOT can be nested {} deep at most.", kMaxConditionDepth));
  }
}

void ConditionParser::Close(std::string_view opened) {
  if (!fReader.TakeIf(")")) {
    fReader.Fail(fmt::format("A \")\" is missing, which closes \"{}\".", opened));
  }
}

}  // namespace

Condition ReadCondition(TokenReader& reader) {
  return ConditionParser(reader).ReadAlternatives();
}

}  // namespace standalone
