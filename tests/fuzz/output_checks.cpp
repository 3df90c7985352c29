#include "tests/fuzz/output_checks.h"

#include <algorithm>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "standalone/language/place.h"
#include "standalone/output/json/result_json.h"
#include "standalone/output/message_template.h"
#include "standalone/output/plain/excerpt.h"
#include "standalone/output/plain/text_table.h"
#include "standalone/output/renderer.h"
#include "standalone/output/table_writer.h"
#include "standalone/run/codec.h"
#include "standalone/text/unicode.h"
#include "tests/fuzz/check.h"
#include "tests/fuzz/plain_csv.h"
#include "tests/fuzz/script_oracle.h"

namespace fuzz {
namespace {

using standalone::Json;
using Texts = std::vector<std::string>;

Texts LinesOf(std::string_view text) {
  Texts lines;
  std::istringstream stream{std::string(text)};
  for (std::string line; std::getline(stream, line);) {
    lines.push_back(line);
  }
  return lines;
}

std::string WithCarets(std::string text, char from, char to) {
  std::replace(text.begin(), text.end(), from, to);
  return text;
}

/// An argument's own placeholders are never filled: with another character in place of their "^" the result is the
/// same.
void CheckTemplate(const Texts& lines) {
  if (lines.size() < 3 || lines[0].find('\x01') != std::string::npos) {
    return;
  }
  Texts list;
  Texts hiddenList;
  for (std::size_t index = 2; index < lines.size(); ++index) {
    list.push_back(WithCarets(lines[index], '\x01', '?'));
    hiddenList.push_back(WithCarets(list.back(), '^', '\x01'));
  }
  const std::string text = WithCarets(lines[1], '\x01', '?');
  const std::string plain = standalone::ExpandTemplate(lines[0], {text, list});
  const std::string hidden = standalone::ExpandTemplate(lines[0], {WithCarets(text, '^', '\x01'), hiddenList});
  CheckSame(WithCarets(hidden, '\x01', '^'), plain, "an expansion in one pass");
  if (lines[0].find('^') == std::string::npos && !standalone::IsListPattern(lines[0])) {
    CheckSame(standalone::ExpandTemplate(lines[0], {text}), lines[0], "a pattern without placeholders");
  }
}

/// Rows of as many cells as the table has columns, made of the lines: no text, a text or a list, and some notes.
standalone::Table TableOf(const Texts& lines, std::size_t columns) {
  standalone::Table table;
  const auto line = [&lines](std::size_t index) { return lines.empty() ? "" : lines[index % lines.size()]; };
  table.title = line(0);
  table.rowDimension = line(1);
  table.columnDimension = line(2);
  for (std::size_t column = 0; column < columns; ++column) {
    table.columns.push_back(line(column + 1));
  }
  for (std::size_t next = 0; next < lines.size() && table.rows.size() < 8;) {
    standalone::TableRow row{line(next++), {}};
    for (std::size_t column = 0; column < columns; ++column, ++next) {
      standalone::Cell cell;
      if (next % 3 == 1) {
        cell.value = line(next);
      } else if (next % 3 == 2) {
        cell.value = Texts{line(next), line(next + 1)};
      }
      if (next % 5 == 4) {
        cell.note = line(next + 2);
      }
      row.cells.push_back(cell);
    }
    table.rows.push_back(row);
  }
  return table;
}

std::size_t WidestLine(const std::string& text) {
  std::size_t widest = 0;
  for (const std::string& line : LinesOf(text)) {
    widest = std::max(widest, standalone::DisplayWidth(line));
  }
  return widest;
}

void CheckTable(const standalone::Table& table, std::size_t width) {
  const std::string text = standalone::TextTable(table, width);
  Check(!ActsOnTerminal(text), "a table does not act on a terminal");
  Check(text.empty() || text.back() == '\n', "a table's lines end");
  const std::size_t narrowest = WidestLine(standalone::TextTable(table, 1));
  Check(WidestLine(text) <= std::max(width, narrowest), "a table is as narrow as asked or as can be");
}

void CheckJson(const standalone::Item& item) {
  std::ostringstream stream;
  standalone::JsonWriter json(stream);
  WriteJson(json, item);
  const std::string line = stream.str();
  Check(line.find('\n') == std::string::npos && CodePoints(line).has_value(), "JSON is one line of UTF-8");
  CheckSame(standalone::OneLine(Json::parse(line)), line, "JSON that was read");
}

/// What the other process gets is what was sent, also of a stretch of bytes that is not complete yet.
void CheckSent(const standalone::Event& event) {
  const std::string sent = standalone::Encode(event);
  std::string_view part = std::string_view(sent).substr(0, sent.size() - 1);
  Check(!standalone::TakeEvent(part) && part.size() == sent.size() - 1, "a part of an event is none");
  std::string_view whole = sent;
  const std::optional<standalone::Event> received = standalone::TakeEvent(whole);
  Check(received && whole.empty(), "an event arrives");
  CheckSame(standalone::Encode(*received), sent, "an event that was sent");
}

void CheckRenderers(const standalone::CommandResult& result, std::size_t width) {
  std::ostringstream text;
  standalone::MakeTextRenderer(text, {width})->Write(result);
  Check(!ActsOnTerminal(text.str()), "what is shown does not act on a terminal");
  std::ostringstream json;
  standalone::MakeJsonRenderer(json, {})->Write(result);
  Check(Json::parse(json.str()).is_object(), "a result is an object");
  Check(!ActsOnTerminal(json.str()), "JSON does not act on a terminal");
}

/// A page links nothing but its own places and has neither pictures nor scripts, whatever texts stand in it.
void CheckPage(const standalone::CommandResult& result) {
  std::ostringstream stream;
  standalone::OutputLook look;
  look.dataset = result.text;
  look.isDryRun = true;
  const auto renderer = standalone::MakeHtmlRenderer(stream, look);
  renderer->Write(result);
  renderer->Finish();
  const std::string page = stream.str();
  Check(!ActsOnTerminal(page), "a page does not act on a terminal");
  for (const char* element : {"<script", "<img", "<iframe", "<link"}) {
    Check(page.find(element) == std::string::npos, "texts in a page are inert");
  }
  for (std::size_t at = page.find("<a "); at != std::string::npos; at = page.find("<a ", at + 1)) {
    Check(page.compare(at, 10, "<a href=\"#") == 0, "a page leads nowhere else");
  }
}

void CheckMarkdown(const standalone::CommandResult& result) {
  std::ostringstream stream;
  standalone::MakeMarkdownRenderer(stream, {})->Write(result);
  Check(!ActsOnTerminal(stream.str()), "Markdown does not act on a terminal");
}

/// A row for each of the table's, all as long as the header.
void CheckCsv(const standalone::CommandResult& result, const standalone::Table& table, bool isTerminal) {
  std::ostringstream stream;
  std::ostringstream messages;
  standalone::OutputLook look;
  look.isTerminal = isTerminal;
  look.messages = &messages;
  standalone::MakeCsvRenderer(stream, look)->Write(result);
  const std::optional<Rows> rows = ReadPlainCsv(stream.str());
  Check(rows && rows->size() == 1 + table.rows.size(), "a row of CSV for each of a table");
  for (const std::vector<std::string>& row : *rows) {
    Check(row.size() == rows->front().size(), "rows of CSV are as long as their header");
  }
  Check(!ActsOnTerminal(messages.str()), "messages do not act on a terminal");
  if (isTerminal) {
    std::string text = stream.str();
    text.erase(std::remove(text.begin(), text.end(), '\r'), text.end());
    Check(!ActsOnTerminal(text), "CSV for a terminal does not act on it");
  }
}

/// Some characters of the text on one line, or none.
standalone::Place SomePlace(std::string_view text, std::size_t choice) {
  const auto characters = [text](std::size_t bytes) { return standalone::PrefixOfWholeCharacters(text, bytes).size(); };
  const std::size_t offset = characters(text.empty() ? 0 : choice * 31 % text.size());
  const std::size_t size = std::min(text.find('\n', offset), characters(offset + choice % 7)) - offset;
  return standalone::PlaceFinder(text, 1, "").At(offset, std::min(size, text.size() - offset));
}

void CheckExcerpt(const standalone::CommandResult& result, const standalone::Place& place, std::size_t width) {
  constexpr std::size_t kMinWidth = 20;
  const standalone::Excerpt excerpt = standalone::ExcerptAt(result, place, width);
  const std::size_t room = std::max(width, kMinWidth);
  Check(!ActsOnTerminal(excerpt.line) && excerpt.line.find('\n') == std::string::npos, "an excerpt is one line");
  Check(standalone::DisplayWidth(excerpt.line) <= room, "an excerpt is as narrow as asked");
  Check(excerpt.caretWidth > 0 && excerpt.caretColumn + excerpt.caretWidth <= room, "carets stand under the excerpt");
  Check(excerpt.tokenBegin <= excerpt.tokenEnd && excerpt.tokenEnd <= excerpt.line.size(), "the place is in the line");
}

}  // namespace

void CheckOutput(std::string_view text, std::size_t width) {
  const Texts lines = LinesOf(text);
  const standalone::Table table = TableOf(lines, 1 + width % 4);
  standalone::Message message{standalone::Level::kWarning, std::string(text)};
  message.place = SomePlace(text, width);
  message.hint = std::string(text);
  CheckTemplate(lines);
  CheckTable(table, width);
  CheckJson(table);
  CheckJson(message);
  CheckSent(table);
  CheckSent(message);
  standalone::CommandResult result;
  result.text = text;
  result.before = lines.empty() ? "" : lines.back();
  result.after = result.before;
  result.source = text;
  result.items = {message, table};
  result.hints = {std::string(text)};
  CheckExcerpt(result, *message.place, width);
  CheckRenderers(result, width);
  CheckPage(result);
  CheckMarkdown(result);
  CheckCsv(result, table, false);
  CheckCsv(result, table, true);
}

}  // namespace fuzz
