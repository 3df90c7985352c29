#ifndef STANDALONE_CONSOLE_TERMINAL_H
#define STANDALONE_CONSOLE_TERMINAL_H

#include <cstddef>
#include <optional>

namespace standalone {

/// Columns of a line where there is no terminal.
inline constexpr std::size_t kDefaultWidth = 80;

/// Columns of the terminal that a descriptor is, kDefaultWidth where the terminal does not tell; none where it is no
/// terminal.
std::optional<std::size_t> TerminalWidth(int descriptor);

/// Columns of the terminal that standard output is, or kDefaultWidth where it is none.
std::size_t OutputWidth();

/// Whether standard output is a terminal.
bool OutputIsTerminal();

/// Whether text is expected in UTF-8, as the locale of the environment says.
bool IsUtf8Expected();

}  // namespace standalone

#endif  // STANDALONE_CONSOLE_TERMINAL_H
