#include "standalone/run/events.h"

#include "standalone/output/json.h"
#include "standalone/run/table_line.h"

namespace standalone {
namespace {

// Each event is a JSON object whose first member's name tells the kind; but tables have a line of their own.

/// The bytes of a message's place, which are no part of an item's documented form.
constexpr const char* kBytes = "bytes";

Json IssuedToJson(const Item& item) {
  Json json = {{"item", ToJson(item)}};
  const auto* message = std::get_if<Message>(&item);
  if (message != nullptr && message->place) {
    json[kBytes] = {message->place->offset, message->place->size};
  }
  return json;
}

Item IssuedFromJson(const Json& json) {
  Item item = ItemFromJson(json.at("item"));
  if (json.contains(kBytes)) {
    Place& place = std::get<Message>(item).place.value();
    place.offset = json.at(kBytes).at(0);
    place.size = json.at(kBytes).at(1);
  }
  return item;
}

struct ToEventJson {
  Json operator()(const ProcedureOpened& event) const { return {{"procedure", event.title}}; }
  Json operator()(const ItemIssued& event) const { return IssuedToJson(event.item); }
  Json operator()(const CommandRestarted&) const { return {{"restarted", true}}; }
  Json operator()(const CommandSaves&) const { return {{"saves", true}}; }
  Json operator()(const CommandDone& event) const { return {{"done", {event.command, event.hasSaved}}}; }
  Json operator()(const HintGiven& event) const { return {{"hint", event.hint}}; }
  Json operator()(const DryRunTold& event) const { return {{"dryRun", event.sentence}}; }
  Json operator()(const RunFailed& event) const { return {{"failed", event.sentence}}; }
  Json operator()(const Noticed& event) const { return {{"noticed", event.sentence}}; }
};

/// Null for an event that is no table.
const Table* TableIn(const Event& event) {
  const auto* issued = std::get_if<ItemIssued>(&event);
  return issued == nullptr ? nullptr : std::get_if<Table>(&issued->item);
}

}  // namespace

std::string ToLine(const Event& event) {
  if (const Table* table = TableIn(event)) {
    return ToTableLine(*table);
  }
  return OneLine(std::visit(ToEventJson(), event));
}

Event EventFromLine(const std::string& line) {
  if (!line.empty() && line.front() == kTableMark) {
    return ItemIssued{TableFromLine(line)};
  }
  const Json json = Json::parse(line);
  const auto member = json.begin();
  const std::string& kind = member.key();
  const Json& value = member.value();
  if (kind == "procedure") {
    return ProcedureOpened{value};
  }
  if (kind == "item") {
    return ItemIssued{IssuedFromJson(json)};
  }
  if (kind == "restarted") {
    return CommandRestarted{};
  }
  if (kind == "saves") {
    return CommandSaves{};
  }
  if (kind == "noticed") {
    return Noticed{value};
  }
  if (kind == "done") {
    return CommandDone{value.at(0), value.at(1)};
  }
  if (kind == "hint") {
    return HintGiven{value};
  }
  if (kind == "dryRun") {
    return DryRunTold{value};
  }
  return RunFailed{value};
}

}  // namespace standalone
