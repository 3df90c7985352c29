#include "standalone/console/terminal.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

#include "standalone/text/unicode.h"

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

bool IsUtf8Expected() {
  for (const char* name : {"LC_ALL", "LC_CTYPE", "LANG"}) {
    const char* value = std::getenv(name);
    if (value != nullptr && *value != '\0') {
      const std::string locale = ToUpper(value);
      return locale.find("UTF-8") != std::string::npos || locale.find("UTF8") != std::string::npos;
    }
  }
  return false;
}

}  // namespace standalone
