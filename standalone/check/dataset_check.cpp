#include "standalone/check/dataset_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <map>
#include <optional>
#include <sstream>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

#include "standalone/cases/block_codec.h"
#include "standalone/check/counted_value_check.h"
#include "standalone/check/set_rules.h"
#include "standalone/dataset/history.h"
#include "standalone/dataset/import_log.h"
#include "standalone/dataset/set_store.h"
#include "standalone/storage/database.h"
#include "standalone/storage/file_format.h"
#include "standalone/storage/limits.h"
#include "standalone/storage/ordered_keys.h"
#include "standalone/text/error.h"
#include "standalone/text/names.h"
#include "standalone/text/number_text.h"
#include "standalone/text/unicode.h"

namespace standalone {

namespace {

// SQLite names the number of an error within a sentence; the lowest byte is that of its kind.
bool SaysThatDiskFailed(const std::string& text) {
  constexpr std::string_view kNumberFollows = "unable to get the page. error code=";
  constexpr int kFailedInputOrOutput = 10;
  const std::size_t at = text.find(kNumberFollows);
  return at != std::string::npos &&
         (std::atoi(text.c_str() + at + kNumberFollows.size()) & 0xff) == kFailedInputOrOutput;
}

constexpr std::int64_t kMaxInt = std::numeric_limits<int>::max();

class Checker {
 public:
  Checker(Database& database, std::string name, const CheckReport& report)
      : fDatabase(database), fName(std::move(name)), fReport(report) {}

  void Run();

 private:
  using Step = void (Checker::*)();

  void Perform(const char* what, Step step);
  void Integrity();
  void Counts();
  void Variables();
  void VariableRow(Query& row, std::int64_t expected);
  void ValueLabels();
  void ValueLabelRow(Query& row, std::int64_t expected);
  void LabelledOnce(std::int64_t variable, const std::string& value);
  void SetRows();
  void SetRow(std::int64_t id);
  void SetVariables();
  void SetRules();
  void CountedValue(const StoredSet& set, bool isNumeric);
  void Cases();
  void BlockRow(Query& row, std::int64_t number, std::int64_t variable);
  void CompareCases(std::int64_t number, std::int64_t variable, const BlockHead& head);
  void CompareWidth(std::int64_t number, std::int64_t variable);
  void EndBlocks(std::int64_t number);
  void History();
  void ChangeNumbers(const VersionRange& versions);
  void EntriesOfChanges(const VersionRange& versions);
  void Changes(const VersionRange& versions);
  void ChangedNames(const Change& change);
  void KeptForm(std::int64_t number, const StoredSet& before);
  void Imports();

  template <typename Check>
  void Row(const char* what, std::int64_t number, Check check);

  template <typename... Parts>
  void Finding(fmt::format_string<Parts...> text, Parts&&... parts) {
    const fmt::string_view kind = text;
    fReport.finding({kind.data(), kind.size()}, fmt::format(text, std::forward<Parts>(parts)...));
  }

  void CompareCount(const char* what, std::int64_t stored, std::int64_t counted);
  void Generation();
  bool IsNumeric(std::int64_t variable) const { return fWidths[static_cast<std::size_t>(variable)] == 0; }
  std::int64_t IntegerOf(std::string_view sql);
  std::int64_t CountOf(std::string_view sqlOfKeys);
  std::optional<std::size_t> FindPosition(const std::string& name);
  std::optional<Variable> FindVariable(const std::string& name, bool withLabels);

