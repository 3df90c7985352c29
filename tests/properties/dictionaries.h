#ifndef TESTS_PROPERTIES_DICTIONARIES_H
#define TESTS_PROPERTIES_DICTIONARIES_H

#include <string>

#include "tests/properties/case.h"
#include "tests/properties/dice.h"

namespace properties {

/// Up to ten numeric and string variables with names unique without regard to case, some of them keywords; labels null,
/// empty, alike but for case; value labels that name the categories, collide, or are missing.
Variables MakeDictionary(Dice& dice);

/// Up to five sets, their names unique without regard to case; some of their variables are not in the dictionary.
Sets MakeStoredSets(Dice& dice, const Variables& dictionary);

/// A good set name.
std::string SetName(Dice& dice);

/// The same letters in another case.
std::string InAnyCase(std::string text, Dice& dice);

}  // namespace properties

#endif  // TESTS_PROPERTIES_DICTIONARIES_H
