#ifndef STANDALONE_OPTIONS_WHOLE_NUMBER_H
#define STANDALONE_OPTIONS_WHOLE_NUMBER_H

#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>
#include <system_error>

namespace standalone {

/// The number that digits alone stand for, up to 999,999,999; nothing for any other text.
inline std::optional<std::int64_t> WholeNumber(std::string_view text) {
  constexpr std::size_t kMaxDigits = 9;
  std::int64_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool isWhole = error == std::errc() && end == text.data() + text.size() && text.size() <= kMaxDigits;
  return isWhole && text[0] != '-' ? std::make_optional(number) : std::nullopt;
}

}  // namespace standalone

#endif  // STANDALONE_OPTIONS_WHOLE_NUMBER_H
