#include "standalone/dataset/history.h"

#include <algorithm>
#include <ctime>
#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <utility>

#include "standalone/storage/ordered_keys.h"
#include "standalone/text/unicode.h"

namespace standalone {

namespace {

constexpr const char* kTimeFormat = "%Y-%m-%dT%H:%M:%SZ";

// The library of JSON takes memory to release an array, and the lack of it would end the process. So the database reads
// arrays, and scalars alone are written.

std::vector<std::string> FromJsonArray(Database& database, const std::string& text) {
  std::vector<std::string> texts;
  Query entries(database, "SELECT key, type, value FROM json_each(?)");
  entries.Bind(text);
  while (entries.Step()) {
    entries.Integer(0);  // which only entries of an array have
    if (entries.Text(1) != "text" || text.find("\\u0000") != std::string::npos) {  // where SQLite would end a text
      database.FailAsDamaged();
    }
    texts.push_back(entries.Text(2));
  }
  return texts;
}

std::string ToJsonArray(const std::vector<std::string>& texts) {
  std::string json = "[";
  for (const std::string& text : texts) {
    json += json.size() == 1 ? "" : ",";
    json += nlohmann::json(text).dump();
  }
  return json + "]";
}

std::int64_t LastNumber(Database& database) {
  Query row(database, "SELECT max(number) FROM history");
  row.Step();
  return row.IsNull(0) ? 0 : OrdinaryNumber(database, row.Integer(0));
}

void AddBeforeForm(Database& database, std::int64_t number, const SetEdit& edit) {
  const StoredSet& set = *edit.before->set;
  const std::string variables = ToJsonArray(set.variables);
  Query(database, "INSERT INTO history_set VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)")
      .Bind(number)
      .Bind(edit.id)
      .Bind(static_cast<std::int64_t>(edit.kind))
      .Bind(edit.name)
      .Bind(edit.before->position)
      .Bind(static_cast<std::int64_t>(set.type))
      .Bind(set.label)
      .Bind(set.countedValue)
      .Bind(std::int64_t{set.labelFromVariable})
      .Bind(std::int64_t{set.categoryLabelsFromCountedValue})
      .Bind(variables)
      .Run();
}

// Where the change has touched the set already, it has kept an older position.
void AddMove(Database& database, std::int64_t number, const SetEdit& edit) {
  Query(database, "INSERT OR IGNORE INTO history_set (history, set_id, kind, position) VALUES (?, ?, 4, ?)")
      .Bind(number)
      .Bind(edit.id)
      .Bind(edit.before->position)
      .Run();
}

void AddEdit(Database& database, std::int64_t number, const SetEdit& edit) {
  if (edit.kind == ChangeKind::kDefined) {
    Query(database, "INSERT INTO history_set (history, set_id, kind, name) VALUES (?, ?, 1, ?)")
        .Bind(number)
        .Bind(edit.id)
        .Bind(edit.name)
        .Run();
  } else if (edit.kind == ChangeKind::kMoved) {
    AddMove(database, number, edit);
  } else {
    AddBeforeForm(database, number, edit);
  }
}

void DropUpTo(Database& database, std::int64_t number) {
  Query(database, "DELETE FROM history_set WHERE history <= ?").Bind(number).Run();
  Query(database, "DELETE FROM history WHERE number <= ?").Bind(number).Run();
}

ChangeKind KindOf(Database& database, std::int64_t number) {
  if (number < static_cast<int>(ChangeKind::kDefined) || number > static_cast<int>(ChangeKind::kMoved)) {
    database.FailAsDamaged();
  }
  return static_cast<ChangeKind>(number);
}

std::vector<ChangedSet> ChangedSetsOf(Database& database, std::int64_t number) {
  std::vector<ChangedSet> sets;
  Query rows(database, "SELECT set_id, kind, name FROM history_set WHERE history = ? ORDER BY set_id");
  rows.Bind(number);
  OrderedKeys<std::int64_t> ids(database);
  while (rows.Step()) {
    ids.Next(rows.Integer(0));
    const ChangeKind kind = KindOf(database, rows.Integer(1));
    if (kind != ChangeKind::kMoved) {
      sets.push_back({rows.Text(2), kind});
    }
  }
  return sets;
}

// From the columns that Rewind::Undo() selects.
StoredSet BeforeForm(Database& database, Query& row) {
  StoredSet set = SetOfColumns(database, row, 5);
  set.variables = FromJsonArray(database, row.Text(4));
  return set;
}

}  // namespace

void AddChange(Database& database, const std::string& command, const SetEdits& edits) {
  const std::int64_t number = LastNumber(database) + 1;
  const std::string time = TimeNow();
  Query(database, "INSERT INTO history VALUES (?, ?, ?, ?)")
      .Bind(number)
      .Bind(time)
      .Bind(command)
      .Bind(std::int64_t{edits.reordered})
      .Run();
  for (const SetEdit& edit : edits.edits) {
    AddEdit(database, number, edit);
  }
  DropUpTo(database, number - kMaxKeptChanges);
}

void AddToLastChange(Database& database, const SetEdits& moves) {
  const std::int64_t number = LastNumber(database);
  for (const SetEdit& move : moves.edits) {
    if (number > 0) {
      AddMove(database, number, move);
    }
  }
}

std::string TimeNow() {
  const std::time_t now = std::time(nullptr);
  std::tm parts{};
  gmtime_r(&now, &parts);
  std::string text(sizeof "2024-05-01T12:33:01Z", '\0');
  text.resize(std::strftime(text.data(), text.size(), kTimeFormat, &parts));
  return text;
}

bool IsTimeOfChange(const std::string& text) {
  std::tm parts{};
  const char* end = strptime(text.c_str(), kTimeFormat, &parts);
  return end != nullptr && *end == '\0';
}

VersionRange KeptVersions(Database& database) {
  Query row(database, "SELECT min(number) FROM history");
  row.Step();
  if (row.IsNull(0)) {
    return {};
  }
  const VersionRange range{OrdinaryNumber(database, row.Integer(0) - 1), LastNumber(database)};
  if (range.first >= range.last) {
    database.FailAsDamaged();
  }
  return range;
}

std::optional<Change> ChangeBefore(Database& database, std::int64_t number) {
  Query row(database,
            "SELECT number, time, command, reordered FROM history WHERE number < ? ORDER BY number DESC LIMIT 1");
  if (!row.Bind(number).Step()) {
    return std::nullopt;
  }
  const std::int64_t found = OrdinaryNumber(database, row.Integer(0));
  if (found >= number) {  // a B-tree that is out of order may give any; whoever goes on from there would never end
    database.FailAsDamaged();
  }
  return Change{found, row.Text(1), row.Text(2), row.Integer(3) != 0, ChangedSetsOf(database, found)};
}

Rewind::Rewind(Database& database, const std::vector<KeptSet>& now, VisitForm visit)
    : fDatabase(database), fVisit(std::move(visit)) {
  for (const KeptSet& kept : now) {
    Put(kept.id, {kept.position, kept.set});
  }
}

void Rewind::Undo(std::int64_t first, std::int64_t last) {
  Query rows(fDatabase,
             "SELECT set_id, kind, position, history, variables, name, type, label, counted_value, label_from_variable,"
             " category_labels_from_counted_value"
             " FROM history_set WHERE history BETWEEN ? AND ? ORDER BY history DESC, set_id DESC");
  rows.Bind(first).Bind(last);
  OrderedKeys<std::pair<std::int64_t, std::int64_t>, std::greater<>> keys(fDatabase);
  while (rows.Step()) {
    keys.Next({rows.Integer(3), rows.Integer(0)});
    UndoRow(rows);
  }
}

void Rewind::UndoRow(Query& row) {
  const std::int64_t id = OrdinaryNumber(fDatabase, row.Integer(0));
  const ChangeKind kind = KindOf(fDatabase, row.Integer(1));
  PlacedSet set;
  if (kind != ChangeKind::kDeleted) {
    set = Take(id);
  }
  if (kind == ChangeKind::kDefined) {
    return;
  }
  set.position = OrdinaryNumber(fDatabase, row.Integer(2));
  if (kind != ChangeKind::kMoved) {
    set.set = std::make_shared<StoredSet>(BeforeForm(fDatabase, row));
    if (fVisit) {
      fVisit(*set.set);
    }
  }
  Put(id, std::move(set));
}

void Rewind::Put(std::int64_t id, PlacedSet set) {
  fDuplicates += ++fKeys[ToUpper(set.set->name)] > 1 ? 1 : 0;
  fDuplicates += ++fPositions[set.position] > 1 ? 1 : 0;
  if (!fSets.emplace(id, std::move(set)).second) {
    fDatabase.FailAsDamaged();
  }
}

Rewind::PlacedSet Rewind::Take(std::int64_t id) {
  const auto found = fSets.find(id);
  if (found == fSets.end()) {
    fDatabase.FailAsDamaged();
  }
  PlacedSet set = std::move(found->second);
  fSets.erase(found);
  fDuplicates -= --fKeys[ToUpper(set.set->name)] > 0 ? 1 : 0;
  fDuplicates -= --fPositions[set.position] > 0 ? 1 : 0;
  return set;
}

std::vector<StoredSet> Rewind::Sets() const {
  std::vector<const PlacedSet*> placed;
  placed.reserve(fSets.size());
  for (const auto& entry : fSets) {
    placed.push_back(&entry.second);
  }
  std::sort(placed.begin(), placed.end(),
            [](const PlacedSet* first, const PlacedSet* second) { return first->position < second->position; });
  std::vector<StoredSet> sets;
  sets.reserve(placed.size());
  for (const PlacedSet* one : placed) {
    sets.push_back(*one->set);
  }
  return sets;
}

}  // namespace standalone
