#include "tests/fuzz/tabulate_text.h"

#include <fmt/format.h>

#include <vector>

#include "standalone/language/tokenizer.h"

namespace fuzz {
namespace {

using standalone::Condition;
using standalone::Spoken;

std::string ToText(const Spoken& spoken) {
  return spoken.isQuoted ? standalone::Quoted(spoken.text) : spoken.text;
}

std::string Joined(const std::vector<Spoken>& list, const char* separator) {
  std::string text;
  for (const Spoken& one : list) {
    text += (text.empty() ? "" : separator) + ToText(one);
  }
  return text;
}

std::string ToText(const Condition& condition);

/// In parentheses where it would else fall apart, which is where it had them.
std::string PartText(const Condition& part, Condition::Kind whole) {
  const bool isJoined = part.kind == Condition::Kind::kAnd || part.kind == Condition::Kind::kOr;
  const bool bindsMore = part.kind == Condition::Kind::kAnd && whole == Condition::Kind::kOr;
  return isJoined && !bindsMore ? "(" + ToText(part) + ")" : ToText(part);
}

std::string ToText(const Condition& condition) {
  constexpr const char* kOperators[] = {"=", "<>", "<", "<=", ">", ">="};
  const std::string name = ToText(condition.name);
  switch (condition.kind) {
    case Condition::Kind::kComparison:
      return name + " " + kOperators[static_cast<int>(condition.compare)] + " " + ToText(condition.values[0]);
    case Condition::Kind::kIn:
      return fmt::format("{} IN ({})", name, Joined(condition.values, ", "));
    case Condition::Kind::kMissing:
      return fmt::format("MISSING({})", name);
    case Condition::Kind::kHas:
      return fmt::format("{} HAS {}", name, ToText(condition.values[0]));
    case Condition::Kind::kNot:
      return "NOT " + PartText(condition.parts[0], condition.kind);
    case Condition::Kind::kAnd:
    case Condition::Kind::kOr:
      break;
  }
  std::string text;
  for (const Condition& part : condition.parts) {
    const char* word = condition.kind == Condition::Kind::kAnd ? " AND " : " OR ";
    text += (text.empty() ? "" : word) + PartText(part, condition.kind);
  }
  return text;
}

std::string FiguresText(const standalone::TabulationFigures& figures) {
  std::string text = "/SHOW=";
  text += figures.count ? "COUNT " : "";
  text += figures.percentOfCases ? "CASES " : "";
  text += figures.percentOfResponses ? "RESPONSES " : "";
  text += figures.standardError ? "ERROR " : "";
  return text + (figures.interval ? "INTERVAL " : "");
}

}  // namespace

std::string ToCommand(const standalone::TabulationRequest& request) {
  constexpr const char* kBases[] = {"ANSWERED", "ASKED", "COMPLETE", "ALL"};
  constexpr const char* kSorts[] = {"NONE", "DESCENDING", "ASCENDING"};
  constexpr const char* kTests[] = {"HOLM", "BONFERRONI"};
  std::string text = "TABULATE " + Joined(request.sets, " ");
  for (std::size_t index = 0; index < request.by.size(); ++index) {
    const standalone::ByRequest& by = request.by[index];
    text += (index == 0 ? " /BY=" : " ") + ToText(by.first) + (by.second ? "*" + ToText(*by.second) : "");
  }
  text += request.weight ? " /WEIGHT=" + ToText(*request.weight) : "";
  text += request.where ? " /WHERE=" + ToText(*request.where) : "";
  text += request.none ? " /NONE=" + ToText(*request.none) : "";
  for (const standalone::NetRequest& net : request.nets) {
    text += fmt::format(" /NET={}: {}", standalone::Quoted(net.label.text), Joined(net.members, " "));
  }
  text += request.last.empty() ? "" : " /LAST=" + Joined(request.last, " ");
  text += request.test ? fmt::format(" /TEST={}", kTests[static_cast<int>(*request.test)]) : "";
  text += request.minBase > 0 ? fmt::format(" /MINBASE={}", request.minBase) : "";
  return text +
         fmt::format(" /BASE={} /SORT={} /CONFIDENCE={} /DECIMALS={} ", kBases[static_cast<int>(request.base)],
                     kSorts[static_cast<int>(request.sort)], request.confidence, request.decimals) +
         FiguresText(request.figures);
}

}  // namespace fuzz
