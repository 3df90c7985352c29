#include "standalone/output/json/result_json.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/standalone/output/results.h"

namespace standalone {
namespace {

Table LikesTable() {
  Table table;
  table.title = "Multiple Response Sets";
  table.rowDimension = "Name";
  table.columnDimension = "Attributes";
  table.columns = {"Label", "Coded As", "Counted Value", "Data Type", "Elementary Variables"};
  TableRow row;
  row.name = "$likes";
  row.cells = {{"Likes", {}},
               {"Dichotomies", {}},
               {"1", "Using variable value labels"},
               {"Numeric", {}},
               {std::vector<std::string>{"Tea", "Coffee"}, {}}};
  table.rows.push_back(row);
  return table;
}

const std::string kLikesTable =
    R"({"kind":"table","title":"Multiple Response Sets","rowDimension":"Name","columnDimension":"Attributes",)"
    R"("columns":["Label","Coded As","Counted Value","Data Type","Elementary Variables"],)"
    R"("rows":[{"name":"$likes","cells":["Likes","Dichotomies","1","Numeric",["Tea","Coffee"]],)"
    R"("notes":[null,null,"Using variable value labels",null,null]}]})";

/// A table with every kind of cell.
Table SmallTable() {
  Table table;
  table.columns = {"A", "B", "C"};
  table.rows.push_back({"r", {{std::monostate{}, {}}, {"", ""}, {std::vector<std::string>{}, {}}}});
  return table;
}

Message MessageWithPlace() {
  Message message{Level::kError, "No."};
  message.place = Place{3, 14, 0};
  message.hint = "did you mean \"A\"?";
  return message;
}

struct Row {
  Item item;
  std::string line;
};

std::vector<Row> Items() {
  return {
      {Message{Level::kError, "No."}, R"({"kind":"message","level":"error","text":"No."})"},
      {Message{Level::kWarning, ""}, R"({"kind":"message","level":"warning","text":""})"},
      {Message{Level::kFatal, "a \"b\"\n"}, R"({"kind":"message","level":"fatal","text":"a \"b\"\n"})"},
      {MessageWithPlace(),
       R"({"kind":"message","level":"error","text":"No.","line":3,"column":14,"length":0,"hint":"did you mean \"A\"?"})"},
      {LikesTable(), kLikesTable},
      {SmallTable(), R"({"kind":"table","title":"","rowDimension":"","columnDimension":"","columns":["A","B","C"],)"
                     R"("rows":[{"name":"r","cells":[null,"",[]],"notes":[null,"",null]}]})"},
      {Table{}, R"({"kind":"table","title":"","rowDimension":"","columnDimension":"","columns":[],"rows":[]})"},
  };
}

TEST(JsonForm, ItemsHaveTheDocumentedForm) {
  for (const Row& row : Items()) {
    EXPECT_EQ(JsonText(row.item), row.line);
  }
}

TEST(JsonForm, ACommandsResultHasTheDocumentedForm) {
  CommandResult result;
  result.number = 1;
  result.line = 1;
  result.text = "MRSET /DISPLAY NAME=ALL";
  result.procedure = "Multiple Response Set";
  result.items = {Message{Level::kWarning, "w"}, LikesTable()};
  EXPECT_EQ(JsonText(result),
            R"({"command":1,"line":1,"text":"MRSET /DISPLAY NAME=ALL","procedure":"Multiple Response Set",)"
            R"("status":"ok","items":[{"kind":"message","level":"warning","text":"w"},)" +
                kLikesTable + "]}");
}

TEST(JsonForm, ProcedureIsNullWhereNoneWasOpened) {
  struct StatusRow {
    Status status;
    std::string name;
  };
  const std::vector<StatusRow> rows = {{Status::kOk, "ok"}, {Status::kError, "error"}, {Status::kAborted, "aborted"}};
  for (const StatusRow& row : rows) {
    CommandResult result;
    result.number = 12;
    result.line = 34;
    result.text = "FROB";
    result.status = row.status;
    EXPECT_EQ(JsonText(result),
              R"({"command":12,"line":34,"text":"FROB","procedure":null,"status":")" + row.name + R"(","items":[]})");
  }
}

TEST(JsonForm, SourceAndHintsOfACommandFollowWhereThereAreSome) {
  CommandResult result;
  result.number = 1;
  result.line = 2;
  result.text = "MRSET";
  result.source = "all.script";
  result.hints = {"a", "b"};
  EXPECT_EQ(JsonText(result),
            R"({"command":1,"line":2,"text":"MRSET","procedure":null,"status":"ok","items":[],"source":"all.script",)"
            R"("hints":["a","b"]})");
}

TEST(JsonForm, TextsThatAreNoUtf8AreShownWithTheReplacement) {
  EXPECT_EQ(JsonText(Item(Message{Level::kError, "a\xFFz \u00E9"})),
            "{\"kind\":\"message\",\"level\":\"error\",\"text\":\"a\uFFFDz \u00E9\"}");
}

TEST(JsonForm, LineEndsAndControlCharactersAreEscaped) {
  EXPECT_EQ(JsonText(Item(Message{Level::kError, std::string("\n\x1b\0", 3)})),
            R"({"kind":"message","level":"error","text":"\n\u001b\u0000"})");
}

}  // namespace
}  // namespace standalone
