#ifndef TESTS_PROPERTIES_HAND_MADE_H
#define TESTS_PROPERTIES_HAND_MADE_H

#include <rapidcheck.h>

#include <iosfwd>
#include <vector>

#include "tests/properties/case.h"
#include "tests/reference/record.h"

namespace properties {

/// Records as no command need give them, and what they are validated against or applied to.
struct HandMade {
  Case example;  ///< without tokens
  std::vector<reference::Record> records;
};

/// Most records are plausible; some have the flag for everything, variables that are not in the dictionary, names
/// without a "$", or fields that their subcommand does not use.
rc::Gen<HandMade> HandMadeRecords();

std::ostream& operator<<(std::ostream& stream, const HandMade& handMade);

}  // namespace properties

#endif  // TESTS_PROPERTIES_HAND_MADE_H
