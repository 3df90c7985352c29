#include "standalone/program/value_type.h"

#include <fmt/format.h>

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <cstddef>

namespace standalone {
namespace {

constexpr char kSeparator = ':';  // between the name and what is offered

}  // namespace

std::string FileType(const std::string& name, const std::string& pattern) {
  return fmt::format("{}{}files {}", name, kSeparator, pattern);
}

std::string DatasetType() {
  return FileType("", "*.mrset");
}

std::string SetType() {
  return fmt::format("{}sets", kSeparator);
}

std::string ChoiceType(const std::string& name, const std::vector<std::string>& words) {
  return fmt::format("{}{}words {}", name, kSeparator, fmt::join(words, " "));
}

std::string TypeName(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  return type.substr(0, type.find(kSeparator));
}

std::string OfferedValues(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  const std::size_t separator = type.find(kSeparator);
  return separator == std::string::npos ? "" : type.substr(separator + 1);
}

}  // namespace standalone
