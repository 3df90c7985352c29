#ifndef STANDALONE_COMMANDS_SET_PROBLEMS_H
#define STANDALONE_COMMANDS_SET_PROBLEMS_H

#include <string>
#include <unordered_map>
#include <vector>

#include "standalone/dataset/dataset.h"

namespace standalone {

/// What is wrong with each of the sets, as sentences: the rules that a command keeps to, and how the set fits the
/// dictionary. Where the dictionary cannot be read, the first set concerned has a sentence on that.
std::vector<std::vector<std::string>> ProblemsOfSets(Dataset& dataset, const std::vector<StoredSet>& sets);

/// Sets by name, and whether their variables are numeric; without those whose variables are not of one type.
using TypesOfSets = std::unordered_map<std::string, bool>;
TypesOfSets TypesOf(Dataset& dataset);

/// A sentence on each set whose variables were all of the other type before. It fits them, and may count nothing now.
void AddChangesOfType(Dataset& dataset, const std::vector<StoredSet>& sets, const TypesOfSets& before,
                      std::vector<std::vector<std::string>>& problems);

/// The same as one list for people: the first ten of each set, and how many others there are.
std::vector<std::string> NotesOnProblems(const std::vector<StoredSet>& sets,
                                         const std::vector<std::vector<std::string>>& problems);

}  // namespace standalone

#endif  // STANDALONE_COMMANDS_SET_PROBLEMS_H
