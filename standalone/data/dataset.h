#ifndef STANDALONE_DATA_DATASET_H
#define STANDALONE_DATA_DATASET_H

#include <cstddef>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace standalone {

/// What is wrong with a dataset, as one plain sentence that names its file.
class DatasetError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

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

/// A dataset that exists: the dictionary, read as it is touched, the sets in their order, and the cases. Positions of
/// variables count from 0. Every function throws DatasetError when the file cannot be used. What reads begins a
/// command, not exclusive, where none has begun.
class Dataset {
 public:
  /// Opens the file; it must exist and be a dataset. Nothing is written until SaveSets().
  explicit Dataset(const std::string& path);
  Dataset(const Dataset&) = delete;
  Dataset& operator=(const Dataset&) = delete;
  ~Dataset();

  /// Begins a command: until EndCommand() or SaveSets() all reads see one state of the dataset. With `exclusive`, no
  /// other process can change the dataset meanwhile.
  void BeginCommand(bool exclusive);

  /// Ends a command that leaves the dataset as it is. Harmless when none has begun.
  void EndCommand();

  enum class Saved {
    kDone,     ///< the sets are on the disk, or were the same already
    kConflict  ///< another process changed the dataset since the command began: nothing is written
  };

  /// Ends a command that leaves these sets, in this order, in one transaction. Where the dataset cannot be written and
  /// only the order differs from that stored, nothing is written and the result is kDone.
  Saved SaveSets(const std::vector<StoredSet>& sets);

  int VariableCount();

  /// The variable at a position, 0 to VariableCount() - 1; valid until the command ends.
  const Variable& VariableAt(int position);

  /// Position of the variable of that name without regard to case, -1 when there is none.
  int FindVariable(std::string_view name);

  /// The stored sets in their order.
  std::vector<StoredSet> Sets();

 private:
  class Implementation;
  std::unique_ptr<Implementation> fImplementation;
};

/// Writes variables and cases into a new dataset, or into one that exists and keeps its sets.
class DatasetWriter {
 public:
  /// Begins to write `path`. A file that exists is refused unless `replace`; then it must be a dataset. Whoever reads
  /// the path meanwhile finds what was there before.
  DatasetWriter(const std::string& path, bool replace);
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

  /// Puts the new dictionary and cases in place, all at once and on the disk.
  void Commit();

 private:
  class Implementation;
  std::unique_ptr<Implementation> fImplementation;
};

}  // namespace standalone

#endif  // STANDALONE_DATA_DATASET_H
