#ifndef STANDALONE_STORAGE_DATASET_OPTIONS_H
#define STANDALONE_STORAGE_DATASET_OPTIONS_H

#include <chrono>
#include <functional>
#include <optional>
#include <string>

namespace standalone {

/// How a dataset is used.
struct DatasetOptions {
  /// How long a lock that another process holds is waited for; 0 is not at all.
  std::chrono::milliseconds lockTimeout = std::chrono::seconds(30);
  /// Saves do not wait until they are on the disk: what ends the process costs nothing, but a power failure can cost
  /// the dataset.
  bool relaxed = false;
  /// Gets a sentence, as it happens, where a user should know: a long wait for a lock, a file that is migrated. May be
  /// empty.
  std::function<void(const std::string& sentence)> notify;

  void Notify(const std::optional<std::string>& sentence) const {
    if (sentence && notify) {
      notify(*sentence);
    }
  }
};

}  // namespace standalone

#endif  // STANDALONE_STORAGE_DATASET_OPTIONS_H
