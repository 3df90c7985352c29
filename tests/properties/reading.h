#ifndef TESTS_PROPERTIES_READING_H
#define TESTS_PROPERTIES_READING_H

#include <string>

#include "tests/properties/case.h"

namespace properties {

/// The tokens of a case, numbered as the host numbers them: the end is at Count() and behind. The case must outlive it.
class Reading {
 public:
  explicit Reading(const Case& example) : fExample(example) {}

  int Count() const;
  const scripted::Token& At(int index) const;

  /// The index, or that of the end.
  int OrEnd(int index) const;

  /// Whether the token ends a command, be it at its end or in the middle.
  bool IsEnd(int index) const;
  bool IsWord(int index) const;

  /// Whether the token is the keyword or one of its abbreviations.
  bool Names(int index, const std::string& keyword) const;
  bool IsLabelSource(int index) const;

  /// Whether the keyword's parser may be called with that token current.
  bool CanEnter(int index, const std::string& keyword) const;

 private:
  const Case& fExample;
};

}  // namespace properties

#endif  // TESTS_PROPERTIES_READING_H
