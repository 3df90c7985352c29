#ifndef TESTS_HOST_NAMES_H
#define TESTS_HOST_NAMES_H

#include <string_view>

namespace scripted {

/// The host's naming rules and its rule of abbreviation, as Hooks states them.
bool IsValidName(std::string_view name);
bool NamesKeyword(std::string_view token, std::string_view keyword);

}  // namespace scripted

#endif  // TESTS_HOST_NAMES_H
