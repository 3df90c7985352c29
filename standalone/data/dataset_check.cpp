#include "standalone/data/dataset_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <optional>
#include <string_view>
#include <vector>

#include "standalone/data/case_check.h"
#include "standalone/data/database.h"
#include "standalone/data/history.h"
#include "standalone/data/number_text.h"
#include "standalone/data/schema.h"
#include "standalone/data/set_store.h"
#include "standalone/text/names.h"
#include "standalone/text/unicode.h"

namespace standalone {

namespace {

class Checker {
 public:
  Checker(Database& database, const CheckReport& report) : fDatabase(database), fReport(report) {}

  void Run();

 private:
  using Step = void (Checker::*)();

  void Perform(const char* what, Step step);
  void Integrity();
  void Schema();
  void TableAsExpected(const TableDefinition& table);
  void NothingElse();
  void Counts();
  void Variables();
  void VariableRow(Query& row, std::int64_t expected);
  void ValueLabels();
  void ValueLabelRow(Query& row, std::int64_t expected);
  void SetRows();
  void SetRow(Query& row);
  void SetVariables();
  void Cases();
  void History();
  void ChangeNumbers(const VersionRange& versions);
  void Changes(const VersionRange& versions);

  template <typename Check>
  void Row(const char* what, std::int64_t number, Check check);

  template <typename... Parts>
  void Finding(fmt::format_string<Parts...> text, Parts&&... parts) {
    const fmt::string_view kind = text;
    fReport.finding({kind.data(), kind.size()}, fmt::format(text, std::forward<Parts>(parts)...));
  }

  void CompareCount(const char* what, std::string_view storedSql, std::string_view countedSql);
  std::int64_t IntegerOf(std::string_view sql);
  bool IsVariable(const std::string& name);

