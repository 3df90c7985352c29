#include "standalone/text/number_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <system_error>

namespace standalone {

namespace {

struct NumberParts {
  std::string_view sign;
  std::string_view whole;
  bool hasPoint = false;
  std::string_view fraction;
  std::string_view exponent;  // with its "e" and sign
};

/// Takes what is left of a text piece by piece.
class Scanner {
 public:
  explicit Scanner(std::string_view text) : fRest(text) {}

  std::string_view Take(std::size_t count) {
    const std::string_view taken = fRest.substr(0, count);
    fRest.remove_prefix(taken.size());
    return taken;
  }

  std::string_view TakeOneOf(std::string_view characters) {
    return Take(!fRest.empty() && characters.find(fRest[0]) != std::string_view::npos ? 1 : 0);
  }

  std::string_view TakeDigits() {
    const auto end = std::find_if_not(fRest.begin(), fRest.end(), IsDigit);
    return Take(static_cast<std::size_t>(end - fRest.begin()));
  }

  bool AtEnd() const { return fRest.empty(); }
  const char* Position() const { return fRest.data(); }

 private:
  std::string_view fRest;
};

bool ScanExponent(Scanner& scanner, NumberParts& parts) {
  const char* begin = scanner.Position();
  if (scanner.TakeOneOf("eE").empty()) {
    return true;
  }
  scanner.TakeOneOf("+-");
  if (scanner.TakeDigits().empty()) {
    return false;
  }
  parts.exponent = std::string_view(begin, static_cast<std::size_t>(scanner.Position() - begin));
  return true;
}

/// std::from_chars() does not tell a number that is too great from one that is nearer to 0 than any double.
std::optional<double> ConvertToDouble(std::string_view text) {
  text.remove_prefix(!text.empty() && text[0] == '+' ? 1 : 0);
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc::result_out_of_range) {
    value = std::strtod(std::string(text).c_str(), nullptr);
  }
  return std::isinf(value) ? std::nullopt : std::optional<double>(value);
}

bool IsInRange(std::string_view text, const NumberParts& parts) {
  constexpr std::size_t kDigitsOfEveryDouble = 300;  // as many digits never exceed the range
  return (parts.exponent.empty() && parts.whole.size() <= kDigitsOfEveryDouble) || ConvertToDouble(text).has_value();
}

std::optional<NumberParts> ScanNumber(std::string_view text) {
  Scanner scanner(text);
  NumberParts parts;
  parts.sign = scanner.TakeOneOf("+-");
  parts.whole = scanner.TakeDigits();
  parts.hasPoint = !scanner.TakeOneOf(".").empty();
  if (parts.hasPoint) {
    parts.fraction = scanner.TakeDigits();
  }
  const bool hasDigits = !parts.whole.empty() || !parts.fraction.empty();
  if (!hasDigits || !ScanExponent(scanner, parts) || !scanner.AtEnd() || !IsInRange(text, parts)) {
    return std::nullopt;
  }
  return parts;
}

bool IsJsonForm(const NumberParts& parts) {
  return parts.sign != "+" && !parts.whole.empty() && (parts.whole[0] != '0' || parts.whole.size() == 1) &&
         parts.hasPoint == !parts.fraction.empty();
}

void WriteJsonForm(const NumberParts& parts, std::string& out) {
  const std::size_t zeros = std::min(parts.whole.find_first_not_of('0'), parts.whole.size());
  const std::string_view whole = parts.whole.substr(zeros);
  out.assign(parts.sign == "-" ? "-" : "").append(whole.empty() ? "0" : whole);
  if (!parts.fraction.empty()) {
    out.append(".").append(parts.fraction);
  }
  out.append(parts.exponent);
}

}  // namespace

std::optional<std::string_view> JsonNumber(std::string_view text, std::string& scratch) {
  if (text.size() == 1 && IsDigit(text[0])) {  // most cells of a survey
    return text;
  }
  const std::optional<NumberParts> parts = ScanNumber(text);
  if (!parts) {
    return std::nullopt;
  }
  if (IsJsonForm(*parts)) {
    return text;
  }
  WriteJsonForm(*parts, scratch);
  return scratch;
}

bool IsJsonNumber(std::string_view text) {
  if (text.size() == 1) {
    return IsDigit(text[0]);
  }
  const std::optional<NumberParts> parts = ScanNumber(text);
  return parts && IsJsonForm(*parts);
}

std::optional<double> NumberValue(std::string_view text) {
  return ScanNumber(text) ? ConvertToDouble(text) : std::nullopt;
}

bool IsDigits(std::string_view text) {
  return !text.empty() && std::all_of(text.begin(), text.end(), IsDigit);
}

std::optional<std::int64_t> WholeNumber(std::string_view text) {
  constexpr std::size_t kMaxDigits = 9;  // a double holds these numbers exactly
  const std::optional<double> number = text.size() <= kMaxDigits && IsDigits(text) ? NumberValue(text) : std::nullopt;
  return number ? std::optional(static_cast<std::int64_t>(*number)) : std::nullopt;
}

std::string ShortestNumber(double number) {
  return fmt::format("{}", number == 0 ? 0.0 : number);
}

}  // namespace standalone
