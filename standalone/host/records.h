#ifndef STANDALONE_HOST_RECORDS_H
#define STANDALONE_HOST_RECORDS_H

#include <cstdint>

#include "host/dictionary.h"
#include "host/output.h"
#include "host/tokens.h"
#include "standalone/dataset/variable.h"
#include "standalone/hints/command_reading.h"

/// The value labels of one variable, as host/ hands them out.
class ZEVA_VLImplPointer {
 public:
  explicit ZEVA_VLImplPointer(const standalone::Variable& variable) : fVariable(variable) {}
  const standalone::Variable& Variable() const { return fVariable; }

 private:
  const standalone::Variable& fVariable;
};

namespace standalone {

class CommandContext;

/// One variable, with what host/ hands out of it.
struct VariableRecord {
  explicit VariableRecord(const Variable& source) : variable(source), valueLabels(source), handle(this) {}

  const Variable& variable;
  ZEVA_VLImplPointer valueLabels;
  ZEVA_Variable handle;
};

/// The source with which the sets of a command are kept. Like the procedure's own it stands for the context's dataset.
class StoredDataSource final : public ZEVA_DataSource {
 public:
  explicit StoredDataSource(CommandContext& context) : ZEVA_DataSource(&context) {}
};

}  // namespace standalone

/// The way from the objects of host/ to this host's records.
class HostAccess {
 public:
  static standalone::TokenCursor& Cursor(const TokenSequenceBase& tokens) {
    return *static_cast<standalone::TokenCursor*>(static_cast<const ZEVA_TokenSequence&>(tokens).fRecord);
  }

  template <typename Record>
  static Record& RecordOf(const BpHandle& handle) {
    return *reinterpret_cast<Record*>(handle.fHandle);
  }

  template <typename Handle, typename Record>
  static Handle Make(Record* record) {
    return Handle(reinterpret_cast<std::intptr_t>(record));
  }
};

#endif  // STANDALONE_HOST_RECORDS_H
