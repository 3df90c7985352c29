#include "standalone/dataset/dataset.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <limits>
#include <new>
#include <utility>

#include "standalone/dataset/counters.h"
#include "standalone/dataset/history.h"
#include "standalone/dataset/import_log.h"
#include "standalone/storage/commit.h"
#include "standalone/storage/file_format.h"
#include "standalone/storage/interrupt.h"
#include "standalone/storage/ordered_keys.h"
#include "standalone/text/error.h"
#include "standalone/text/unicode.h"

namespace standalone {

namespace {

bool AreSameLists(const std::vector<KeptSet>& kept, const SetList& sets) {
  return std::equal(kept.begin(), kept.end(), sets.begin(), sets.end(),
                    [](const KeptSet& stored, const SharedSet& set) { return AreSame(stored.set, set); });
}

int NotNegativeInt(Database& database, std::int64_t number) {
  if (number < 0 || number > std::numeric_limits<int>::max()) {
    database.FailAsDamaged();
  }
  return static_cast<int>(number);
}

std::string NameAt(Database& database, int position) {
  Query row(database, "SELECT name FROM variable WHERE position = ?");
  if (!row.Bind(position).Step()) {
    database.FailAsDamaged();
  }
  return row.Text(0);
}

std::unique_ptr<Variable> LoadVariable(Database& database, int position) {
  Query row(database, "SELECT name, width, label FROM variable WHERE position = ?");
  if (!row.Bind(position).Step()) {
    database.FailAsDamaged();
  }
  auto variable = std::make_unique<Variable>();
  variable->name = row.Text(0);
  variable->width = NotNegativeInt(database, row.Integer(1));
  if (!row.IsNull(2)) {
    variable->label = row.Text(2);
  }
  Query labels(database, "SELECT ordinal, value, label FROM value_label WHERE variable = ? ORDER BY ordinal");
  labels.Bind(position);
  OrderedKeys<std::int64_t> ordinals(database);
  while (labels.Step()) {
    ordinals.Next(labels.Integer(0));
    variable->valueLabels.push_back({labels.Text(1), labels.Text(2)});
  }
  return variable;
}

}  // namespace

Dataset::Dataset(const std::string& path, const DatasetOptions& options)
    : fPath(path), fOptions(options), fDatabase(OpenDataset(path, options)) {}

void Dataset::BeginTransaction(Access access) {
  EndTransaction();
  try {
    Query(*fDatabase, access == Access::kExclusive ? "BEGIN IMMEDIATE" : "BEGIN").Run();
    const std::int64_t generation = GenerationOf(*fDatabase);  // the first read fixes the state that all reads see
    fDatabase->FailIfMoved();
    if (generation != fGeneration) {
      ForgetWhatWasRead();
    }
    fGeneration = generation;
    fExclusive = access == Access::kExclusive;
  } catch (...) {
    EndTransaction();
    throw;
  }
}

void Dataset::BeginIfNone() {
  if (!fDatabase->InTransaction()) {
    BeginTransaction(Access::kShared);
  }
}

void Dataset::EndTransaction() {
  fDatabase->Rollback();
  fExclusive = false;
}

Dataset::Saved Dataset::SaveSets(const std::vector<StoredSet>& sets, const std::string& command) {
  return SaveSets(Shared(sets), command);
}

Dataset::Saved Dataset::SaveSets(const SetList& sets, const std::string& command) {
  const std::vector<KeptSet>& stored = KeptSets();
  if (AreSameLists(stored, sets)) {
    EndTransaction();
    return Saved::kUnchanged;
  }
  if (SameButForOrder(stored, sets)) {
    return SaveOrder(sets);
  }
  try {
    const Saved saved = Write(sets, &command);
    EndTransaction();
    return saved;
  } catch (...) {
    EndTransaction();
    throw;
  }
}

// Whoever displays sets asked for no change: what keeps their order from being written is no concern of theirs.
Dataset::Saved Dataset::SaveOrder(const SetList& sets) {
  const bool mayWait = fExclusive;
  try {
    fDatabase->SetLockTimeout(mayWait ? fOptions.lockTimeout : std::chrono::milliseconds(0), fOptions.notify);
    const Saved saved = Write(sets, nullptr);
    EndSaveOfOrder();
    return saved == Saved::kDone ? Saved::kReordered : Saved::kUnchanged;
  } catch (const Error& error) {
    EndSaveOfOrder();
    if (mayWait && error.Kind() != ErrorKind::kNoPermission) {
      throw;
    }
    return Saved::kUnchanged;
  }
}

void Dataset::EndSaveOfOrder() {
  EndTransaction();
  fDatabase->SetLockTimeout(fOptions.lockTimeout, fOptions.notify);
}

// Without a command only the order changes. A transaction that has read cannot wait for the right to write while
// another one waits for it to finish reading; so it ends, and the next one checks that nothing was written in between.
Dataset::Saved Dataset::Write(const SetList& sets, const std::string* command) {
  if (!fExclusive) {
    fDatabase->Rollback();
    Query(*fDatabase, "BEGIN IMMEDIATE").Run();
    if (GenerationOf(*fDatabase) != fGeneration) {
      return Saved::kConflict;
    }
  }
  WriteLocked(sets, command);
  return Saved::kDone;
}

void Dataset::WriteLocked(const SetList& sets, const std::string* command) {
  (command == nullptr ? FailIfWritesAreUsedUp : FailIfChangesAreUsedUp)(*fDatabase, fPath);
  SetWrite write = WriteSets(*fDatabase, *fSets, sets);
  Record(write.edits, command);
  Query(*fDatabase, "UPDATE meta SET generation = generation + 1 WHERE id = 1").Run();
  const std::optional<std::string> unconfirmed = CommitGeneration(*fDatabase, fGeneration + 1);
  ++fGeneration;
  try {
    std::move(write).ApplyTo(*fSets);
    fOptions.Notify(unconfirmed);
  } catch (const std::bad_alloc&) {
    fSets.reset();  // the change stands: to keep its result is no part of it
  }
}

void Dataset::Record(const SetEdits& edits, const std::string* command) {
  if (command == nullptr) {
    AddToLastChange(*fDatabase, edits);
  } else {
    AddChange(*fDatabase, *command, edits);
  }
}

void Dataset::ForgetWhatWasRead() {
  fVariableCount.reset();
  fVariables.clear();
  fPositions.clear();
  fSets.reset();
  fBlocks.reset();
}

int Dataset::VariableCount() {
  BeginIfNone();
  if (!fVariableCount) {
    Query query(*fDatabase, "SELECT variable_count, coalesce((SELECT max(position) FROM variable), -1) FROM meta");
    query.Step();
    const int count = NotNegativeInt(*fDatabase, query.Integer(0));
    if (count - 1 != query.Integer(1)) {  // whoever gets the number makes room for as many
      fDatabase->FailAsDamaged();
    }
    fVariableCount = count;
  }
  return *fVariableCount;
}

const Variable& Dataset::VariableAt(int position) {
  BeginIfNone();
  std::unique_ptr<Variable>& variable = fVariables[position];
  if (variable == nullptr) {
    variable = LoadVariable(*fDatabase, position);
  }
  return *variable;
}

int Dataset::FindVariable(std::string_view name) {
  const int count = VariableCount();
  const std::string key = ToUpper(name);
  const auto found = fPositions.find(key);
  if (found != fPositions.end()) {
    return found->second;
  }
  Query row(*fDatabase, "SELECT position, name FROM variable WHERE name_key = ?");
  if (!row.Bind(key).Step()) {
    return -1;
  }
  const int position = NotNegativeInt(*fDatabase, row.Integer(0));
  if (position >= count || ToUpper(row.Text(1)) != key) {  // in a damaged file the key need not be that of the name
    fDatabase->FailAsDamaged();
  }
  return fPositions.emplace(key, position).first->second;
}

const Variable* Dataset::VariableNamed(std::string_view name) {
  const int position = FindVariable(name);
  return position < 0 ? nullptr : &VariableAt(position);
}

CaseBlocks& Dataset::Blocks() {
  BeginIfNone();
  if (!fBlocks) {
    fBlocks.emplace(*fDatabase);
  }
  return *fBlocks;
}

std::size_t Dataset::BlockCount() {
  return Blocks().Count();
}

std::size_t Dataset::CasesOfBlock(std::size_t number) {
  return Blocks().CasesOf(number);
}

BlockHead Dataset::ReadHead(int variable, std::size_t number) {
  return Blocks().ReadHead({variable, VariableAt(variable).width == 0}, number);
}

void Dataset::ReadBlock(int variable, std::size_t number, Block& block) {
  Blocks().ReadBlock({variable, VariableAt(variable).width == 0}, number, block);
}

void Dataset::VisitVariables(std::string_view beginning, int from, const VisitName& visit) {
  BeginIfNone();
  if (!beginning.empty()) {
    VisitNames(ToUpper(beginning), from, visit);
    return;
  }
  Query rows(*fDatabase, "SELECT position, name FROM variable WHERE position >= ? ORDER BY position");
  rows.Bind(from);
  OrderedKeys<int> positions(*fDatabase);
  while (rows.Step() && visit(positions.Next(NotNegativeInt(*fDatabase, rows.Integer(0))), rows.Text(1))) {
  }
}

// The index of names holds the positions, so that only the names of variables that are visited are looked up.
void Dataset::VisitNames(const std::string& first, int from, const VisitName& visit) {
  const std::string afterLast = first + "\U0010FFFF";  // no name holds the last of all characters
  Query rows(*fDatabase,
             "SELECT name_key, position FROM variable WHERE name_key >= ? AND name_key < ? ORDER BY name_key");
  rows.Bind(first).Bind(afterLast);
  OrderedKeys<std::string> keys(*fDatabase);
  bool goesOn = true;
  while (goesOn && rows.Step()) {
    keys.Next(rows.Text(0));
    const int position = NotNegativeInt(*fDatabase, rows.Integer(1));
    goesOn = position < from || visit(position, NameAt(*fDatabase, position));
  }
}

const std::vector<KeptSet>& Dataset::KeptSets() {
  BeginIfNone();
  if (!fSets) {
    fSets = LoadSets(*fDatabase);
  }
  return *fSets;
}

std::vector<StoredSet> Dataset::Sets() {
  return Copies(SharedSets());
}

SetList Dataset::SharedSets() {
  const std::vector<KeptSet>& kept = KeptSets();
  SetList sets;
  sets.reserve(kept.size());
  std::transform(kept.begin(), kept.end(), std::back_inserter(sets), [](const KeptSet& one) { return one.set; });
  return sets;
}

VersionRange Dataset::Versions() {
  BeginIfNone();
  return KeptVersions(*fDatabase);
}

std::vector<LoggedImport> Dataset::Imports() {
  BeginIfNone();
  return LoadImports(*fDatabase);
}

std::vector<StoredSet> Dataset::SetsOfVersion(std::int64_t version) {
  const VersionRange range = Versions();
  if (version < range.first || version > range.last) {
    throw Error(
        range.first == range.last
            ? fmt::format("{} has no version {}: its sets were not changed yet, and are version 0.", fPath, version)
            : fmt::format("{} has no version {}; it keeps {} to {}.", fPath, version, range.first, range.last));
  }
  Rewind rewind(*fDatabase, KeptSets());
  if (version < range.last) {
    rewind.Undo(version + 1, range.last);
  }
  if (rewind.HasDuplicates()) {
    fDatabase->FailAsDamaged();
  }
  return rewind.Sets();
}

void Dataset::ForEachChange(const std::function<void(const Change&)>& handOver) {
  std::optional<Change> change;
  do {
    if (IsInterrupted()) {
      throw Error(ErrorKind::kInterrupted, fPath + ": interrupted.");
    }
    BeginIfNone();
    const std::int64_t end = change ? change->number : std::numeric_limits<std::int64_t>::max();
    change = ChangeBefore(*fDatabase, end);
    EndTransaction();
    if (change) {
      handOver(*change);
    }
  } while (change);
}

}  // namespace standalone
