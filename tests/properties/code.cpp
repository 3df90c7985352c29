#include "tests/properties/code.h"

#include <cstdio>
#include <iterator>
#include <sstream>

namespace properties {
namespace {

/// A string literal.
std::string Literal(const std::string& text) {
  std::string literal = "\"";
  for (const char character : text) {
    const auto code = static_cast<unsigned char>(character);
    if (character == '"' || character == '\\') {
      literal.append(1, '\\').append(1, character);
    } else if (code < 0x20 || code == 0x7F) {
      char octal[8];
      std::snprintf(octal, sizeof octal, "\\%03o", static_cast<unsigned>(code));
      literal += octal;
    } else {
      literal += character;
    }
  }
  return literal + "\"";
}

std::string NumberCode(double number) {
  std::ostringstream stream;
  stream.precision(17);
  stream << number;
  const std::string text = stream.str();
  return text.find_first_of(".en") == std::string::npos ? text + ".0" : text;
}

std::string LabelCode(const scripted::Variable& variable) {
  return variable.label ? Literal(*variable.label) : "std::nullopt";
}

std::string ValueCode(const scripted::ValueLabel& label) {
  const double* number = std::get_if<double>(&label.value);
  return number != nullptr ? NumberCode(*number) : "std::string(" + Literal(std::get<std::string>(label.value)) + ")";
}

std::string TypeCode(TokenSequenceBase::TokenType type) {
  static const std::vector<std::string> kNames = {"kEnd", "kString", "kNumber", "kQuotedString", "kSymbol"};
  const auto index = static_cast<std::size_t>(type) - 1;
  return "TokenSequenceBase::" + (index < kNames.size() ? kNames[index] : "unknown");
}

std::string SetTypeCode(VariableSet::VariableSetType type) {
  switch (type) {
    case VariableSet::kMDSet:
      return "VariableSet::kMDSet";
    case VariableSet::kMCSet:
      return "VariableSet::kMCSet";
    default:
      return "VariableSet::kVarSet";
  }
}

/// The call that makes the token, when one of the usual ones does.
std::string UsualCode(const scripted::Token& token) {
  if (token == scripted::Word(token.text)) {
    return "Word(" + Literal(token.text) + ")";
  }
  if (token == scripted::Quoted(token.text)) {
    return "Quoted(" + Literal(token.text) + ")";
  }
  if (token == scripted::Number(token.text)) {
    return "Number(" + Literal(token.text) + ")";
  }
  return token == scripted::Symbol(token.text) ? "Symbol(" + Literal(token.text) + ")" : "";
}

std::string Flag(bool value) {
  return value ? "true" : "false";
}

}  // namespace

std::string ToCode(const scripted::Token& token) {
  const std::string usual = UsualCode(token);
  if (!usual.empty()) {
    return usual;
  }
  return "Token{" + TypeCode(token.type) + ", " + Literal(token.text) + ", " + std::to_string(token.symbol) + ", " +
         NumberCode(token.number) + "}";
}

std::string ToCode(const scripted::Variable& variable) {
  std::string code = variable.type == 0 ? "Numeric(" + Literal(variable.name)
                                        : "String(" + Literal(variable.name) + ", " + std::to_string(variable.type);
  code += ", " + LabelCode(variable) + ", {";
  for (const scripted::ValueLabel& label : variable.valueLabels) {
    code += (code.back() == '{' ? "{" : ", {") + ValueCode(label) + ", " + Literal(label.label) + "}";
  }
  return code + "})";
}

std::string ToCode(const scripted::SetData& set) {
  std::string code = "SetData{" + Literal(set.name) + ", " + SetTypeCode(set.type) + ", " + Literal(set.label) + ", " +
                     Literal(set.value) + ", " + Flag(set.labelSetByVariable) + ", " +
                     Flag(set.useVariableCategoryLabels) + ", {";
  for (const std::string& name : set.variables) {
    code += (code.back() == '{' ? "" : ", ") + Literal(name);
  }
  return code + "}}";
}

}  // namespace properties
