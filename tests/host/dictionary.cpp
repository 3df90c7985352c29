#include "host/dictionary.h"

#include <algorithm>
#include <array>
#include <variant>

#include "tests/host/call.h"
#include "tests/host/host_access.h"
#include "tests/host/lies.h"
#include "tests/host/sources.h"

CommonDictionary* CmnDic = nullptr;

namespace scripted {

SourceNamed SourceName(const Core& core, const ZEVA_DataSource& source) {
  return {core.record->ledger, HostAccess::Handle(source)};
}

void CheckSource(Core& core, const ZEVA_DataSource& source) {
  const std::intptr_t handle = HostAccess::Handle(source);
  if (handle != 0) {
    Use(core, handle, Kind::kSource);
  } else if (!core.record->ledger.HasLive(Kind::kSource)) {
    core.Violate("the parent source was used and no source is alive");
  }
}

namespace {

const VariableRecord& RecordOf(const void* record) {
  return *static_cast<const VariableRecord*>(record);
}

/// The record of a variable that is being asked.
const VariableRecord& Asked(Core& core, const void* record) {
  if (!core.record->ledger.HasLive(Kind::kSource)) {
    core.Violate("variable " + RecordOf(record).data.name + " was used and no source is alive");
  }
  return RecordOf(record);
}

Bare NameOf(const void* record) {
  return {RecordOf(record).data.name};
}

/// Stands in for a variable that does not exist.
const ZEVA_Variable* NoVariable() {
  static const VariableRecord record(Numeric("(no variable)"));
  return &record.variable;
}

/// The lie of a text that lives only as long as no other is asked for.
const char* InSharedBuffer(const std::string& text) {
  static std::array<char, 64> buffer;
  buffer.fill('\0');
  text.copy(buffer.data(), buffer.size() - 1);
  return buffer.data();
}

const char* NameToTell(const std::string& name) {
  if (Tells(Lie::kNamesInLowerCase) && name == "Age") {
    return "age";
  }
  return Tells(Lie::kNamesShareABuffer) ? InSharedBuffer(name) : name.c_str();
}

template <class Value>
const char* FindLabel(const Variable& variable, const Value& value) {
  if constexpr (std::is_same_v<Value, std::string>) {
    if (Tells(Lie::kLongValueHasALabel) && value.size() > 100) {
      return "long";
    }
    if (Tells(Lie::kStringHasEmptyLabel) && value == "no") {
      return "";
    }
  }
  const auto has = [&value](const ValueLabel& label) {
    const Value* labelled = std::get_if<Value>(&label.value);
    return labelled != nullptr && *labelled == value;
  };
  const auto found = std::find_if(variable.valueLabels.begin(), variable.valueLabels.end(), has);
  if (found == variable.valueLabels.end()) {
    return Tells(Lie::kNumberHasEmptyLabel) && variable.type == 0 ? "" : nullptr;
  }
  return Tells(Lie::kValueLabelsShareABuffer) ? InSharedBuffer(found->label) : found->label.c_str();
}

void CheckLookup(Core& core, const Labels& labels, bool isString) {
  if (!labels.reset) {
    core.Violate("a label of " + labels.variable->name + " was looked up before Reset()");
  }
  if (isString != (labels.variable->type > 0)) {
    core.Violate("a label of " + labels.variable->name + " was looked up for a value of the other type");
  }
}

template <class Value>
const char* LookUp(void* record, const Value& value) {
  Core& core = RequiredCore();
  const std::intptr_t handle = HostAccess::ToHandle(record);
  constexpr bool kIsString = std::is_same_v<Value, std::string>;
  const auto shown = [&value] {
    if constexpr (kIsString) {
      return Quote(std::string_view(value));
    } else {
      return value;
    }
  };
  Call call(core, Named{core.record->ledger, handle}, ".GetLabel(", shown(), ")");
  const Object* object = Use(core, handle, Kind::kLabels);
  if (object == nullptr) {
    return nullptr;
  }
  const Labels& labels = core.record->labels[object->data];
  CheckLookup(core, labels, kIsString);
  const char* label = FindLabel(*labels.variable, value);
  call.Returns(Quote(label));
  return label;
}

std::intptr_t OpenSource() {
  Core& core = RequiredCore();
  Call call(core, "ProcedureDataSource()");
  if (core.common.fActiveDataset == nullptr) {
    core.Violate("a data source was opened and no dataset is");
  }
  return call.Made(core.record->ledger.Add(Kind::kSource, 0));
}

}  // namespace
}  // namespace scripted

using scripted::Asked;
using scripted::Call;
using scripted::Core;
using scripted::Kind;
using scripted::Labels;
using scripted::Lie;
using scripted::Named;
using scripted::NameOf;
using scripted::Quote;
using scripted::RequiredCore;
using scripted::SourceName;
using scripted::Tells;

ZEVA_Variable::ZEVA_Variable(void* record) : fRecord(record) {}

const char* ZEVA_Variable::GetName() const {
  Core& core = RequiredCore();
  Call call(core, "variable ", NameOf(fRecord), ".GetName()");
  const char* name = scripted::NameToTell(Asked(core, fRecord).data.name);
  call.Returns(Quote(name));
  return name;
}

