#include "standalone/dataset/set_store.h"

#include <algorithm>
#include <iterator>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "standalone/dataset/set_positions.h"
#include "standalone/storage/limits.h"
#include "standalone/storage/ordered_keys.h"
#include "standalone/text/unicode.h"

namespace standalone {

namespace {

/// A set while it is read; then it never changes again.
struct ReadSet {
  KeptSet kept;
  std::shared_ptr<StoredSet> set;
};

ReadSet SetOfRow(Database& database, Query& row) {
  ReadSet read;
  read.set = std::make_shared<StoredSet>(SetOfColumns(database, row, 2));
  read.kept.set = read.set;
  read.kept.id = OrdinaryNumber(database, row.Integer(0));
  read.kept.position = OrdinaryNumber(database, row.Integer(1));
  read.kept.key = ToUpper(read.set->name);
  return read;
}

// In a damaged file the names need not be those of the keys that the file holds apart.
void CheckNamesDiffer(Database& database, const std::vector<ReadSet>& sets) {
  std::unordered_set<std::string_view> keys;
  for (const ReadSet& read : sets) {
    if (!keys.insert(read.kept.key).second) {
      database.FailAsDamaged();
    }
  }
}

void LoadVariables(Database& database, const std::vector<ReadSet>& sets) {
  std::unordered_map<std::int64_t, StoredSet*> setOfId;
  for (const ReadSet& read : sets) {
    setOfId.emplace(read.kept.id, read.set.get());
  }
  Query rows(database, "SELECT set_id, ordinal, name FROM mr_set_variable ORDER BY set_id, ordinal");
  OrderedKeys<std::pair<std::int64_t, std::int64_t>> keys(database);
  while (rows.Step()) {
    keys.Next({rows.Integer(0), rows.Integer(1)});
    const auto found = setOfId.find(rows.Integer(0));
    if (found == setOfId.end()) {
      database.FailAsDamaged();
    }
    found->second->variables.push_back(rows.Text(2));
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
  const StoredSet& set = *kept.set;
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

/// A stretch of the stored sets and the stretch of the sets to be that stands in its place. What lies before it and
/// after it is as it was.
struct Stretch {
  std::size_t first = 0;
  std::size_t beforeEnd = 0;
  std::size_t afterEnd = 0;
};

Stretch ChangedStretch(const std::vector<KeptSet>& before, const SetList& after) {
  Stretch stretch{0, before.size(), after.size()};
  while (stretch.first < before.size() && stretch.first < after.size() &&
         AreSame(before[stretch.first].set, after[stretch.first])) {
    ++stretch.first;
  }
  while (stretch.beforeEnd > stretch.first && stretch.afterEnd > stretch.first &&
         AreSame(before[stretch.beforeEnd - 1].set, after[stretch.afterEnd - 1])) {
    --stretch.beforeEnd;
    --stretch.afterEnd;
  }
  return stretch;
}

/// Sets that are stored by the upper-case form of their names, each taken by the set that goes on in its place.
class SetsByKey {
 public:
  using Iterator = std::vector<KeptSet>::const_iterator;

  SetsByKey(Iterator begin, Iterator end) {
    for (auto kept = begin; kept != end; ++kept) {
      fSets.emplace(kept->key, &*kept);
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

 private:
  std::unordered_map<std::string_view, const KeptSet*> fSets;
};

/// One set of the list to be, with the set that is stored in its name, if any.
struct PlannedSet {
  const KeptSet* before;
  KeptSet after;
};

/// What is to become of a stretch.
struct Plan {
  std::vector<PlannedSet> sets;
  std::vector<const KeptSet*> left;  // the stored sets that go on in no place
};

/// Ids that no stored set has: those beyond the greatest, and when they are used up the others from 1 on.
class FreeIds {
 public:
  explicit FreeIds(const std::vector<KeptSet>& sets) : fSets(sets) {
    for (const KeptSet& kept : sets) {
      fNext = std::max(fNext, kept.id + 1);
    }
  }

  std::int64_t Take() { return fNext <= kMaxNumber ? fNext++ : TakeLower(); }

 private:
  std::int64_t TakeLower() {
    if (fUsed.empty()) {
      std::transform(fSets.begin(), fSets.end(), std::inserter(fUsed, fUsed.end()),
                     [](const KeptSet& kept) { return kept.id; });
    }
    while (fUsed.count(fNextLower) != 0) {
      ++fNextLower;
    }
    return fNextLower++;
  }

  const std::vector<KeptSet>& fSets;
  std::int64_t fNext = 1;
  std::int64_t fNextLower = 1;
  std::unordered_set<std::int64_t> fUsed;
};

Plan PlanSets(const std::vector<KeptSet>& before, const SetList& after, const Stretch& stretch) {
  SetsByKey stored(before.begin() + static_cast<std::ptrdiff_t>(stretch.first),
                   before.begin() + static_cast<std::ptrdiff_t>(stretch.beforeEnd));
  Plan plan;
  FreeIds freeIds(before);
  for (std::size_t row = stretch.first; row < stretch.afterEnd; ++row) {
    std::string key = ToUpper(after[row]->name);
    const KeptSet* kept = stored.Take(key);
    plan.sets.push_back({kept, {kept == nullptr ? freeIds.Take() : kept->id, 0, after[row], std::move(key)}});
  }
  for (const auto& entry : stored.Left()) {
    plan.left.push_back(entry.second);
  }
  return plan;
}

/// False where a set beside the stretch would have to make room.
bool PlanPositionsWithin(const std::vector<KeptSet>& before, const Stretch& stretch, std::vector<PlannedSet>& sets) {
  const bool hasFormer = stretch.first > 0;
  const bool hasNext = stretch.beforeEnd < before.size();
  std::vector<std::optional<std::int64_t>> positions;
  if (hasFormer) {
    positions.emplace_back(before[stretch.first - 1].position);
  }
  for (const PlannedSet& set : sets) {
    positions.push_back(set.before == nullptr ? std::nullopt : std::make_optional(set.before->position));
  }
  if (hasNext) {
    positions.emplace_back(before[stretch.beforeEnd].position);
  }
  const std::vector<std::int64_t> planned = PlanPositions(positions);
  for (std::size_t row = 0; row < sets.size(); ++row) {
    sets[row].after.position = planned[row + (hasFormer ? 1 : 0)];
  }
  return (!hasFormer || planned.front() == positions.front()) && (!hasNext || planned.back() == positions.back());
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
  if (!AreSame(planned.before->set, planned.after.set)) {
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
  if (kind == ChangeKind::kDefined || planned.before->set->variables != after.set->variables) {
    WriteVariables(database, after.id, after.set->variables);
  }
}

void WritePlan(Database& database, const Plan& plan, std::vector<SetEdit>& edits) {
  for (const KeptSet* left : plan.left) {
    DeleteSet(database, left->id);
    edits.push_back({ChangeKind::kDeleted, left->id, left, left->set->name});
  }
  for (const PlannedSet& planned : plan.sets) {
    if (const std::optional<ChangeKind> kind = KindOf(planned)) {
      WriteEdit(database, *kind, planned);
      const KeptSet& named = planned.before == nullptr ? planned.after : *planned.before;
      edits.push_back({*kind, planned.after.id, planned.before, named.set->name});
    }
  }
}

}  // namespace

std::int64_t OrdinaryNumber(Database& database, std::int64_t number) {
  if (number < 0 || number > kMaxNumber) {
    database.FailAsDamaged();
  }
  return number;
}

StoredSet SetOfColumns(Database& database, Query& row, int first) {
  const std::int64_t type = row.Integer(first + 1);
  if (type != static_cast<int>(SetType::kCategory) && type != static_cast<int>(SetType::kDichotomy)) {
    database.FailAsDamaged();
  }
  StoredSet set;
  set.name = row.Text(first);
  set.type = static_cast<SetType>(type);
  set.label = row.Text(first + 2);
  set.countedValue = row.Text(first + 3);
  set.labelFromVariable = row.Integer(first + 4) != 0;
  set.categoryLabelsFromCountedValue = row.Integer(first + 5) != 0;
  return set;
}

std::vector<KeptSet> LoadSets(Database& database) {
  std::vector<ReadSet> read;
  {
    Query rows(database,
               "SELECT id, position, name, type, label, counted_value, label_from_variable,"
               " category_labels_from_counted_value FROM mr_set ORDER BY id");
    OrderedKeys<std::int64_t> ids(database);
    while (rows.Step()) {
      ids.Next(rows.Integer(0));
      read.push_back(SetOfRow(database, rows));
    }
  }
  std::stable_sort(read.begin(), read.end(), [](const ReadSet& first, const ReadSet& second) {
    return first.kept.position < second.kept.position;
  });
  CheckNamesDiffer(database, read);
  LoadVariables(database, read);
  std::vector<KeptSet> sets;
  sets.reserve(read.size());
  for (ReadSet& one : read) {
    sets.push_back(std::move(one.kept));
  }
  return sets;
}

void SetWrite::ApplyTo(std::vector<KeptSet>& stored) && {
  const auto begin = stored.begin() + static_cast<std::ptrdiff_t>(first);
  const auto place = stored.erase(begin, begin + static_cast<std::ptrdiff_t>(count));
  stored.insert(place, std::make_move_iterator(replacement.begin()), std::make_move_iterator(replacement.end()));
}

SetWrite WriteSets(Database& database, const std::vector<KeptSet>& before, const SetList& after) {
  Stretch stretch = ChangedStretch(before, after);
  Plan plan = PlanSets(before, after, stretch);
  if (!PlanPositionsWithin(before, stretch, plan.sets)) {
    stretch = {0, before.size(), after.size()};
    plan = PlanSets(before, after, stretch);
    PlanPositionsWithin(before, stretch, plan.sets);
  }
  SetWrite write{{{}, ChangesOrder(plan.sets)}, stretch.first, stretch.beforeEnd - stretch.first, {}};
  WritePlan(database, plan, write.edits.edits);
  for (PlannedSet& planned : plan.sets) {
    write.replacement.push_back(std::move(planned.after));
  }
  return write;
}

bool SameButForOrder(const std::vector<KeptSet>& before, const SetList& after) {
  SetsByKey stored(before.begin(), before.end());
  return before.size() == after.size() && std::all_of(after.begin(), after.end(), [&stored](const SharedSet& set) {
           const KeptSet* same = stored.Take(ToUpper(set->name));
           return same != nullptr && AreSame(same->set, set);
         });
}

}  // namespace standalone
