#ifndef TESTS_HOST_SCRIPTED_HOST_H
#define TESTS_HOST_SCRIPTED_HOST_H

#include <array>
#include <cstddef>
#include <exception>
#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "host/dictionary.h"
#include "host/output.h"
#include "host/text.h"
#include "host/tokens.h"
#include "host/variable_sets.h"
#include "tests/host/tokenizer.h"

/// A host in memory that does what a test scripts and records every call that is made of it. Texts are UTF-8.
namespace scripted {

// ---------------------------------------------------------------------------------------------------------------------
// What the host is given.

struct ValueLabel {
  std::variant<double, std::string> value;
  std::string label;
};

struct Variable {
  std::string name;
  int type = 0;                      ///< 0 numeric, else the width of a string variable
  std::optional<std::string> label;  ///< none: GetLabel() is null; "": GetLabel() is empty
  std::vector<ValueLabel> valueLabels;
};

Variable Numeric(std::string name, std::optional<std::string> label = std::nullopt,
                 std::vector<ValueLabel> valueLabels = {});
Variable String(std::string name, int width, std::optional<std::string> label = std::nullopt,
                std::vector<ValueLabel> valueLabels = {});

/// A stored set as plain data that can be written down, compared and printed. Makes no host calls.
struct SetData {
  std::string name;
  VariableSet::VariableSetType type = VariableSet::kMDSet;
  std::string label;
  std::string value;
  bool labelSetByVariable = false;
  bool useVariableCategoryLabels = false;
  std::vector<std::string> variables;
};

bool operator==(const SetData& first, const SetData& second);
bool operator!=(const SetData& first, const SetData& second);

/// As in `$likes MD value "1" label "Likes" label-by-variable counted-value-labels (q1 q2)`; what is empty or false is
/// left out.
std::string ToText(const SetData& set);
std::ostream& operator<<(std::ostream& stream, const SetData& set);

SetData Dichotomies(std::string name, std::string value, std::vector<std::string> variables, std::string label = {});
SetData Categories(std::string name, std::vector<std::string> variables, std::string label = {});

/// Between data and the boundary's records, without a trace, a count or a fault.
VariableSet ToSet(const SetData& data);
VARIABLESETS ToSets(const std::vector<SetData>& data);
SetData ToData(const VariableSet& set);
std::vector<SetData> ToData(const VARIABLESETS& sets);

/// An argument of a composite: one text, or the entries of a list.
struct Argument {
  bool isList = false;
  std::vector<std::string> texts;
};

bool operator==(const Argument& first, const Argument& second);
std::ostream& operator<<(std::ostream& stream, const Argument& argument);

/// A text argument, and a list argument.
Argument Text(std::string text);
Argument List(std::vector<std::string> entries);

/// Replacements of the host's own rules; an empty one leaves the rule that its comment states.
struct Hooks {
  /// ValidateZEVAName: 2 for an optional "$", then a letter, "@", "#" or "_", then letters, digits, "_ . $ @ #", not
  /// ending in a period, neither ALL nor TO, 64 bytes at most; else 0. Bytes beyond ASCII count as letters.
  std::function<int(const std::string& name)> validateName;

  /// KeywordMatch: `truth` for the whole keyword or its first letters, three at least; else 0.
  std::function<int(const std::string& token, const std::string& keyword)> keywordMatch;

  /// ExistingVarList: gets the texts of the tokens of the list and appends to `indices`. By default names and "a TO b";
  /// an unknown name, a reversed or open range, and a variable listed twice are reported as an error of the host.
  std::function<bool(const std::vector<std::string>& words, std::vector<int>& indices)> existingVarList;

  /// FindVarIndex: whether a variable of the dictionary is found by its name; by default each is.
  std::function<bool(const std::string& name)> findsVariable;

  /// The text of a composite: see RenderTemplate().
  std::function<std::string(const std::string& pattern, const std::vector<Argument>& arguments)> render;

  /// What KeywordMatch and ZEVAMBqstricmp_A answer for yes.
  int truth = 1;

