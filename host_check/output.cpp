#include "host/output.h"

#include <functional>

#include "host_check/sentences.h"

namespace host_check {
namespace {

constexpr const char* kHeader = "output.h";

using Fill = std::function<void(BpComposite& text)>;

/// A text of the pattern, filled and finished.
struct Composite {
  Composite(const char* pattern, const Fill& fill) : text(pattern, true) {
    fill(text);
    text.Finish();
  }
  BpComposite text;
};

void Add(BpComposite& text, const char* argument) {
  text.Add(BpString(argument, false));
}

void AddList(BpComposite& text, const std::vector<const char*>& entries) {
  text.Sublist();
  for (const char* entry : entries) {
    Add(text, entry);
  }
  text.EndSublist();
}

/// The texts of the messages that a command with this output leaves.
std::string MessagesOf(HostFactory& factory, const std::function<void()>& issue) {
  Command command(factory, "MRSET");
  issue();
  std::vector<std::string> texts;
  for (const Message& message : command.End().messages) {
    texts.push_back(message.text);
  }
  return Listed(texts);
}

std::string MessageOf(HostFactory& factory, const char* pattern, const Fill& fill) {
  return MessagesOf(factory, [&] { BpError(Composite(pattern, fill).text, kBpErrorShow, kBpErrorLevelError); });
}

/// A table with the columns A and B; `fill` gets them and the dimension of the rows.
using FillTable = std::function<void(BpCategory& a, BpCategory& b, BpDimension& rows)>;

void MakeTable(BpProcedure& procedure, const FillTable& fill) {
  const BpString title("Title", true);
  BpPivotTable table = procedure.PivotTable(title, title, false);
  BpDimension columns = table.Dimension(BpString("Columns", true), BpPivotTable::kAsAdded);
  columns.Position(BpDimension::kColumns, 1, true, false);
  BpDimension rows = table.Dimension(BpString("Rows", true), BpPivotTable::kAsAdded);
  BpCategory a = columns.Category(BpString("A", true));
  BpCategory b = columns.Category(BpString("B", true));
  fill(a, b, rows);
}

std::string TextOf(const Cell& cell) {
  const std::string notes = Listed(cell.notes);
  std::string text;
  for (const std::string& line : cell.lines) {
    text += (text.empty() ? "" : "; ") + line;
  }
  return text + (notes.empty() ? "" : " {" + notes + "}");
}

/// As in "A B / one: 1 2 / two: 3 4".
std::string TextOf(const Table& table) {
  std::string text;
  for (const std::string& column : table.columns) {
    text += (text.empty() ? "" : " ") + column;
  }
  for (const Row& row : table.rows) {
    text += " / " + row.heading + ":";
    for (const Cell& cell : row.cells) {
      text += " " + TextOf(cell);
    }
  }
  return text;
}

std::string TableOf(HostFactory& factory, const FillTable& fill) {
  Command command(factory, "MRSET");
  {
    BpProcedure procedure("Procedure", 2);
    MakeTable(procedure, fill);
  }
  const std::vector<Table> tables = command.End().tables;
  Expect(tables.size() == 1, "one table");
  return TextOf(tables.front());
}

void FillRow(BpDimension& rows, const char* heading, BpCategory& column, const char* text) {
  const BpCategory row = rows.Category(BpString(heading, false));
  column.Cell(BpString(text, false));
}

void OutputStays(HostFactory& factory) {
  Command command(factory, "MRSET");
  {
    BpProcedure procedure("Procedure", 2);
    for (const char* text : {"1", "2"}) {
      MakeTable(procedure,
                [text](BpCategory& a, BpCategory& /*b*/, BpDimension& rows) { FillRow(rows, "one", a, text); });
    }
  }
  const std::vector<Table> tables = command.End().tables;
  Expect(static_cast<int>(tables.size()), 2, "the number of tables");
  Expect(TextOf(tables[0]) + ", " + TextOf(tables[1]), "A B / one: 1 , A B / one: 2 ", "the two tables");
}

void NotesSeveralCells(HostFactory& factory) {
  const std::string table = TableOf(factory, [](BpCategory& a, BpCategory& b, BpDimension& rows) {
    const BpAnnotation note = BpString("Note", true).Replicate();
    const BpCategory row = rows.Category(BpString("one", false));
    a.Cell(BpString("1", false));
    a.CellNote(note);
    b.Cell(BpString("2", false));
    b.CellNote(note);
  });
  Expect(table, "A B / one: 1 {Note} 2 {Note}", "a table with a note on two cells");
}

void NotesACell(HostFactory& factory) {
  const std::string table = TableOf(factory, [](BpCategory& /*a*/, BpCategory& b, BpDimension& rows) {
    const BpString text("Note", true);
    const BpAnnotation note = text.Replicate();
    const BpCategory row = rows.Category(BpString("one", false));
    b.Cell(BpString("2", false));
    b.CellNote(note);
  });
  Expect(table, "A B / one:  2 {Note}", "a table with a note on one cell");
}

void NoteOutlivesItsText(HostFactory& factory) {
  const std::string table = TableOf(factory, [](BpCategory& a, BpCategory& b, BpDimension& rows) {
    const BpAnnotation note = BpString("Of a text that is gone", true).Replicate();
    const BpString other("Another", true);
    const BpCategory row = rows.Category(BpString("one", false));
    a.Cell(BpString("1", false));
    b.Cell(BpString("2", false));
    a.CellNote(note);
  });
  Expect(table, "A B / one: 1 {Of a text that is gone} 2", "a table with a note");
}

void TextStands(HostFactory& factory) {
  const std::string text = MessageOf(factory, "<^1>", [](BpComposite& message) { Add(message, "^1 ^2 [:x:]1"); });
  Expect(text, "<^1 ^2 [:x:]1>", "a text with placeholders of its own");
}

void FillsInOrder(HostFactory& factory) {
  const std::string text = MessageOf(factory, "^2 and ^1", [](BpComposite& message) {
    const BpString one("one", false);
    const BpString two("two", false);
    message.Add(one);
    message.Add(two);
  });
  Expect(text, "two and one", "the message");
}

void ListsLines(HostFactory& factory) {
  const std::string table = TableOf(factory, [](BpCategory& a, BpCategory& /*b*/, BpDimension& rows) {
    const Composite lines("[:^1\r:$1]1", [](BpComposite& text) { AddList(text, {"Tea", "Coffee, black", "Milk"}); });
    const BpCategory row = rows.Category(BpString("one", false));
    a.Cell(lines.text);
  });
  Expect(table, "A B / one: Tea; Coffee, black; Milk ", "a table with a cell of three lines");
}

void FillsPlaceholdersAndLists(HostFactory& factory) {
  const std::string text = MessageOf(factory, "^1", [](BpComposite& message) { AddList(message, {"$a", "$b"}); });
  Expect(text.find("$a") < text.find("$b") && text.find("$b") != std::string::npos, "$a and $b, not " + text);
}

void CopiesTexts(HostFactory& factory) {
  const std::string text = MessageOf(factory, "^1", [](BpComposite& message) {
    const std::string gone = "gone";
    message.Add(BpString(gone, false));
    const BpString other("other", false);
  });
  Expect(text, "gone", "a message of a text that is gone");
}

void ListFillsOnePlaceholder(HostFactory& factory) {
  const std::string text = MessageOf(factory, "^1 before ^2", [](BpComposite& message) {
    AddList(message, {"$a", "$b"});
    Add(message, "last");
  });
  const std::size_t first = text.find("$a");
  const std::size_t second = text.find("$b");
  Expect(first < second && second < text.find(" before last"), "$a and $b before last, not " + text);
}

void ListsAreAppended(HostFactory& factory) {
  const std::string text = MessageOf(factory, "Missing...", [](BpComposite& message) { AddList(message, {"$a"}); });
  Expect(text.find("Missing...") == 0 && text.find("$a") != std::string::npos, "Missing... and $a, not " + text);
}

void IsUsableUnfinished(HostFactory& factory) {
  const std::string text = MessagesOf(factory, [] {
    const BpString one("one", false);
    BpComposite message("^1 is there", true);
    message.Add(one);
    BpError(message, kBpErrorShow, kBpErrorLevelWarning);
  });
  Expect(text, "one is there", "a message without Finish()");
}

void FillsTheLastCategoryAlive(HostFactory& factory) {
  const std::string table = TableOf(factory, [](BpCategory& a, BpCategory& b, BpDimension& rows) {
    const BpCategory first = rows.Category(BpString("one", false));
    const BpCategory second = rows.Category(BpString("two", false));
    { const BpCategory third = rows.Category(BpString("three", false)); }
    a.Cell(BpString("1", false));
    b.Cell(BpString("2", false));
  });
  Expect(table, "A B / one:   / two: 1 2 / three:  ", "the table");
}

void KeepsCategoriesInOrder(HostFactory& factory) {
  const std::string table = TableOf(factory, [](BpCategory& a, BpCategory& b, BpDimension& rows) {
    FillRow(rows, "z", a, "1");
    FillRow(rows, "a", b, "2");
    FillRow(rows, "m", a, "3");
    FillRow(rows, "b", a, "4");
  });
  Expect(table, "A B / z: 1  / a:  2 / m: 3  / b: 4 ", "the table");
}

void PlacesRows(HostFactory& factory) {
  Command command(factory, "MRSET");
  {
    BpProcedure procedure("Procedure", 2);
    const BpString title("Title", true);
    BpPivotTable table = procedure.PivotTable(title, title, false);
    BpDimension rows = table.Dimension(BpString("Rows", true), BpPivotTable::kAsAdded);
    BpDimension columns = table.Dimension(BpString("Columns", true), BpPivotTable::kAsAdded);
    columns.Position(BpDimension::kColumns, 1, true, false);
    BpCategory column = columns.Category(BpString("A", true));
    FillRow(rows, "one", column, "1");
  }
  const std::vector<Table> tables = command.End().tables;
  Expect(tables.empty() ? "" : TextOf(tables.front()), "A / one: 1", "a table whose rows were made first");
}

void AddsATable(HostFactory& factory) {
  Command command(factory, "MRSET");
  {
    BpProcedure procedure("Procedure", 2);
    MakeTable(procedure, [](BpCategory& a, BpCategory& /*b*/, BpDimension& rows) { FillRow(rows, "one", a, "1"); });
  }
  const std::vector<Table> tables = command.End().tables;
  Expect(tables.empty() ? "" : tables.front().title, "Title", "the title of the table");
}

void OpensAProcedure(HostFactory& factory) {
  Command command(factory, "MRSET");
  { const BpProcedure procedure("Multiple Response Set", 2); }
  Expect(Listed(command.End().procedures), "Multiple Response Set", "the procedures");
}

void GradesMessages(HostFactory& factory) {
  for (const BpErrorLevel level : {kBpErrorLevelError, kBpErrorLevelWarning}) {
    Command command(factory, "MRSET");
    BpError(Composite("Text", [](BpComposite& /*text*/) {}).text, kBpErrorShow, level);
    const std::vector<Message> messages = command.End().messages;
    Expect(messages.empty() ? -1 : messages.front().level, level, "the level of a message");
  }
}

void IssuesMessages(HostFactory& factory) {
  const std::string texts = MessagesOf(factory, [] {
    for (const char* text : {"First.", "Second."}) {
      BpError(Composite(text, [](BpComposite& /*text*/) {}).text, kBpErrorShow, kBpErrorLevelError);
    }
  });
  Expect(texts, "First., Second.", "the messages");
}

}  // namespace

std::vector<Sentence> OutputSentences() {
  return {
      {kHeader,
       "Each object is the caller's handle of a record that the host keeps; the destructor releases the handle, and "
       "what was put into the output stays there.",
       OutputStays},
      {kHeader, "A footnote that can be attached to several cells.", NotesSeveralCells},
      {kHeader, "An annotation with this text, which it outlives.", NoteOutlivesItsText},
      {kHeader, "A text as it stands.", TextStands},
      {kHeader, R"(A text made of a pattern whose placeholders "^1", "^2" are filled in the order of Add().)",
       FillsInOrder},
      {kHeader, R"(In a cell, the pattern "[:^1\r:$1]1" writes each entry of its list as a line of its own.)",
       ListsLines},
      {kHeader, "Fills the next placeholder or, between Sublist() and EndSublist(), appends an entry to the list.",
       FillsPlaceholdersAndLists},
      {kHeader, "The text is copied.", CopiesTexts},
      {kHeader, "Begins a list that fills one placeholder.", ListFillsOnePlaceholder},
      {kHeader, "A list that no placeholder takes is appended to the text.", ListsAreAppended},
      {kHeader, "A text is usable without it.", IsUsableUnfinished},
      {kHeader,
       "Fills the cell at this category and, in every other dimension, the category that was added last and is alive.",
       FillsTheLastCategoryAlive},
      {kHeader, "Attaches a footnote to that cell.", NotesACell},
      {kHeader, "Categories are kept in the order in which they were added.", KeepsCategoriesInOrder},
      {kHeader, "One dimension of a pivot table; the rows unless it is positioned elsewhere.", PlacesRows},
      {kHeader, "Adds a table; the first text is its title.", AddsATable},
      {kHeader, "The output of one procedure, open from construction to destruction.", OpensAProcedure},
      {kHeader, "Issues a message to the user and returns.", IssuesMessages},
      {kHeader, "How grave a message is.", GradesMessages},
  };
}

}  // namespace host_check
