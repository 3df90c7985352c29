#ifndef TESTS_PROPERTIES_SHRINKING_H
#define TESTS_PROPERTIES_SHRINKING_H

#include <rapidcheck.h>

#include <utility>

#include "tests/properties/case.h"

namespace properties {

/// The value with the member replaced, for each of the replacements.
template <class Value, class Member>
rc::Seq<Value> WithMember(const Value& value, Member Value::*member, rc::Seq<Member> replacements) {
  return rc::seq::map(std::move(replacements), [value, member](Member replacement) {
    Value changed = value;
    changed.*member = std::move(replacement);
    return changed;
  });
}

/// The value without some of the member's elements.
template <class Value, class Member>
rc::Seq<Value> WithLess(const Value& value, Member Value::*member) {
  return WithMember(value, member, rc::shrink::removeChunks(value.*member));
}

/// The case with a smaller or simpler dictionary or fewer sets.
rc::Seq<Case> SmallerSurroundings(const Case& example);

/// That, and the case with fewer or simpler tokens.
rc::Seq<Case> SmallerCases(const Case& example);

}  // namespace properties

#endif  // TESTS_PROPERTIES_SHRINKING_H
