#ifndef STANDALONE_SHELL_HELP_H
#define STANDALONE_SHELL_HELP_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace standalone {

/// What `help` can be asked about, by name.
std::vector<std::string_view> HelpTopics();

/// The help on a topic, which may be shortened as a keyword may, or on the shell as a whole for an empty one. Nothing
/// for an unknown topic.
std::optional<std::string> HelpOn(std::string_view topic);

}  // namespace standalone

#endif  // STANDALONE_SHELL_HELP_H
