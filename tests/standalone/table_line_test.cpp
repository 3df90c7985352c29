#include "standalone/run/table_line.h"

#include <gmock/gmock.h>

#include "standalone/output/json.h"
#include "standalone/run/events.h"

namespace standalone {
namespace {

using testing::HasSubstr;
using testing::Not;

Table OneOfEverything() {
  Table table{"Title\twith a tab", "Name", "Attributes", {"Label", "List", "Nothing", ""}, {}};
  table.rows.push_back({"$a", {}});
  table.rows.back().cells = {{"two\nlines", std::nullopt},
                             {std::vector<std::string>{"C:\\new\ttext", "", "t"}, "a\\note"},
                             {{}, std::nullopt},
                             {std::vector<std::string>(), ""}};
  table.rows.push_back({"", std::vector<Cell>(4)});
  table.rows.back().cells[0] = {"-", "="};
  table.rows.back().cells[1].value = "*2";
  return table;
}

TEST(TableLine, GivesTheTableAgain) {
  for (const Table& table : {OneOfEverything(), Table{}, Table{"no rows", "r", "c", {"x"}, {}}}) {
    const std::string line = ToTableLine(table);
    EXPECT_THAT(line, Not(HasSubstr("\n")));
    EXPECT_EQ(ToJson(TableFromLine(line)), ToJson(table)) << line;
  }
}

TEST(TableLine, IsTheLineOfAnEvent) {
  const std::string line = ToLine(ItemIssued{OneOfEverything()});
  EXPECT_EQ(line, ToTableLine(OneOfEverything()));
  EXPECT_EQ(ToLine(EventFromLine(line)), line);
}

TEST(TableLine, IsWrittenInFields) {
  Table table{"T", "R", "C", {"x"}, {{"n", {{"a\tb", std::nullopt}}}}};
  EXPECT_EQ(ToTableLine(table), "\tT\tR\tC\t1\tx\t1\tn\t=a\\tb\t-\t");
}

TEST(TableLine, ThatIsDamagedIsRefused) {
  const std::string whole = ToTableLine(OneOfEverything());
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_THROW(TableFromLine(whole.substr(0, size)), std::runtime_error) << size;
  }
  for (const char* line :
       {"T\tR\tC\t0\t0\t", "\tT\tR\tC\t0\t0\tmore\t", "\tT\tR\tC\t-1\t0\t", "\tT\tR\tC\t\t0\t", "\tT\tR\tC\t0\t1x\t",
        "\tT\\\tR\tC\t0\t0\t", "\tT\\a\tR\tC\t0\t0\t", "\tT\tR\tC\t99999999999\t0\t", "\tT\tR\tC\t1\tx\t1\tn\t-a\t-\t",
        "\tT\tR\tC\t1\tx\t1\tn\t-\t-a\t", "\tT\tR\tC\t1\tx\t1\tn\t?\t-\t"}) {
    EXPECT_THROW(TableFromLine(line), std::runtime_error) << line;
  }
}

}  // namespace
}  // namespace standalone
