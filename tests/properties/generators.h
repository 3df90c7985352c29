#ifndef TESTS_PROPERTIES_GENERATORS_H
#define TESTS_PROPERTIES_GENERATORS_H

#include <rapidcheck.h>

#include <iosfwd>
#include <vector>

#include "tests/properties/case.h"
#include "tests/properties/dice.h"
#include "tests/properties/sentences.h"

namespace properties {

/// How far a command is from one that is accepted.
enum class Style {
  kSentence,    ///< along the grammar, with a flaw now and then
  kMutated,     ///< a sentence with tokens dropped, doubled, swapped or replaced
  kSoup,        ///< any tokens
  kDefinition,  ///< the definition of one set, without a flaw
  kTrap         ///< most end the process by an assertion; also sets as no dataset stores them
};

Case MakeCase(Style style, Dice& dice);

/// Cases that shrink by losing tokens, variables and sets and by getting simpler ones.
rc::Gen<Case> Cases(Style style);

/// Sentences, mutated sentences and soup.
rc::Gen<Case> AnyCases();

/// Two spellings of one sentence.
struct Spellings {
  Case example;  ///< without tokens
  Sentence inFull;
  Sentence respelled;
};

/// Shrinks by losing whole subcommands, variables and sets, so that keywords remain keywords.
rc::Gen<Spellings> SpellingCases();

std::ostream& operator<<(std::ostream& stream, const Spellings& spellings);

/// Commands one after the other on one dataset.
struct Session {
  Case example;  ///< without tokens
  std::vector<Tokens> commands;
};

rc::Gen<Session> Sessions();

std::ostream& operator<<(std::ostream& stream, const Session& session);

}  // namespace properties

#endif  // TESTS_PROPERTIES_GENERATORS_H
