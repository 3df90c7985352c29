#include "standalone/commands/set_problems.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <optional>

#include "standalone/check/set_rules.h"
#include "standalone/storage/database.h"
#include "standalone/text/counted.h"
#include "standalone/text/error.h"

namespace standalone {
namespace {

std::optional<Variable> LookUp(Dataset& dataset, const std::string& name, bool withLabels) {
  const Variable* variable = dataset.VariableNamed(name);
  if (variable == nullptr) {
    return std::nullopt;
  }
  return withLabels ? *variable : Variable{variable->name, variable->width, std::nullopt, {}};
}

void AddSentences(const StoredSet& set, const std::vector<SetProblem>& problems, std::vector<std::string>& sentences) {
  std::transform(problems.begin(), problems.end(), std::back_inserter(sentences),
                 [&set](const SetProblem& problem) { return Sentence(set, problem); });
}

FindVariable VariablesOf(Dataset& dataset) {
  return [&dataset](const std::string& name, bool withLabels) { return LookUp(dataset, name, withLabels); };
}

std::string SentenceOnType(const StoredSet& set, bool areNumeric) {
  const std::string counted =
      set.type == SetType::kDichotomy
          ? fmt::format("; it counts the {} {}", areNumeric ? "number" : "text", set.countedValue)
          : "";
  return fmt::format("The variables of the set {} were {} and are {} now{}.", set.name,
                     areNumeric ? "strings" : "numeric", areNumeric ? "numeric" : "strings", counted);
}

}  // namespace

// Sets can be shown whatever became of the dictionary, and that may be what is left to save of a file.
std::vector<std::vector<std::string>> ProblemsOfSets(Dataset& dataset, const std::vector<StoredSet>& sets) {
  const FindVariable find = VariablesOf(dataset);
  std::vector<std::vector<std::string>> problems;
  bool canRead = true;
  for (const StoredSet& set : sets) {
    std::vector<std::string>& sentences = problems.emplace_back();
    AddSentences(set, FaultsOf(set), sentences);
    try {
      if (canRead) {
        AddSentences(set, MisfitsOf(set, find), sentences);
      }
    } catch (const Error& error) {
      RethrowUnless(error, ErrorKind::kDamaged);
      canRead = false;
      sentences.push_back(fmt::format("The variables of the set {} cannot be read: {}", set.name, error.what()));
    }
  }
  return problems;
}

TypesOfSets TypesOf(Dataset& dataset) {
  TypesOfSets types;
  for (const StoredSet& set : dataset.Sets()) {
    if (const std::optional<bool> areNumeric = AreNumeric(set, VariablesOf(dataset))) {
      types.emplace(set.name, *areNumeric);
    }
  }
  return types;
}

void AddChangesOfType(Dataset& dataset, const std::vector<StoredSet>& sets, const TypesOfSets& before,
                      std::vector<std::vector<std::string>>& problems) {
  for (std::size_t index = 0; index < sets.size(); ++index) {
    const auto old = before.find(sets[index].name);
    const std::optional<bool> now = AreNumeric(sets[index], VariablesOf(dataset));
    if (old != before.end() && now && *now != old->second) {
      problems[index].insert(problems[index].begin(), SentenceOnType(sets[index], *now));
    }
  }
}

std::vector<std::string> NotesOnProblems(const std::vector<StoredSet>& sets,
                                         const std::vector<std::vector<std::string>>& problems) {
  constexpr std::size_t kMaxOfASet = 10;
  std::vector<std::string> notes;
  for (std::size_t index = 0; index < sets.size(); ++index) {
    const std::vector<std::string>& sentences = problems[index];
    const std::size_t shown = std::min(sentences.size(), kMaxOfASet);
    notes.insert(notes.end(), sentences.begin(), sentences.begin() + static_cast<std::ptrdiff_t>(shown));
    if (shown < sentences.size()) {
      notes.push_back(
          fmt::format("The set {} has {}.", sets[index].name, Counted(sentences.size() - shown, "more problem")));
    }
  }
  return notes;
}

}  // namespace standalone
