#ifndef STANDALONE_CASES_CASE_READER_H
#define STANDALONE_CASES_CASE_READER_H

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <variant>

namespace standalone {

/// A cell of a case: missing, a number or a text.
using CaseCell = std::variant<std::monostate, double, std::string>;

/// Reads the cells of a case as they are stored, and hands over each with the position of its variable until `visit`
/// returns false. False when they are not stored as cells are.
bool ReadCase(std::string_view cells, const std::function<bool(std::size_t position, const CaseCell& cell)>& visit);

}  // namespace standalone

#endif  // STANDALONE_CASES_CASE_READER_H
