#include "standalone/data/set_store.h"

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "standalone/data/positions.h"
#include "standalone/text/unicode.h"

namespace standalone {

namespace {

KeptSet SetOfRow(Database& database, Query& row) {
  KeptSet kept;
  kept.id = OrdinaryNumber(database, row.Integer(0));
  kept.position = OrdinaryNumber(database, row.Integer(1));
  kept.set.name = row.Text(2);
  kept.key = ToUpper(kept.set.name);
  kept.set.type = SetTypeOf(database, row.Integer(3));
  kept.set.label = row.Text(4);
  kept.set.countedValue = row.Text(5);
  kept.set.labelFromVariable = row.Integer(6) != 0;
  kept.set.categoryLabelsFromCountedValue = row.Integer(7) != 0;
  return kept;
}

// In a damaged file the names need not be those of the keys that the file holds apart.
void CheckNamesDiffer(Database& database, const std::vector<KeptSet>& sets) {
  std::unordered_set<std::string_view> keys;
  for (const KeptSet& kept : sets) {
    if (!keys.insert(kept.key).second) {
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

void WriteSet(Database& database, const KeptSet& kept) {
  const StoredSet& set = kept.set;
  Query(database,
        "INSERT INTO mr_set VALUES (?1, ?2, ?3, ?4, ?5, ?6, ?7, ?8, ?9)"
        " ON CONFLICT (id) DO UPDATE SET position = ?2, name = ?3, name_key = ?4, type = ?5, label = ?6,"
        " counted_value = ?7, label_from_variable = ?8, category_labels_from_counted_value = ?9")
      .Bind(kept.id)
      .Bind(kept.position)
      .Bind(set.name)
      .Bind(kept.key)
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
      fSets.emplace(kept.key, &kept);
      fNextId = std::max(fNextId, kept.id + 1);
    }
  }

  /// Null when there is none of that name.
  const KeptSet* Take(std::string_view key) {
    const auto found = fSets.find(key);
    if (found == fSets.end()) {
      return nullptr;
    }
    const KeptSet* taken = found->second;
    fSets.erase(found);
    return taken;
  }

  const std::unordered_map<std::string_view, const KeptSet*>& Left() const { return fSets; }
  std::int64_t NewId() { return fNextId++; }

 private:
  std::unordered_map<std::string_view, const KeptSet*> fSets;
  std::int64_t fNextId = 1;
};

/// One set of the list to be, with the set that is stored in its name, if any.
struct PlannedSet {
  const KeptSet* before;
  KeptSet after;
};

std::vector<PlannedSet> Plan(SetsByKey& stored, const std::vector<StoredSet>& after) {
  std::vector<PlannedSet> plan;
  plan.reserve(after.size());
  std::vector<std::optional<std::int64_t>> positions;
  positions.reserve(after.size());
  for (const StoredSet& set : after) {
    std::string key = ToUpper(set.name);
    const KeptSet* before = stored.Take(key);
    positions.push_back(before == nullptr ? std::nullopt : std::make_optional(before->position));
    plan.push_back({before, {before == nullptr ? stored.NewId() : before->id, 0, set, std::move(key)}});
  }
  const std::vector<std::int64_t> planned = PlanPositions(positions);
  for (std::size_t row = 0; row < plan.size(); ++row) {
    plan[row].after.position = planned[row];
  }
  return plan;
}

bool ChangesOrder(const std::vector<PlannedSet>& plan) {
  const KeptSet* last = nullptr;
  for (const PlannedSet& planned : plan) {
    if (planned.before != nullptr) {
      if (last != nullptr && last->position > planned.before->position) {
        return true;
      }
      last = planned.before;
    }
  }
  return false;
}

std::optional<ChangeKind> KindOf(const PlannedSet& planned) {
  if (planned.before == nullptr) {
    return ChangeKind::kDefined;
  }
  if (!(planned.before->set == planned.after.set)) {
    return ChangeKind::kChanged;
  }
  return planned.before->position == planned.after.position ? std::nullopt : std::make_optional(ChangeKind::kMoved);
}

void WriteEdit(Database& database, ChangeKind kind, const PlannedSet& planned) {
  const KeptSet& after = planned.after;
  if (kind == ChangeKind::kMoved) {
    MoveSet(database, after.id, after.position);
    return;
  }
  WriteSet(database, after);
  if (kind == ChangeKind::kDefined || planned.before->set.variables != after.set.variables) {
    WriteVariables(database, after.id, after.set.variables);
  }
}

void WritePlan(Database& database, const std::vector<PlannedSet>& plan, std::vector<SetEdit>& edits) {
  for (const PlannedSet& planned : plan) {
    if (const std::optional<ChangeKind> kind = KindOf(planned)) {
      WriteEdit(database, *kind, planned);
      const KeptSet& named = planned.before == nullptr ? planned.after : *planned.before;
      edits.push_back({*kind, planned.after.id, planned.before, named.set.name});
    }
  }
}

}  // namespace

// A file that holds a greater one was not made by this program.
std::int64_t OrdinaryNumber(Database& database, std::int64_t number) {
  constexpr std::int64_t kGreatest = std::int64_t{1} << 53;
  if (number < 0 || number > kGreatest) {
    database.FailAsDamaged();
  }
  return number;
}

SetType SetTypeOf(Database& database, std::int64_t number) {
  if (number != static_cast<int>(SetType::kCategory) && number != static_cast<int>(SetType::kDichotomy)) {
    database.FailAsDamaged();
  }
  return static_cast<SetType>(number);
}

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

SetEdits WriteSets(Database& database, const std::vector<KeptSet>& before, const std::vector<StoredSet>& after,
                   std::vector<KeptSet>& written) {
  SetsByKey stored(before);
  std::vector<PlannedSet> plan = Plan(stored, after);
  SetEdits result;
  for (const auto& entry : stored.Left()) {
    const KeptSet& left = *entry.second;
    DeleteSet(database, left.id);
    result.edits.push_back({ChangeKind::kDeleted, left.id, &left, left.set.name});
  }
  WritePlan(database, plan, result.edits);
  result.reordered = ChangesOrder(plan);
  written.reserve(plan.size());
  for (PlannedSet& planned : plan) {
    written.push_back(std::move(planned.after));
  }
  return result;
}

bool SameButForOrder(const std::vector<KeptSet>& before, const std::vector<StoredSet>& after) {
  SetsByKey stored(before);
  return before.size() == after.size() && std::all_of(after.begin(), after.end(), [&stored](const StoredSet& set) {
           const KeptSet* same = stored.Take(ToUpper(set.name));
           return same != nullptr && same->set == set;
         });
}

}  // namespace standalone