  /// Where ExistingVarList leaves the cursor, as the index of the current token; by default at the end of the list.
  std::optional<int> cursorAfterVarList;
};

/// "^1" to "^9" replaced by the arguments in one pass; a placeholder without an argument becomes nothing; a list is
/// written with ", " between its entries, and one that no placeholder takes is appended after a blank. A list pattern
/// writes its entries with "\n" between them.
std::string RenderTemplate(const std::string& pattern, const std::vector<Argument>& arguments);

/// Whether the pattern is a list pattern such as "[:^1\r:$1]1".
bool IsListPattern(const std::string& pattern);

// ---------------------------------------------------------------------------------------------------------------------
// What the host has received.

/// A text at the moment at which it was used.
struct TextData {
  std::string text;     ///< rendered
  std::string pattern;  ///< of a composite its pattern, of a string its text
  bool flag = false;    ///< fixed text or message template
  bool isComposite = false;
  bool finished = false;                            ///< Finish() was called
  std::vector<Argument> arguments;                  ///< of a composite
  std::optional<std::vector<std::string>> entries;  ///< of a composite with a list pattern
};

struct Message {
  int level = 0;  ///< 4 error, 2 warning
  int show = 0;
  std::string text;
  std::string pattern;
  std::vector<Argument> arguments;
  bool flag = false;
  bool finished = false;
  bool fromHost = false;  ///< the host's own, of a variable list

  bool IsError() const { return level == kBpErrorLevelError; }
};

/// As in `error: Square bracket expected.`; a message of the host's own begins "host error: ".
std::string ToText(const Message& message);
std::ostream& operator<<(std::ostream& stream, const Message& message);

struct Position {
  int place = 0;
  int level = 0;
  bool visible = false;
  bool hidden = false;
};

struct Dimension {
  TextData title;
  int sort = 0;
  std::optional<Position> position;
  std::vector<TextData> categories;
};

struct Cell {
  std::vector<std::size_t> at;   ///< the index of the cell's category in each dimension, in order of the dimensions
  std::optional<TextData> text;  ///< none when only a note was attached
  std::vector<TextData> notes;
};

struct Table {
  TextData title;
  TextData second;
  bool flag = false;
  std::vector<Dimension> dimensions;
  std::vector<Cell> cells;  ///< in the order in which they were filled

  /// Of a table with two dimensions, one of them placed as the columns: null when there is no such dimension or cell.
  const Dimension* Columns() const;
  const Dimension* Rows() const;
  const Cell* At(std::size_t row, std::size_t column) const;

  /// The whole table: "TITLE: ROWS by COLUMNS", then the headings and each row as "heading | cell | cell ...", an empty
  /// cell as "-", the entries of a list with "; " between them, a note in braces behind its cell.
  std::vector<std::string> Lines() const;
};

struct Procedure {
  std::string title;
  int kind = 0;
};

/// One object that was constructed or released.
struct Event {
  bool constructed = false;
  std::string object;  ///< as in "text#3"
};

bool operator==(const Event& first, const Event& second);
std::ostream& operator<<(std::ostream& stream, const Event& event);

// ---------------------------------------------------------------------------------------------------------------------
// Faults.

enum class FaultKind {
  kStandard,  ///< throws Fault
  kOdd        ///< throws OddFault
};

enum class FaultMode {
  kOnce,       ///< the one call
  kFromThenOn  ///< that call and every one after it
};

/// Thrown by a failing host call.
class Fault final : public std::exception {
 public:
  explicit Fault(std::size_t call);

  /// The number of the call that threw, from 1.
  std::size_t Call() const { return fCall; }
  const char* what() const noexcept override { return fWhat.data(); }

