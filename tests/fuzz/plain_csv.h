#ifndef TESTS_FUZZ_PLAIN_CSV_H
#define TESTS_FUZZ_PLAIN_CSV_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

using Rows = std::vector<std::vector<std::string>>;

/// The rows of a CSV file, the header first, read one character at a time; nothing where a quote stands that RFC 4180
/// does not allow. Lines end in LF, CRLF or CR; a byte order mark is passed over; an empty line is a row with one empty
/// cell where the header has one cell, else none.
std::optional<Rows> ReadPlainCsv(std::string_view text);

}  // namespace fuzz

#endif  // TESTS_FUZZ_PLAIN_CSV_H
