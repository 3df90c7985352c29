#include "standalone/data/set_store.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "standalone/text/unicode.h"

namespace standalone {

namespace {

SetType TypeOf(Database& database, std::int64_t number) {
  if (number != static_cast<int>(SetType::kCategory) && number != static_cast<int>(SetType::kDichotomy)) {
    database.FailAsDamaged();
  }
  return static_cast<SetType>(number);
}

// Numbers up to which the program never counts; a file that holds a greater one was not made by it.
std::int64_t Ordinary(Database& database, std::int64_t number) {
  constexpr std::int64_t kGreatest = std::int64_t{1} << 53;
  if (number < 0 || number > kGreatest) {
    database.FailAsDamaged();
  }
  return number;
}

KeptSet SetOfRow(Database& database, Query& row) {
  KeptSet kept;
  kept.id = Ordinary(database, row.Integer(0));
  kept.position = Ordinary(database, row.Integer(1));
  kept.set.name = row.Text(2);
  kept.set.type = TypeOf(database, row.Integer(3));
  kept.set.label = row.Text(4);
  kept.set.countedValue = row.Text(5);
  kept.set.labelFromVariable = row.Integer(6) != 0;
  kept.set.categoryLabelsFromCountedValue = row.Integer(7) != 0;
  return kept;
}

// In a damaged file the names need not be those of the keys that the file holds apart.
void CheckNamesDiffer(Database& database, const std::vector<KeptSet>& sets) {
  std::unordered_set<std::string> keys;
  for (const KeptSet& kept : sets) {
    if (!keys.insert(ToUpper(kept.set.name)).second) {
      database.FailAsDamaged();
    }
  }
}

void LoadVariables(Database& database, std::vector<KeptSet>& sets) {
  std::unordered_map<std::int64_t, StoredSet*> setOfId;
  for (KeptSet& kept : sets) {
    setOfId.emplace(kept.id, &kept.set);
  }
  Query rows(database, "SELECT set_id, name FROM mr_set_variable ORDER BY set_id, ordinal");
  while (rows.Step()) {
    const auto found = setOfId.find(rows.Integer(0));
    if (found == setOfId.end()) {
      database.FailAsDamaged();
    }
    found->second->variables.push_back(rows.Text(1));
  }
}

void WriteVariables(Database& database, std::int64_t id, const std::vector<std::string>& variables) {
  Query(database, "DELETE FROM mr_set_variable WHERE set_id = ?").Bind(id).Run();
  Query insert(database, "INSERT INTO mr_set_variable VALUES (?, ?, ?)");
  std::int64_t ordinal = 0;
  for (const std::string& variable : variables) {
    insert.Bind(id).Bind(ordinal++).Bind(variable).Run();
  }
}

void WriteSet(Database& database, const KeptSet& kept, const std::string& key) {
  const StoredSet& set = kept.set;
  Query(database,
        "INSERT INTO mr_set VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9)"
        " ON CONFLICT (id) DO UPDATE SET position = ?2, name = ?3, name_key = ?4, type = ?5, label = ?6,"
        " counted_value = ?7, label_from_variable = ?8, category_labels_from_counted_value = ?9")
      .Bind(kept.id)
      .Bind(kept.position)
      .Bind(set.name)
      .Bind(key)
      .Bind(static_cast<std::int64_t>(set.type))
      .Bind(set.label)
      .Bind(set.countedValue)
      .Bind(std::int64_t{set.labelFromVariable})
      .Bind(std::int64_t{set.categoryLabelsFromCountedValue})
      .Run();
}

void MoveSet(Database& database, std::int64_t id, std::int64_t position) {
  Query(database, "UPDATE mr_set SET position = ? WHERE id = ?").Bind(position).Bind(id).Run();
}

void DeleteSet(Database& database, std::int64_t id) {
  Query(database, "DELETE FROM mr_set_variable WHERE set_id = ?").Bind(id).Run();
  Query(database, "DELETE FROM mr_set WHERE id = ?").Bind(id).Run();
}

/// The sets that are stored by the upper-case form of their names, each taken by the set that goes on in its place.
class SetsByKey {
 public:
  explicit SetsByKey(const std::vector<KeptSet>& sets) {
    for (const KeptSet& kept : sets) {
      fSets.emplace(ToUpper(kept.set.name), &kept);
      fNextId = std::max(fNextId, kept.id + 1);
    }
  }

  /// Null when there is none of that name.
  const KeptSet* Take(const std::string& key) {
    const auto found = fSets.find(key);
    if (found == fSets.end()) {
      return nullptr;
    }
    const KeptSet* taken = found->second;
    fSets.erase(found);
    return taken;
  }

  const std::unordered_map<std::string, const KeptSet*>& Left() const { return fSets; }
  std::int64_t NewId() { return fNextId++; }

 private:
  std::unordered_map<std::string, const KeptSet*> fSets;
  std::int64_t fNextId = 1;
};

/// One set of the list to be, with the set that is stored in its name, if any.
struct SetChange {
  const KeptSet* before;
  KeptSet after;
  std::string key;
};

// A set keeps its position where that still follows the position before it: a removed set then moves no other.
std::vector<SetChange> PlanChanges(SetsByKey& stored, const std::vector<StoredSet>& after) {
  std::vector<SetChange> changes;
  changes.reserve(after.size());
  std::int64_t next = 0;
  for (const StoredSet& set : after) {
    std::string key = ToUpper(set.name);
    const KeptSet* before = stored.Take(key);
    const std::int64_t position = before == nullptr ? next : std::max(next, before->position);
    const std::int64_t id = before == nullptr ? stored.NewId() : before->id;
    changes.push_back({before, {id, position, set}, std::move(key)});
    next = position + 1;
  }
  return changes;
}

void WriteChange(Database& database, const SetChange& change) {
  const KeptSet* before = change.before;
  const KeptSet& after = change.after;
  if (before != nullptr && before->set == after.set) {
    if (before->position != after.position) {
      MoveSet(database, after.id, after.position);
    }
    return;
  }
  WriteSet(database, after, change.key);
  if (before == nullptr || before->set.variables != after.set.variables) {
    WriteVariables(database, after.id, after.set.variables);
  }
}

}  // namespace

std::vector<KeptSet> LoadSets(Database& database) {
  std::vector<KeptSet> sets;
  {
    Query rows(database,
               "SELECT id, position, name, type, label, counted_value, label_from_variable,"
               " category_labels_from_counted_value FROM mr_set ORDER BY position, id");
    while (rows.Step()) {
      sets.push_back(SetOfRow(database, rows));
    }
  }
  CheckNamesDiffer(database, sets);
  LoadVariables(database, sets);
  return sets;
}

std::vector<KeptSet> WriteSets(Database& database, const std::vector<KeptSet>& before,
                               const std::vector<StoredSet>& after) {
  SetsByKey stored(before);
  std::vector<SetChange> changes = PlanChanges(stored, after);
  for (const auto& entry : stored.Left()) {
    DeleteSet(database, entry.second->id);
  }
  std::vector<KeptSet> written;
  written.reserve(changes.size());
  for (SetChange& change : changes) {
    WriteChange(database, change);
    written.push_back(std::move(change.after));
  }
  return written;
}

bool SameButForOrder(const std::vector<KeptSet>& before, const std::vector<StoredSet>& after) {
  SetsByKey stored(before);
  return before.size() == after.size() && std::all_of(after.begin(), after.end(), [&stored](const StoredSet& set) {
           const KeptSet* same = stored.Take(ToUpper(set.name));
           return same != nullptr && same->set == set;
         });
}

}  // namespace standalone
