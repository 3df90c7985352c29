#include "standalone/cases/case_reader.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace standalone {
namespace {

struct Read {
  bool isGood;
  std::vector<CaseCell> cells;
};

Read ReadUpTo(const std::string& stored, std::size_t last) {
  Read read{};
  read.isGood = ReadCase(stored, [&](std::size_t position, const CaseCell& cell) {
    EXPECT_EQ(position, read.cells.size());
    read.cells.push_back(cell);
    return position < last;
  });
  return read;
}

TEST(CaseReader, HandsOverTheCellsInOrder) {
  const Read read = ReadUpTo(R"([1,-2.5,null,"a\"\u0007é","",1e3,18446744073709551615])", 99);
  EXPECT_TRUE(read.isGood);
  EXPECT_EQ(read.cells,
            (std::vector<CaseCell>{1.0, -2.5, std::monostate(), "a\"\a\u00E9", "", 1000.0, 18446744073709551615.0}));
}

TEST(CaseReader, StopsWhereItIsTold) {
  const Read read = ReadUpTo(R"([1,2,3,{"no":"cell"})", 1);
  EXPECT_TRUE(read.isGood);
  EXPECT_EQ(read.cells, (std::vector<CaseCell>{1.0, 2.0}));
}

TEST(CaseReader, TellsWhatIsNoCase) {
  for (const std::string stored :
       {"", "[", "[1", "1", "\"a\"", "{}", "[1,true]", "[[1]]", "[1,{}]", "[1] 2", "[1e999]", "[\"\xFF\"]"}) {
    EXPECT_FALSE(ReadUpTo(stored, 99).isGood) << stored;
  }
  EXPECT_TRUE(ReadUpTo("[]", 99).isGood);
}

}  // namespace
}  // namespace standalone
