#include "standalone/console/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

namespace standalone {

std::optional<std::size_t> TerminalWidth(int descriptor) {
  winsize size{};
  if (ioctl(descriptor, TIOCGWINSZ, &size) != 0) {
    return std::nullopt;
  }
  return size.ws_col > 0 ? size.ws_col : kDefaultWidth;
}

std::size_t OutputWidth() {
  return TerminalWidth(STDOUT_FILENO).value_or(kDefaultWidth);
}

bool OutputIsTerminal() {
  return isatty(STDOUT_FILENO) != 0;
}

}  // namespace standalone
