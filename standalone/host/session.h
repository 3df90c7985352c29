#ifndef STANDALONE_HOST_SESSION_H
#define STANDALONE_HOST_SESSION_H

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/variable_sets.h"
#include "standalone/data/dataset.h"
#include "standalone/language/tokenizer.h"
#include "standalone/output/items.h"

namespace standalone {

struct VariableRecord;
class StoredDataSource;

/// Where the output of a running command goes, as it is issued.
struct OutputSink {
  std::function<void(const std::string& title)> procedure;
  std::function<void(const Item& item)> item;
};

/// The state of the host while one command runs: what the declarations of host/ act on. One session exists at a time;
/// it is the current one from construction to destruction.
class Session {
 public:
  /// `dataset`, `tokens` and `sink` must outlive the session. `sets` are those that the command finds stored.
  Session(Dataset& dataset, const std::vector<Token>& tokens, std::vector<StoredSet> sets, const OutputSink& sink);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session();

  /// The session of the running command. There must be one.
  static Session& Current();

  const std::vector<Token>& Tokens() const { return fTokens; }
  Dataset& Data() { return fDataset; }

  /// The variable at a position, in the form in which host/ hands it out.
  const VariableRecord& VariableAt(int position);

  /// The source with which the sets are kept.
  StoredDataSource& ParentSource() { return *fParentSource; }

  const VARIABLESETS& Sets() const { return fSets; }
  void SaveSets(const VARIABLESETS& sets);

  /// What the command saved; nothing when it did not come to that.
  const std::optional<std::vector<StoredSet>>& SavedSets() const { return fSavedSets; }

  void OpenProcedure(const std::string& title) { fSink.procedure(title); }
  void Issue(const Item& item) { fSink.item(item); }

 private:
  Dataset& fDataset;
  const std::vector<Token>& fTokens;
  VARIABLESETS fSets;
  const OutputSink& fSink;
  std::unique_ptr<StoredDataSource> fParentSource;
  std::optional<std::vector<StoredSet>> fSavedSets;
  std::unordered_map<int, std::unique_ptr<VariableRecord>> fVariables;
};

}  // namespace standalone

#endif  // STANDALONE_HOST_SESSION_H
