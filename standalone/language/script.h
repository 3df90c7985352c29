#ifndef STANDALONE_LANGUAGE_SCRIPT_H
#define STANDALONE_LANGUAGE_SCRIPT_H

#include <string>
#include <string_view>
#include <vector>

namespace standalone {

/// One command of a script.
struct ScriptCommand {
  std::string text;  ///< as written, from the first character of the command to the last, without its final period
  int line = 1;      ///< line of the script on which the text begins, from 1
  std::string before = std::string();  ///< what stands before the text on its first line
  std::string behind = std::string();  ///< what stands behind the text on its last line, its final period among it
  std::string source = std::string();  ///< what the script is called: its path, "standard input", "-c 1"; may be empty
};

/// Splits a script, which is called `source`, into its commands. A command ends at a period that is the last thing on
/// its line, at a blank line or at the end of the script. Comments count as blanks; a command that begins with "*" is a
/// comment, and neither it nor an empty command is returned. Lines end with "\n" or "\r\n". A byte-order mark at the
/// beginning is skipped.
std::vector<ScriptCommand> SplitScript(std::string_view script, const std::string& source = "");

}  // namespace standalone

#endif  // STANDALONE_LANGUAGE_SCRIPT_H
