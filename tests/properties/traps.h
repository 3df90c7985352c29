#ifndef TESTS_PROPERTIES_TRAPS_H
#define TESTS_PROPERTIES_TRAPS_H

#include "tests/properties/case.h"
#include "tests/properties/dice.h"

namespace properties {

/// Gives the case a command that, if its sentences are accepted, runs into one of the module's assertions.
void SetTrap(Case& example, Dice& dice);

}  // namespace properties

#endif  // TESTS_PROPERTIES_TRAPS_H
