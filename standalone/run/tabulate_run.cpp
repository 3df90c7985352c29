#include "standalone/run/tabulate_run.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <string>
#include <utility>

#include "standalone/hints/adviser.h"
#include "standalone/language/place.h"
#include "standalone/language/slips.h"
#include "standalone/tabulation/dataset_source.h"
#include "standalone/tabulation/grammar/tabulate_grammar.h"
#include "standalone/tabulation/tabulation_error.h"

namespace standalone {
namespace {

/// What a forgotten period takes in begins one token before the one that shows it.
std::optional<std::string> HintOnError(const ScriptCommand& command, const std::vector<Token>& tokens,
                                       const TabulationError& error) {
  const auto found =
      std::find_if(tokens.begin(), tokens.end(), [&](const Token& token) { return token.offset >= error.Offset(); });
  const auto token = static_cast<std::size_t>(found - tokens.begin());
  for (const std::size_t one : {token, std::max<std::size_t>(token, 1) - 1}) {
    if (std::optional<std::string> slip = HintOnSlip(command, tokens, one)) {
      return slip;
    }
  }
  return error.Nearest() ? std::make_optional(DidYouMean(*error.Nearest())) : std::nullopt;
}

/// A place lies on one line; a label that is not quoted may go over several.
std::size_t SizeOnLine(const std::string& text, std::size_t offset, std::size_t size) {
  const std::size_t end = std::min(text.find_first_of("\r\n", offset), text.size());
  return std::min(size, end - std::min(offset, end));
}

Message MessageOn(const ScriptCommand& command, const std::vector<Token>& tokens, const TabulationError& error) {
  const std::size_t size = SizeOnLine(command.text, error.Offset(), error.Size());
  return {Level::kError, error.what(), PlaceFinder(command.text, command.line, command.before).At(error.Offset(), size),
          HintOnError(command, tokens, error)};
}

}  // namespace

std::vector<Item> RunTabulate(const ScriptCommand& command, const std::vector<Token>& tokens, Dataset& dataset,
                              const SetList& sets, const BeginCounting& beginCounting) {
  try {
    const TabulationRequest request = ParseTabulate(tokens, command.text);
    DatasetSource source(dataset, sets);
    std::vector<Tabulation> tables = Tabulate(request, source, beginCounting ? beginCounting() : TabulationProgress());
    return {std::make_move_iterator(tables.begin()), std::make_move_iterator(tables.end())};
  } catch (const TabulationError& error) {
    return {MessageOn(command, tokens, error)};
  }
}

}  // namespace standalone
