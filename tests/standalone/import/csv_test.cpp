#include "standalone/import/csv.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <array>
#include <thread>

#include "standalone/import/importer.h"
#include "standalone/text/error.h"
#include "tests/standalone/temporary_folder.h"

namespace standalone {
namespace {

constexpr const char* kFile = "survey.csv";

// Each row as "line:cell|cell"; an error as its sentence. `source` is a path, or a name and a descriptor.
template <typename... Source>
std::vector<std::string> RowsOfFile(Source... source) {
  std::vector<std::string> rows;
  try {
    InputFile file(std::move(source)...);
    CsvReader reader(file);
    std::string header = "h:";
    for (const std::string& cell : reader.Header()) {
      header += cell + "|";
    }
    rows.push_back(header);
    while (reader.NextRow()) {
      std::string row = std::to_string(reader.Line()) + ":";
      for (const std::string_view cell : reader.Cells()) {
        row.append(cell).append("|");
      }
      rows.push_back(row);
    }
  } catch (const Error& error) {
    rows.emplace_back(error.what());
  }
  return rows;
}

struct Row {
  std::string_view csv;
  std::vector<std::string> rows;
};

class CsvTest : public TemporaryFolderTest {
 protected:
  static void Check(const std::vector<Row>& table) {
    for (const Row& row : table) {
      Write(kFile, row.csv);
      EXPECT_EQ(RowsOfFile(kFile), row.rows) << ::testing::PrintToString(row.csv);
    }
  }
};

using namespace std::string_view_literals;

TEST_F(CsvTest, RowsAreReadAsRfc4180HasIt) {
  Check({{"a,b\n1,2\n", {"h:a|b|", "2:1|2|"}},
         {"a,b\r\n1,2\r\n3,4\r\n", {"h:a|b|", "2:1|2|", "3:3|4|"}},
         {"a,b\r1,2\r3,4", {"h:a|b|", "2:1|2|", "3:3|4|"}},
         {"a,b\r1,2\n3,4\r5,6\n", {"h:a|b|", "2:1|2|", "3:3|4|", "4:5|6|"}},
         {"a,b\r1,2\n\n3,4", {"h:a|b|", "2:1|2|", "4:3|4|"}},
         {"a,b\n1,2", {"h:a|b|", "2:1|2|"}},
         {"a,b\n1,\n", {"h:a|b|", "2:1||"}},
         {"a,b\n,", {"h:a|b|", "2:||"}},
         {"a,b\n 1 , 2\t\n", {"h:a|b|", "2: 1 | 2\t|"}},
         {"a,b\n\"1,5\",\"say \"\"hi\"\"\"\n", {"h:a|b|", "2:1,5|say \"hi\"|"}},
         {"a,b\n\"\",\"\"\n", {"h:a|b|", "2:||"}},
         {"\xEF\xBB\xBF"
          "a,b\n1,2\n",
          {"h:a|b|", "2:1|2|"}},
         {"a\n", {"h:a|"}},
         {"\xC3\xB6\n\xE2\x82\xAC\n", {"h:\xC3\xB6|", "2:\xE2\x82\xAC|"}}});
}

TEST_F(CsvTest, LinesAreCountedThroughQuotedLineEnds) {
  Check({{"a,b\n\"x\ny\",2\n3,4\n", {"h:a|b|", "2:x\ny|2|", "4:3|4|"}},
         {"a,b\r\n\"x\r\ny\r\n\",2\r\n3,4\r\n", {"h:a|b|", "2:x\r\ny\r\n|2|", "5:3|4|"}},
         {"\"a\n\",b\n\n\n1,2\n", {"h:a\n|b|", "5:1|2|"}}});
}

TEST_F(CsvTest, AnEmptyLineIsARowOnlyWhereThereIsOneColumn) {
  Check({{"a,b\n\n1,2\n\n\n", {"h:a|b|", "3:1|2|"}},
         {"a,b\r\n\r\n1,2\r\n", {"h:a|b|", "3:1|2|"}},
         {"\n\na\n1\n\n2\n", {"h:a|", "4:1|", "5:|", "6:2|"}},
         {"a\r\n\r\n2\r\n", {"h:a|", "2:|", "3:2|"}}});
}

TEST_F(CsvTest, BadInputIsOneSentenceWithTheLine) {
  Check({{"", {"survey.csv is empty: there is no header row."}},
         {"\xEF\xBB\xBF", {"survey.csv is empty: there is no header row."}},
         {"\n\r\n", {"survey.csv is empty: there is no header row."}},
         {"a,b\n1\n", {"h:a|b|", "survey.csv, line 2: 1 cell where the header has 2."}},
         {"a,b\n1,2\n\"x\ny\",2,3\n", {"h:a|b|", "2:1|2|", "survey.csv, line 3: 3 cells where the header has 2."}},
         {"a,b\n1,2\n3,\"4\n5,6\n",
          {"h:a|b|", "2:1|2|",
           "survey.csv, line 3: the quote that opens here is not closed before the end of the file."}},
         {"a,b\n\"x\ny\",\"4\n5,6\n",
          {"h:a|b|", "survey.csv, line 3: the quote that opens here is not closed before the end of the file."}},
         {"a,b\n1,2\n3,4\"\n",
          {"h:a|b|", "2:1|2|",
           "survey.csv, line 3: there is a stray quote: a cell that contains quotes is quoted as a whole and each of "
           "them doubled."}},
         {"a,b\n\"x\n\",\"y\nz\" 5\n",
          {"h:a|b|",
           "survey.csv, line 4: there is a stray quote: a cell that contains quotes is quoted as a whole and each of "
           "them doubled."}},
         {"a,b\n1,\xC3\n", {"h:a|b|", "survey.csv, line 2: the text is not valid UTF-8."}},
         {"a,b\n\xC3,\xB6\n", {"h:a|b|", "survey.csv, line 2: the text is not valid UTF-8."}},
         {"a,\xE9\n1,2\n", {"survey.csv, line 1: the text is not valid UTF-8."}},
         {"a,b\n1,2\n3,\"x\n\0\"\n"sv, {"h:a|b|", "2:1|2|", "survey.csv, line 4: there is a NUL byte."}}});
}

TEST_F(CsvTest, AFileThatCannotBeReadIsOneSentence) {
  EXPECT_THAT(RowsOfFile(kFile), ::testing::ElementsAre("survey.csv does not exist."));
  EXPECT_THAT(RowsOfFile("."), ::testing::ElementsAre(". is a directory."));
  Write(kFile, "a\n1\n");
  chmod(kFile, 0);
  EXPECT_EQ(WithoutPrivileges([] { return RowsOfFile(kFile).at(0); }), "survey.csv cannot be read: Permission denied.");
}

TEST_F(CsvTest, RowsMayLieAcrossWhatIsReadAtOnce) {
  std::string csv = "a,b\r\n";
  std::vector<std::string> rows = {"h:a|b|"};
  std::size_t line = 2;
  for (std::size_t count = 0; count < 3000; ++count) {
    const std::string text(count % 97, 'x');
    csv += text + ",\"" + text + "\r\n\"\"\xC3\xB6\"\r\n";
    rows.push_back(std::to_string(line) + ":" + text + "|" + text + "\r\n\"\xC3\xB6|");
    line += 2;
  }
  const std::string wide(300000, 'w');
  csv += wide + "," + wide;
  rows.push_back(std::to_string(line) + ":" + wide + "|" + wide + "|");
  Write(kFile, csv);
  EXPECT_TRUE(RowsOfFile(kFile) == rows);
}

TEST_F(CsvTest, APipeMayGiveByteAfterByte) {
  const std::string csv = "\xEF\xBB\xBF\"a\",b\r\n1,\"x\r\n\"\r\n\xE2\x82\xAC,\r\n";
  std::array<int, 2> ends{};
  ASSERT_EQ(pipe(ends.data()), 0);
  std::thread writer([&csv, end = ends[1]] {
    for (const char byte : csv) {
      EXPECT_EQ(write(end, &byte, 1), 1);
      std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    close(end);
  });
  // This end stays open: whoever gives up reading must not end the writer, and all tests with it.
  EXPECT_THAT(RowsOfFile("survey.csv", Descriptor(dup(ends[0]))),
              ::testing::ElementsAre("h:a|b|", "2:1|x\r\n|", "4:\xE2\x82\xAC||"));
  writer.join();
  close(ends[0]);
}

TEST_F(CsvTest, ARowBeyondTheLimitIsRefused) {
  Write(kFile, "a,b\n\"" + std::string(std::size_t{65} * 1024 * 1024, 'x'));
  EXPECT_THAT(RowsOfFile(kFile),
              ::testing::ElementsAre("h:a|b|", "survey.csv, line 2: a row is longer than 67108864 bytes."));
}

}  // namespace
}  // namespace standalone
