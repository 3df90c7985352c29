#include "standalone/output/plain/log_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <ctime>
#include <string_view>
#include <utility>
#include <vector>

#include "standalone/text/counted.h"
#include "standalone/text/unicode.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

constexpr std::array<std::pair<ChangeKind, const char*>, 3> kWords = {
    {{ChangeKind::kDefined, "defined"}, {ChangeKind::kChanged, "changed"}, {ChangeKind::kDeleted, "deleted"}}};

const char* WordOf(ChangeKind kind) {
  const auto* word =
      std::find_if(kWords.begin(), kWords.end(), [kind](const auto& entry) { return entry.first == kind; });
  return word->second;
}

/// The names of the sets, or how many there are where they are many.
std::string NamesOrCount(const std::vector<std::string>& names) {
  constexpr std::size_t kMaxNames = 3;
  return names.size() > kMaxNames ? fmt::format("{} sets", names.size()) : fmt::format("{}", fmt::join(names, " "));
}

std::string WhatChanged(const Change& change) {
  std::vector<std::string> parts;
  for (const auto& [kind, word] : kWords) {
    std::vector<std::string> names;
    for (const ChangedSet& set : change.sets) {
      if (set.kind == kind) {
        names.push_back(set.name);
      }
    }
    if (!names.empty()) {
      parts.push_back(fmt::format("{} {}", word, NamesOrCount(names)));
    }
  }
  if (change.reordered) {
    parts.emplace_back("order changed");
  }
  return fmt::format("{}", fmt::join(parts, "; "));
}

/// As it stands where it is no time that this program wrote.
std::string LocalTime(const std::string& utc) {
  std::tm parts{};
  const char* end = strptime(utc.c_str(), "%Y-%m-%dT%H:%M:%SZ", &parts);
  if (end == nullptr || *end != '\0') {
    return utc;
  }
  const std::time_t time = timegm(&parts);
  localtime_r(&time, &parts);
  std::array<char, 32> text{};
  return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d %H:%M:%S", &parts)};
}

/// Blanks and line ends one after another become one blank.
std::string OnOneLine(std::string_view text) {
  std::string line;
  for (const char character : text) {
    const bool isBlank = character == ' ' || character == '\t' || character == '\n' || character == '\r';
    if (!isBlank) {
      line.push_back(character);
    } else if (!line.empty() && line.back() != ' ') {
      line.push_back(' ');
    }
  }
  return line;
}

std::string CutToWidth(const std::string& text, std::size_t width) {
  constexpr std::string_view kEllipsis = "...";
  std::size_t used = 0;
  std::size_t end = 0;  // of what fits together with the ellipsis
  for (std::size_t offset = 0; offset < text.size();) {
    const std::size_t length = CharacterLength(text, offset);
    used += DisplayWidth(std::string_view(text).substr(offset, length));
    if (used > width) {
      return text.substr(0, end).append(kEllipsis);
    }
    offset += length;
    end = used + kEllipsis.size() <= width ? offset : end;
  }
  return text;
}

/// The first line of an entry.
struct EntryHead {
  std::string number;
  const std::string& time;
  std::string what;
};

std::string EntryText(const EntryHead& head, const std::string& command, std::size_t width) {
  constexpr std::size_t kIndent = 7;
  // A text far longer than a line need not be made harmless whole.
  const std::string_view beginning = PrefixOfWholeCharacters(command, 64 * width);
  return fmt::format("{:>5}  {}  {}\n{:{}}{}\n", head.number, Visible(LocalTime(head.time)), Visible(head.what), "",
                     kIndent, CutToWidth(Visible(OnOneLine(beginning)), width > kIndent ? width - kIndent : 1));
}

}  // namespace

std::string ChangeText(const Change& change, std::size_t width) {
  return EntryText({std::to_string(change.number), change.time, WhatChanged(change)}, change.command, width);
}

std::string ImportText(const LoggedImport& import, std::size_t width) {
  const std::string what =
      fmt::format("imported {}, {}", Counted(import.variables, "variable"), Counted(import.cases, "case"));
  return EntryText({"", import.time, what}, import.command, width);
}

void WriteJson(JsonWriter& json, const Change& change) {
  json.Object([&] {
    json.Member("number", change.number);
    json.Member("time", change.time);
    json.Member("command", change.command);
    json.Array("changes", change.sets, [&](const ChangedSet& set) {
      json.Object([&] {
        json.Member("name", set.name);
        json.Member("change", WordOf(set.kind));
      });
    });
    json.Member("orderChanged", change.reordered);
  });
}

void WriteJson(JsonWriter& json, const LoggedImport& import) {
  json.Object([&] {
    json.Member("afterChange", import.afterChange);
    json.Member("time", import.time);
    json.Member("command", import.command);
    json.Member("variables", import.variables);
    json.Member("cases", import.cases);
  });
}

}  // namespace standalone
