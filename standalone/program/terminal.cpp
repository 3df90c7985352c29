#include "standalone/program/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

namespace standalone {

std::size_t OutputWidth() {
  winsize size{};
  const bool isTerminal = ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0;
  return isTerminal && size.ws_col > 0 ? size.ws_col : kDefaultWidth;
}

bool OutputIsTerminal() {
  return isatty(STDOUT_FILENO) != 0;
}

}  // namespace standalone
