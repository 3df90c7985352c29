#include "standalone/dataset/import_log.h"

#include <functional>

#include "standalone/dataset/history.h"
#include "standalone/dataset/set_store.h"
#include "standalone/storage/ordered_keys.h"

namespace standalone {

void AddFirstImport(Database& database, const std::string& command, std::int64_t variables, std::int64_t cases) {
  const std::string time = TimeNow();
  Query(database, "INSERT INTO imported VALUES (1, 0, ?, ?, ?, ?)")
      .Bind(time)
      .Bind(command)
      .Bind(variables)
      .Bind(cases)
      .Run();
}

void AddReplacingImport(Database& database) {
  static_assert(kMaxKeptChanges == 1000, "the number is written out");
  database.Execute(
      "INSERT INTO main.imported SELECT NULL, (SELECT coalesce(max(number), 0) FROM main.history), time, command,"
      " variable_count, case_count FROM new.imported;"
      "DELETE FROM main.imported WHERE id NOT IN (SELECT id FROM main.imported ORDER BY id DESC LIMIT 1000)");
}

std::vector<LoggedImport> LoadImports(Database& database) {
  std::vector<LoggedImport> imports;
  Query rows(database,
             "SELECT id, after_change, time, command, variable_count, case_count FROM imported ORDER BY id DESC");
  OrderedKeys<std::int64_t, std::greater<>> ids(database);
  while (rows.Step()) {
    ids.Next(rows.Integer(0));
    imports.push_back({OrdinaryNumber(database, rows.Integer(1)), rows.Text(2), rows.Text(3),
                       OrdinaryNumber(database, rows.Integer(4)), OrdinaryNumber(database, rows.Integer(5))});
  }
  return imports;
}

}  // namespace standalone
