#include <gmock/gmock.h>

#include "tests/host/scripted_host.h"

namespace scripted {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct TemplateRow {
  std::string pattern;
  std::vector<Argument> arguments;
  std::string text;
};

TEST(Templates, ReplacePlaceholdersInOnePass) {
  const TemplateRow rows[] = {
      {"plain", {}, "plain"},
      {"^1 and ^2", {Text("a"), Text("b")}, "a and b"},
      {"^2 and ^1", {Text("a"), Text("b")}, "b and a"},
      {"^1^1", {Text("a")}, "aa"},
      {"^1", {Text("^2"), Text("b")}, "^2"},
      {"Found ^2...", {Text("a")}, "Found ..."},
      {"^", {Text("a")}, "^"},
      {"^0^x", {Text("a")}, "^0^x"},
      {"sets", {Text("dropped")}, "sets"},
      {"sets...", {List({"$a", "$b"})}, "sets... $a, $b"},
      {"^1 of ^2", {List({"$a", "$b"}), Text("c")}, "$a, $b of c"},
      {"^2", {List({"$a"}), Text("b")}, "b $a"},
      {"[:^1\r:$1]1", {List({"a", "b"})}, "a\nb"},
      {"[:^1\r:$1]1", {List({})}, ""},
  };
  for (const TemplateRow& row : rows) {
    EXPECT_EQ(RenderTemplate(row.pattern, row.arguments), row.text) << row.pattern;
  }
}

TEST(Templates, AreListPatternsOnlyInTheirForm) {
  EXPECT_TRUE(IsListPattern("[:^1\r:$1]1"));
  EXPECT_FALSE(IsListPattern("[:^1\r:$1]"));
  EXPECT_FALSE(IsListPattern("^1"));
  EXPECT_FALSE(IsListPattern("[:]"));
}

TEST(MessagesOfTheHost, KeepTemplateArgumentsLevelAndFlags) {
  ScriptedHost host;
  {
    BpComposite composite("^1 is not ^2", true);
    composite.Add(BpString("a", false));
    composite.Add(BpString("b", false));
    composite.Finish();
    BpError(composite, kBpErrorShow, kBpErrorLevelError);
  }
  {
    BpComposite composite("Missing...", true);
    composite.Sublist();
    composite.Add(BpString("$a", false));
    composite.Add(BpString("$b", false));
    composite.EndSublist();
    BpError(composite, kBpErrorShow, kBpErrorLevelWarning);
  }
  BpError(BpString("as ^1 stands", false), static_cast<BpErrorShow>(1), static_cast<BpErrorLevel>(3));

  EXPECT_THAT(host.MessageLines(),
              ElementsAre("error: a is not b", "warning: Missing... $a, $b", "level 3: as ^1 stands"));
  const Message& error = host.Messages()[0];
  EXPECT_EQ(error.level, 4);
  EXPECT_EQ(error.show, 2);
  EXPECT_EQ(error.pattern, "^1 is not ^2");
  EXPECT_THAT(error.arguments, ElementsAre(Text("a"), Text("b")));
  EXPECT_TRUE(error.flag);
  EXPECT_TRUE(error.finished);
  EXPECT_FALSE(error.fromHost);
  const Message& warning = host.Messages()[1];
  EXPECT_EQ(warning.level, 2);
  EXPECT_THAT(warning.arguments, ElementsAre(List({"$a", "$b"})));
  EXPECT_FALSE(warning.finished);
  EXPECT_FALSE(warning.IsError());
  EXPECT_EQ(host.Messages()[2].show, 1);
  EXPECT_FALSE(host.Messages()[2].flag);
  EXPECT_THAT(host.Problems(), IsEmpty());
}

TEST(MessagesOfTheHost, FollowTheHookOfRendering) {
  ScriptedHost host;
  host.HostHooks().render = [](const std::string& pattern, const std::vector<Argument>& arguments) {
    return "<" + pattern + "/" + std::to_string(arguments.size()) + ">";
  };
  BpComposite composite("^1", true);
  composite.Add(BpString("a", false));
  BpError(composite, kBpErrorShow, kBpErrorLevelError);
  EXPECT_THAT(host.MessageLines(), ElementsAre("error: <^1/1>"));
}

class Tables : public testing::Test {
 protected:
  /// A table with the columns A and B and the rows "one" and "two".
  void Write() {
    BpProcedure procedure("Procedure", 2);
    const BpString title("Title", true);
    BpPivotTable table = procedure.PivotTable(title, BpString("Second", false), true);
    BpDimension columns = table.Dimension(BpString("Letters", true), BpPivotTable::kAsAdded);
    columns.Position(BpDimension::kColumns, 1, true, false);
    BpDimension rows = table.Dimension(BpString("Numbers", true), static_cast<BpPivotTable::Sort>(1));
    BpCategory a = columns.Category(BpString("A", true));
    BpCategory b = columns.Category(BpString("B", true));
    const BpAnnotation note = BpString("Noted", true).Replicate();
    {
      const BpCategory row = rows.Category(BpString("one", false));
      a.Cell(BpString("1a", true));
      BpComposite list("[:^1\r:$1]1", false);
      list.Sublist();
      list.Add(BpString("x", false));
      list.Add(BpString("y", false));
      list.EndSublist();
      b.Cell(list);
      b.CellNote(note);
    }
    const BpCategory row = rows.Category(BpString("two", false));
    b.Cell(BpString("2b", false));
    a.CellNote(note);
  }

