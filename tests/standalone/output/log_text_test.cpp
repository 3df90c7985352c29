#include "standalone/output/plain/log_text.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "standalone/text/unicode.h"
#include "tests/standalone/output/results.h"

namespace standalone {
namespace {

Change Sample(const std::string& command) {
  return {12, "2024-05-01T22:33:01Z", command, false, {{"$a", ChangeKind::kDefined}}};
}

class LogText : public ::testing::Test {
 protected:
  LogText() { SetZone("UTC"); }
  ~LogText() override { unsetenv("TZ"); }

  static void SetZone(const char* zone) {
    setenv("TZ", zone, 1);
    tzset();
  }
};

TEST_F(LogText, HasTheTimeOfThePlace) {
  EXPECT_EQ(ChangeText(Sample("undo"), 80), "   12  2024-05-01 22:33:01  defined $a\n       undo\n");
  SetZone("XYZ-5");
  EXPECT_EQ(ChangeText(Sample("undo"), 80), "   12  2024-05-02 03:33:01  defined $a\n       undo\n");
}

TEST_F(LogText, ShowsATimeThatIsNoneAsItStands) {
  Change change = Sample("undo");
  change.time = "noon\n";
  EXPECT_EQ(ChangeText(change, 80), "   12  noon\\n  defined $a\n       undo\n");
}

TEST_F(LogText, CountsSetsWhereTheyAreMany) {
  Change change = Sample("x");
  change.sets = {{"$d", ChangeKind::kDeleted}, {"$b", ChangeKind::kDefined}, {"$c", ChangeKind::kDefined},
                 {"$e", ChangeKind::kDefined}, {"$f", ChangeKind::kDefined}, {"$g", ChangeKind::kChanged}};
  change.reordered = true;
  EXPECT_EQ(ChangeText(change, 80),
            "   12  2024-05-01 22:33:01  defined 4 sets; changed $g; deleted $d; order changed\n       x\n");
}

TEST_F(LogText, CutsTheCommandToTheWidth) {
  const std::string wide = "\xE6\xBC\xA2\xE5\xAD\x97";  // two characters of two columns each
  const std::vector<std::pair<std::string, std::string>> rows = {{"12345678", "12345678"},
                                                                 {"123456789", "12345..."},
                                                                 {"a\n  b\tc", "a b c"},
                                                                 {wide + wide, wide + wide},
                                                                 {wide + wide + "x", wide + "..."},
                                                                 {"a\x1B[2J", "a\\x1b[2J"},
                                                                 {"", ""},
                                                                 {std::string(1000000, 'x'), "xxxxx..."}};
  for (const auto& [command, shown] : rows) {
    EXPECT_EQ(ChangeText(Sample(command), 15), "   12  2024-05-01 22:33:01  defined $a\n       " + shown + "\n");
  }
}

TEST_F(LogText, AnImportHasNoNumber) {
  const LoggedImport import{3, "2024-05-01T22:33:01Z", "import a\x1B.csv", 1, 240};
  EXPECT_EQ(ImportText(import, 80),
            "       2024-05-01 22:33:01  imported 1 variable, 240 cases\n       import a\\x1b.csv\n");
  EXPECT_EQ(JsonText(import),
            "{\"afterChange\":3,\"time\":\"2024-05-01T22:33:01Z\",\"command\":\"import a\\u001b.csv\",\"variables\":1,"
            "\"cases\":240}");
}

TEST_F(LogText, IsWholeInJson) {
  Change change = Sample("a\n b");
  change.sets.push_back({"$b", ChangeKind::kDeleted});
  EXPECT_EQ(JsonText(change),
            "{\"number\":12,\"time\":\"2024-05-01T22:33:01Z\",\"command\":\"a\\n b\",\"changes\":[{\"name\":\"$a\","
            "\"change\":\"defined\"},{\"name\":\"$b\",\"change\":\"deleted\"}],\"orderChanged\":false}");
}

}  // namespace
}  // namespace standalone
