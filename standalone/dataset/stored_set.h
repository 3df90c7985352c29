#ifndef STANDALONE_DATASET_STORED_SET_H
#define STANDALONE_DATASET_STORED_SET_H

#include <memory>
#include <string>
#include <vector>

namespace standalone {

enum class SetType { kCategory = 1, kDichotomy = 2 };

/// One multiple response set as it is stored. Texts are UTF-8 without NUL.
struct StoredSet {
  std::string name;
  SetType type = SetType::kDichotomy;
  std::string label;
  std::string countedValue;
  bool labelFromVariable = false;
  bool categoryLabelsFromCountedValue = false;
  std::vector<std::string> variables;

  bool operator==(const StoredSet& other) const;
};

/// Sets that never change, so that lists share those that they have in common.
using SharedSet = std::shared_ptr<const StoredSet>;
using SetList = std::vector<SharedSet>;

SetList Shared(const std::vector<StoredSet>& sets);
std::vector<StoredSet> Copies(const SetList& sets);

/// Whether the two hold the same; costs next to nothing where they are one.
bool AreSame(const SharedSet& first, const SharedSet& second);

}  // namespace standalone

#endif  // STANDALONE_DATASET_STORED_SET_H
