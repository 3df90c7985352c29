#include "standalone/run/table_line.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

namespace standalone {
namespace {

using Texts = std::vector<std::string>;

// What a character that would end a field or the line is written as, behind a backslash.
constexpr std::array kEscapes = {std::pair('\t', 't'), std::pair('\n', 'n'), std::pair('\\', '\\')};

constexpr char kFieldEnd = '\t';

// How the field of a cell and that of a note begin; the number of its entries is behind a list's.
constexpr char kNothing = '-';
constexpr char kText = '=';
constexpr char kList = '*';

[[noreturn]] void Refuse() {
  throw std::runtime_error("A table came damaged from the command's process.");
}

class Writer {
 public:
  void Number(std::size_t number) {
    fLine += std::to_string(number);
    fLine += kFieldEnd;
  }

  void Text(std::string_view text) {
    for (const char c : text) {
      const auto* escape = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                        [c](const auto& candidate) { return candidate.first == c; });
      if (escape != std::end(kEscapes)) {
        fLine += '\\';
        fLine += escape->second;
      } else {
        fLine += c;
      }
    }
    fLine += kFieldEnd;
  }

  void List(const Texts& texts) {
    Number(texts.size());
    for (const std::string& text : texts) {
      Text(text);
    }
  }

  void Value(const Cell& cell) {
    if (const auto* text = std::get_if<std::string>(&cell.value)) {
      fLine += kText;
      Text(*text);
    } else if (const auto* list = std::get_if<Texts>(&cell.value)) {
      fLine += kList;
      List(*list);
    } else {
      Nothing();
    }
  }

  void Note(const std::optional<std::string>& note) {
    if (note) {
      fLine += kText;
      Text(*note);
    } else {
      Nothing();
    }
  }

  std::string Line() { return std::move(fLine); }

 private:
  void Nothing() {
    fLine += kNothing;
    fLine += kFieldEnd;
  }

  std::string fLine = std::string(1, kTableMark);
};

class Reader {
 public:
  explicit Reader(std::string_view line) : fRest(line) {
    if (Character() != kTableMark) {
      Refuse();
    }
  }

  char Character() {
    if (fRest.empty()) {
      Refuse();
    }
    const char first = fRest.front();
    fRest.remove_prefix(1);
    return first;
  }

  std::size_t Number() {
    const std::string_view field = Field();
    std::size_t number = 0;
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), number);
    if (error != std::errc() || end != field.data() + field.size() || number > fRest.size()) {
      Refuse();
    }
    return number;
  }

  std::string Text() {
    const std::string_view field = Field();
    std::string text;
    text.reserve(field.size());
    for (std::size_t i = 0; i < field.size(); ++i) {
      text += field[i] == '\\' ? Escaped(field.substr(++i, 1)) : field[i];
    }
    return text;
  }

  Texts List() {
    Texts texts(Number());
    std::generate(texts.begin(), texts.end(), [this] { return Text(); });
    return texts;
  }

  decltype(Cell::value) Value() {
    switch (Character()) {
      case kText:
        return Text();
      case kList:
        return List();
      case kNothing:
        EndOfField();
        return {};
      default:
        Refuse();
    }
  }

  std::optional<std::string> Note() {
    switch (Character()) {
      case kText:
        return Text();
      case kNothing:
        EndOfField();
        return std::nullopt;
      default:
        Refuse();
    }
  }

  void End() const {
    if (!fRest.empty()) {
      Refuse();
    }
  }

 private:
  std::string_view Field() {
    const std::size_t end = fRest.find(kFieldEnd);
    if (end == std::string_view::npos) {
      Refuse();
    }
    const std::string_view field = fRest.substr(0, end);
    fRest.remove_prefix(end + 1);
    return field;
  }

  static char Escaped(std::string_view letter) {
    for (const auto& [character, written] : kEscapes) {
      if (letter == std::string_view(&written, 1)) {
        return character;
      }
    }
    Refuse();
  }

  void EndOfField() {
    if (!Field().empty()) {
      Refuse();
    }
  }

  std::string_view fRest;
};

}  // namespace

std::string ToTableLine(const Table& table) {
  Writer writer;
  writer.Text(table.title);
  writer.Text(table.rowDimension);
  writer.Text(table.columnDimension);
  writer.List(table.columns);
  writer.Number(table.rows.size());
  for (const TableRow& row : table.rows) {
    writer.Text(row.name);
    for (const Cell& cell : row.cells) {
      writer.Value(cell);
      writer.Note(cell.note);
    }
  }
  return writer.Line();
}

Table TableFromLine(std::string_view line) {
  Reader reader(line);
  Table table;
  table.title = reader.Text();
  table.rowDimension = reader.Text();
  table.columnDimension = reader.Text();
  table.columns = reader.List();
  table.rows.resize(reader.Number());
  for (TableRow& row : table.rows) {
    row.name = reader.Text();
    row.cells.resize(table.columns.size());
    for (Cell& cell : row.cells) {
      cell.value = reader.Value();
      cell.note = reader.Note();
    }
  }
  reader.End();
  return table;
}

}  // namespace standalone
