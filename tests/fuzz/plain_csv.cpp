#include "tests/fuzz/plain_csv.h"

namespace fuzz {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

bool Begins(std::string_view text, std::string_view beginning) {
  return text.substr(0, beginning.size()) == beginning;
}

bool IsLineEnd(char character) {
  return character == '\n' || character == '\r';
}

/// Takes the text of a quoted cell, quotes included; nothing when it is not closed.
std::optional<std::string> TakeQuoted(std::string_view& text) {
  std::string cell;
  text.remove_prefix(1);
  while (!text.empty()) {
    if (Begins(text, "\"\"")) {
      cell += '"';
      text.remove_prefix(2);
    } else if (text[0] == '"') {
      text.remove_prefix(1);
      return cell;
    } else {
      cell += text[0];
      text.remove_prefix(1);
    }
  }
  return std::nullopt;
}

std::optional<std::string> TakeCell(std::string_view& text) {
  if (Begins(text, "\"")) {
    return TakeQuoted(text);
  }
  std::string cell;
  while (!text.empty() && text[0] != ',' && !IsLineEnd(text[0])) {
    if (text[0] == '"') {
      return std::nullopt;
    }
    cell += text[0];
    text.remove_prefix(1);
  }
  return cell;
}

void TakeLineEnd(std::string_view& text) {
  text.remove_prefix(Begins(text, "\r\n") ? 2 : 1);
}

/// Takes one line with at least a character.
std::optional<std::vector<std::string>> TakeRow(std::string_view& text) {
  std::vector<std::string> row;
  for (;;) {
    const std::optional<std::string> cell = TakeCell(text);
    if (!cell) {
      return std::nullopt;
    }
    row.push_back(*cell);
    if (text.empty()) {
      return row;
    }
    if (IsLineEnd(text[0])) {
      TakeLineEnd(text);
      return row;
    }
    if (text[0] != ',') {
      return std::nullopt;
    }
    text.remove_prefix(1);
  }
}

}  // namespace

std::optional<Rows> ReadPlainCsv(std::string_view text) {
  if (Begins(text, kByteOrderMark)) {
    text.remove_prefix(kByteOrderMark.size());
  }
  Rows rows;
  while (!text.empty()) {
    if (IsLineEnd(text[0])) {
      TakeLineEnd(text);
      if (!rows.empty() && rows[0].size() == 1) {
        rows.push_back({""});
      }
      continue;
    }
    const std::optional<std::vector<std::string>> row = TakeRow(text);
    if (!row) {
      return std::nullopt;
    }
    rows.push_back(*row);
  }
  return rows;
}

}  // namespace fuzz
