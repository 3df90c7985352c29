#ifndef STANDALONE_LANGUAGE_SCRIPT_H
#define STANDALONE_LANGUAGE_SCRIPT_H

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace standalone {

/// One command of a script.
struct ScriptCommand {
  std::string text;  ///< as written, from the first character of the command to the last, without its final period
  int line = 1;      ///< line of the script on which the text begins, from 1
  std::string before = std::string();  ///< what stands before the text on its first line
  std::string after = std::string();   ///< what comes after the text on its last line, its final period among it
  std::string source = std::string();  ///< what the script is called: its path, "standard input", "-c 1"; may be empty
};

/// Collects commands from the lines of a script as they come in, by the rules of SplitScript().
class CommandCollector {
 public:
  /// `source` is what the script is called.
  explicit CommandCollector(std::string source = "") : fSource(std::move(source)) {}

  /// Takes the next line, without its "\n"; a byte-order mark before the first one is skipped. Returns the command that
  /// it completes, if any.
  std::optional<ScriptCommand> AddLine(std::string_view line);

  /// Counts a line that is no part of a command; none may be open.
  void SkipLine() { ++fLine; }

  /// Ends the script: returns the command that was not complete, if any.
  std::optional<ScriptCommand> End();

  /// Where the last line ended a comment that seems to have taken in a command: a sentence that says so, once.
  std::optional<std::string> TakeRemark() { return std::exchange(fRemark, std::nullopt); }

  /// Whether a command, or a comment in the place of one, has begun and is not complete.
  bool IsOpen() const { return fIsOpen; }

  /// What has been read of the open command, from its first character on.
  std::string_view OpenText() const;

  /// Forgets the open command.
  void Abandon() { fIsOpen = false; }

 private:
  bool ReadCharacters(std::size_t begin);
  void AddCharacter(std::size_t offset);
  std::optional<ScriptCommand> EndCommand(std::size_t textEnd);
  void RemarkOnComment();
  std::string RestOfLine(std::size_t offset) const;

  std::string fSource;
  int fLine = 0;       // the last one that was added
  std::string fLines;  // from the one on which the open command begins
  std::optional<std::string> fRemark;

  // The open command, from its first character to after its last one; comments and blanks are not characters of it.
  bool fIsOpen = false;
  int fFirstLine = 1;
  std::size_t fBegin = 0;
  std::size_t fEnd = 0;
  std::size_t fEndWithoutLast = 0;
};

/// Splits a script, which is called `source`, into its commands. A command ends at a period that is the last thing on
/// its line, at a blank line or at the end of the script. Comments count as blanks; a command that begins with "*" is a
/// comment, and neither it nor an empty command is returned. Lines end with "\n" or "\r\n". A byte-order mark at the
/// beginning is skipped. `remark`, if it is not empty, gets a sentence for each comment that seems to have taken in a
/// command.
std::vector<ScriptCommand> SplitScript(std::string_view script, const std::string& source = "",
                                       const std::function<void(const std::string& sentence)>& remark = {});

}  // namespace standalone

#endif  // STANDALONE_LANGUAGE_SCRIPT_H
