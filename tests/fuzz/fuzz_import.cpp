// A codebook and a CSV into the importer: it refuses them with a sentence and leaves every file as it was, or makes a
// dataset that holds what a second reading of the CSV finds.

#include <algorithm>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>

#include "standalone/dataset/dataset.h"
#include "standalone/dataset/dataset_writer.h"
#include "standalone/import/importer.h"
#include "standalone/text/error.h"
#include "tests/fuzz/check.h"
#include "tests/fuzz/plain_csv.h"
#include "tests/fuzz/scratch_folder.h"
#include "tests/fuzz/target.h"
#include "tests/standalone/stored_cases.h"

namespace fuzz {
namespace {

using Json = nlohmann::json;

constexpr const char* kData = "data.csv";
constexpr const char* kCodebook = "codebook.json";
constexpr const char* kDataset = "survey.mrset";
constexpr std::string_view kSeparator = "\n---\n";

/// The first character says whether a dataset is to be replaced; up to the separator follows the codebook, then the
/// data. Without a separator all is data.
struct Input {
  bool replace = false;
  std::optional<std::string> codebook;
  std::string data;
};

Input ReadInput(std::string_view text) {
  Input input;
  if (text.empty()) {
    return input;
  }
  input.replace = text[0] == 'R';
  text.remove_prefix(1);
  const std::size_t separator = text.find(kSeparator);
  if (separator != std::string_view::npos) {
    input.codebook = text.substr(0, separator);
    text.remove_prefix(separator + kSeparator.size());
  }
  input.data = text;
  return input;
}

const ScratchFolder& Folder() {
  static const ScratchFolder folder;
  return folder;
}

const std::vector<standalone::StoredSet>& SetsOfOldDataset() {
  static const std::vector<standalone::StoredSet> sets{
      {"$old", standalone::SetType::kDichotomy, "Old", "1", false, false, {"q1", "q2"}}};
  return sets;
}

/// The bytes of a small dataset with a set.
const std::string& OldDataset() {
  static const std::string bytes = [] {
    const std::string path = Folder().Path(kDataset);
    standalone::DatasetWriter writer(path, false);
    writer.SetVariables({{"q1", 0, "One", {{"1", "Yes"}}}, {"q2", 0, std::nullopt, {}}});
    writer.AddCase({"1", ""});
    writer.Commit();
    standalone::Dataset(path).SaveSets(SetsOfOldDataset(), "MRSET");
    return Folder().Read(kDataset);
  }();
  return bytes;
}

standalone::ImportRequest RequestOf(const Input& input) {
  standalone::ImportRequest request;
  request.dataPath = Folder().Path(kData);
  request.datasetPath = Folder().Path(kDataset);
  request.replace = input.replace;
  if (input.codebook) {
    request.codebookPath = Folder().Path(kCodebook);
  }
  return request;
}

void WriteFiles(const Input& input) {
  const std::string& oldDataset = OldDataset();
  Folder().Clear();
  Folder().Write(kData, input.data);
  if (input.codebook) {
    Folder().Write(kCodebook, *input.codebook);
  }
  if (input.replace) {
    Folder().Write(kDataset, oldDataset);
  }
}

void CheckNumber(const std::string& cell, const Json& stored) {
  const std::size_t begin = cell.find_first_not_of(" \t");
  if (begin == std::string::npos) {
    Check(stored.is_null(), "an empty cell is a missing value");
    return;
  }
  const char first = cell[begin];
  const bool isWord = first == 't' || first == 'T' || first == 'f' || first == 'F';
  const double expected = isWord ? (first == 't' || first == 'T' ? 1 : 0) : std::strtod(cell.c_str() + begin, nullptr);
  Check(stored.is_number(), "a numeric cell is a number");
  Check(stored.get<double>() == expected, "a number keeps its value");
}

std::size_t CountCharacters(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; }));
}

void CheckCell(const standalone::Variable& variable, const std::string& cell, const Json& stored) {
  if (variable.width == 0) {
    CheckNumber(cell, stored);
    return;
  }
  Check(stored.is_string() || stored.is_null(), "a cell of a string variable is a string or missing");
  CheckSame(stored.is_null() ? "" : stored.get<std::string>(), cell, "a text");
  Check(CountCharacters(cell) <= static_cast<std::size_t>(variable.width), "a text fits its variable");
}

void CheckVariables(standalone::Dataset& dataset, const std::vector<std::string>& header) {
  Check(dataset.VariableCount() == static_cast<int>(header.size()), "a variable for each column");
  for (std::size_t index = 0; index < header.size(); ++index) {
    const auto position = static_cast<int>(index);
    CheckSame(dataset.VariableAt(position).name, header[index], "the name of a variable");
    Check(dataset.FindVariable(header[index]) == position, "a variable is found by its name");
  }
}

void CheckCases(standalone::Dataset& dataset, const Rows& rows) {
  const std::vector<Json> cases = standalone::StoredCases(dataset);
  Check(cases.size() == rows.size() - 1, "a case for each row");
  for (std::size_t row = 1; row < rows.size(); ++row) {
    const Json& cells = cases[row - 1];
    Check(cells.size() == rows[row].size(), "a cell for each column");
    for (std::size_t column = 0; column < cells.size(); ++column) {
      CheckCell(dataset.VariableAt(static_cast<int>(column)), rows[row][column], cells[column]);
    }
  }
}

void CheckDataset(const Input& input, const standalone::ImportSummary& summary) {
  const std::optional<Rows> rows = ReadPlainCsv(input.data);
  Check(rows && !rows->empty(), "the data are CSV");
  Check(summary.variables == rows->front().size(), "the number of variables");
  Check(summary.cases == rows->size() - 1, "the number of cases");
  standalone::Dataset dataset(Folder().Path(kDataset));
  CheckVariables(dataset, rows->front());
  CheckCases(dataset, *rows);
  Check(dataset.Sets() == (input.replace ? SetsOfOldDataset() : std::vector<standalone::StoredSet>()), "the sets");
}

void CheckFailure(const std::string& sentence, const std::map<std::string, std::string>& before) {
  Check(!sentence.empty() && sentence.back() == '.', "a failure is a sentence");
  Check(sentence.find(Folder().Path("")) != std::string::npos, "a failure names the file");
  Check(Folder().Contents() == before, "a failure leaves every file as it was");
}

void Try(const Input& input) {
  WriteFiles(input);
  const std::map<std::string, std::string> before = Folder().Contents();
  standalone::ImportSummary summary;
  try {
    summary = standalone::ImportSurvey(RequestOf(input));
  } catch (const standalone::Error& error) {
    CheckFailure(error.what(), before);
    return;
  }
  CheckDataset(input, summary);
  Check(Folder().Names().size() == before.size() + (input.replace ? 0 : 1), "an import makes one file");
}

}  // namespace
}  // namespace fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Try(fuzz::ReadInput({reinterpret_cast<const char*>(data), size}));
  return 0;
}
