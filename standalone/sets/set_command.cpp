#include "standalone/sets/set_command.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <vector>

#include "standalone/check/set_rules.h"
#include "standalone/language/tokenizer.h"
#include "standalone/output/plain/wrap.h"
#include "standalone/text/names.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

constexpr std::size_t kLineWidth = 80;
constexpr std::string_view kAttributeIndent = "  ";
constexpr std::string_view kListIndent = "            ";  // as far as the first name after VARIABLES=

using Reason = std::optional<std::string>;

/// Why the text cannot stand in quotes.
Reason WhyNotQuoted(const char* what, const std::string& text) {
  if (!IsValidUtf8(text)) {
    return fmt::format("its {} is not valid UTF-8.", what);
  }
  if (text.find('\n') != std::string::npos) {
    return fmt::format("its {} holds a line end, which no quoted text can.", what);
  }
  if (text.find('\0') != std::string::npos) {
    return fmt::format("its {} holds a NUL character.", what);
  }
  return std::nullopt;
}

Reason WhyNoName(const StoredSet& set) {
  if (!IsValidUtf8(set.name) || !IsValidSetName(set.name)) {
    return "its name is not a valid name of a set.";
  }
  return std::nullopt;
}

Reason WhyNoLabel(const StoredSet& set) {
  if (set.label.size() > kMaxSetLabelBytes) {
    return fmt::format("its label has {} bytes, and a command cuts labels after {}.", set.label.size(),
                       kMaxSetLabelBytes);
  }
  return WhyNotQuoted("label", set.label);
}

Reason WhyNoCountedValue(const StoredSet& set) {
  if (set.type == SetType::kDichotomy) {
    return set.countedValue.empty() ? "it is a dichotomy set without a counted value."
                                    : WhyNotQuoted("counted value", set.countedValue);
  }
  return set.countedValue.empty() ? Reason() : "it is a category set with a counted value.";
}

Reason WhyNoFlags(const StoredSet& set) {
  const bool hasFlags = set.labelFromVariable || set.categoryLabelsFromCountedValue;
  if (set.type == SetType::kCategory && hasFlags) {
    return "it is a category set that takes labels as only a dichotomy set can.";
  }
  return std::nullopt;
}

Reason WhyNoVariables(const StoredSet& set) {
  const auto isNoName = [](const std::string& name) { return !IsValidUtf8(name) || !IsValidVariableName(name); };
  const auto culprit = std::find_if(set.variables.begin(), set.variables.end(), isNoName);
  if (culprit != set.variables.end()) {
    return fmt::format("{} is not a valid name of a variable.", *culprit);
  }
  return std::nullopt;
}

bool IsNumber(const std::string& text) {
  if (!WhyNotQuoted("", text) && text.find_first_of("'\"") == std::string::npos) {
    const std::vector<Token> tokens = Tokenize(text);
    return tokens.size() == 2 && tokens.front().type == TokenSequenceBase::kNumber && tokens.front().text == text;
  }
  return false;
}

void AddAttribute(std::string& command, std::string_view keyword, std::string_view value) {
  command += fmt::format("\n{}{}={}", kAttributeIndent, keyword, value);
}

std::string WrappedNames(const std::vector<std::string>& names) {
  const std::string list = fmt::format("{}", fmt::join(names, " "));
  const std::vector<std::string> lines = WrapText(list, kLineWidth - kListIndent.size());
  return fmt::format("{}", fmt::join(lines, fmt::format("\n{}", kListIndent)));
}

}  // namespace

std::optional<std::string> WhyNoCommandMakes(const StoredSet& set) {
  constexpr std::array kChecks = {WhyNoName, WhyNoLabel, WhyNoCountedValue, WhyNoFlags, WhyNoVariables};
  for (const auto& check : kChecks) {
    if (Reason reason = check(set)) {
      return reason;
    }
  }
  return std::nullopt;
}

std::string CommandThatMakes(const StoredSet& set, bool variablesAreNumeric) {
  const bool isDichotomy = set.type == SetType::kDichotomy;
  std::string command = fmt::format("MRSET /{} NAME={}", isDichotomy ? "MDGROUP" : "MCGROUP", set.name);
  if (!set.label.empty()) {
    AddAttribute(command, "LABEL", Quoted(set.label));
  }
  AddAttribute(command, "VARIABLES", WrappedNames(set.variables));
  if (isDichotomy) {
    const bool isNumber = variablesAreNumeric && IsNumber(set.countedValue);
    AddAttribute(command, "VALUE", isNumber ? set.countedValue : Quoted(set.countedValue));
  }
  if (set.categoryLabelsFromCountedValue) {
    AddAttribute(command, "CATEGORYLABELS", "COUNTEDVALUES");
  }
  if (set.labelFromVariable) {
    AddAttribute(command, "LABELSOURCE", "VARLABEL");
  }
  return command + ".\n";
}

}  // namespace standalone
