#ifndef STANDALONE_HINTS_ADVISER_H
#define STANDALONE_HINTS_ADVISER_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "host/variable_sets.h"
#include "standalone/dataset/dataset.h"
#include "standalone/hints/command_reading.h"
#include "standalone/hints/proposed_variable.h"
#include "standalone/language/grammar.h"

namespace standalone {

/// The hint that proposes a name.
std::string DidYouMean(const std::string& name);

/// Makes the host's hints on the messages of one command. A hint is given only where it must be right: a name that it
/// proposes exists, a keyword that it proposes is accepted in that place.
class Adviser {
 public:
  /// The arguments must outlive this. `sets` are those that the command found stored.
  Adviser(const CommandReading& reading, Dataset& dataset, const VARIABLESETS& sets)
      : fReading(reading), fDataset(dataset), fSets(sets) {}

  /// On a message that the module issues now and that quotes these texts.
  std::optional<std::string> HintOnMessage(const std::vector<std::string>& quoted);

  /// On a word in a list of variables that is the name of none.
  std::optional<std::string> HintOnUnknownVariable(std::size_t token, const ListTokens& list);

  /// On a command that ended without saving.
  std::optional<std::string> HintOnEnd() const;

 private:
  std::optional<std::string> HintOnKeyword(std::size_t token) const;
  bool TakesKeywordsOf(const std::string& subcommand, std::size_t token) const;
  bool TakesValueOf(const std::string& keyword, std::size_t token) const;
  std::optional<std::string> HintOnMissingEquals(std::size_t token) const;
  std::optional<std::string> HintOnSets(const std::vector<std::string>& names);
  const Keyword* KeywordAt(std::size_t token) const;
  std::vector<std::size_t> ValuesOf(const Keyword& keyword, std::size_t subcommand) const;
  bool LacksOnlyEquals(const Keyword& keyword, std::size_t token, const ListTokens& list);
  std::optional<std::string> FittingVariable(std::size_t token, const ListTokens& list);
  std::optional<VariableKind> KindOfCountedValue(std::size_t subcommand) const;
  std::optional<std::string> NearestVariable(const std::string& name);
  std::optional<std::string> NearestSet(const std::string& name);
  bool IsStored(const std::string& setName) const;
  bool DeletesAllSets() const;

  const CommandReading& fReading;
  Dataset& fDataset;
  const VARIABLESETS& fSets;
  int fSearchesLeft = 10;  // so that many names in a command do not make it slow
};

}  // namespace standalone

#endif  // STANDALONE_HINTS_ADVISER_H
