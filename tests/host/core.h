#ifndef TESTS_HOST_CORE_H
#define TESTS_HOST_CORE_H

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "tests/host/ledger.h"
#include "tests/host/scripted_host.h"

/// Handle of a variable's value labels.
class ZEVA_VLImplPointer {
 public:
  explicit ZEVA_VLImplPointer(const scripted::Variable& variable) : fVariable(&variable) {}
  const scripted::Variable& Variable() const { return *fVariable; }

 private:
  const scripted::Variable* fVariable;
};

namespace scripted {

/// A variable of the dictionary and the objects of the boundary that stand for it.
struct VariableRecord {
  explicit VariableRecord(const Variable& itsData);
  VariableRecord(const VariableRecord&) = delete;
  VariableRecord& operator=(const VariableRecord&) = delete;

  const Variable data;
  const std::string upperName;
  const ZEVA_VLImplPointer valueLabels;
  const ZEVA_Variable variable;
};

struct Dictionary {
  explicit Dictionary(const std::vector<Variable>& list);

  /// -1 when there is none of that name.
  int Find(std::string_view name) const;

  std::deque<VariableRecord> variables;

 private:
  std::unordered_map<std::string_view, int> fIndexByUpperName;
  mutable std::size_t fNext = 0;  // behind the variable that was found last
};

/// Calls, and the one that is to fail.
struct CallCounter {
  std::size_t calls = 0;
  std::size_t faults = 0;
  std::size_t failAt = 0;  // 0: none
  FaultKind kind = FaultKind::kStandard;
  FaultMode mode = FaultMode::kOnce;
};

/// A token stream. The cursor is defined only in some states.
struct Stream {
  enum State { kBefore, kCurrent, kSet, kLost };
  int cursor = -1;
  State state = kBefore;
};

struct Labels {
  const Variable* variable = nullptr;
  bool reset = false;
};

struct TextRecord {
  TextData data;
  bool listOpen = false;
};

struct DimensionRecord {
  std::size_t table = 0;
  std::size_t index = 0;
  std::vector<std::intptr_t> categories;
};

struct CategoryRecord {
  std::size_t dimension = 0;
  std::size_t index = 0;
};

/// All that is recorded of one run.
struct Record {
  CallCounter counter;
  std::vector<std::string> trace;
  Ledger ledger;
  std::vector<std::string> violations;
  std::vector<Message> messages;
  std::vector<Procedure> procedures;
  std::vector<Table> tables;
  std::vector<Stream> streams;
  std::vector<Labels> labels;
  std::vector<TextRecord> texts;
  std::vector<DimensionRecord> dimensions;
  std::vector<CategoryRecord> categories;
  std::vector<TextData> notes;
  std::size_t saveCount = 0;
  std::optional<VARIABLESETS> saved;
};

/// The parent of the procedure's data source; its record is null.
class ParentSource final : public ZEVA_DataSource {
 public:
  ParentSource() : ZEVA_DataSource(nullptr) {}
};

struct ScriptedHost::Core {
  explicit Core(const HostSetup& setup);

  void BeginRecord();
  const Token& TokenAt(int index) const;
  int TokenCount() const { return static_cast<int>(tokens.size()); }
  void Violate(std::string sentence) { record->violations.push_back(std::move(sentence)); }
  void SetDatasetOpen(bool open);
  void ReportHostError(const std::string& text);

  std::optional<Dictionary> dictionary;
  Hooks hooks;
  VARIABLESETS sets;
  std::vector<Token> tokens;
  Token end;
  bool tracing = true;
  CommonDictionary common{};
  ParentSource parent;
  std::optional<Record> record;
};

using Core = ScriptedHost::Core;

/// The installed host: null, or std::logic_error, when there is none.
Core* InstalledCore();
Core& RequiredCore();
void InstallCore(Core* core);

bool IsQuiet();

}  // namespace scripted

#endif  // TESTS_HOST_CORE_H
