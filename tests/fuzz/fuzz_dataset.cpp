// A damaged dataset into everything that opens one: reading it, saving sets, commands of the module on it, its history,
// a check, and the replacement of its contents. Each does its work or fails with an Error; no other file is left
// behind.

#include <array>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "backend/mrset/mrset.h"
#include "standalone/check/dataset_check.h"
#include "standalone/dataset/dataset.h"
#include "standalone/dataset/dataset_writer.h"
#include "standalone/host/command_context.h"
#include "standalone/host/set_exchange.h"
#include "standalone/language/tokenizer.h"
#include "standalone/output/json/result_json.h"
#include "standalone/output/json/sets_json.h"
#include "standalone/output/plain/log_text.h"
#include "standalone/text/error.h"
#include "tests/fuzz/check.h"
#include "tests/fuzz/dataset_image.h"
#include "tests/fuzz/target.h"

namespace fuzz {
namespace {

using standalone::Dataset;

constexpr const char* kDataset = "damaged.mrset";

const ScratchFolder& Folder() {
  static const ScratchFolder folder;
  return folder;
}

const DatasetImage& Image(bool large) {
  static const DatasetImage small(Folder(), 2, 10);
  static const DatasetImage big(Folder(), 100, 9000);
  return large ? big : small;
}

/// Every sentence names the file.
template <typename Action>
void AllowError(Action action) {
  try {
    action();
  } catch (const standalone::Error& error) {
    const std::string sentence = error.what();
    Check(sentence.find(kDataset) != std::string::npos && sentence.back() == '.',
          "a failure is a sentence on the file");
  }
}

/// Shows something as JSON, which must not fail.
template <typename Write>
void CheckJson(Write write) {
  std::ostringstream stream;
  standalone::JsonWriter json(stream);
  write(json);
  Check(stream.tellp() > 0, "all can be shown");
}

void ReadAll(const std::string& path) {
  Dataset dataset(path);
  for (int position = 0; position < dataset.VariableCount(); ++position) {
    const standalone::Variable& variable = dataset.VariableAt(position);
    CheckJson([&](auto& json) { json.Object([&] { WriteMembers(json, variable); }); });
    Check(dataset.FindVariable(variable.name) < dataset.VariableCount(), "a position lies in the dictionary");
  }
  for (const standalone::StoredSet& set : dataset.Sets()) {
    CheckJson([&](auto& json) { json.Object([&] { WriteMembers(json, set); }); });
  }
}

void SaveChangedSets(const std::string& path) {
  Dataset dataset(path);
  std::vector<standalone::StoredSet> sets = dataset.Sets();
  std::vector<standalone::StoredSet> changed(sets.rbegin(), sets.rend());
  changed.push_back({"$fuzz", standalone::SetType::kCategory, "New", "", false, false, {"q1"}});
  Check(dataset.SaveSets(changed, "MRSET") != Dataset::Saved::kConflict, "nobody else writes");
  Check(dataset.Sets() == changed, "what was saved is read again");
}

void RunCommand(const std::string& path, std::string_view command) {
  Dataset dataset(path);
  const standalone::OutputSink sink{[](const std::string&) {},
                                    [](const standalone::Item& item) {
                                      std::ostringstream stream;
                                      standalone::JsonWriter json(stream);
                                      WriteJson(json, item);
                                      Check(stream.tellp() > 0, "an item");
                                    }};
  const standalone::ScriptCommand scriptCommand{std::string(command), 1};
  const std::vector<standalone::Token> tokens = standalone::Tokenize(command);
  dataset.BeginTransaction(standalone::Access::kShared);
  standalone::SetExchange exchange;
  standalone::CommandContext session(dataset, scriptCommand, tokens, dataset.SharedSets(), exchange, sink);
  mrset_();
  if (session.SavedSets()) {
    Check(dataset.SaveSets(*session.SavedSets(), std::string(command)) != Dataset::Saved::kConflict,
          "nobody else writes");
  }
}

void ReplaceContents(const std::string& path) {
  standalone::DatasetWriter writer(path, true);
  writer.SetVariables({{"q1", 0, std::nullopt, {}}, {"q9", 1, "Nine", {{"x", "X"}}}});
  writer.AddCase({"1", "x"});
  writer.Commit();
}

void ReadHistory(const std::string& path) {
  Dataset dataset(path);
  const standalone::VersionRange versions = dataset.Versions();
  for (const std::int64_t version : {versions.first, versions.first + (versions.last - versions.first) / 2}) {
    for (const standalone::StoredSet& set : dataset.SetsOfVersion(version)) {
      Check(!set.name.empty(), "a set has a name");
    }
  }
  dataset.ForEachChange(
      [](const standalone::Change& change) { CheckJson([&](auto& json) { WriteJson(json, change); }); });
}

void GoBack(const std::string& path) {
  Dataset dataset(path);
  const std::vector<standalone::StoredSet> before = dataset.SetsOfVersion(0);
  Check(dataset.SaveSets(before, "undo") != Dataset::Saved::kConflict, "nobody else writes");
  Check(dataset.Sets() == before, "the sets are those of the version");
}

/// A dataset in which a check finds nothing can be read and changed.
void CheckWhole(const std::string& path) {
  bool isSound = true;
  standalone::CheckReport report;
  report.finding = [&isSound](std::string_view, const std::string& sentence) {
    Check(!sentence.empty() && sentence.back() == '.', "a finding is a sentence");
    isSound = false;
  };
  report.remark = [](std::string_view, const std::string&) {};
  standalone::CheckDataset(path, {}, report);
  try {
    if (isSound) {
      ReadAll(path);
      ReadHistory(path);
      SaveChangedSets(path);
    }
  } catch (const standalone::Error& error) {
    Fail(error.what());
  }
}

void Act(unsigned choice, const std::string& path) {
  constexpr std::array<std::string_view, 6> kCommands = {
      "MRSET /DISPLAY NAME=ALL",
      "MRSET /DISPLAY NAME=[$a $labels]",
      "MRSET /DELETE NAME=[$b $a]",
      "MRSET /MDGROUP NAME=$A VARIABLES=q1 TO q3 VALUE=1 LABELSOURCE=VARLABEL CATEGORYLABELS=COUNTEDVALUES",
      "MRSET /MDGROUP NAME=$s VARIABLES=s1 TO s2 VALUE='abc' /MCGROUP NAME=$c VARIABLES=q1 q3 /DISPLAY NAME=ALL",
      "MRSET /MCGROUP NAME=$n VARIABLES=ALL"};
  if (choice == 0) {
    SaveChangedSets(path);
  } else if (choice == 1) {
    ReplaceContents(path);
  } else if (choice == 8) {
    ReadHistory(path);
  } else if (choice == 9) {
    GoBack(path);
  } else if (choice == 10) {
    CheckWhole(path);
  } else {
    RunCommand(path, kCommands[choice % kCommands.size()]);
  }
}

void CheckFolder() {
  for (const std::string& name : Folder().Names()) {
    Check(name.substr(0, std::string_view(kDataset).size()) == kDataset, "no other file is left behind");
  }
}

/// The first byte chooses the dataset and what is done with it after reading it; the edits follow.
void Try(std::string_view input) {
  if (input.empty()) {
    return;
  }
  const auto choice = static_cast<unsigned char>(input[0]);
  const std::string bytes = Image((choice & 1U) != 0).Edited(input.substr(1));
  const std::string path = Folder().Path(kDataset);
  Folder().Clear();
  Folder().Write(kDataset, bytes);
  AllowError([&path] { ReadAll(path); });
  AllowError([&] { Act(choice / 2U % 11U, path); });
  AllowError([&path] { ReadAll(path); });
  CheckFolder();
}

}  // namespace
}  // namespace fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Try({reinterpret_cast<const char*>(data), size});
  return 0;
}
