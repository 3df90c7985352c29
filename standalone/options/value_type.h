#ifndef STANDALONE_OPTIONS_VALUE_TYPE_H
#define STANDALONE_OPTIONS_VALUE_TYPE_H

#include <fmt/format.h>

#include <CLI/App.hpp>
#include <string>
#include <vector>

namespace standalone {

// What the value of an option or operand is, for type_name(): "NAME" or "NAME:OFFER". The help shows the name after an
// option; an operand shows its own. Completion offers "files PATTERN", "words WORD...", "sets" of the dataset that is
// the first operand, or nothing.

constexpr const char* kDatasetType = ":files *.mrset";
constexpr const char* kSurveyType = ":files *.csv";
constexpr const char* kScriptType = ":files *.script";
constexpr const char* kCodebookType = "CODEBOOK:files *.json";
constexpr const char* kFileType = "FILE:files *";
constexpr const char* kSetType = ":sets";

inline std::string ChoiceType(const std::string& name, const std::vector<std::string>& words) {
  return fmt::format("{}:words {}", name, fmt::join(words, " "));
}

inline std::string NameOfType(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  return type.substr(0, type.find(':'));
}

}  // namespace standalone

#endif  // STANDALONE_OPTIONS_VALUE_TYPE_H
