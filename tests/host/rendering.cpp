#include "tests/host/rendering.h"

namespace scripted {
namespace {

constexpr char kBetweenEntries[] = ", ";

bool IsPlaceholder(const std::string& pattern, std::size_t at) {
  return pattern[at] == '^' && at + 1 < pattern.size() && pattern[at + 1] >= '1' && pattern[at + 1] <= '9';
}

std::string ExpandPlaceholders(const std::string& pattern, const std::vector<Argument>& arguments,
                               std::vector<bool>& taken) {
  std::string text;
  for (std::size_t at = 0; at < pattern.size(); ++at) {
    if (!IsPlaceholder(pattern, at)) {
      text += pattern[at];
      continue;
    }
    const auto number = static_cast<std::size_t>(pattern[++at] - '1');
    if (number < arguments.size()) {
      text += Join(arguments[number].texts, kBetweenEntries);
      taken[number] = true;
    }
  }
  return text;
}

}  // namespace

std::string Join(const std::vector<std::string>& texts, std::string_view separator) {
  std::string joined;
  for (const std::string& text : texts) {
    joined.append(&text == &texts.front() ? std::string_view() : separator).append(text);
  }
  return joined;
}

std::vector<std::string> AllTexts(const std::vector<Argument>& arguments) {
  std::vector<std::string> texts;
  for (const Argument& argument : arguments) {
    texts.insert(texts.end(), argument.texts.begin(), argument.texts.end());
  }
  return texts;
}

bool IsListPattern(const std::string& pattern) {
  const std::size_t size = pattern.size();
  return size > 4 && pattern.compare(0, 2, "[:") == 0 && pattern[size - 2] == ']' && pattern[size - 1] >= '1' &&
         pattern[size - 1] <= '9';
}

std::string RenderTemplate(const std::string& pattern, const std::vector<Argument>& arguments) {
  if (IsListPattern(pattern)) {
    return Join(AllTexts(arguments), "\n");
  }
  std::vector<bool> taken(arguments.size(), false);
  std::string text = ExpandPlaceholders(pattern, arguments, taken);
  for (std::size_t number = 0; number < arguments.size(); ++number) {
    if (arguments[number].isList && !taken[number]) {
      text.append(" ").append(Join(arguments[number].texts, kBetweenEntries));
    }
  }
  return text;
}

}  // namespace scripted
