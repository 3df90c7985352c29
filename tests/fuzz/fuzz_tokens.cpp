// Tokens into the module on the scripted host: what it does is what the second implementation of the command expects,
// and a host call that fails leaves nothing behind. Commands that a documented assertion ends are passed over.

#include <exception>
#include <optional>
#include <string>
#include <vector>

#include "backend/mrset/mrset.h"
#include "tests/fuzz/check.h"
#include "tests/fuzz/target.h"
#include "tests/fuzz/token_input.h"
#include "tests/reference/reference_apply.h"
#include "tests/reference/reference_parser.h"

namespace fuzz {
namespace {

using Lines = std::vector<std::string>;
using Sets = std::vector<scripted::SetData>;

std::string Joined(const Lines& lines) {
  std::string text;
  for (const std::string& line : lines) {
    text += line + '\n';
  }
  return text;
}

std::string Joined(const std::optional<Sets>& sets) {
  if (!sets) {
    return "nothing saved\n";
  }
  std::string text = "saved:\n";
  for (const scripted::SetData& set : *sets) {
    text += ToText(set) + '\n';
  }
  return text;
}

/// Messages, tables and saved sets of one command.
std::string Expected(const reference::ParseResult& parsed, const reference::ApplyResult& applied) {
  std::string text = Joined(parsed.messages) + Joined(applied.messages);
  for (const Lines& table : applied.tables) {
    text += Joined(table);
  }
  return text + Joined(applied.saved);
}

std::string Observed(const scripted::ScriptedHost& host) {
  std::string text = Joined(host.MessageLines());
  for (const scripted::Table& table : host.Tables()) {
    text += Joined(table.Lines());
  }
  return text + Joined(host.SavedSets());
}

/// What the command must do; nothing where an assertion ends it.
std::optional<std::string> Predicted(const TokenInput& input) {
  if (!input.datasetOpen) {
    return Expected({}, {});
  }
  const reference::ParseResult parsed = reference::Parse(input.tokens, input.dictionary);
  if (parsed.assertion) {
    return std::nullopt;
  }
  if (!parsed.parsed) {
    return Expected(parsed, {});
  }
  const reference::ApplyResult applied = reference::Apply(parsed.records, input.dictionary, input.sets);
  return applied.assertion ? std::nullopt : std::optional(Expected(parsed, applied));
}

void CheckNoProblems(const scripted::ScriptedHost& host) {
  CheckSame(Joined(host.Problems()), "", "problems of the host");
}

void RunCleanly(scripted::ScriptedHost& host, const TokenInput& input, const std::string& predicted) {
  host.FailNoCall();
  host.SetStoredSets(input.sets);
  host.SetTokens(input.tokens);
  mrset_();
  CheckNoProblems(host);
  CheckSame(Observed(host), predicted, "outcome of the command");
}

/// Whether the exception that leaves the module is the host's own.
bool FaultLeaves() {
  try {
    mrset_();
  } catch (const scripted::Fault&) {
    return true;
  } catch (const scripted::OddFault&) {
    return true;
  }
  return false;
}

void RunWithFault(scripted::ScriptedHost& host, const TokenInput& input) {
  const Sets after = host.StoredSets();
  const std::size_t call = 1 + (input.fault - 1) % host.CallCount();
  host.SetStoredSets(input.sets);
  host.StartOver();
  host.FailAtCall(call, input.faultKind, input.faultMode);
  Check(FaultLeaves(), "the exception of a failing call leaves");
  CheckNoProblems(host);
  CheckSame(Joined(host.StoredSets()), Joined(host.SaveCount() > 0 ? after : input.sets), "sets after a fault");
}

void Try(const TokenInput& input) {
  const std::optional<std::string> predicted = Predicted(input);
  if (!predicted) {
    return;
  }
  scripted::ScriptedHost host({input.dictionary, input.sets, input.datasetOpen, {}});
  host.SetTracing(false);
  host.HostHooks().truth = input.truth;
  host.HostHooks().cursorAfterVarList = input.cursorAfterVarList;
  RunCleanly(host, input, *predicted);
  if (input.fault != 0) {
    RunWithFault(host, input);
    RunCleanly(host, input, *predicted);
  }
}

}  // namespace
}  // namespace fuzz

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz::Try(fuzz::ReadTokenInput({reinterpret_cast<const char*>(data), size}));
  return 0;
}
