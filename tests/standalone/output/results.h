#ifndef TESTS_STANDALONE_OUTPUT_RESULTS_H
#define TESTS_STANDALONE_OUTPUT_RESULTS_H

#include <sstream>
#include <string>
#include <vector>

#include "standalone/output/items.h"
#include "standalone/output/json/result_json.h"

namespace standalone {

// Results of commands, for the tests of renderers.

inline CommandResult Result(const std::string& text, const std::vector<Item>& items, Status status = Status::kOk) {
  CommandResult result;
  result.number = 1;
  result.line = 1;
  result.text = text;
  result.status = status;
  result.items = items;
  return result;
}

/// A command with the same message of the same place: twice, after a table once more, then of another place.
inline CommandResult RepeatedMessages() {
  Table table;
  table.title = "T";
  table.columns = {"C"};
  const Message message{Level::kError, "e", Place{1, 1, 5, 0, 5}, "h"};
  const Message other{Level::kError, "e", Place{1, 7, 4, 6, 4}, "h"};
  return Result("MRSET /FOO", {message, message, table, message, other}, Status::kError);
}

/// Two sets: cells with and without text, list cells, a number, the same note twice and another one.
inline Table TwoSets() {
  using List = std::vector<std::string>;
  Table table;
  table.title = "Multiple Response Sets";
  table.rowDimension = "Name";
  table.columnDimension = "Attributes";
  table.columns = {"Label", "Counted Value", "Elementary Variables"};
  table.rows = {{"$likes", {{"Likes", {"first"}}, {"1", {"second"}}, {List{"Tea", "Coffee"}, {}}}},
                {"$other", {{std::monostate{}, {"second"}}, {"N/A", {}}, {List{}, {}}}}};
  return table;
}

/// An item or a result as JSON.
template <typename Written>
std::string JsonText(const Written& written) {
  std::ostringstream stream;
  JsonWriter json(stream);
  WriteJson(json, written);
  return stream.str();
}

/// A text with what is markup in HTML, Markdown or CSV, and what acts on a terminal.
inline constexpr const char* kHostileText = "<b>&\"'`*_[x](y)|~$#\\ \x1b[31m\u202E,=1";

}  // namespace standalone

#endif  // TESTS_STANDALONE_OUTPUT_RESULTS_H
