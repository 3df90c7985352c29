#include "standalone/output/json/result_json.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "standalone/output/json/tabulation_json.h"

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

void WriteValue(JsonWriter& json, const Cell& cell) {
  if (const auto* list = std::get_if<std::vector<std::string>>(&cell.value)) {
    json.Array([&] { std::for_each(list->begin(), list->end(), [&](const std::string& text) { json.Value(text); }); });
  } else {
    const auto* text = std::get_if<std::string>(&cell.value);
    json.Value(text == nullptr ? Json() : Json(*text));
  }
}

void WriteRow(JsonWriter& json, const TableRow& row) {
  json.Object([&] {
    json.Member("name", row.name);
    json.Array("cells", row.cells, [&](const Cell& cell) { WriteValue(json, cell); });
    json.Array("notes", row.cells, [&](const Cell& cell) { json.Value(cell.note ? Json(*cell.note) : Json()); });
  });
}

void WriteJson(JsonWriter& json, const Message& message) {
  json.Object([&] {
    json.Member("kind", "message");
    json.Member("level", NameOf(kLevels, message.level));
    json.Member("text", message.text);
    if (message.place) {
      json.Member("line", message.place->line);
      json.Member("column", message.place->column);
      json.Member("length", message.place->length);
    }
    if (message.hint) {
      json.Member("hint", *message.hint);
    }
  });
}

void WriteJson(JsonWriter& json, const Table& table) {
  json.Object([&] {
    json.Member("kind", "table");
    json.Member("title", table.title);
    json.Member("rowDimension", table.rowDimension);
    json.Member("columnDimension", table.columnDimension);
    json.Array("columns", table.columns);
    json.Array("rows", table.rows, [&](const TableRow& row) { WriteRow(json, row); });
  });
}

}  // namespace

void WriteJson(JsonWriter& json, const Item& item) {
  std::visit([&](const auto& one) { WriteJson(json, one); }, item);
}

void WriteJson(JsonWriter& json, const CommandResult& result) {
  json.Object([&] {
    json.Member("command", result.number);
    json.Member("line", result.line);
    json.Member("text", result.text);
    json.Member("procedure", result.procedure);
    json.Member("status", NameOf(kStatuses, result.status));
    json.Array("items", result.items, [&](const Item& item) { WriteJson(json, item); });
    if (result.isSaveOpen) {
      json.Member("saved", "unknown");
    }
    if (!result.source.empty()) {
      json.Member("source", result.source);
    }
    if (!result.hints.empty()) {
      json.Array("hints", result.hints);
    }
    if (result.dryRun) {
      json.Member("dryRun", *result.dryRun);
    }
  });
}

}  // namespace standalone
