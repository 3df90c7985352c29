#ifndef STANDALONE_IMPORT_CSV_H
#define STANDALONE_IMPORT_CSV_H

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/files/input_file.h"

namespace standalone {

/// Reads CSV as RFC 4180 has it: commas, quotes around a cell, a quote in such a cell doubled, blanks kept. A line ends
/// in LF, CRLF or CR; a byte order mark at the beginning is passed over. Every row has a cell for each cell of the
/// header. An empty line is a row with one empty cell where the header has one cell, else it is passed over. The memory
/// does not depend on the number of rows; a row of more than 64 MiB is refused. Failures are Errors that name the
/// file and the line.
class CsvReader {
 public:
  /// Reads the header. The file is read on from where it stands.
  explicit CsvReader(InputFile& file);
  CsvReader(const CsvReader&) = delete;
  CsvReader& operator=(const CsvReader&) = delete;
  ~CsvReader();

  const std::vector<std::string>& Header() const;

  /// Goes to the next row; false when there is none.
  bool NextRow();

  /// The cells of the current row, valid until the next NextRow(). They are UTF-8 without NUL.
  const std::vector<std::string_view>& Cells() const;

  /// The line, from 1, on which the current row begins.
  std::size_t Line() const;

 private:
  class Implementation;
  std::unique_ptr<Implementation> fImplementation;
};

}  // namespace standalone

#endif  // STANDALONE_IMPORT_CSV_H
