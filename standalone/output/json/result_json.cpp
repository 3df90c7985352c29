#include "standalone/output/json/result_json.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <utility>

#include "standalone/output/json/tabulation_json.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

template <typename Value>
struct Named {
  Value value;
  const char* name;
};

constexpr std::array kLevels = {Named<Level>{Level::kError, "error"}, Named<Level>{Level::kWarning, "warning"},
                                Named<Level>{Level::kFatal, "fatal"}};

constexpr std::array kStatuses = {Named<Status>{Status::kOk, "ok"}, Named<Status>{Status::kError, "error"},
                                  Named<Status>{Status::kAborted, "aborted"}};

template <typename Value, std::size_t kSize>
const char* NameOf(const std::array<Named<Value>, kSize>& table, Value value) {
  const auto isNamed = [value](const Named<Value>& named) { return named.value == value; };
  return std::find_if(table.begin(), std::prev(table.end()), isNamed)->name;
}

Json OrNull(const std::optional<std::string>& text) {
  return text ? Json(*text) : Json(nullptr);
}

Json ValueToJson(const Cell& cell) {
  if (const auto* text = std::get_if<std::string>(&cell.value)) {
    return *text;
  }
  if (const auto* list = std::get_if<std::vector<std::string>>(&cell.value)) {
    return *list;
  }
  return nullptr;
}

Json RowToJson(const TableRow& row) {
  Json cells = Json::array();
  Json notes = Json::array();
  for (const Cell& cell : row.cells) {
    cells.push_back(ValueToJson(cell));
    notes.push_back(OrNull(cell.note));
  }
  return {{"name", row.name}, {"cells", std::move(cells)}, {"notes", std::move(notes)}};
}

Json MessageToJson(const Message& message) {
  Json json = {{"kind", "message"}, {"level", NameOf(kLevels, message.level)}, {"text", message.text}};
  if (message.place) {
    json["line"] = message.place->line;
    json["column"] = message.place->column;
    json["length"] = message.place->length;
  }
  if (message.hint) {
    json["hint"] = *message.hint;
  }
  return json;
}

Json TableToJson(const Table& table) {
  Json rows = Json::array();
  for (const TableRow& row : table.rows) {
    rows.push_back(RowToJson(row));
  }
  return {{"kind", "table"},
          {"title", table.title},
          {"rowDimension", table.rowDimension},
          {"columnDimension", table.columnDimension},
          {"columns", table.columns},
          {"rows", std::move(rows)}};
}

}  // namespace

Json ToJson(const Item& item) {
  if (const auto* message = std::get_if<Message>(&item)) {
    return MessageToJson(*message);
  }
  if (const auto* tabulation = std::get_if<Tabulation>(&item)) {
    return ToJson(*tabulation);
  }
  return TableToJson(std::get<Table>(item));
}

Json ToJson(const CommandResult& result) {
  Json items = Json::array();
  for (const Item& item : result.items) {
    items.push_back(ToJson(item));
  }
  Json json = {{"command", result.number},
               {"line", result.line},
               {"text", result.text},
               {"procedure", OrNull(result.procedure)},
               {"status", NameOf(kStatuses, result.status)},
               {"items", std::move(items)}};
  if (result.isSaveOpen) {
    json["saved"] = "unknown";
  }
  if (!result.source.empty()) {
    json["source"] = result.source;
  }
  if (!result.hints.empty()) {
    json["hints"] = result.hints;
  }
  if (result.dryRun) {
    json["dryRun"] = *result.dryRun;
  }
  return json;
}

std::string OneLine(const Json& json) {
  return VisibleJson(json.dump(-1, ' ', false, Json::error_handler_t::replace));
}

}  // namespace standalone
