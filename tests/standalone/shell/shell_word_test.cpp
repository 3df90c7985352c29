#include "standalone/shell/shell_word.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace standalone {
namespace {

TEST(ShellCommand, IsNamedByTheFirstWordOfALine) {
  struct Row {
    std::string line;
    std::string name;  ///< empty for a line that is none
    std::string argument;
  };
  const std::vector<Row> rows = {
      {"help", "help", ""},
      {"help.", "help", ""},
      {" HELP . ", "help", ""},
      {"help MDGROUP", "help", "MDGROUP"},
      {"help\tmdgroup. ", "help", "mdgroup"},
      {"Sets", "sets", ""},
      {"variables", "variables", ""},
      {"variables q*.", "variables", "q*"},
      {"undo", "undo", ""},
      {"undo 5.", "undo", "5"},
      {"log", "log", ""},
      {"quit", "quit", ""},
      {"exit.", "exit", ""},
      {"quit now please", "quit", "now please"},
      {"", "", ""},
      {".", "", ""},
      {"* quit", "", ""},
      {"quitx", "", ""},
      {"qui", "", ""},
      {"quit/", "", ""},
      {"/quit", "", ""},
      {"MRSET /DISPLAY NAME=ALL.", "", ""},
      {"mrset sets", "", ""},
      {"'help'", "", ""},
  };
  for (const Row& row : rows) {
    const std::optional<ShellCommand> command = ReadShellCommand(row.line);
    EXPECT_EQ(command ? command->rule->name : "", row.name) << row.line;
    EXPECT_EQ(command ? command->argument : "", row.argument) << row.line;
  }
}

}  // namespace
}  // namespace standalone
