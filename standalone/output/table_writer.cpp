#include "standalone/output/table_writer.h"

namespace standalone {

void TableWriter::Write(const Table& table) {
  Begin(table);
  for (const TableRow& row : table.rows) {
    Add(row);
  }
  End();
}

}  // namespace standalone
