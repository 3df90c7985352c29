#ifndef HOST_CHECK_HOST_CHECK_H
#define HOST_CHECK_HOST_CHECK_H

#include <iosfwd>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "host/output.h"
#include "host/variable_sets.h"

/// Tries a host: each sentence of host/*.h that a host must keep, on the host's own implementation.
namespace host_check {

struct ValueLabel {
  std::variant<double, std::string> value;
  std::string label;
};

struct Variable {
  std::string name;
  int width = 0;  ///< 0 for a numeric variable, else the width in bytes
  std::optional<std::string> label = std::nullopt;
  std::vector<ValueLabel> valueLabels = {};
};

struct Set {
  std::string name;
  VariableSet::VariableSetType type = VariableSet::kMCSet;
  std::string label = {};
  std::string countedValue = {};
  bool labelSetByVariable = false;
  bool useVariableCategoryLabels = false;
  std::vector<std::string> variables = {};
};

/// What a command finds.
struct Setup {
  std::vector<Variable> variables;
  std::vector<Set> sets;
  std::string command = "MRSET";  ///< its text, without what ends a command
  bool datasetIsOpen = true;
};

struct Message {
  BpErrorLevel level = kBpErrorLevelError;
  std::string text;  ///< without what the host adds
};

struct Cell {
  std::vector<std::string> lines;  ///< none: the cell is empty
  std::vector<std::string> notes;
};

struct Row {
  std::string heading;
  std::vector<Cell> cells;  ///< one for each column
};

struct Table {
  std::string title;
  std::vector<std::string> columns;
  std::vector<Row> rows;
};

/// What a command left.
struct Result {
  std::vector<std::string> procedures;  ///< their titles
  std::vector<Message> messages;        ///< the host's own, too
  std::vector<Table> tables;
  std::vector<Set> sets;  ///< those that the next command would find
};

/// Written by the host's engineer: makes the host ready for one command after the other. Texts are in the host's
/// multibyte encoding.
class HostFactory {
 public:
  virtual ~HostFactory() = default;

  /// Begins a command: until End(), the operations of host/ act on this setup alone.
  virtual void Begin(const Setup& setup) = 0;

  /// Ends it. Every object of host/ has been released.
  virtual Result End() = 0;

  /// Whether a command can run while no dataset is open. Where it cannot, what host/ says of that is not tried.
  virtual bool RunsWithoutDataset() const { return true; }

  /// How a command names all sets.
  virtual std::string AllSets() const { return "ALL"; }

  /// A letter of several bytes; empty where the encoding has none.
  virtual std::string LongLetter() const { return "\xC3\xA9"; }
};

/// Tries every sentence and writes it to `report`: each before it is tried, so that the last one is to blame where the
/// host ends the process, and then "ok", "not tried" or what is wrong. Returns how many sentences the host breaks.
int RunHostCheck(HostFactory& factory, std::ostream& report);

}  // namespace host_check

#endif  // HOST_CHECK_HOST_CHECK_H
