// A B-tree whose order is broken: a scan stops at the first row that does not come after the last one. The rows are put
// out of order in the bytes of the file, below the database.

#include "standalone/storage/ordered_keys.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "standalone/dataset/dataset.h"
#include "standalone/dataset/dataset_writer.h"
#include "standalone/storage/database.h"
#include "tests/standalone/temporary_folder.h"

namespace standalone {
namespace {

constexpr const char* kFile = "survey.mrs";
constexpr std::size_t kPage = 4096;

class OrderedKeysTest : public TemporaryFolderTest {
 protected:
  OrderedKeysTest() {
    DatasetWriter writer(kFile, false);
    writer.SetVariables({{"q1", 0, std::nullopt, {{"1", "One"}, {"2", "Two"}}},
                         {"q2", 0, std::nullopt, {{"1", "One"}}},
                         {"q3", 0, std::nullopt, {}}});
    writer.AddCase({"1", "1", "1"});
    writer.AddCase({"2", "2", "2"});
    writer.Commit();
    Dataset dataset(kFile);
    dataset.SaveSets(std::vector<StoredSet>{Set("$a")}, "one");
    dataset.SaveSets(std::vector<StoredSet>{Set("$a"), Set("$b")}, "two");
    dataset.SaveSets(std::vector<StoredSet>{}, "three");
    dataset.SaveSets(std::vector<StoredSet>{Set("$a"), Set("$b")}, "four");
  }

  static StoredSet Set(const std::string& name) {
    return {name, SetType::kCategory, "", "", false, false, {"q1", "q2"}};
  }

  /// Swaps a cell of a B-tree's root, a leaf, with the next one.
  static void SwapCells(const std::string& name, std::size_t cell) {
    std::int64_t page = 0;
    {
      Database database(kFile, kFile);
      Query row(database, "SELECT rootpage FROM sqlite_schema WHERE name = ?");
      row.Bind(name).Step();
      page = row.Integer(0);
    }
    std::string bytes = Read(kFile);
    const std::size_t cells = (static_cast<std::size_t>(page) - 1) * kPage + 8 + 2 * cell;
    std::swap_ranges(bytes.begin() + static_cast<std::ptrdiff_t>(cells),
                     bytes.begin() + static_cast<std::ptrdiff_t>(cells) + 2,
                     bytes.begin() + static_cast<std::ptrdiff_t>(cells) + 2);
    Write(kFile, bytes);
  }
};

TEST_F(OrderedKeysTest, KeysThatDoNotAscendAreDamage) {
  Database database(kFile, kFile);
  OrderedKeys<std::int64_t> numbers(database);
  EXPECT_EQ(numbers.Next(-5), -5);
  EXPECT_EQ(numbers.Next(7), 7);
  EXPECT_EQ(SentenceOf([&] { numbers.Next(7); }), "survey.mrs is damaged.");
  EXPECT_EQ(SentenceOf([&] { numbers.Next(6); }), "survey.mrs is damaged.");
  OrderedKeys<std::string> texts(database);
  EXPECT_EQ(texts.Next(""), "");
  EXPECT_EQ(SentenceOf([&] { texts.Next(""); }), "survey.mrs is damaged.");
  OrderedKeys<std::pair<std::int64_t, std::int64_t>, std::greater<>> falling(database);
  falling.Next({2, 1});
  falling.Next({1, 9});
  EXPECT_EQ(SentenceOf([&] { falling.Next({1, 9}); }), "survey.mrs is damaged.");
}

TEST_F(OrderedKeysTest, EveryScanStopsWhereRowsAreOutOfOrder) {
  using Scan = std::function<void(Dataset&)>;
  const Scan sets = [](Dataset& dataset) { dataset.Sets(); };
  const Scan log = [](Dataset& dataset) { dataset.ForEachChange([](const Change&) {}); };
  struct Row {
    const char* name;
    std::size_t cell;
    Scan scan;
  };
  const std::vector<Row> rows = {
      {"history", 0, log},
      {"variable", 1,
       [](Dataset& dataset) { dataset.VisitVariables("", 0, [](int, const std::string&) { return true; }); }},
      {"sqlite_autoindex_variable_1", 1,
       [](Dataset& dataset) { dataset.VisitVariables("q", 0, [](int, const std::string&) { return true; }); }},
      {"value_label", 0, [](Dataset& dataset) { dataset.VariableAt(0); }},
      {"cases", 0,
       [](Dataset& dataset) { dataset.VisitCases(0, [](std::int64_t, std::string_view) { return true; }); }},
      {"mr_set", 0, sets},
      {"mr_set_variable", 0, sets},
      {"history_set", 0, [](Dataset& dataset) { dataset.SetsOfVersion(0); }}};
  const std::string sound = Read(kFile);
  for (const Row& row : rows) {
    Write(kFile, sound);
    {
      Dataset dataset(kFile);
      EXPECT_EQ(SentenceOf([&] { row.scan(dataset); }), "") << row.name;
    }
    SwapCells(row.name, row.cell);
    Dataset dataset(kFile);
    EXPECT_EQ(SentenceOf([&] { row.scan(dataset); }), "survey.mrs is damaged.") << row.name;
  }
}

}  // namespace
}  // namespace standalone
