#include "host/dictionary.h"

#include "standalone/host/command_context.h"
#include "standalone/host/records.h"

using standalone::CommandContext;
using standalone::Variable;
using standalone::VariableRecord;

namespace {

const VariableRecord& RecordOf(const void* record) {
  return *static_cast<const VariableRecord*>(record);
}

CommandContext& ContextOf(void* record) {
  return *static_cast<CommandContext*>(record);
}

template <typename Value>
const char* FindLabel(const void* variable, const Value& value) {
  const std::string* label = LabelOf(*static_cast<const Variable*>(variable), value);
  return label == nullptr ? nullptr : label->c_str();
}

}  // namespace

ZEVA_Variable::ZEVA_Variable(void* record) : fRecord(record) {}

const char* ZEVA_Variable::GetName() const {
  return RecordOf(fRecord).variable.name.c_str();
}

int ZEVA_Variable::GetType() const {
  return RecordOf(fRecord).variable.width;
}

const char* ZEVA_Variable::GetLabel() const {
  const std::optional<std::string>& label = RecordOf(fRecord).variable.label;
  return label ? label->c_str() : nullptr;
}

const ZEVA_VLImplPointer& ZEVA_Variable::GetValueLabels() const {
  return RecordOf(fRecord).valueLabels;
}

// The variable is only read through the map; the handle's type has no constant pointer.
ZEVA_ValueLabelMap::ZEVA_ValueLabelMap(const ZEVA_VLImplPointer& valueLabels)
    : fRecord(const_cast<Variable*>(&valueLabels.Variable())) {}  // NOLINT(cppcoreguidelines-pro-type-const-cast)

ZEVA_ValueLabelMap::~ZEVA_ValueLabelMap() = default;

void ZEVA_ValueLabelMap::Reset() {}

const char* ZEVA_ValueLabelMap::GetLabel(const double& value) const {
  return FindLabel(fRecord, value);
}

const char* ZEVA_ValueLabelMap::GetLabel(const std::string& value) const {
  return FindLabel(fRecord, value);
}

ZEVA_DataSource::ZEVA_DataSource(void* record) : fRecord(record) {}

ZEVA_DataSource* ZEVA_DataSource::GetParentSource() const {
  CommandContext& context = ContextOf(fRecord);
  context.Reading().End();  // where the sets are kept is asked for by what changes them
  return &context.ParentSource();
}

int ZEVA_DataSource::ColumnCount() const {
  return ContextOf(fRecord).Data().VariableCount();
}

const ZEVA_Variable* ZEVA_DataSource::GetVariable(int index) const {
  return &ContextOf(fRecord).VariableAt(index).handle;
}

int ZEVA_DataSource::FindVarIndex(const char* name, int /*flags*/) const {
  return ContextOf(fRecord).Data().FindVariable(name);
}

ProcedureDataSource::ProcedureDataSource() : ZEVA_DataSource(&CommandContext::Current()) {}

ProcedureDataSource::~ProcedureDataSource() = default;