  Database& fDatabase;
  std::string fName;
  const CheckReport& fReport;
  std::vector<std::int64_t> fWidths;  // by position
  Block fBlock;                       // whose memory is used again
  bool fMissesBlocks = false;
  std::int64_t fBlocksSeen = 0;  // of the variables, with one number
  std::int64_t fCasesOfBlock = 0;
  std::int64_t fCasesSeen = 0;
  std::int64_t fCaseCount = 0;
  std::unordered_set<std::string> fLabelledValues;  // of the variable whose value labels are read
  std::map<std::int64_t, StoredSet> fSets;          // by id, those that can be read
  CountedValueCheck fCountedValues;
};

void Checker::Run() {
  Perform("The file", &Checker::Integrity);
  Perform("The header", &Checker::Counts);
  Perform("The dictionary", &Checker::Variables);
  Perform("The value labels", &Checker::ValueLabels);
  Perform("The sets", &Checker::SetRows);
  Perform("The variables of the sets", &Checker::SetVariables);
  Perform("The variables that sets name", &Checker::SetRules);
  Perform("The cases", &Checker::Cases);
  Perform("The history", &Checker::History);
  Perform("The log of imports", &Checker::Imports);
}

// What cannot be read ends its own step alone.
void Checker::Perform(const char* what, Step step) {
  try {
    (this->*step)();
  } catch (const Error& error) {
    RethrowUnless(error, ErrorKind::kDamaged);
    Finding("{} cannot be read to the end.", what);
  }
}

template <typename Check>
void Checker::Row(const char* what, std::int64_t number, Check check) {
  try {
    check();
  } catch (const Error& error) {
    RethrowUnless(error, ErrorKind::kDamaged);
    fReport.finding(what, fmt::format("{} {} has an invalid value.", what, number));
  }
}

std::int64_t Checker::IntegerOf(std::string_view sql) {
  Query query(fDatabase, sql);
  if (!query.Step()) {
    fDatabase.FailAsDamaged();
  }
  return query.Integer(0);
}

// Not with count(), which would never end where pages are shared.
std::int64_t Checker::CountOf(std::string_view sqlOfKeys) {
  Query rows(fDatabase, sqlOfKeys);
  OrderedKeys<std::int64_t> keys(fDatabase);
  std::int64_t count = 0;
  for (; rows.Step(); ++count) {
    keys.Next(rows.Integer(0));
  }
  return count;
}

// What is wrong with the pages comes first, in one row: a heading, and a line for each fault. The rows of all tables
// would be read next, which never ends where pages are shared.
void Checker::Integrity() {
  constexpr std::string_view kBeginningOfPages = "***";
  Query rows(fDatabase, "PRAGMA integrity_check");
  bool goesOn = true;
  while (goesOn && rows.Step()) {
    const std::string text = rows.Text(0);
    if (SaysThatDiskFailed(text)) {
      throw Error(fName + " cannot be read or written: input or output failed.");
    }
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
      const bool isHeading = line.substr(0, kBeginningOfPages.size()) == kBeginningOfPages;
      goesOn = goesOn && !isHeading;
      if (line != "ok" && !isHeading) {
        Finding("The file is not sound: {}.", line);
      }
    }
  }
}

void Checker::CompareCount(const char* what, std::int64_t stored, std::int64_t counted) {
  if (stored != counted) {
    Finding("The header counts {} {}; there are {}.", stored, what, counted);
  }
}

void Checker::Counts() {
  if (const std::int64_t rows = CountOf("SELECT id FROM meta ORDER BY id"); rows != 1) {
    Finding("The header has {} rows instead of one.", rows);
  }
  Generation();
  CompareCount("variables", IntegerOf("SELECT variable_count FROM meta"),
               CountOf("SELECT position, width FROM variable ORDER BY position"));
}

void Checker::Generation() {
  const std::int64_t generation = IntegerOf("SELECT generation FROM meta");
  if (generation < 0 || generation > kMaxNumber) {
    Finding("The counter of writes is {}, beyond its limits.", generation);
  } else if (generation == kMaxNumber) {
    Finding("The counter of writes is at its limit: the dataset cannot be changed.");
  }
}

void Checker::Variables() {
  Query rows(fDatabase, "SELECT position, name, name_key, width, label FROM variable ORDER BY position");
  OrderedKeys<std::int64_t> positions(fDatabase);
  for (std::int64_t expected = 0; rows.Step(); ++expected) {
    positions.Next(rows.Integer(0));
    fWidths.push_back(0);
    Row("The variable at position", expected, [&] { VariableRow(rows, expected); });
  }
}

void Checker::VariableRow(Query& row, std::int64_t expected) {
  const std::int64_t position = row.Integer(0);
  const std::int64_t width = row.Integer(3);
  fWidths.back() = width;
  if (position != expected) {
    Finding("The position of a variable is {} instead of {}.", position, expected);
  }
  if (width < 0 || width > kMaxInt) {
    Finding("The variable at position {} has the width {}.", position, width);
  }
  const std::string name = row.Text(1);
  if (!IsValidVariableName(name)) {
    Finding("The variable at position {} has an invalid name: {}.", position, name);
  }
  if (row.Text(2) != ToUpper(name)) {
    Finding("The variable {} is kept under the key {}.", name, row.Text(2));
  }
  if (!row.IsNull(4)) {
    row.Text(4);
  }
}

void Checker::ValueLabels() {
  Query rows(fDatabase, "SELECT variable, ordinal, value, label FROM value_label ORDER BY variable, ordinal");
  OrderedKeys<std::pair<std::int64_t, std::int64_t>> keys(fDatabase);
  std::int64_t variable = -1;
  std::int64_t expected = 0;
  while (rows.Step()) {
    keys.Next({rows.Integer(0), rows.Integer(1)});
    if (rows.Integer(0) != variable) {
      fLabelledValues.clear();
    }
    expected = rows.Integer(0) == variable ? expected + 1 : 0;
    variable = rows.Integer(0);
    Row("A value label of the variable at position", variable, [&] { ValueLabelRow(rows, expected); });
  }
}

void Checker::ValueLabelRow(Query& row, std::int64_t expected) {
  const std::int64_t variable = row.Integer(0);
  const std::string value = row.Text(2);
  row.Text(3);
  if (variable < 0 || variable >= static_cast<std::int64_t>(fWidths.size())) {
    Finding("There is a value label of a variable at position {}, which does not exist.", variable);
    return;
  }
  if (row.Integer(1) != expected) {
    Finding("The value labels of the variable at position {} are not numbered one after another.", variable);
  }
  if (IsNumeric(variable) && !NumberValue(value)) {
    Finding("The numeric variable at position {} has a label of the value {}, which is not a number.", variable, value);
  } else {
    LabelledOnce(variable, value);
  }
}

// Numbers are compared by their value.
void Checker::LabelledOnce(std::int64_t variable, const std::string& value) {
  const std::optional<double> number = IsNumeric(variable) ? NumberValue(value) : std::nullopt;
  if (!fLabelledValues.insert(number ? ShortestNumber(*number) : value).second) {
    Finding("The variable at position {} has two labels of the value {}.", variable, value);
  }
}

// The order is made here: to sort, the database would read all rows before it hands over the first.
void Checker::SetRows() {
  std::vector<std::pair<std::int64_t, std::int64_t>> places;
  {
    Query rows(fDatabase, "SELECT id, position FROM mr_set ORDER BY id");
    OrderedKeys<std::int64_t> ids(fDatabase);
    while (rows.Step()) {
      places.emplace_back(rows.Integer(1), ids.Next(rows.Integer(0)));
    }
  }
  std::sort(places.begin(), places.end());
  std::optional<std::int64_t> last;
  for (const auto& [position, id] : places) {
    Row("The set with the number", id, [&, setId = id] { SetRow(setId); });
    if (last == position) {
      Finding("Two sets have the position {}.", position);
    }
    last = position;
  }
}

void Checker::SetRow(std::int64_t id) {
  Query row(fDatabase,
            "SELECT position, name_key, name, type, label, counted_value, label_from_variable,"
            " category_labels_from_counted_value FROM mr_set WHERE id = ?");
  if (!row.Bind(id).Step()) {
    fDatabase.FailAsDamaged();
  }
  OrdinaryNumber(fDatabase, id);
  OrdinaryNumber(fDatabase, row.Integer(0));
  StoredSet set = SetOfColumns(fDatabase, row, 2);
  if (row.Text(1) != ToUpper(set.name)) {
    Finding("The set {} is kept under the key {}.", set.name, row.Text(1));
  }
  if (row.Integer(6) < 0 || row.Integer(6) > 1 || row.Integer(7) < 0 || row.Integer(7) > 1) {
    Finding("The set {} has a flag that is neither 0 nor 1.", set.name);
  }
  fSets.emplace(id, std::move(set));
}

std::optional<std::size_t> Checker::FindPosition(const std::string& name) {
  const std::string key = ToUpper(name);
  Query row(fDatabase, "SELECT position FROM variable WHERE name_key = ?");
  if (!row.Bind(key).Step() || row.Integer(0) < 0) {
    return std::nullopt;
  }
  return static_cast<std::size_t>(row.Integer(0));
}

std::optional<Variable> Checker::FindVariable(const std::string& name, bool withLabels) {
  const std::string key = ToUpper(name);
  Query row(fDatabase, "SELECT position, name, width FROM variable WHERE name_key = ?");
  if (!row.Bind(key).Step()) {
    return std::nullopt;
  }
  Variable variable;
  variable.name = row.Text(1);
  variable.width = row.Integer(2) == 0 ? 0 : static_cast<int>(std::clamp<std::int64_t>(row.Integer(2), 1, kMaxInt));
  if (withLabels) {
    Query labels(fDatabase, "SELECT ordinal, value, label FROM value_label WHERE variable = ? ORDER BY ordinal");
    labels.Bind(row.Integer(0));
    OrderedKeys<std::int64_t> ordinals(fDatabase);
    while (labels.Step()) {
      ordinals.Next(labels.Integer(0));
      variable.valueLabels.push_back({labels.Text(1), labels.Text(2)});
    }
  }
  return variable;
}

void Checker::SetVariables() {
  Query rows(fDatabase,
             "SELECT v.set_id, v.ordinal, v.name, coalesce(s.name, '') FROM mr_set_variable AS v"
             " LEFT JOIN mr_set AS s ON s.id = v.set_id ORDER BY v.set_id, v.ordinal");
  OrderedKeys<std::pair<std::int64_t, std::int64_t>> keys(fDatabase);
  std::optional<std::int64_t> set;
  std::int64_t expected = 0;
  while (rows.Step()) {
    keys.Next({rows.Integer(0), rows.Integer(1)});
    expected = set == rows.Integer(0) ? expected + 1 : 0;
    set = rows.Integer(0);
    const std::string setName = rows.Text(3);
    if (setName.empty()) {
      Finding("There is a variable of the set with the number {}, which does not exist.", *set);
    } else if (rows.Integer(1) != expected) {
      Finding("The variables of the set {} are not numbered one after another.", setName);
    }
    if (const auto found = fSets.find(*set); found != fSets.end()) {
      found->second.variables.push_back(rows.Text(2));
    }
  }
}

// What an import may have caused is no finding: it keeps the sets whatever becomes of their variables.
void Checker::SetRules() {
  for (const auto& entry : fSets) {
    const StoredSet& set = entry.second;
    for (const SetProblem& fault : FaultsOf(set)) {
      fReport.finding(fault.kind, Sentence(set, fault));
    }
    const auto find = [this](const std::string& name, bool withLabels) { return FindVariable(name, withLabels); };
    const std::vector<SetProblem> misfits = MisfitsOf(set, find);
    for (const SetProblem& misfit : misfits) {
      fReport.remark(misfit.kind, Sentence(set, misfit));
    }
    if (const auto areNumeric = AreNumeric(set, find); areNumeric && misfits.empty()) {
      CountedValue(set, *areNumeric);
    }
  }
}

// A set fits variables that became strings as "yes" and "no", and counts nothing in them.
void Checker::CountedValue(const StoredSet& set, bool isNumeric) {
  if (set.type != SetType::kDichotomy || set.countedValue.empty()) {
    return;
  }
  std::vector<std::size_t> positions;
  for (const std::string& name : set.variables) {
    if (const auto position = FindPosition(name)) {
      positions.push_back(*position);
    }
  }
  fCountedValues.Add(set, isNumeric, positions);
}

// In the order of the ids come all variables of one number, then those of the next one.
void Checker::Cases() {
  fCaseCount = IntegerOf("SELECT case_count FROM meta");
  if (fReport.progress) {
    fReport.progress(0, static_cast<std::uint64_t>(fCaseCount));
  }
  Query rows(fDatabase, "SELECT id, head, cells FROM block ORDER BY id");
  OrderedKeys<std::int64_t> ids(fDatabase);
  std::int64_t last = -1;
  while (rows.Step()) {
    const std::int64_t id = ids.Next(rows.Integer(0));
    const std::int64_t number = id >> 32;
    if (number != last) {
      EndBlocks(last);
      if (number != last + 1) {
        Finding("The number of a block of cases is {} instead of {}.", number, last + 1);
        fMissesBlocks = true;
      }
      last = number;
    }
    BlockRow(rows, number, id & 0xFFFFFFFF);
  }
  EndBlocks(last);
  CompareCount("cases", fCaseCount, fCasesSeen);
  if (!fMissesBlocks && fCasesSeen == fCaseCount) {
    for (const std::string& sentence : fCountedValues.Sentences()) {
      fReport.remark("counted value", sentence);
    }
  }
}

void Checker::EndBlocks(std::int64_t number) {
  if (number >= 0 && fBlocksSeen != static_cast<std::int64_t>(fWidths.size())) {
    Finding("Block {} of the cases has {} of {} variables.", number, fBlocksSeen, fWidths.size());
    fMissesBlocks = true;
  }
  fCasesSeen += fCasesOfBlock;
  fBlocksSeen = 0;
  fCasesOfBlock = 0;
  if (fReport.progress) {
    fReport.progress(static_cast<std::uint64_t>(fCasesSeen), static_cast<std::uint64_t>(fCaseCount));
  }
}

void Checker::BlockRow(Query& row, std::int64_t number, std::int64_t variable) {
  if (variable >= static_cast<std::int64_t>(fWidths.size())) {
    Finding("There is a block of cases of a variable at position {}, which does not exist.", variable);
    return;
  }
  ++fBlocksSeen;
  const std::string_view head = row.Blob(1);
  const std::string_view cells = row.Blob(2);
  try {
    DecodeBlock(head, cells, fBlock);
    const BlockHead decoded = DecodeHead(head);
    CheckCounts(decoded, fBlock);
    CompareCases(number, variable, decoded);
    CompareWidth(number, variable);
    fCountedValues.Look(static_cast<std::size_t>(variable), fBlock);
  } catch (const Error& error) {
    RethrowUnless(error, ErrorKind::kDamaged);
    Finding("Block {} of the variable at position {} is not sound: {}.", number, variable, error.what());
    fCountedValues.PassOver(static_cast<std::size_t>(variable));
  }
}

/// With the first sound one of the same number.
void Checker::CompareCases(std::int64_t number, std::int64_t variable, const BlockHead& head) {
  const auto cases = static_cast<std::int64_t>(head.cases);
  if (head.isNumeric != IsNumeric(variable)) {
    Finding("Block {} of the variable at position {} holds {}; the variable is {}.", number, variable,
            head.isNumeric ? "numbers" : "texts", head.isNumeric ? "a string" : "numeric");
  }
  if (fCasesOfBlock == 0) {
    fCasesOfBlock = cases;
  } else if (fCasesOfBlock != cases) {
    Finding("Block {} of the variable at position {} has {} cases; those of other variables have {}.", number, variable,
            cases, fCasesOfBlock);
  }
}

/// A codebook's maxLength, which counts characters, may be the width.
void Checker::CompareWidth(std::int64_t number, std::int64_t variable) {
  const auto width = static_cast<std::size_t>(std::max<std::int64_t>(fWidths[static_cast<std::size_t>(variable)], 0));
  const auto isTooLong = [width](std::string_view text) {
    return text.size() > width && CountCharacters(text) > width;
  };
  for (const auto* texts : {&fBlock.texts, &fBlock.cellTexts}) {
    const auto found = std::find_if(texts->begin(), texts->end(), isTooLong);
    if (width > 0 && found != texts->end()) {
      Finding("Block {} of the variable at position {} has a text of {} characters; the width of the variable is {}.",
              number, variable, CountCharacters(*found), width);
    }
  }
}

void Checker::History() {
  const VersionRange versions = KeptVersions(fDatabase);
  ChangeNumbers(versions);
  EntriesOfChanges(versions);
  Changes(versions);
  std::int64_t number = versions.last;
  Rewind rewind(fDatabase, LoadSets(fDatabase), [&](const StoredSet& before) { KeptForm(number, before); });
  for (; number > versions.first; --number) {
    try {
      rewind.Undo(number, number);
    } catch (const Error& error) {
      RethrowUnless(error, ErrorKind::kDamaged);
      Finding("The sets before change {} cannot be rebuilt.", number);
      return;
    }
    if (rewind.HasDuplicates()) {
      Finding("Before change {} two sets have the same name or position.", number);
      return;
    }
  }
}

void Checker::ChangeNumbers(const VersionRange& versions) {
  const std::int64_t count = CountOf("SELECT number FROM history ORDER BY number");
  if (count != versions.last - versions.first) {
    Finding("The changes are numbered {} to {}, and there are {}.", versions.first + 1, versions.last, count);
    fDatabase.FailAsDamaged();
  }
  if (count > kMaxKeptChanges) {
    Finding("There are {} changes; {} are kept at most.", count, kMaxKeptChanges);
  }
  if (versions.last == kMaxNumber) {
    Finding("The counter of changes is at its limit: the sets cannot be changed.");
  }
}

void Checker::EntriesOfChanges(const VersionRange& versions) {
  Query rows(fDatabase, "SELECT history, set_id FROM history_set ORDER BY history, set_id");
  OrderedKeys<std::pair<std::int64_t, std::int64_t>> keys(fDatabase);
  std::int64_t lost = 0;
  while (rows.Step()) {
    const std::int64_t number = keys.Next({rows.Integer(0), rows.Integer(1)}).first;
    lost += number <= versions.first || number > versions.last ? 1 : 0;
  }
  if (lost != 0) {
    Finding("Entries of the history that belong to no change: {}.", lost);
  }
}

void Checker::Changes(const VersionRange& versions) {
  for (std::int64_t number = versions.first + 1; number <= versions.last; ++number) {
    Row("Change", number, [&] {
      const std::optional<Change> change = ChangeBefore(fDatabase, number + 1);
      if (change && !IsTimeOfChange(change->time)) {
        Finding("Change {} has the invalid time {}.", number, change->time);
      }
      if (change) {
        ChangedNames(*change);
        if (change->sets.empty() && !change->reordered) {
          Finding("Change {} changed nothing.", number);
        }
      }
    });
  }
}

void Checker::ChangedNames(const Change& change) {
  for (const ChangedSet& set : change.sets) {
    if (!IsValidSetName(set.name)) {
      Finding("Change {} has a set with the invalid name {}.", change.number, set.name);
    }
  }
}

/// An undo would bring the form back. Its name is one of the change's.
void Checker::KeptForm(std::int64_t number, const StoredSet& before) {
  for (const SetProblem& fault : FaultsOf(before)) {
    if (fault.kind != kSetNameProblem) {
      Finding("Before change {} the history has an invalid set: {} {}.", number, before.name, fault.text);
    }
  }
}

void Checker::Imports() {
  const std::int64_t last = KeptVersions(fDatabase).last;
  for (const LoggedImport& import : LoadImports(fDatabase)) {
    if (!IsTimeOfChange(import.time)) {
      Finding("An import has the invalid time {}.", import.time);
    }
    if (import.afterChange > last) {
      Finding("An import came after change {}, which does not exist.", import.afterChange);
    }
  }
}

}  // namespace

void CheckDataset(const std::string& path, const DatasetOptions& options, const CheckReport& report) {
  const std::unique_ptr<Database> database = OpenDataset(path, options);
  database->Execute("BEGIN");
  Checker(*database, path, report).Run();
}

}  // namespace standalone
