#ifndef STANDALONE_SHELL_HELP_H
#define STANDALONE_SHELL_HELP_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace standalone {

/// The topics of the command language, by name.
std::vector<std::string_view> LanguageTopics();

/// What `help` in a shell can be asked about: those, then the shell's own commands.
std::vector<std::string_view> ShellTopics();

/// The help on a topic of the command language, which may be shortened as a keyword may. Nothing for any other.
std::optional<std::string> HelpOn(std::string_view topic);

/// The same for the topics of a shell, and on the shell as a whole for an empty one.
std::optional<std::string> HelpInShell(std::string_view topic);

}  // namespace standalone

#endif  // STANDALONE_SHELL_HELP_H