  Database& fDatabase;
  const CheckReport& fReport;
  std::int64_t fVersion = kFormatVersion;
  std::vector<bool> fIsNumeric;  // by position
};

void Checker::Run() {
  fVersion = FormatVersion(fDatabase);
  if (fVersion < kFormatVersion) {
    fReport.remark("version",
                   fmt::format("The format version is {}: the next change brings it to {}.", fVersion, kFormatVersion));
  }
  Perform("The file", &Checker::Integrity);
  Perform("The schema", &Checker::Schema);
  Perform("The header", &Checker::Counts);
  Perform("The dictionary", &Checker::Variables);
  Perform("The value labels", &Checker::ValueLabels);
  Perform("The sets", &Checker::SetRows);
  Perform("The variables of the sets", &Checker::SetVariables);
  Perform("The cases", &Checker::Cases);
  if (fVersion == kFormatVersion) {
    Perform("The history", &Checker::History);
  }
}

// What cannot be read ends its own step alone.
void Checker::Perform(const char* what, Step step) {
  try {
    (this->*step)();
  } catch (const DamagedError&) {
    Finding("{} cannot be read to the end.", what);
  }
}

template <typename Check>
void Checker::Row(const char* what, std::int64_t number, Check check) {
  try {
    check();
  } catch (const DamagedError&) {
    fReport.finding(what, fmt::format("{} {} has a value that cannot be.", what, number));
  }
}

std::int64_t Checker::IntegerOf(std::string_view sql) {
  Query query(fDatabase, sql);
  if (!query.Step()) {
    fDatabase.FailAsDamaged();
  }
  return query.Integer(0);
}

void Checker::Integrity() {
  Query rows(fDatabase, "PRAGMA integrity_check");
  while (rows.Step()) {
    const std::string text = rows.Text(0);
    if (text != "ok") {
      Finding("The file is not sound: {}.", text);
    }
  }
}

void Checker::Schema() {
  for (const TableDefinition& table : Tables()) {
    if (table.since <= fVersion) {
      TableAsExpected(table);
    }
  }
  NothingElse();
}

void Checker::TableAsExpected(const TableDefinition& table) {
  Query row(fDatabase, "SELECT sql FROM sqlite_schema WHERE type = 'table' AND name = ?");
  if (!row.Bind(table.name).Step()) {
    Finding("The table {} is missing.", table.name);
  } else if (row.IsNull(0) || row.Text(0) != table.sql) {
    Finding("The table {} is not defined as it should be.", table.name);
  }
}

void Checker::NothingElse() {
  Query rows(fDatabase, "SELECT type, name FROM sqlite_schema WHERE name NOT LIKE 'sqlite\\_%' ESCAPE '\\'");
  while (rows.Step()) {
    const std::string type = rows.Text(0);
    const std::string name = rows.Text(1);
    const bool isExpected = type == "table" && std::any_of(Tables().begin(), Tables().end(), [&](const auto& table) {
                              return table.name == name && table.since <= fVersion;
                            });
    if (!isExpected) {
      Finding("The {} {} does not belong to a dataset.", type, name);
    }
  }
}

void Checker::CompareCount(const char* what, std::string_view storedSql, std::string_view countedSql) {
  const std::int64_t stored = IntegerOf(storedSql);
  const std::int64_t counted = IntegerOf(countedSql);
  if (stored != counted) {
    Finding("The header counts {} {}; there are {}.", stored, what, counted);
  }
}

void Checker::Counts() {
  if (const std::int64_t rows = IntegerOf("SELECT count(*) FROM meta"); rows != 1) {
    Finding("The header has {} rows instead of one.", rows);
  }
  CompareCount("variables", "SELECT variable_count FROM meta", "SELECT count(*) FROM variable");
  CompareCount("cases", "SELECT case_count FROM meta", "SELECT count(*) FROM cases");
}

void Checker::Variables() {
  Query rows(fDatabase, "SELECT position, name, name_key, width, label FROM variable ORDER BY position");
  for (std::int64_t expected = 0; rows.Step(); ++expected) {
    fIsNumeric.push_back(true);
    Row("The variable at position", expected, [&] { VariableRow(rows, expected); });
  }
}

void Checker::VariableRow(Query& row, std::int64_t expected) {
  const std::int64_t position = row.Integer(0);
  const std::int64_t width = row.Integer(3);
  fIsNumeric.back() = width == 0;
  if (position != expected) {
    Finding("The position of a variable is {} instead of {}.", position, expected);
  }
  if (width < 0 || width > std::numeric_limits<int>::max()) {
    Finding("The variable at position {} has the width {}.", position, width);
  }
  const std::string name = row.Text(1);
  if (!IsValidVariableName(name)) {
    Finding("The variable at position {} has a name that is not valid: {}.", position, name);
  }
  if (row.Text(2) != ToUpper(name)) {
    Finding("The variable {} is kept under the key {}.", name, row.Text(2));
  }
  if (!row.IsNull(4)) {
    row.Text(4);
  }
}

void Checker::ValueLabels() {
  Query rows(fDatabase, "SELECT variable, ordinal, value, label FROM value_label ORDER BY variable, ordinal");
  std::int64_t variable = -1;
  std::int64_t expected = 0;
  while (rows.Step()) {
    expected = rows.Integer(0) == variable ? expected + 1 : 0;
    variable = rows.Integer(0);
    Row("A value label of the variable at position", variable, [&] { ValueLabelRow(rows, expected); });
  }
}

void Checker::ValueLabelRow(Query& row, std::int64_t expected) {
  const std::int64_t variable = row.Integer(0);
  const std::string value = row.Text(2);
  row.Text(3);
  if (variable < 0 || variable >= static_cast<std::int64_t>(fIsNumeric.size())) {
    Finding("There is a value label of a variable at position {}, which does not exist.", variable);
    return;
  }
  if (row.Integer(1) != expected) {
    Finding("The value labels of the variable at position {} are not numbered one after another.", variable);
  }
  if (fIsNumeric[static_cast<std::size_t>(variable)] && !NumberValue(value)) {
    Finding("The numeric variable at position {} has a label of the value {}, which is no number.", variable, value);
  }
}

void Checker::SetRows() {
  Query rows(fDatabase,
             "SELECT id, position, name, name_key, type, label, counted_value, label_from_variable,"
             " category_labels_from_counted_value FROM mr_set ORDER BY position, id");
  std::optional<std::int64_t> last;
  while (rows.Step()) {
    Row("The set with the number", rows.Integer(0), [&] { SetRow(rows); });
    if (last == rows.Integer(1)) {
      Finding("Two sets have the position {}.", *last);
    }
    last = rows.Integer(1);
  }
}

void Checker::SetRow(Query& row) {
  OrdinaryNumber(fDatabase, row.Integer(0));
  OrdinaryNumber(fDatabase, row.Integer(1));
  SetTypeOf(fDatabase, row.Integer(4));
  row.Text(5);
  row.Text(6);
  const std::string name = row.Text(2);
  if (!IsValidSetName(name)) {
    Finding("A set has a name that is not valid: {}.", name);
  }
  if (row.Text(3) != ToUpper(name)) {
    Finding("The set {} is kept under the key {}.", name, row.Text(3));
  }
  if (row.Integer(7) < 0 || row.Integer(7) > 1 || row.Integer(8) < 0 || row.Integer(8) > 1) {
    Finding("The set {} has a mark that is neither on nor off.", name);
  }
}

bool Checker::IsVariable(const std::string& name) {
  const std::string key = ToUpper(name);
  Query row(fDatabase, "SELECT 1 FROM variable WHERE name_key = ?");
  return row.Bind(key).Step();
}

// A set may name a variable that an import took away: it is shown as no longer there.
void Checker::SetVariables() {
  Query rows(fDatabase,
             "SELECT v.set_id, v.ordinal, v.name, coalesce(s.name, '') FROM mr_set_variable AS v"
             " LEFT JOIN mr_set AS s ON s.id = v.set_id ORDER BY v.set_id, v.ordinal");
  std::optional<std::int64_t> set;
  std::int64_t expected = 0;
  while (rows.Step()) {
    expected = set == rows.Integer(0) ? expected + 1 : 0;
    set = rows.Integer(0);
    const std::string setName = rows.Text(3);
    if (setName.empty()) {
      Finding("There is a variable of the set with the number {}, which does not exist.", *set);
    } else if (rows.Integer(1) != expected) {
      Finding("The variables of the set {} are not numbered one after another.", setName);
    } else if (const std::string name = rows.Text(2); !IsVariable(name)) {
      fReport.remark("variable", fmt::format("The set {} has the variable {}, which no longer exists.", setName, name));
    }
  }
}

void Checker::Cases() {
  const std::int64_t all = fReport.progress ? IntegerOf("SELECT count(*) FROM cases") : 0;
  Query rows(fDatabase, "SELECT position, cells FROM cases ORDER BY position");
  for (std::int64_t expected = 0; rows.Step(); ++expected) {
    if (fReport.progress) {
      fReport.progress(static_cast<std::uint64_t>(expected) + 1, static_cast<std::uint64_t>(all));
    }
    if (rows.Integer(0) != expected) {
      Finding("The position of a case is {} instead of {}.", rows.Integer(0), expected);
    }
    Row("The case at position", rows.Integer(0), [&] {
      if (const auto wrong = WhatIsWrongWithCells(rows.Text(1), fIsNumeric)) {
        Finding("The case at position {} is not sound: {}.", rows.Integer(0), *wrong);
      }
    });
  }
}

void Checker::History() {
  const VersionRange versions = KeptVersions(fDatabase);
  ChangeNumbers(versions);
  Changes(versions);
  Rewind rewind(fDatabase, LoadSets(fDatabase));
  for (std::int64_t number = versions.last; number > versions.first; --number) {
    try {
      rewind.Undo(number, number);
    } catch (const DamagedError&) {
      Finding("The sets before change {} cannot be rebuilt.", number);
      return;
    }
    if (rewind.HasDuplicates()) {
      Finding("Before change {} two sets have the same name or position.", number);
      return;
    }
  }
}

void Checker::ChangeNumbers(const VersionRange& versions) {
  const std::int64_t count = IntegerOf("SELECT count(*) FROM history");
  if (count != versions.last - versions.first) {
    Finding("The changes are numbered {} to {}, and there are {}.", versions.first + 1, versions.last, count);
    fDatabase.FailAsDamaged();
  }
  if (count > kKeptChanges) {
    Finding("There are {} changes; {} are kept at most.", count, kKeptChanges);
  }
  if (const std::int64_t lost =
          IntegerOf("SELECT count(*) FROM history_set WHERE history NOT IN (SELECT number FROM history)");
      lost != 0) {
    Finding("Entries of the history that belong to no change: {}.", lost);
  }
}

void Checker::Changes(const VersionRange& versions) {
  for (std::int64_t number = versions.first + 1; number <= versions.last; ++number) {
    Row("Change", number, [&] {
      const std::optional<Change> change = ChangeBefore(fDatabase, number + 1);
      if (change && !IsTimeOfChange(change->time)) {
        Finding("Change {} has the time {}, which is none.", number, change->time);
      }
    });
  }
}

}  // namespace

void CheckDataset(const std::string& path, const DatasetOptions& options, const CheckReport& report) {
  const std::unique_ptr<Database> database = OpenDataset(path, options);
  database->Execute("BEGIN");
  Checker(*database, report).Run();
}

}  // namespace standalone
