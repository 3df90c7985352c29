#include <gtest/gtest.h>

#include <optional>
#include <sstream>

#include "host_check/host_check.h"
#include "standalone/dataset/dataset.h"
#include "standalone/dataset/dataset_writer.h"
#include "standalone/host/command_context.h"
#include "tests/standalone/temporary_folder.h"

namespace {

using standalone::StoredSet;

std::string TextOf(const std::variant<double, std::string>& value) {
  const auto* number = std::get_if<double>(&value);
  return number == nullptr ? std::get<std::string>(value) : std::to_string(*number);
}

standalone::Variable ToVariable(const host_check::Variable& variable) {
  standalone::Variable made{variable.name, variable.width, variable.label, {}};
  for (const host_check::ValueLabel& entry : variable.valueLabels) {
    made.valueLabels.push_back({TextOf(entry.value), entry.label});
  }
  return made;
}

StoredSet ToStored(const host_check::Set& set) {
  const auto type = set.type == VariableSet::kMCSet ? standalone::SetType::kCategory : standalone::SetType::kDichotomy;
  return {set.name,     type, set.label, set.countedValue, set.labelSetByVariable, set.useVariableCategoryLabels,
          set.variables};
}

host_check::Set ToSet(const StoredSet& set) {
  const auto type = set.type == standalone::SetType::kCategory ? VariableSet::kMCSet : VariableSet::kMDSet;
  return {set.name,     type, set.label, set.countedValue, set.labelFromVariable, set.categoryLabelsFromCountedValue,
          set.variables};
}

host_check::Cell ToCell(const standalone::Cell& cell) {
  host_check::Cell found;
  if (const auto* text = std::get_if<std::string>(&cell.value)) {
    found.lines = {*text};
  } else if (const auto* lines = std::get_if<std::vector<std::string>>(&cell.value)) {
    found.lines = *lines;
  }
  if (cell.note) {
    found.notes = {*cell.note};
  }
  return found;
}

host_check::Table ToTable(const standalone::Table& table) {
  host_check::Table found{table.title, table.columns, {}};
  for (const standalone::TableRow& row : table.rows) {
    host_check::Row& made = found.rows.emplace_back(host_check::Row{row.name, {}});
    for (const standalone::Cell& cell : row.cells) {
      made.cells.push_back(ToCell(cell));
    }
  }
  return found;
}

constexpr const char* kDataset = "data.mrset";

/// One command on a dataset of its own.
struct Running {
  Running(const host_check::Setup& setup, host_check::Result& result)
      : command{setup.command}, tokens(standalone::Tokenize(setup.command)) {
    std::vector<standalone::Variable> variables;
    for (const host_check::Variable& variable : setup.variables) {
      variables.push_back(ToVariable(variable));
    }
    standalone::DatasetWriter writer(kDataset, true);
    writer.SetVariables(variables);
    writer.Commit();
    std::vector<StoredSet> stored;
    for (const host_check::Set& set : setup.sets) {
      stored.push_back(ToStored(set));
    }
    dataset.emplace(kDataset);
    sink.procedure = [&result](const std::string& title) { result.procedures.push_back(title); };
    sink.item = [&result](const standalone::Item& item) { Put(item, result); };
    dataset->BeginTransaction(standalone::Access::kShared);
    dataset->SaveSets(stored, "");
    dataset->BeginTransaction(standalone::Access::kShared);
    session.emplace(*dataset, command, tokens, dataset->SharedSets(), exchange, sink);
  }

  static void Put(const standalone::Item& item, host_check::Result& result) {
    if (const auto* message = std::get_if<standalone::Message>(&item)) {
      const bool isError = message->level == standalone::Level::kError;
      result.messages.push_back({isError ? kBpErrorLevelError : kBpErrorLevelWarning, message->text});
    } else {
      result.tables.push_back(ToTable(std::get<standalone::Table>(item)));
    }
  }

  standalone::ScriptCommand command;
  std::vector<standalone::Token> tokens;
  std::optional<standalone::Dataset> dataset;
  standalone::SetExchange exchange;
  standalone::OutputSink sink;
  std::optional<standalone::CommandContext> session;
};

class StandaloneFactory final : public host_check::HostFactory {
 public:
  void Begin(const host_check::Setup& setup) override {
    fResult = {};
    fRunning.emplace(setup, fResult);
  }

  host_check::Result End() override {
    if (const auto& saved = fRunning->session->SavedSets()) {
      fRunning->dataset->SaveSets(*saved, fRunning->command.text);
    }
    for (const StoredSet& set : fRunning->dataset->Sets()) {
      fResult.sets.push_back(ToSet(set));
    }
    fRunning.reset();
    return fResult;
  }

  bool RunsWithoutDataset() const override { return false; }

 private:
  host_check::Result fResult;
  std::optional<Running> fRunning;
};

using HostCheck = standalone::TemporaryFolderTest;

TEST_F(HostCheck, FindsNothingWrongWithTheStandaloneHost) {
  StandaloneFactory factory;
  std::ostringstream report;
  EXPECT_EQ(RunHostCheck(factory, report), 0) << report.str();
  const std::string untried = "    not tried: the host runs no command without a dataset\n";
  std::size_t count = 0;
  for (std::size_t at = 0; (at = report.str().find("not tried", at)) != std::string::npos; ++at) {
    EXPECT_EQ(report.str().compare(at - 4, untried.size(), untried), 0) << report.str();
    ++count;
  }
  EXPECT_EQ(count, 2U) << report.str();
}

}  // namespace
