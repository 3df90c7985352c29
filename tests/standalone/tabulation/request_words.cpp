#include "tests/standalone/tabulation/request_words.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <sstream>

namespace standalone {
namespace {

using Texts = std::vector<std::string>;

std::string Shown(const Figure& figure) {
  return figure ? fmt::format("{:.6g}", *figure + 0.0) : "-";
}

std::string BaseName(TabulationBase base) {
  const Texts names = {"answered", "asked", "complete", "all"};
  return names[static_cast<std::size_t>(base)];
}

std::string Shown(const TabulationColumn& column) {
  const TabulatedCases& cases = column.cases;
  return fmt::format(
      "column {} [{}] [{}]: {} = {} answered + {} none + {} missing, base {}, weighted {}, effective {}, responses {}, "
      "per case {}\n",
      column.by.empty() ? "-" : column.by, fmt::join(column.values, ","), fmt::join(column.labels, ","), cases.all,
      cases.answered, cases.noneChosen, cases.missing, cases.base, Shown(column.weightedBase),
      Shown(column.effectiveBase), Shown(column.responses), Shown(column.responsesPerCase));
}

std::string Shown(const TabulationCell& cell, bool hasErrors) {
  std::string text = fmt::format("{} {} {}% {}%", cell.cases, Shown(cell.count), Shown(cell.percentOfCases),
                                 Shown(cell.percentOfResponses));
  if (hasErrors) {
    text += fmt::format(" +-{} {}..{} x{}", Shown(cell.standardError), Shown(cell.low), Shown(cell.high),
                        Shown(cell.designEffect));
  }
  return text;
}

std::string Shown(const TabulationTest& test) {
  std::string text = fmt::format("test {}: {} corrected {} df {} p {}\n", test.by, Shown(test.statistic),
                                 Shown(test.corrected), Shown(test.degreesOfFreedom), Shown(test.p));
  for (const MemberTest& member : test.members) {
    text += fmt::format("test {}, {}{}: {} df {} p {} adjusted {}\n", test.by, member.member,
                        member.byMember.empty() ? "" : " x " + member.byMember, Shown(member.statistic),
                        member.degreesOfFreedom, Shown(member.p), Shown(member.adjustedP));
  }
  return text;
}

Condition Joined(Condition::Kind kind, const std::vector<Condition>& parts) {
  Condition condition;
  condition.kind = kind;
  condition.parts = parts;
  return condition;
}

Condition About(Condition::Kind kind, const std::string& name, const Texts& values) {
  Condition condition;
  condition.kind = kind;
  condition.name = Say(name, 10);
  for (const std::string& value : values) {
    condition.values.push_back(Say(value, 30));
  }
  return condition;
}

}  // namespace

Spoken Say(const std::string& word, std::size_t offset) {
  const bool isQuoted = word.size() > 1 && word.front() == '\'' && word.back() == '\'';
  return {isQuoted ? word.substr(1, word.size() - 2) : word, isQuoted, offset, word.size()};
}

std::vector<Spoken> SayAll(const Texts& words) {
  std::vector<Spoken> spoken;
  std::transform(words.begin(), words.end(), std::back_inserter(spoken),
                 [](const std::string& word) { return Say(word, 50); });
  return spoken;
}

TabulationRequest Ask(const Texts& sets, const Texts& by) {
  TabulationRequest request;
  request.sets = SayAll(sets);
  for (const std::string& one : by) {
    const std::size_t star = one.find('*');
    request.by.push_back({Say(one.substr(0, star), 20), std::nullopt});
    if (star != std::string::npos) {
      request.by.back().second = Say(one.substr(star + 1), 20 + star + 1);
    }
  }
  return request;
}

Condition Comparison(const std::string& variable, const std::string& compare, const std::string& value) {
  using Operator = Condition::Operator;
  const std::map<std::string, Operator> operators = {{"=", Operator::kEqual},   {"<>", Operator::kNotEqual},
                                                     {"<", Operator::kLess},    {"<=", Operator::kLessOrEqual},
                                                     {">", Operator::kGreater}, {">=", Operator::kGreaterOrEqual}};
  Condition condition = About(Condition::Kind::kComparison, variable, {value});
  condition.compare = operators.at(compare);
  return condition;
}

Condition IsIn(const std::string& variable, const Texts& values) {
  return About(Condition::Kind::kIn, variable, values);
}

Condition IsMissing(const std::string& variable) {
  return About(Condition::Kind::kMissing, variable, {});
}

Condition Has(const std::string& set, const std::string& member) {
  return About(Condition::Kind::kHas, set, {member});
}

Condition Not(const Condition& part) {
  return Joined(Condition::Kind::kNot, {part});
}

Condition All(const std::vector<Condition>& parts) {
  return Joined(Condition::Kind::kAnd, parts);
}

Condition Any(const std::vector<Condition>& parts) {
  return Joined(Condition::Kind::kOr, parts);
}

std::string Described(const Tabulation& table) {
  std::string text = fmt::format("set {} [{}] {}, weight {}, where {}\n", table.set, table.label, BaseName(table.base),
                                 table.weight.value_or("-"), table.where.value_or("-"));
  for (const TabulationColumn& column : table.columns) {
    text += Shown(column);
  }
  for (const TabulationRow& row : table.rows) {
    Texts cells;
    std::transform(row.cells.begin(), row.cells.end(), std::back_inserter(cells),
                   [&](const TabulationCell& cell) { return Shown(cell, table.hasErrors); });
    text += fmt::format("{} {} [{}]: {}\n", row.isNet ? "net" : "row", row.member, row.label, fmt::join(cells, " | "));
  }
  for (const TabulationTest& test : table.tests) {
    text += Shown(test);
  }
  for (const std::string& note : table.notes) {
    text += "note " + note + "\n";
  }
  return text;
}

std::string Described(const Tabulation& table, const std::string& word) {
  std::istringstream lines(Described(table));
  std::string found;
  for (std::string line; std::getline(lines, line);) {
    if (line.rfind(word + " ", 0) == 0) {
      found += line.substr(word.size() + 1) + "\n";
    }
  }
  return found;
}

}  // namespace standalone
