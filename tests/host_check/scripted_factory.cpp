#include "tests/host_check/scripted_factory.h"

namespace {

scripted::Variable ToScripted(const host_check::Variable& variable) {
  scripted::Variable scripted{variable.name, variable.width, variable.label, {}};
  for (const host_check::ValueLabel& entry : variable.valueLabels) {
    scripted.valueLabels.push_back({entry.value, entry.label});
  }
  return scripted;
}

scripted::HostSetup ToScripted(const host_check::Setup& setup) {
  scripted::HostSetup scripted;
  scripted.datasetOpen = setup.datasetIsOpen;
  for (const host_check::Variable& variable : setup.variables) {
    scripted.dictionary.push_back(ToScripted(variable));
  }
  for (const host_check::Set& set : setup.sets) {
    scripted.sets.push_back({set.name, set.type, set.label, set.countedValue, set.labelSetByVariable,
                             set.useVariableCategoryLabels, set.variables});
  }
  return scripted;
}

host_check::Cell ToCell(const scripted::Cell* cell) {
  host_check::Cell found;
  if (cell == nullptr) {
    return found;
  }
  if (cell->text) {
    found.lines = cell->text->entries.value_or(std::vector{cell->text->text});
  }
  for (const scripted::TextData& note : cell->notes) {
    found.notes.push_back(note.text);
  }
  return found;
}

host_check::Table ToTable(const scripted::Table& table) {
  host_check::Table found{table.title.text, {}, {}};
  if (table.Columns() == nullptr) {
    return found;
  }
  for (const scripted::TextData& column : table.Columns()->categories) {
    found.columns.push_back(column.text);
  }
  for (const scripted::TextData& heading : table.Rows()->categories) {
    host_check::Row& row = found.rows.emplace_back(host_check::Row{heading.text, {}});
    for (std::size_t column = 0; column < found.columns.size(); ++column) {
      row.cells.push_back(ToCell(table.At(found.rows.size() - 1, column)));
    }
  }
  return found;
}

}  // namespace

void ScriptedFactory::Begin(const host_check::Setup& setup) {
  fHost = std::make_unique<scripted::ScriptedHost>(ToScripted(setup), setup.command);
}

host_check::Result ScriptedFactory::End() {
  host_check::Result result;
  for (const scripted::Procedure& procedure : fHost->Procedures()) {
    result.procedures.push_back(procedure.title);
  }
  for (const scripted::Message& message : fHost->Messages()) {
    result.messages.push_back({static_cast<BpErrorLevel>(message.level), message.text});
  }
  for (const scripted::Table& table : fHost->Tables()) {
    result.tables.push_back(ToTable(table));
  }
  for (const scripted::SetData& set : fHost->StoredSets()) {
    result.sets.push_back({set.name, set.type, set.label, set.value, set.labelSetByVariable,
                           set.useVariableCategoryLabels, set.variables});
  }
  fHost.reset();
  return result;
}
