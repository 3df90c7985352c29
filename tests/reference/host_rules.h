#ifndef TESTS_REFERENCE_HOST_RULES_H
#define TESTS_REFERENCE_HOST_RULES_H

#include <string>
#include <vector>

#include "tests/host/scripted_host.h"
#include "tests/reference/report.h"

// The default rules of the scripted host, over plain data.

namespace reference {

using Variables = std::vector<scripted::Variable>;

/// Whether an upper-case token is the keyword or its first letters, three at least.
bool NamesKeyword(const std::string& token, const std::string& keyword);

/// Bytes beyond ASCII count as letters.
bool IsValidName(const std::string& name);

/// The index of the first variable of that name without regard to case; -1 when there is none.
int FindVariable(const Variables& dictionary, const std::string& name);

/// The first label of the value; null when it has none.
const std::string* LabelOfNumber(const scripted::Variable& variable, double value);
const std::string* LabelOfText(const scripted::Variable& variable, const std::string& value);

/// Appends the indices of the variables that the words of a list name; false after the host's error, with the indices
/// before the culprit appended.
bool ReadVariableList(const Variables& dictionary, const std::vector<std::string>& words, std::vector<int>& indices,
                      Report& report);

}  // namespace reference

#endif  // TESTS_REFERENCE_HOST_RULES_H
