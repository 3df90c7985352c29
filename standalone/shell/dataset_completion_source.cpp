#include "standalone/shell/dataset_completion_source.h"

#include <chrono>
#include <utility>

#include "standalone/text/unicode.h"

namespace standalone {

std::vector<std::string> DatasetCompletionSource::SetNames() {
  std::vector<std::string> names;
  for (const StoredSet& set : Opened().Sets()) {
    names.push_back(set.name);
  }
  return names;
}

std::optional<StoredSet> DatasetCompletionSource::FindSet(const std::string& name) {
  for (StoredSet& set : Opened().Sets()) {
    if (CompareNoCase(set.name, name) == 0) {
      return std::move(set);
    }
  }
  return std::nullopt;
}

void DatasetCompletionSource::VisitVariables(std::string_view beginning, int from, const VisitName& visit) {
  Opened().VisitVariables(beginning, from, visit);
}

int DatasetCompletionSource::FindVariable(const std::string& name) {
  return Opened().FindVariable(name);
}

const Variable& DatasetCompletionSource::VariableAt(int position) {
  return Opened().VariableAt(position);
}

/// Who types does not wait long for another process.
Dataset& DatasetCompletionSource::Opened() {
  if (!fDataset) {
    DatasetOptions options;
    options.lockTimeout = std::chrono::milliseconds(200);
    fDataset.emplace(fPath, options);
  }
  return *fDataset;
}

}  // namespace standalone
