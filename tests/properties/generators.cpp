#include "tests/properties/generators.h"

#include <ostream>
#include <utility>

#include "tests/properties/dictionaries.h"
#include "tests/properties/shrinking.h"
#include "tests/properties/soup.h"
#include "tests/properties/traps.h"

namespace properties {
namespace {

/// A generator that makes a value of the dice and shrinks it with the given function.
template <class Make, class Shrink>
auto Generator(Make make, Shrink shrink) {
  using Value = decltype(make(std::declval<Dice&>()));
  return rc::Gen<Value>([make, shrink](const rc::Random& random, int) {
    Dice dice(random);
    return rc::shrinkable::shrinkRecur(make(dice), shrink);
  });
}

Style AnyStyle(Dice& dice) {
  static const std::vector<Style> kStyles = {Style::kSentence, Style::kMutated, Style::kSoup};
  return dice.Pick(kStyles);
}

/// What the module must not depend on.
void VaryHost(Case& example, Dice& dice) {
  static const std::vector<int> kTruths = {-1, 2, 42};
  if (dice.OneIn(10)) {
    example.truth = dice.Pick(kTruths);
  }
  if (dice.OneIn(4)) {
    example.cursorAfterVarList = static_cast<int>(dice.Below(example.tokens.size() + 1));
  }
}

Case MakeSurroundings(Dice& dice) {
  Case example;
  example.dictionary = MakeDictionary(dice);
  example.sets = MakeStoredSets(dice, example.dictionary);
  return example;
}

/// Many sentences have no flaw, else few commands of several subcommands were accepted.
Flaws AnyFlaws(Style style, Dice& dice) {
  return dice.Percent(style == Style::kMutated ? 80 : 35) ? Flaws::kNone : Flaws::kAny;
}

Tokens MakeTokens(Style style, const Case& example, Dice& dice) {
  if (style == Style::kSoup) {
    return MakeSoup(dice, example.dictionary);
  }
  const Sentence sentence = style == Style::kDefinition
                                ? MakeDefinition(dice, example.dictionary, example.sets)
                                : MakeSentence(dice, example.dictionary, example.sets, AnyFlaws(style, dice));
  Tokens tokens = TokensOf(Respelled(sentence, dice));
  if (style == Style::kMutated) {
    Mutate(tokens, dice, example.dictionary);
  }
  return tokens;
}

Spellings MakeSpellings(Dice& dice) {
  Spellings spellings;
  spellings.example = MakeSurroundings(dice);
  spellings.inFull = MakeSentence(dice, spellings.example.dictionary, spellings.example.sets, Flaws::kKeywordsInPlace);
  spellings.respelled = Respelled(spellings.inFull, dice);
  return spellings;
}

Spellings WithoutSubcommand(Spellings spellings, std::size_t index) {
  const auto place = static_cast<std::ptrdiff_t>(index);
  spellings.inFull.erase(spellings.inFull.begin() + place);
  spellings.respelled.erase(spellings.respelled.begin() + place);
  return spellings;
}

rc::Seq<Spellings> SmallerSpellings(const Spellings& spellings) {
  std::vector<Spellings> shorter;
  for (std::size_t index = 1; index < spellings.inFull.size(); ++index) {
    shorter.push_back(WithoutSubcommand(spellings, index));
  }
  return rc::seq::concat(rc::seq::fromContainer(std::move(shorter)),
                         WithMember(spellings, &Spellings::example, SmallerSurroundings(spellings.example)));
}

Session MakeSession(Dice& dice) {
  Session session;
  session.example = MakeSurroundings(dice);
  for (std::size_t count = dice.Between(2, 5); count > 0; --count) {
    session.commands.push_back(
        MakeTokens(dice.Percent(70) ? Style::kSentence : Style::kMutated, session.example, dice));
  }
  return session;
}

rc::Seq<Session> SmallerSessions(const Session& session) {
  return rc::seq::concat(WithLess(session, &Session::commands),
                         WithMember(session, &Session::example, SmallerSurroundings(session.example)));
}

}  // namespace

Case MakeCase(Style style, Dice& dice) {
  Case example = MakeSurroundings(dice);
  if (style == Style::kTrap) {
    SetTrap(example, dice);
    return example;
  }
  example.tokens = MakeTokens(style, example, dice);
  VaryHost(example, dice);
  if ((style == Style::kMutated || style == Style::kSoup) && dice.OneIn(10)) {
    example.end = AnyEnd(dice);
  }
  return example;
}

rc::Gen<Case> Cases(Style style) {
  return Generator([style](Dice& dice) { return MakeCase(style, dice); }, &SmallerCases);
}

rc::Gen<Case> AnyCases() {
  return Generator([](Dice& dice) { return MakeCase(AnyStyle(dice), dice); }, &SmallerCases);
}

rc::Gen<Spellings> SpellingCases() {
  return Generator(&MakeSpellings, &SmallerSpellings);
}

std::ostream& operator<<(std::ostream& stream, const Spellings& spellings) {
  return stream << "\nin full:    " << CommandText(TokensOf(spellings.inFull))
                << "\nrespelled:  " << CommandText(TokensOf(spellings.respelled)) << spellings.example;
}

rc::Gen<Session> Sessions() {
  return Generator(&MakeSession, &SmallerSessions);
}

std::ostream& operator<<(std::ostream& stream, const Session& session) {
  stream << session.example;
  for (const Tokens& tokens : session.commands) {
    Case command;
    command.tokens = tokens;
    stream << "then" << command;
  }
  return stream;
}

}  // namespace properties