int ZEVA_Variable::GetType() const {
  Core& core = RequiredCore();
  Call call(core, "variable ", NameOf(fRecord), ".GetType()");
  const int type = Asked(core, fRecord).data.type;
  call.Returns(type);
  return type == 0 && Tells(Lie::kNumbersHaveAWidth) ? 8 : type;
}

const char* ZEVA_Variable::GetLabel() const {
  Core& core = RequiredCore();
  Call call(core, "variable ", NameOf(fRecord), ".GetLabel()");
  const scripted::Variable& variable = Asked(core, fRecord).data;
  const char* none = Tells(Lie::kNameForLabel) ? variable.name.c_str() : nullptr;
  const char* result = variable.label ? variable.label->c_str() : none;
  call.Returns(Quote(result));
  return result;
}

const ZEVA_VLImplPointer& ZEVA_Variable::GetValueLabels() const {
  Core& core = RequiredCore();
  const Call call(core, "variable ", NameOf(fRecord), ".GetValueLabels()");
  return Asked(core, fRecord).valueLabels;
}

ZEVA_ValueLabelMap::ZEVA_ValueLabelMap(const ZEVA_VLImplPointer& valueLabels) : fRecord(nullptr) {
  Core& core = RequiredCore();
  const scripted::Variable& variable = valueLabels.Variable();
  Call call(core, "ZEVA_ValueLabelMap(value labels of ", scripted::Bare{variable.name}, ")");
  core.record->labels.push_back({&variable, false});
  fRecord = HostAccess::ToRecord(call.Made(core.record->ledger.Add(Kind::kLabels, core.record->labels.size() - 1)));
}

ZEVA_ValueLabelMap::~ZEVA_ValueLabelMap() {
  scripted::Release(HostAccess::ToHandle(fRecord));
}

void ZEVA_ValueLabelMap::Reset() {
  Core& core = RequiredCore();
  const std::intptr_t handle = HostAccess::ToHandle(fRecord);
  const Call call(core, Named{core.record->ledger, handle}, ".Reset()");
  const scripted::Object* object = Use(core, handle, Kind::kLabels);
  if (object == nullptr) {
    return;
  }
  Labels& labels = core.record->labels[object->data];
  if (labels.reset) {
    core.Violate(core.record->ledger.Name(handle) + " was reset twice");
  }
  labels.reset = true;
}

const char* ZEVA_ValueLabelMap::GetLabel(const double& value) const {
  return scripted::LookUp(fRecord, value);
}

const char* ZEVA_ValueLabelMap::GetLabel(const std::string& value) const {
  return scripted::LookUp(fRecord, value);
}

ZEVA_DataSource::ZEVA_DataSource(void* record) : fRecord(record) {}

ZEVA_DataSource* ZEVA_DataSource::GetParentSource() const {
  Core& core = RequiredCore();
  Call call(core, SourceName(core, *this), ".GetParentSource()");
  CheckSource(core, *this);
  call.Returns("parent");
  return Tells(Lie::kNoParent) && core.dictionary->variables.size() == 1 ? nullptr : &core.parent;
}

int ZEVA_DataSource::ColumnCount() const {
  Core& core = RequiredCore();
  Call call(core, SourceName(core, *this), ".ColumnCount()");
  CheckSource(core, *this);
  const int count = static_cast<int>(core.dictionary->variables.size()) + (Tells(Lie::kOneVariableMore) ? 1 : 0);
  call.Returns(count);
  return count;
}

const ZEVA_Variable* ZEVA_DataSource::GetVariable(int index) const {
  Core& core = RequiredCore();
  Call call(core, SourceName(core, *this), ".GetVariable(", index, ")");
  CheckSource(core, *this);
  const auto& variables = core.dictionary->variables;
  if (index < 0 || static_cast<std::size_t>(index) >= variables.size()) {
    core.Violate("there is no variable " + std::to_string(index));
    return scripted::NoVariable();
  }
  const bool isFirst = Tells(Lie::kLastVariableIsTheFirst) && variables.size() == 2;
  const scripted::VariableRecord& record = variables[isFirst ? 0 : static_cast<std::size_t>(index)];
  call.Returns("variable ", scripted::Bare{record.data.name});
  return &record.variable;
}

int ZEVA_DataSource::FindVarIndex(const char* name, int flags) const {
  Core& core = RequiredCore();
  Call call(core, SourceName(core, *this), ".FindVarIndex(", Quote(name), ", ", flags, ")");
  CheckSource(core, *this);
  const bool isFound = !core.hooks.findsVariable || core.hooks.findsVariable(name);
  int index = isFound ? core.dictionary->Find(name) : -1;
  if ((Tells(Lie::kFindsByCase) && index >= 0 &&
       core.dictionary->variables[static_cast<std::size_t>(index)].data.name != name) ||
      (Tells(Lie::kParentHasNoVariables) && HostAccess::Handle(*this) == 0)) {
    index = -1;
  }
  call.Returns(index);
  return index;
}

ProcedureDataSource::ProcedureDataSource() : ZEVA_DataSource(HostAccess::ToRecord(scripted::OpenSource())) {}

ProcedureDataSource::~ProcedureDataSource() {
  scripted::Release(HostAccess::Handle(*this));
}
