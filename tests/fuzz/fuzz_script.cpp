// Text into the command language and the output of the standalone host: scripts, tokens, variable lists, keywords,
// templates, tables and JSON keep what they promise.

#include <string_view>

#include "tests/fuzz/language_checks.h"
#include "tests/fuzz/output_checks.h"
#include "tests/fuzz/target.h"

namespace fuzz {
namespace {

/// The first byte is the width of the terminal; the text follows.
void Try(std::string_view input) {
  if (input.empty()) {
    return;
  }
  const std::size_t width = static_cast<unsigned char>(input[0]);
  const std::string_view text = input.substr(1);
  CheckScript(text);
  CheckOutput(text, width);
}

}  // namespace
}  // namespace fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Try({reinterpret_cast<const char*>(data), size});
  return 0;
}
