#include "standalone/data/dataset.h"

#include <algorithm>
#include <limits>
#include <tuple>
#include <unordered_map>
#include <utility>

#include "standalone/data/database.h"
#include "standalone/data/schema.h"
#include "standalone/data/set_store.h"
#include "standalone/text/unicode.h"

namespace standalone {

namespace {

auto Members(const StoredSet& set) {
  return std::tie(set.name, set.type, set.label, set.countedValue, set.labelFromVariable,
                  set.categoryLabelsFromCountedValue, set.variables);
}

bool AreSame(const std::vector<KeptSet>& kept, const std::vector<StoredSet>& sets) {
  return std::equal(kept.begin(), kept.end(), sets.begin(), sets.end(),
                    [](const KeptSet& stored, const StoredSet& set) { return stored.set == set; });
}

int NotNegativeInt(Database& database, std::int64_t number) {
  if (number < 0 || number > std::numeric_limits<int>::max()) {
    database.FailAsDamaged();
  }
  return static_cast<int>(number);
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
  Query labels(database, "SELECT value, label FROM value_label WHERE variable = ? ORDER BY ordinal");
  labels.Bind(position);
  while (labels.Step()) {
    variable->valueLabels.push_back({labels.Text(0), labels.Text(1)});
  }
  return variable;
}

}  // namespace

bool StoredSet::operator==(const StoredSet& other) const {
  return Members(*this) == Members(other);
}

// What has been read is kept from command to command as long as nobody has written, which the generation tells.
class Dataset::Implementation {
 public:
  explicit Implementation(const std::string& path) : fDatabase(OpenDataset(path)) {}

  void Begin(bool exclusive);
  void BeginIfNone();
  void End();
  Saved Save(const std::vector<StoredSet>& sets);

  int VariableCount();
  const Variable& VariableAt(int position);
  int FindVariable(std::string_view name);
  const std::vector<KeptSet>& Sets();

 private:
  std::int64_t StoredGeneration();
  void ForgetWhatWasRead();
  Saved Write(const std::vector<StoredSet>& sets);

  std::unique_ptr<Database> fDatabase;
  bool fExclusive = false;
  std::int64_t fGeneration = 0;
  std::optional<int> fVariableCount;
  std::unordered_map<int, std::unique_ptr<Variable>> fVariables;
  std::unordered_map<std::string, int> fPositions;  // by upper-case name
  std::optional<std::vector<KeptSet>> fSets;
};

void Dataset::Implementation::Begin(bool exclusive) {
  End();
  try {
    fDatabase->Execute(exclusive ? "BEGIN IMMEDIATE" : "BEGIN");
    const std::int64_t generation = StoredGeneration();  // the first read fixes the state that all reads see
    if (generation != fGeneration) {
      ForgetWhatWasRead();
    }
    fGeneration = generation;
    fExclusive = exclusive;
  } catch (...) {
    End();
    throw;
  }
}

void Dataset::Implementation::BeginIfNone() {
  if (!fDatabase->InTransaction()) {
    Begin(false);
  }
}

void Dataset::Implementation::End() {
  fDatabase->Rollback();
  fExclusive = false;
}

Dataset::Saved Dataset::Implementation::Save(const std::vector<StoredSet>& sets) {
  const std::vector<KeptSet>& stored = Sets();
  Saved saved = Saved::kDone;
  try {
    saved = AreSame(stored, sets) ? Saved::kDone : Write(sets);
  } catch (const ReadOnlyError&) {
    End();
    if (!SameButForOrder(stored, sets)) {
      throw;
    }
  } catch (...) {
    End();
    throw;
  }
  End();
  return saved;
}

// A transaction that has read cannot wait for the right to write while another one waits for it to finish reading; so
// it ends, and the next one checks that nothing was written in between.
Dataset::Saved Dataset::Implementation::Write(const std::vector<StoredSet>& sets) {
  if (!fExclusive) {
    fDatabase->Rollback();
    fDatabase->Execute("BEGIN IMMEDIATE");
    if (StoredGeneration() != fGeneration) {
      return Saved::kConflict;
    }
  }
  std::vector<KeptSet> written = WriteSets(*fDatabase, *fSets, sets);
  fDatabase->Execute("UPDATE meta SET generation = generation + 1");
  fDatabase->Execute("COMMIT");
  fSets = std::move(written);
  ++fGeneration;
  return Saved::kDone;
}

std::int64_t Dataset::Implementation::StoredGeneration() {
  Query query(*fDatabase, "SELECT generation FROM meta");
  if (!query.Step()) {
    fDatabase->FailAsDamaged();
  }
  return query.Integer(0);
}

void Dataset::Implementation::ForgetWhatWasRead() {
  fVariableCount.reset();
  fVariables.clear();
  fPositions.clear();
  fSets.reset();
}

int Dataset::Implementation::VariableCount() {
  BeginIfNone();
  if (!fVariableCount) {
    Query query(*fDatabase, "SELECT variable_count FROM meta");
    query.Step();
    fVariableCount = NotNegativeInt(*fDatabase, query.Integer(0));
  }
  return *fVariableCount;
}

const Variable& Dataset::Implementation::VariableAt(int position) {
  BeginIfNone();
  std::unique_ptr<Variable>& variable = fVariables[position];
  if (variable == nullptr) {
    variable = LoadVariable(*fDatabase, position);
  }
  return *variable;
}

int Dataset::Implementation::FindVariable(std::string_view name) {
  const int count = VariableCount();
  const std::string key = ToUpper(name);
  const auto found = fPositions.find(key);
  if (found != fPositions.end()) {
    return found->second;
  }
  Query row(*fDatabase, "SELECT position FROM variable WHERE name_key = ?");
  if (!row.Bind(key).Step()) {
    return -1;
  }
  const int position = NotNegativeInt(*fDatabase, row.Integer(0));
  if (position >= count) {
    fDatabase->FailAsDamaged();
  }
  return fPositions.emplace(key, position).first->second;
}

const std::vector<KeptSet>& Dataset::Implementation::Sets() {
  BeginIfNone();
  if (!fSets) {
    fSets = LoadSets(*fDatabase);
  }
  return *fSets;
}

Dataset::Dataset(const std::string& path) : fImplementation(std::make_unique<Implementation>(path)) {}

Dataset::~Dataset() = default;

void Dataset::BeginCommand(bool exclusive) {
  fImplementation->Begin(exclusive);
}

void Dataset::EndCommand() {
  fImplementation->End();
}

Dataset::Saved Dataset::SaveSets(const std::vector<StoredSet>& sets) {
  return fImplementation->Save(sets);
}

int Dataset::VariableCount() {
  return fImplementation->VariableCount();
}

const Variable& Dataset::VariableAt(int position) {
  return fImplementation->VariableAt(position);
}

int Dataset::FindVariable(std::string_view name) {
  return fImplementation->FindVariable(name);
}

std::vector<StoredSet> Dataset::Sets() {
  std::vector<StoredSet> sets;
  for (const KeptSet& kept : fImplementation->Sets()) {
    sets.push_back(kept.set);
  }
  return sets;
}

}  // namespace standalone