 private:
  std::size_t fCall;
  std::array<char, 48> fWhat{};
};

/// Thrown by a failing host call; no std::exception.
struct OddFault {
  std::size_t call = 0;
};

// ---------------------------------------------------------------------------------------------------------------------

struct HostSetup {
  std::vector<Variable> dictionary;
  std::vector<SetData> sets;
  bool datasetOpen = true;
  Hooks hooks;
};

/// The host. One instance at a time: it is installed from its construction to its destruction, and the functions and
/// objects of host/ act on it. Without an instance only the VariableSet records and the text utilities can be used.
///
/// All calls are recorded, also those that the test itself makes, unless a Quiet is alive.
class ScriptedHost {
 public:
  ScriptedHost();
  explicit ScriptedHost(const HostSetup& setup, std::string_view command = "MRSET");
  ScriptedHost(const ScriptedHost&) = delete;
  ScriptedHost& operator=(const ScriptedHost&) = delete;
  ~ScriptedHost();

  /// The command of the next run. Begins a new record: messages, tables, trace, ledger, violations, saves, counts and a
  /// fault that was set are forgotten; the dictionary, the stored sets and the hooks stay.
  void SetCommand(std::string_view command);

  /// The same with tokens made by the test, without the end.
  void SetTokens(std::vector<Token> tokens);

  /// Begins a new record with the same command.
  void StartOver();

  /// Text and symbol code of the end of the command; by default "end of command" and none. Its type is kEnd.
  void SetEnd(std::string text, int symbol);

  /// Not while a command runs: the variables that it was given are gone.
  void SetDictionary(const std::vector<Variable>& dictionary);
  void SetStoredSets(const std::vector<SetData>& sets);
  void SetDatasetOpen(bool open);
  Hooks& HostHooks();

  /// Recording of the trace and of the ledger's events; on at first. Everything else is kept up without it.
  void SetTracing(bool on);

  /// For a hook: issues an error of the host's own.
  void ReportHostError(const std::string& text);

  /// The call with that number, counted from 1 from the beginning of the record, destructors not counted, throws before
  /// it has any effect. A constructor that throws makes no object.
  void FailAtCall(std::size_t call, FaultKind kind = FaultKind::kStandard, FaultMode mode = FaultMode::kOnce);
  void FailNoCall();

  /// The calls made, those that threw included; and how many of them threw.
  std::size_t CallCount() const;
  std::size_t FaultCount() const;
  bool Fired() const { return FaultCount() > 0; }

  /// In order. A call that threw ends " throws"; the lines of the host's own messages are indented.
  const std::vector<std::string>& Trace() const;

  /// The lines of the trace, each with its "\n".
  std::string TraceText() const;

  const std::vector<Message>& Messages() const;

  /// ToText() of each message.
  std::vector<std::string> MessageLines() const;

  const std::vector<Table>& Tables() const;
  const std::vector<Procedure>& Procedures() const;

  /// The sets that a following command would find.
  std::vector<SetData> StoredSets() const;
  std::size_t SaveCount() const;

  /// The list that was saved last in this record; none when none was.
  std::optional<std::vector<SetData>> SavedSets() const;

  /// The objects that are alive, in order of construction, as in "text#3".
  std::vector<std::string> LiveObjects() const;
  const std::vector<Event>& Events() const;

  /// Releases that were not in reverse order of construction, as sentences. A text may be released before an object
  /// that was made with it, as a temporary argument is.
  const std::vector<std::string>& OutOfOrder() const;

  /// Calls against the boundary's contracts, as sentences: a use or release of an object that is not alive, an index or
  /// position out of range, a current token asked for where there is none, and so on.
  const std::vector<std::string>& Violations() const;

  /// All that can be wrong when a command is over: the violations, releases out of order, objects still alive.
  std::vector<std::string> Problems() const;

  struct Core;

 private:
  std::unique_ptr<Core> fCore;
};

/// While one is alive calls are neither recorded nor counted, and they do not fail: for a test's own use of host/.
class Quiet {
 public:
  Quiet();
  Quiet(const Quiet&) = delete;
  Quiet& operator=(const Quiet&) = delete;
  ~Quiet();
};

}  // namespace scripted

#endif  // TESTS_HOST_SCRIPTED_HOST_H
