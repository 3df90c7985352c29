#include "standalone/output/rounded.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

namespace standalone {
namespace {

/// The shortest text of the number that has no exponent.
std::string ShortestDecimal(double number) {
  std::array<char, 512> text{};  // more than a double's 324 places after the point and its digits
  const auto end = std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed);
  return {text.data(), end.ptr};
}

/// One more at the last place. The digits begin with a 0, so that there is room.
void CountUp(std::string& digits) {
  std::size_t place = digits.size() - 1;
  while (digits[place] == '9') {
    digits[place--] = '0';
  }
  ++digits[place];
}

}  // namespace

std::string Rounded(double number, int decimals) {
  const std::string shortest = ShortestDecimal(std::abs(number));
  const std::size_t point = std::min(shortest.find('.'), shortest.size());
  std::string digits = '0' + shortest.substr(0, point) + shortest.substr(std::min(point + 1, shortest.size()));
  const std::size_t kept = 1 + point + static_cast<std::size_t>(decimals);
  const bool isUp = digits.size() > kept && digits[kept] >= '5';
  digits.resize(kept, '0');
  if (isUp) {
    CountUp(digits);
  }
  const bool isNegative = number < 0 && digits.find_first_not_of('0') != std::string::npos;
  if (decimals > 0) {
    digits.insert(1 + point, 1, '.');
  }
  digits.erase(0, digits.front() == '0' ? 1 : 0);
  return (isNegative ? "-" : "") + digits;
}

}  // namespace standalone
