#ifndef STANDALONE_OUTPUT_ITEMS_H
#define STANDALONE_OUTPUT_ITEMS_H

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "standalone/language/place.h"
#include "standalone/tabulation/tabulation.h"

namespace standalone {

/// What one command put out, as values that every renderer and the channel between processes share. Texts are UTF-8.

enum class Level { kWarning, kError, kFatal };

struct Message {
  Level level = Level::kError;
  std::string text;
  std::optional<Place> place = std::nullopt;       ///< what the message is about, where that is a part of the command
  std::optional<std::string> hint = std::nullopt;  ///< the host's advice on this message, without a final period
};

struct Cell {
  /// Nothing, a text, or a list of texts.
  std::variant<std::monostate, std::string, std::vector<std::string>> value;
  std::optional<std::string> note;
};

struct TableRow {
  std::string name;
  std::vector<Cell> cells;  ///< one for each column
};

struct Table {
  std::string title;
  std::string rowDimension;
  std::string columnDimension;
  std::vector<std::string> columns;
  std::vector<TableRow> rows;
};

using Item = std::variant<Message, Table, Tabulation>;

/// Whether the item is a message at error level.
inline bool IsErrorMessage(const Item& item) {
  const auto* message = std::get_if<Message>(&item);
  return message != nullptr && message->level == Level::kError;
}

enum class Status { kOk, kError, kAborted };

struct CommandResult {
  std::size_t number = 0;  ///< of the run, from 1
  int line = 0;            ///< of the script, from 1; 0 where there is no script
  std::string text;
  std::string source;  ///< what the script is called: its path, "standard input", "-c 1"; may be empty
  std::string before;  ///< what stands before the text on its first line
  std::string after;   ///< what comes after the text on its last line, its final period among it
  std::optional<std::string> procedure;
  Status status = Status::kOk;
  std::vector<Item> items;
  bool isSaved = false;                              ///< it changed the dataset
  bool isSaveOpen = false;                           ///< of an aborted command: it may have been saved all the same
  std::vector<std::string> hints;                    ///< the host's advice that belongs to no message
  std::optional<std::string> dryRun = std::nullopt;  ///< what the command would change, as a sentence
};

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_ITEMS_H
