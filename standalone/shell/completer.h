#ifndef STANDALONE_SHELL_COMPLETER_H
#define STANDALONE_SHELL_COMPLETER_H

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/dataset/stored_set.h"
#include "standalone/dataset/variable.h"

namespace standalone {

/// What completion asks of the dataset, and only where the place calls for it. Positions are those of variables in the
/// dictionary.
class CompletionSource {
 public:
  using VisitName = std::function<bool(int position, const std::string& name)>;

  virtual ~CompletionSource() = default;

  virtual std::vector<std::string> SetNames() = 0;

  /// The set of that name without regard to case.
  virtual std::optional<StoredSet> FindSet(const std::string& name) = 0;

  /// Visits the variables from position `from` on whose upper-case names begin so, until `visit` returns false.
  virtual void VisitVariables(std::string_view beginning, int from, const VisitName& visit) = 0;

  /// Position of a variable, -1 when there is none.
  virtual int FindVariable(const std::string& name) = 0;

  virtual const Variable& VariableAt(int position) = 0;
};

/// How what was typed can go on.
struct Completion {
  std::size_t begin = 0;  ///< where in the text the word that is being typed begins; its end for a new one

  /// What can stand there: keywords by name, with their "=", then sets by name and variables in the order of the
  /// dictionary. Nothing that a terminal would act on.
  std::vector<std::string> candidates;

  bool isCut = false;     ///< there are more names than these
  std::string insertion;  ///< what to put in place of that word; empty when nothing can be added to it
};

/// The most names of variables among the candidates.
inline constexpr std::size_t kMaxVariables = 200;

/// Completes the text of a command, or of a command to the shell, that is typed up to its end. Keywords come in the
/// case in which the word, or else the command, is typed; names as they are stored. Within quotes and comments, and
/// where the command is wrong already, there is nothing. Throws what the source throws.
Completion Complete(std::string_view text, CompletionSource& source);

}  // namespace standalone

#endif  // STANDALONE_SHELL_COMPLETER_H
