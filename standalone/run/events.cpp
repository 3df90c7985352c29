#include "standalone/run/events.h"

#include "standalone/output/json.h"

namespace standalone {
namespace {

// Each event is an object with one member, whose name tells the kind.

struct ToEventJson {
  Json operator()(const ProcedureOpened& event) const { return {{"procedure", event.title}}; }
  Json operator()(const ItemIssued& event) const { return {{"item", ToJson(event.item)}}; }
  Json operator()(const CommandRestarted&) const { return {{"restarted", true}}; }
  Json operator()(const CommandSaves&) const { return {{"saves", true}}; }
  Json operator()(const CommandDone& event) const { return {{"done", event.command}}; }
  Json operator()(const RunFailed& event) const { return {{"failed", event.sentence}}; }
  Json operator()(const Noticed& event) const { return {{"noticed", event.sentence}}; }
};

}  // namespace

std::string ToLine(const Event& event) {
  return OneLine(std::visit(ToEventJson(), event));
}

Event EventFromLine(const std::string& line) {
  const Json json = Json::parse(line);
  const auto member = json.begin();
  const std::string& kind = member.key();
  const Json& value = member.value();
  if (kind == "procedure") {
    return ProcedureOpened{value};
  }
  if (kind == "item") {
    return ItemIssued{ItemFromJson(value)};
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
    return CommandDone{value};
  }
  return RunFailed{value};
}

}  // namespace standalone
