#ifndef TESTS_PROPERTIES_SOUP_H
#define TESTS_PROPERTIES_SOUP_H

#include "tests/properties/case.h"
#include "tests/properties/dice.h"

namespace properties {

/// Any token, also such as nobody can type: quoted strings that read "/" or "=", words with a symbol's code, symbols
/// whose text and code disagree, numbers named like keywords, words without a letter, ends in the middle.
scripted::Token AnyToken(Dice& dice, const Variables& dictionary);

/// Up to some twenty of them, and phrases between; most begin as a command does.
Tokens MakeSoup(Dice& dice, const Variables& dictionary);

/// Drops, doubles, swaps, replaces and inserts tokens, and cuts the command off, one to three times.
void Mutate(Tokens& tokens, Dice& dice, const Variables& dictionary);

/// The end of a command with some text and code, but never both those of "=", which no host may give it: a list of
/// variables would then end before it begins, and a keyword VARIABLES at the end of the command be read for ever.
scripted::Token AnyEnd(Dice& dice);

}  // namespace properties

#endif  // TESTS_PROPERTIES_SOUP_H
