#ifndef TESTS_HOST_HOST_ACCESS_H
#define TESTS_HOST_HOST_ACCESS_H

#include <cstdint>

#include "host/dictionary.h"
#include "host/output.h"
#include "host/tokens.h"

/// The way between the boundary's objects and the handles of the ledger.
class HostAccess {
 public:
  static std::intptr_t Handle(const BpHandle& object) { return object.fHandle; }
  static std::intptr_t Handle(const ZEVA_DataSource& source) { return ToHandle(source.fRecord); }
  static std::intptr_t Handle(const ZEVA_TokenSequence& tokens) { return ToHandle(tokens.fRecord); }

  static BpAnnotation Annotation(std::intptr_t handle) { return BpAnnotation(handle); }
  static BpCategory Category(std::intptr_t handle) { return BpCategory(handle); }
  static BpDimension Dimension(std::intptr_t handle) { return BpDimension(handle); }
  static BpPivotTable PivotTable(std::intptr_t handle) { return BpPivotTable(handle); }

  static void* ToRecord(std::intptr_t handle) { return reinterpret_cast<void*>(handle); }
  static std::intptr_t ToHandle(const void* record) { return reinterpret_cast<std::intptr_t>(record); }
};

#endif  // TESTS_HOST_HOST_ACCESS_H
