#ifndef TESTS_HOST_TRACE_H
#define TESTS_HOST_TRACE_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "tests/host/ledger.h"
#include "tests/host/scripted_host.h"

namespace scripted {

// What a line of the trace is made of. Each is written only when there is a line.

/// A text in quotes, with escapes; null for a null pointer.
struct Quote {
  explicit Quote(const char* itsText)
      : isNull(itsText == nullptr), text(isNull ? std::string_view() : std::string_view(itsText)) {}
  explicit Quote(std::string_view itsText) : text(itsText) {}
  bool isNull = false;
  std::string_view text;
};

/// A name, with escapes.
struct Bare {
  std::string_view text;
};

/// An object of the ledger.
struct Named {
  const Ledger& ledger;
  std::intptr_t handle;
};

/// A data source of the ledger; handle 0 is the parent.
struct SourceNamed {
  const Ledger& ledger;
  std::intptr_t handle;
};

/// Sets by their names, and with all that they hold.
struct SetNames {
  const VARIABLESETS& sets;
};
struct WholeSets {
  const VARIABLESETS& sets;
};

void Put(std::string& line, const char* text);
void Put(std::string& line, bool value);
void Put(std::string& line, int value);
void Put(std::string& line, double value);
void Put(std::string& line, Quote part);
void Put(std::string& line, Bare part);
void Put(std::string& line, Named part);
void Put(std::string& line, SourceNamed part);
void Put(std::string& line, SetNames part);
void Put(std::string& line, WholeSets part);
void Put(std::string& line, const std::vector<int>& values);
void Put(std::string& line, const std::vector<std::string>& texts);
void Put(std::string& line, TokenSequenceBase::TokenType value);
void Put(std::string& line, VariableSet::VariableSetType value);
void Put(std::string& line, VariableSet::ChangeCase value);
void Put(std::string& line, VarSetsType value);
void Put(std::string& line, BpDimension::Place value);
void Put(std::string& line, BpPivotTable::Sort value);
void Put(std::string& line, BpErrorShow value);
void Put(std::string& line, BpErrorLevel value);

}  // namespace scripted

#endif  // TESTS_HOST_TRACE_H
