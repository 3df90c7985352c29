#ifndef TESTS_PROPERTIES_SENTENCES_H
#define TESTS_PROPERTIES_SENTENCES_H

#include <string>
#include <vector>

#include "tests/properties/case.h"
#include "tests/properties/dice.h"

namespace properties {

/// A token of a sentence; `keyword` is empty unless it stands where the grammar has that keyword.
struct Piece {
  scripted::Token token;
  std::string keyword;
};

/// A command along the grammar: the command name, then each subcommand with the "/" before it.
using Sentence = std::vector<std::vector<Piece>>;

/// What may be wrong with a sentence besides that it does not fit the dictionary.
enum class Flaws {
  kNone,
  kKeywordsInPlace,  ///< anything but what makes a keyword a value or a value a keyword
  kAny
};

/// All of a sentence's tokens can be typed; its keywords are written in full.
Sentence MakeSentence(Dice& dice, const Variables& dictionary, const Sets& sets, Flaws flaws);

/// The definition of one set.
Sentence MakeDefinition(Dice& dice, const Variables& dictionary, const Sets& sets);

/// The sentence with its keywords in any case and abbreviated to any length at which they are still told apart.
Sentence Respelled(Sentence sentence, Dice& dice);

Tokens TokensOf(const Sentence& sentence);

}  // namespace properties

#endif  // TESTS_PROPERTIES_SENTENCES_H
