#ifndef STANDALONE_SHELL_PIPED_INPUT_H
#define STANDALONE_SHELL_PIPED_INPUT_H

#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "standalone/run/script_source.h"
#include "standalone/shell/shell_input.h"

namespace standalone {

/// Standard input that is no terminal: lines, as they come. Reading throws Error.
class PipedInput : public ShellInput {
 public:
  Typed Read(std::string_view /*openText*/) override {
    std::optional<std::string> line = fLines.Next();
    return line ? Typed{Typed::Kind::kText, *std::move(line)} : Typed{};
  }
  void Remember(const std::string& /*lines*/) override {}
  bool IsScript() const override { return true; }

 private:
  StandardInputLines fLines;
};

}  // namespace standalone

#endif  // STANDALONE_SHELL_PIPED_INPUT_H
