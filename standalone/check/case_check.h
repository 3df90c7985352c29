#ifndef STANDALONE_CHECK_CASE_CHECK_H
#define STANDALONE_CHECK_CASE_CHECK_H

#include <optional>
#include <string>
#include <vector>

namespace standalone {

/// What is wrong with the cells of a case as they are stored, in a few words; nothing when they are one JSON array with
/// a number or null for each numeric variable and a string for each other. `isNumeric` is by position.
std::optional<std::string> WhatIsWrongWithCells(const std::string& cells, const std::vector<bool>& isNumeric);

}  // namespace standalone

#endif  // STANDALONE_CHECK_CASE_CHECK_H
