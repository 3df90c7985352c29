#ifndef STANDALONE_IMPORT_IMPORTER_H
#define STANDALONE_IMPORT_IMPORTER_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "standalone/import/columns.h"
#include "standalone/storage/dataset_options.h"

namespace standalone {

/// How an import gets on. The data are read twice where types come from them.
struct ImportProgress {
  bool isForTypes = false;            ///< the first of two times
  std::uint64_t bytes = 0;            ///< that were read, of this time
  std::optional<std::uint64_t> size;  ///< of the data, where it is known
};

struct ImportRequest {
  std::string dataPath;                     ///< CSV, UTF-8, with a header row; "-" for standard input
  std::optional<std::string> codebookPath;  ///< Table Schema JSON
  std::string datasetPath;
  bool replace = false;  ///< replace variables and cases of a dataset that exists, keep its sets
  DatasetOptions datasetOptions = {};
  std::function<void(const ImportProgress&)> progress = {};  ///< called for each case; may be empty
  std::function<void()> beforeWriting = {};  ///< called when only the dataset is left to write; may be empty
};

/// A column that became a string because of few cells.
struct NearlyNumericColumn {
  std::string name;
  OddCells odd;
};

struct ImportSummary {
  std::size_t variables = 0;
  std::size_t cases = 0;
  std::vector<NearlyNumericColumn> nearlyNumeric;
};

/// What a survey is called in sentences: its path, or "standard input" for "-".
std::string SurveyName(const std::string& path);

/// Reads a survey into a dataset file. Throws Error; then every file is as it was.
ImportSummary ImportSurvey(const ImportRequest& request);

}  // namespace standalone

#endif  // STANDALONE_IMPORT_IMPORTER_H
