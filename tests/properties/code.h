#ifndef TESTS_PROPERTIES_CODE_H
#define TESTS_PROPERTIES_CODE_H

#include <string>
#include <vector>

#include "tests/host/scripted_host.h"

// What a case consists of, written as the C++ that makes it.

namespace properties {

std::string ToCode(const scripted::Token& token);
std::string ToCode(const scripted::Variable& variable);
std::string ToCode(const scripted::SetData& set);

template <class Value>
std::string ToCode(const std::vector<Value>& values) {
  std::string code = "{";
  for (const Value& value : values) {
    code += (code.size() == 1 ? "" : ", ") + ToCode(value);
  }
  return code + "}";
}

}  // namespace properties

#endif  // TESTS_PROPERTIES_CODE_H
