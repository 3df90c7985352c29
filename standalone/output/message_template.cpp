#include "standalone/output/message_template.h"

#include <fmt/format.h>

#include <cstddef>
#include <optional>

#include "standalone/text/trim.h"

namespace standalone {
namespace {

constexpr std::string_view kDigits = "0123456789";
constexpr std::string_view kListOpening = "[:";
constexpr std::string_view kWholeEntry = "^1";

using Entries = std::vector<std::string>;

/// The part of a list pattern that each entry fills, without the line end that it closes with; nothing when the pattern
/// is no list pattern.
std::optional<std::string_view> EntryPattern(std::string_view pattern) {
  const std::size_t closing = pattern.find_last_not_of(kDigits);
  if (closing == std::string_view::npos || closing + 1 == pattern.size() || pattern[closing] != ']' ||
      pattern.substr(0, kListOpening.size()) != kListOpening) {
    return std::nullopt;
  }
  const std::size_t separator = pattern.find(':', kListOpening.size());
  if (separator == std::string_view::npos) {
    return std::nullopt;
  }
  const std::string_view entry = pattern.substr(kListOpening.size(), separator - kListOpening.size());
  return TrimmedEnd(entry, "\r\n");
}

std::string TextOf(const Argument& argument) {
  if (const auto* text = std::get_if<std::string>(&argument)) {
    return *text;
  }
  return fmt::format("{}", fmt::join(std::get<Entries>(argument), ", "));
}

/// Index of the argument that a placeholder's digits name; one that no argument has when they name none.
std::size_t ArgumentIndex(std::string_view digits, std::size_t arguments) {
  std::size_t number = 0;
  for (const char digit : digits) {
    if (number <= arguments) {
      number = 10 * number + static_cast<std::size_t>(digit - '0');
    }
  }
  return number == 0 ? arguments : number - 1;
}

/// Replaces the placeholders of one pattern and remembers which arguments they took.
class Expansion {
 public:
  explicit Expansion(const std::vector<Argument>& arguments) : fArguments(arguments), fTaken(arguments.size(), false) {}

  std::string Replace(std::string_view pattern);
  std::string RemainingLists() const;

 private:
  void AppendArgument(std::string_view digits);

  const std::vector<Argument>& fArguments;
  std::vector<bool> fTaken;
  std::string fText;
};

std::string Expansion::Replace(std::string_view pattern) {
  fText.clear();
  while (!pattern.empty()) {
    const std::string_view after = pattern.substr(1);
    const std::string_view digits = after.substr(0, after.find_first_not_of(kDigits));
    if (pattern[0] == '^' && !digits.empty()) {
      AppendArgument(digits);
      pattern.remove_prefix(1 + digits.size());
      continue;
    }
    fText += pattern[0];
    pattern.remove_prefix(1);
  }
  return fText;
}

void Expansion::AppendArgument(std::string_view digits) {
  const std::size_t index = ArgumentIndex(digits, fArguments.size());
  if (index < fArguments.size()) {
    fText += TextOf(fArguments[index]);
    fTaken[index] = true;
  }
}

std::string Expansion::RemainingLists() const {
  std::string remaining;
  for (std::size_t i = 0; i < fArguments.size(); ++i) {
    const auto* list = std::get_if<Entries>(&fArguments[i]);
    if (list != nullptr && !list->empty() && !fTaken[i]) {
      remaining += ' ' + TextOf(fArguments[i]);
    }
  }
  return remaining;
}

void AppendEntry(Entries& entries, std::string_view pattern, const std::string& text) {
  entries.push_back(pattern == kWholeEntry ? text : Expansion({text}).Replace(pattern));
}

}  // namespace

bool IsListPattern(std::string_view pattern) {
  return EntryPattern(pattern).has_value();
}

std::vector<std::string> ExpandList(std::string_view pattern, const std::vector<Argument>& arguments) {
  const std::string_view entryPattern = EntryPattern(pattern).value_or(kWholeEntry);
  Entries entries;
  for (const Argument& argument : arguments) {
    if (const auto* text = std::get_if<std::string>(&argument)) {
      AppendEntry(entries, entryPattern, *text);
      continue;
    }
    for (const std::string& text : std::get<Entries>(argument)) {
      AppendEntry(entries, entryPattern, text);
    }
  }
  return entries;
}

std::string ExpandTemplate(std::string_view pattern, const std::vector<Argument>& arguments) {
  if (IsListPattern(pattern)) {
    return fmt::format("{}", fmt::join(ExpandList(pattern, arguments), "\n"));
  }
  Expansion expansion(arguments);
  std::string text = expansion.Replace(pattern);
  return text + expansion.RemainingLists();
}

}  // namespace standalone
