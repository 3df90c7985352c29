#ifndef STANDALONE_HOST_COMMAND_CONTEXT_H
#define STANDALONE_HOST_COMMAND_CONTEXT_H

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "host/variable_sets.h"
#include "standalone/dataset/dataset.h"
#include "standalone/hints/adviser.h"
#include "standalone/hints/command_reading.h"
#include "standalone/host/set_exchange.h"
#include "standalone/language/place.h"
#include "standalone/language/script.h"
#include "standalone/language/tokenizer.h"
#include "standalone/language/variable_list.h"
#include "standalone/output/items.h"
#include "standalone/output/message_template.h"

namespace standalone {

struct VariableRecord;
class StoredDataSource;

/// Where the output of a running command goes, as it is issued.
struct OutputSink {
  std::function<void(const std::string& title)> procedure;
  std::function<void(const Item& item)> item;
};

/// The state of the host while one command runs: what the declarations of host/ act on. One context exists at a time;
/// it is the current one from construction to destruction.
class CommandContext {
 public:
  /// All but `sets` must outlive the context. `tokens` are those of `command`; `sets` are those that it finds stored,
  /// and go through `exchange`.
  CommandContext(Dataset& dataset, const ScriptCommand& command, const std::vector<Token>& tokens, const SetList& sets,
                 SetExchange& exchange, const OutputSink& sink);
  CommandContext(const CommandContext&) = delete;
  CommandContext& operator=(const CommandContext&) = delete;
  ~CommandContext();

  /// The context of the running command. There must be one.
  static CommandContext& Current();

  const std::vector<Token>& Tokens() const { return fReading.Tokens(); }
  CommandReading& Reading() { return fReading; }
  Dataset& Data() { return fDataset; }

  /// The variable at a position, in the form in which host/ hands it out.
  const VariableRecord& VariableAt(int position);

  /// The source with which the sets are kept.
  StoredDataSource& ParentSource() { return *fParentSource; }

  const VARIABLESETS& Sets() const { return fSets; }
  void SaveSets(const VARIABLESETS& sets);

  /// What the command saved; nothing when it did not come to that.
  const std::optional<SetList>& SavedSets() const { return fSavedSets; }

  void OpenProcedure(const std::string& title) { fSink.procedure(title); }
  void Issue(const Item& item) { fSink.item(item); }

  /// Issues a message of the module, made with these arguments, with its place and the host's hint.
  void IssueMessage(Level level, const std::string& text, const std::vector<Argument>& arguments);

  /// Issues what is wrong with a variable list.
  void IssueProblem(const ListProblem& problem, const ListTokens& list);

  /// The host's hint on a command that came to its end without saving; nothing where its messages say enough.
  std::optional<std::string> HintAtEnd() const { return fAdviser.HintOnEnd(); }

 private:
  Place PlaceOf(std::size_t token);
  std::optional<std::string> HintOnMessage(const std::vector<std::string>& quoted);

  Dataset& fDataset;
  const ScriptCommand& fCommand;
  CommandReading fReading;
  std::optional<PlaceFinder> fPlaces;  // made for the first message
  SetExchange& fExchange;
  const VARIABLESETS& fSets;  // as the command finds them stored, of the exchange
  Adviser fAdviser;
  const OutputSink& fSink;
  std::unique_ptr<StoredDataSource> fParentSource;
  std::optional<SetList> fSavedSets;
  std::unordered_map<int, std::unique_ptr<VariableRecord>> fVariables;
};

}  // namespace standalone

#endif  // STANDALONE_HOST_COMMAND_CONTEXT_H