  ScriptedHost fHost;
};

TEST_F(Tables, CanBeReadAsLines) {
  Write();
  ASSERT_EQ(fHost.Tables().size(), 1u);
  EXPECT_THAT(fHost.Tables()[0].Lines(),
              ElementsAre("Title: Numbers by Letters", "A | B", "one | 1a | x; y {Noted}", "two | - {Noted} | 2b"));
  EXPECT_THAT(fHost.Problems(), IsEmpty());
}

TEST_F(Tables, KeepWhatTheyWereGiven) {
  Write();
  ASSERT_EQ(fHost.Procedures().size(), 1u);
  EXPECT_EQ(fHost.Procedures()[0].title, "Procedure");
  EXPECT_EQ(fHost.Procedures()[0].kind, 2);
  const Table& table = fHost.Tables()[0];
  EXPECT_EQ(table.title.text, "Title");
  EXPECT_TRUE(table.title.flag);
  EXPECT_EQ(table.second.text, "Second");
  EXPECT_FALSE(table.second.flag);
  EXPECT_TRUE(table.flag);
  ASSERT_EQ(table.dimensions.size(), 2u);
  EXPECT_EQ(table.Columns(), &table.dimensions[0]);
  EXPECT_EQ(table.Rows(), &table.dimensions[1]);
  EXPECT_EQ(table.dimensions[0].sort, 2);
  EXPECT_EQ(table.dimensions[1].sort, 1);
  ASSERT_TRUE(table.dimensions[0].position);
  EXPECT_EQ(table.dimensions[0].position->place, 1);
  EXPECT_EQ(table.dimensions[0].position->level, 1);
  EXPECT_TRUE(table.dimensions[0].position->visible);
  EXPECT_FALSE(table.dimensions[0].position->hidden);
  EXPECT_FALSE(table.dimensions[1].position);
}

TEST_F(Tables, HoldCellsByRowAndColumn) {
  Write();
  const Table& table = fHost.Tables()[0];
  ASSERT_NE(table.At(0, 0), nullptr);
  EXPECT_EQ(table.At(0, 0)->text->text, "1a");
  EXPECT_TRUE(table.At(0, 0)->text->flag);
  EXPECT_FALSE(table.At(0, 0)->text->isComposite);
  EXPECT_EQ(table.At(0, 0)->text->entries, std::nullopt);
  ASSERT_NE(table.At(0, 1), nullptr);
  EXPECT_THAT(*table.At(0, 1)->text->entries, ElementsAre("x", "y"));
  EXPECT_EQ(table.At(0, 1)->text->text, "x\ny");
  ASSERT_EQ(table.At(0, 1)->notes.size(), 1u);
  EXPECT_TRUE(table.At(0, 1)->notes[0].flag);
  ASSERT_NE(table.At(1, 0), nullptr);
  EXPECT_FALSE(table.At(1, 0)->text);
  EXPECT_EQ(table.At(2, 0), nullptr);
}

TEST_F(Tables, WithoutColumnsAreTheirTitleOnly) {
  BpProcedure procedure("Procedure", 2);
  const BpString title("Title", true);
  BpPivotTable table = procedure.PivotTable(title, title, false);
  EXPECT_THAT(fHost.Tables()[0].Lines(), ElementsAre("Title"));
  EXPECT_EQ(fHost.Tables()[0].At(0, 0), nullptr);
}

TEST_F(Tables, AreKeptApart) {
  BpProcedure procedure("Procedure", 2);
  const BpString text("x", true);
  BpPivotTable first = procedure.PivotTable(text, text, false);
  BpDimension firstRows = first.Dimension(text, BpPivotTable::kAsAdded);
  BpPivotTable second = procedure.PivotTable(text, text, false);
  BpDimension secondRows = second.Dimension(text, BpPivotTable::kAsAdded);
  BpCategory row = secondRows.Category(text);
  row.Cell(BpString("in the second", false));
  EXPECT_THAT(fHost.Tables()[0].cells, IsEmpty());
  ASSERT_EQ(fHost.Tables()[1].cells.size(), 1u);
  EXPECT_THAT(fHost.Tables()[1].cells[0].at, ElementsAre(0u));
  EXPECT_THAT(fHost.Violations(), IsEmpty());
}

}  // namespace
}  // namespace scripted
