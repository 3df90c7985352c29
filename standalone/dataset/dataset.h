#ifndef STANDALONE_DATASET_DATASET_H
#define STANDALONE_DATASET_DATASET_H

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "standalone/dataset/change.h"
#include "standalone/dataset/set_store.h"
#include "standalone/dataset/stored_set.h"
#include "standalone/dataset/variable.h"
#include "standalone/storage/database.h"
#include "standalone/storage/dataset_options.h"

namespace standalone {

/// How a transaction uses a dataset.
enum class Access { kShared, kExclusive };

/// A dataset that exists: the dictionary, read as it is touched, the sets in their order, and the cases. Positions of
/// variables count from 0. Every function throws Error when the file cannot be used. Reading starts
/// a shared transaction if none is open.
class Dataset {
 public:
  /// Opens the file; it must exist and be a dataset. Nothing is written until SaveSets().
  explicit Dataset(const std::string& path, const DatasetOptions& options = {});
  Dataset(const Dataset&) = delete;
  Dataset& operator=(const Dataset&) = delete;

  /// Until EndTransaction() or SaveSets() all reads see one state of the dataset. With kExclusive, no other process can
  /// change the dataset meanwhile.
  void BeginTransaction(Access access);

  /// Ends the transaction and leaves the dataset as it is. Harmless when none is open.
  void EndTransaction();

  enum class Saved {
    kDone,       ///< the sets are on the disk
    kReordered,  ///< their new order is on the disk, which is no change
    kUnchanged,  ///< nothing is written: they were the same already, or only their order differs and cannot be kept
    kConflict    ///< nothing is written: another process changed the dataset since the transaction began
  };

  /// Ends a command that leaves these sets, in this order, in one transaction; where they differ from those stored,
  /// that is a change, which is kept with the command's text. A file of an older format is migrated first, in the same
  /// transaction, and a copy of it set aside. An order alone is no change: the last one takes it in, so that its
  /// version has the new order. It is kept where that takes neither a wait nor a migration, and never fails a command
  /// that is not exclusive. What is saved costs what has changed, as far as the list shares its sets with SharedSets().
  Saved SaveSets(const SetList& sets, const std::string& command);
  Saved SaveSets(const std::vector<StoredSet>& sets, const std::string& command);

  int VariableCount();

  /// The variable at a position, 0 to VariableCount() - 1; valid until the command ends.
  const Variable& VariableAt(int position);

  /// Position of the variable of that name without regard to case, -1 when there is none.
  int FindVariable(std::string_view name);

  /// The variable itself, as VariableAt() gives it; null when there is none.
  const Variable* VariableNamed(std::string_view name);

  using VisitCase = std::function<bool(std::int64_t position, std::string_view cells)>;

  /// Hands over the cases from position `from` on in their order, each a JSON array as DatasetWriter stores it, until
  /// `visit` returns false.
  void VisitCases(std::int64_t from, const VisitCase& visit);

  using VisitName = std::function<bool(int position, const std::string& name)>;

  /// Visits the variables from position `from` on whose names begin so without regard to case, in the order of the
  /// upper-case names, or in that of the dictionary where `beginning` is empty, until `visit` returns false. Costs what
  /// it visits, whatever the size of the dictionary. `visit` asks nothing of the dataset.
  void VisitVariables(std::string_view beginning, int from, const VisitName& visit);

  /// The stored sets in their order.
  std::vector<StoredSet> Sets();
  SetList SharedSets();

  /// A number that changes with what another process writes: as long as it is the same, the variables and cases that
  /// were read are, too.
  std::uint64_t Revision();

  VersionRange Versions();

  /// The imports that are kept, from the newest to the oldest.
  std::vector<LoggedImport> Imports();

  /// The sets of a version, in their order. Throws Error, one sentence with the range, when there is no such
  /// version.
  std::vector<StoredSet> SetsOfVersion(std::int64_t version);

  /// Hands over the changes that are kept, from the newest to the oldest. Ends the command that has begun: each change
  /// is read by itself, so that a slow `handOver` keeps nobody from writing.
  void ForEachChange(const std::function<void(const Change& change)>& handOver);

 private:
  void BeginIfNone();
  void ForgetWhatWasRead();
  bool HasHistory();
  const std::vector<KeptSet>& KeptSets();
  Saved SaveOrder(const SetList& sets);
  void EndSaveOfOrder();
  Saved Write(const SetList& sets, const std::string* command);
  void WriteLocked(const SetList& sets, const std::string* command);
  void Record(const SetEdits& edits, const std::string* command);
  void VisitNames(const std::string& first, int from, const VisitName& visit);

  // What has been read is kept from command to command as long as nobody has written, which the generation tells.
  std::string fPath;
  DatasetOptions fOptions;
  std::unique_ptr<Database> fDatabase;
  bool fExclusive = false;
  std::int64_t fGeneration = 0;
  std::uint64_t fRevision = 0;
  std::optional<int> fVariableCount;
  std::unordered_map<int, std::unique_ptr<Variable>> fVariables;
  std::unordered_map<std::string, int> fPositions;  // by upper-case name
  std::optional<std::vector<KeptSet>> fSets;
};

}  // namespace standalone

#endif  // STANDALONE_DATASET_DATASET_H
