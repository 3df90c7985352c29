#ifndef STANDALONE_TEXT_NOTICE_H
#define STANDALONE_TEXT_NOTICE_H

#include <string>
#include <string_view>

#include "standalone/text/visible.h"

namespace standalone {

/// What the program says on standard error, as a line that names it, harmless to a terminal.
inline std::string NoticeLine(std::string_view sentence) {
  return "mrset: " + Visible(sentence) + "\n";
}

}  // namespace standalone

#endif  // STANDALONE_TEXT_NOTICE_H
