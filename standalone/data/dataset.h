#ifndef STANDALONE_DATA_DATASET_H
#define STANDALONE_DATA_DATASET_H

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace standalone {

/// Throws Error for the empty path.
void FailIfNameless(const std::string& path);

struct ValueLabel {
  std::string value;  ///< of a numeric variable, the shortest text that gives the number again
  std::string label;
};

/// One variable of the dictionary.
struct Variable {
  std::string name;
  int width = 0;  ///< 0 for a numeric variable, else the width in bytes
  std::optional<std::string> label;
  std::vector<ValueLabel> valueLabels;  ///< in the order of the codebook
};

/// Given to DatasetWriter in place of a width: that of the longest value in bytes, at least 1.
inline constexpr int kWidthOfLongestValue = -1;

enum class SetType { kCategory = 1, kDichotomy = 2 };

/// One multiple response set as it is stored. Texts are UTF-8 without NUL.
struct StoredSet {
  std::string name;
  SetType type = SetType::kDichotomy;
  std::string label;
  std::string countedValue;
  bool labelFromVariable = false;
  bool categoryLabelsFromCountedValue = false;
  std::vector<std::string> variables;

  bool operator==(const StoredSet& other) const;
};

/// Sets that never change, so that lists share those that they have in common.
using SharedSet = std::shared_ptr<const StoredSet>;
using SetList = std::vector<SharedSet>;

SetList Shared(const std::vector<StoredSet>& sets);
std::vector<StoredSet> Copies(const SetList& sets);

/// Whether the two hold the same; costs next to nothing where they are one.
bool AreSame(const SharedSet& first, const SharedSet& second);

/// How a dataset is used.
struct DatasetOptions {
  /// How long a lock that another process holds is waited for; 0 is not at all.
  std::chrono::milliseconds lockTimeout = std::chrono::seconds(30);
  /// Saves do not wait until they are on the disk: what ends the process costs nothing, but a power failure can cost
  /// the dataset.
  bool relaxed = false;
  /// Gets a sentence, as it happens, where a user should know: a long wait for a lock, a file that is migrated. May be
  /// empty.
  std::function<void(const std::string& sentence)> notify;
};

enum class ChangeKind { kDefined = 1, kChanged = 2, kDeleted = 3, kMoved = 4 };

/// One set that a change of the dataset's sets touched.
struct ChangedSet {
  std::string name;  ///< of a set that was changed, its name before
  ChangeKind kind = ChangeKind::kDefined;
};

/// One save that changed the sets.
struct Change {
  std::int64_t number = 0;       ///< from 1, never used again
  std::string time;              ///< UTC, as in 2024-05-01T12:33:01Z
  std::string command;           ///< its whole text
  bool reordered = false;        ///< whether sets that stayed came into another order
  std::vector<ChangedSet> sets;  ///< without those that were only moved
};

/// One import that made the dataset or replaced its variables and cases.
struct LoggedImport {
  std::int64_t afterChange = 0;  ///< the number of the last change before it
  std::string time;              ///< as of a change
  std::string command;           ///< its options and the name of the survey
  std::int64_t variables = 0;
  std::int64_t cases = 0;
};

/// The versions of the sets that can be had. Version N is what change N left, version 0 what stood before the first.
struct VersionRange {
  std::int64_t first = 0;
  std::int64_t last = 0;  ///< the sets as they are
};

/// How many changes a dataset keeps, and how many imports.
inline constexpr std::int64_t kKeptChanges = 1000;

/// Whether the file begins as datasets do; false where it cannot be read. It may still be damaged, or of a newer
/// format.
bool IsDatasetFile(const std::string& path);

/// A dataset that exists: the dictionary, read as it is touched, the sets in their order, and the cases. Positions of
/// variables count from 0. Every function throws Error when the file cannot be used. What reads begins a
/// command, not exclusive, where none has begun.
class Dataset {
 public:
  /// Opens the file; it must exist and be a dataset. Nothing is written until SaveSets().
  explicit Dataset(const std::string& path, const DatasetOptions& options = {});
  Dataset(const Dataset&) = delete;
  Dataset& operator=(const Dataset&) = delete;
  ~Dataset();

  /// Begins a command: until EndCommand() or SaveSets() all reads see one state of the dataset. With `exclusive`, no
  /// other process can change the dataset meanwhile.
  void BeginCommand(bool exclusive);

  /// Ends a command that leaves the dataset as it is. Harmless when none has begun.
  void EndCommand();

  enum class Saved {
    kDone,       ///< the sets are on the disk
    kReordered,  ///< their new order is on the disk, which is no change
    kUnchanged,  ///< nothing is written: they were the same already, or only their order differs and cannot be kept
    kConflict    ///< nothing is written: another process changed the dataset since the command began
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

  /// Hands over the variables' names in dictionary order, without keeping what it reads.
  void VisitVariableNames(const std::function<void(std::string_view name)>& visit);

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
  std::uint64_t Epoch();

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
  class Implementation;
  std::unique_ptr<Implementation> fImplementation;
};

/// Writes variables and cases into a new dataset, or into one that exists and keeps its sets.
class DatasetWriter {
 public:
  /// Begins to write `path`. A file that exists is refused unless `replace`; then it must be a dataset. Whoever reads
  /// the path meanwhile finds what was there before.
  DatasetWriter(const std::string& path, bool replace, const DatasetOptions& options = {});
  DatasetWriter(const DatasetWriter&) = delete;
  DatasetWriter& operator=(const DatasetWriter&) = delete;

  /// Without a Commit(), everything is as it was before.
  ~DatasetWriter();

  /// The dictionary; once, before the first case. Names are valid and differ without regard to case. A string variable
  /// of width kWidthOfLongestValue becomes as wide as its longest value.
  void SetVariables(const std::vector<Variable>& variables);

  /// One case: a cell for each variable. A cell of a numeric variable is a number as JSON writes it, or empty for
  /// a missing value.
  void AddCase(const std::vector<std::string_view>& cells);

  /// What the log of imports tells of this one; without it the import is not in that log.
  void SetCommand(const std::string& command);

  /// Puts the new dictionary and cases in place, all at once and on the disk.
  void Commit();

 private:
  class Implementation;
  std::unique_ptr<Implementation> fImplementation;
};

}  // namespace standalone

#endif  // STANDALONE_DATA_DATASET_H
