#ifndef STANDALONE_SHELL_DATASET_COMPLETION_SOURCE_H
#define STANDALONE_SHELL_DATASET_COMPLETION_SOURCE_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/dataset/dataset.h"
#include "standalone/shell/completer.h"

namespace standalone {

/// A dataset as it is now, opened when it is asked for the first time. What it throws is an Error. It must not
/// live on where the process forks.
class DatasetCompletionSource : public CompletionSource {
 public:
  explicit DatasetCompletionSource(std::string path) : fPath(std::move(path)) {}

  std::vector<std::string> SetNames() override;
  std::optional<StoredSet> FindSet(const std::string& name) override;
  void VisitVariables(std::string_view beginning, int from, const VisitName& visit) override;
  int FindVariable(const std::string& name) override;
  const Variable& VariableAt(int position) override;

 private:
  Dataset& Opened();

  std::string fPath;
  std::optional<Dataset> fDataset;
};

}  // namespace standalone

#endif  // STANDALONE_SHELL_DATASET_COMPLETION_SOURCE_H
