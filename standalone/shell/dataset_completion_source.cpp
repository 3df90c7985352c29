#include "standalone/shell/dataset_completion_source.h"

#include <chrono>

namespace standalone {

std::vector<std::string> DatasetCompletionSource::SetNames() {
  std::vector<std::string> names;
  for (const StoredSet& set : Opened().Sets()) {
    names.push_back(set.name);
  }
  return names;
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
