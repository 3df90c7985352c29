#include "tests/standalone/tabulation/naive_tabulation.h"

#include <boost/math/distributions/chi_squared.hpp>
#include <boost/math/distributions/students_t.hpp>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <set>

#include "standalone/text/number_text.h"
#include "standalone/text/trim.h"

namespace standalone {
namespace {

using Texts = std::vector<std::string>;
using Flags = std::vector<bool>;  // one for each case
using Numbers = std::vector<double>;

/// What a case answered to a set.
struct Answer {
  bool isMissing = false;
  bool isComplete = true;
  std::set<std::string> chosen;
  bool IsNoneChosen() const { return !isMissing && chosen.empty(); }
};

struct Column {
  std::string by;
  Texts values;
  Flags isIn;
};

class NaiveCount {
 public:
  NaiveCount(const TabulationRequest& request, MemorySource& source)
      : fRequest(request), fSource(source), fCases(source.CaseCount()) {}

  Tabulation Table();

 private:
  std::string Value(const std::string& variable, std::size_t one);
  Answer AnswerOf(const StoredSet& set, std::size_t one);
  void ReadCases(const StoredSet& set);
  bool IsInBase(std::size_t one) const;
  std::vector<Column> ColumnsOf(const ByRequest& by);
  Flags PresentIn(const ByRequest& by);
  TabulationColumn Figures(const Column& column);
  TabulationCell Cell(const Flags& chose, const Column& column, double responses, bool isNet);
  void AddErrors(const Flags& chose, const Column& column, TabulationCell& cell);
  Flags Chose(const Texts& members) const;
  double Sum(const Flags& first, const Flags& second) const;
  std::int64_t Number(const Flags& first, const Flags& second) const;
  TabulationTest Test(const ByRequest& by, const Texts& members);

  const TabulationRequest& fRequest;
  MemorySource& fSource;
  std::size_t fCases;
  Numbers fWeights;  // 0 where it is not valid
  Flags fSelected;
  std::vector<Answer> fAnswers;
  Flags fBase;
};

/// "" for a missing one.
std::string NaiveCount::Value(const std::string& variable, std::size_t one) {
  const int position = fSource.FindVariable(variable);
  const std::string& cell = fSource.Cell(position, one);
  const bool isNumeric = fSource.VariableAt(position).width == 0;
  return isNumeric && !cell.empty() ? ShortestNumber(*NumberValue(cell)) : std::string(Trimmed(cell));
}

Answer NaiveCount::AnswerOf(const StoredSet& set, std::size_t one) {
  Answer answer;
  answer.isMissing = true;
  for (const std::string& variable : set.variables) {
    const std::string value = Value(variable, one);
    answer.isMissing = answer.isMissing && value.empty();
    answer.isComplete = answer.isComplete && !value.empty();
    if (set.type == SetType::kDichotomy && value == set.countedValue) {
      answer.chosen.insert(variable);
    }
    if (set.type == SetType::kCategory && !value.empty() && !(fRequest.none && fRequest.none->text == value)) {
      answer.chosen.insert(value);
    }
  }
  return answer;
}

bool Holds(double value, Condition::Operator compare, double other) {
  using Operator = Condition::Operator;
  const std::map<Operator, bool> results = {
      {Operator::kEqual, value == other},  {Operator::kNotEqual, value != other},
      {Operator::kLess, value < other},    {Operator::kLessOrEqual, value <= other},
      {Operator::kGreater, value > other}, {Operator::kGreaterOrEqual, value >= other}};
  return results.at(compare);
}

bool NaiveCount::IsInBase(std::size_t one) const {
  const Answer& answer = fAnswers[one];
  const std::map<TabulationBase, bool> bases = {{TabulationBase::kAnswered, !answer.chosen.empty()},
                                                {TabulationBase::kAsked, !answer.isMissing},
                                                {TabulationBase::kComplete, answer.isComplete},
                                                {TabulationBase::kAll, true}};
  return fSelected[one] && bases.at(fRequest.base);
}

void NaiveCount::ReadCases(const StoredSet& set) {
  for (std::size_t one = 0; one < fCases; ++one) {
    const std::string weight = fRequest.weight ? Value(fRequest.weight->text, one) : "1";
    fWeights.push_back(weight.empty() ? 0 : std::max(0.0, *NumberValue(weight)));
    bool isSelected = fWeights.back() > 0;
    if (fRequest.where) {
      const std::string value = Value(fRequest.where->name.text, one);
      isSelected = isSelected && !value.empty() &&
                   Holds(*NumberValue(value), fRequest.where->compare, *NumberValue(fRequest.where->values[0].text));
    }
    fSelected.push_back(isSelected);
    fAnswers.push_back(AnswerOf(set, one));
    fBase.push_back(IsInBase(one));
  }
}

std::string NameOf(const ByRequest& by) {
  return by.second ? by.first.text + "*" + by.second->text : by.first.text;
}

/// For each case, its values of the BY: none, one, or the members that it chose.
std::vector<Column> NaiveCount::ColumnsOf(const ByRequest& by) {
  std::map<Texts, Flags> columns;
  const StoredSet* set = fSource.FindSet(by.first.text);
  for (const std::string& variable : set != nullptr && set->type == SetType::kDichotomy ? set->variables : Texts()) {
    columns.emplace(Texts{variable}, Flags(fCases));
  }
  for (std::size_t one = 0; one < fCases; ++one) {
    std::set<Texts> values;
    if (set != nullptr) {
      for (const std::string& member : AnswerOf(*set, one).chosen) {
        values.insert({member});
      }
    } else {
      Texts cell = {Value(by.first.text, one)};
      if (by.second) {
        cell.push_back(Value(by.second->text, one));
      }
      if (std::find(cell.begin(), cell.end(), "") == cell.end()) {
        values.insert(cell);
      }
    }
    for (const Texts& value : fSelected[one] ? values : std::set<Texts>()) {
      columns.emplace(value, Flags(fCases)).first->second[one] = true;
    }
  }
  std::vector<Column> list;
  for (const auto& [values, isIn] : columns) {
    list.push_back({NameOf(by), values, isIn});
  }
  return list;
}

Flags NaiveCount::PresentIn(const ByRequest& by) {
  Flags present;
  const StoredSet* set = fSource.FindSet(by.first.text);
  for (std::size_t one = 0; one < fCases; ++one) {
    present.push_back(fSelected[one] && (set != nullptr ? !AnswerOf(*set, one).isMissing
                                                        : !Value(by.first.text, one).empty() &&
                                                              (!by.second || !Value(by.second->text, one).empty())));
  }
  return present;
}

double NaiveCount::Sum(const Flags& first, const Flags& second) const {
  double sum = 0;
  for (std::size_t one = 0; one < fCases; ++one) {
    sum += first[one] && second[one] ? fWeights[one] : 0;
  }
  return sum;
}

std::int64_t NaiveCount::Number(const Flags& first, const Flags& second) const {
  std::int64_t number = 0;
  for (std::size_t one = 0; one < fCases; ++one) {
    number += first[one] && second[one] ? 1 : 0;
  }
  return number;
}

Flags NaiveCount::Chose(const Texts& members) const {
  Flags chose;
  for (std::size_t one = 0; one < fCases; ++one) {
    const std::set<std::string>& chosen = fAnswers[one].chosen;
    chose.push_back(fBase[one] && std::any_of(members.begin(), members.end(), [&chosen](const std::string& member) {
                      return chosen.count(member) > 0;
                    }));
  }
  return chose;
}

TabulationColumn NaiveCount::Figures(const Column& column) {
  TabulationColumn figures;
  figures.by = column.by;
  figures.values = column.values;
  double squares = 0;
  for (std::size_t one = 0; one < fCases; ++one) {
    if (column.isIn[one]) {
      ++figures.cases.all;
      figures.cases.answered += fAnswers[one].chosen.empty() ? 0 : 1;
      figures.cases.noneChosen += fAnswers[one].IsNoneChosen() ? 1 : 0;
      figures.cases.missing += fAnswers[one].isMissing ? 1 : 0;
      figures.cases.base += fBase[one] ? 1 : 0;
      figures.weightedBase += fBase[one] ? fWeights[one] : 0;
      squares += fBase[one] ? fWeights[one] * fWeights[one] : 0;
      figures.responses += fBase[one] ? fWeights[one] * static_cast<double>(fAnswers[one].chosen.size()) : 0;
    }
  }
  if (figures.cases.base > 0) {
    figures.effectiveBase = figures.weightedBase * figures.weightedBase / squares;
    figures.responsesPerCase = figures.responses / figures.weightedBase;
  }
  return figures;
}

void NaiveCount::AddErrors(const Flags& chose, const Column& column, TabulationCell& cell) {
  const double whole = Sum(column.isIn, fBase);
  const double ratio = Sum(column.isIn, chose) / whole;
  Numbers z;
  for (std::size_t one = 0; one < fCases; ++one) {
    if (fWeights[one] > 0) {
      const bool isIn = column.isIn[one] && fBase[one];
      z.push_back(fWeights[one] * ((isIn && chose[one] ? 1 : 0) - (isIn ? ratio : 0)) / whole);
    }
  }
  const auto n = static_cast<double>(z.size());
  if (n < 2) {
    return;
  }
  double mean = 0;
  for (const double value : z) {
    mean += value / n;
  }
  double variance = 0;
  for (const double value : z) {
    variance += n / (n - 1) * (value - mean) * (value - mean);
  }
  const double t = boost::math::quantile(boost::math::students_t(n - 1), 0.5 + fRequest.confidence / 200);
  cell.standardError = 100 * std::sqrt(variance);
  cell.low = 100 * ratio - t * *cell.standardError;
  cell.high = 100 * ratio + t * *cell.standardError;
  const std::int64_t base = Number(column.isIn, fBase);
  const std::int64_t number = Number(column.isIn, chose);
  if (base > 1 && number > 0 && number < base) {
    cell.designEffect = variance / (ratio * (1 - ratio) / static_cast<double>(base - 1));
  }
}

TabulationCell NaiveCount::Cell(const Flags& chose, const Column& column, double responses, bool isNet) {
  TabulationCell cell;
  cell.cases = Number(chose, column.isIn);
  cell.count = Sum(chose, column.isIn);
  const std::int64_t base = Number(column.isIn, fBase);
  if (base > 0 && base >= fRequest.minBase) {
    cell.percentOfCases = 100 * cell.count / Sum(column.isIn, fBase);
    if (!isNet && responses > 0) {
      cell.percentOfResponses = 100 * cell.count / responses;
    }
    if (fRequest.figures.standardError || fRequest.figures.interval) {
      AddErrors(chose, column, cell);
    }
  }
  return cell;
}

/// One entry of the covariance: a member and a category.
struct Entry {
  std::size_t member;
  std::size_t category;
  double nominal;
  Numbers deviations;  // of each case
};

TabulationTest NaiveCount::Test(const ByRequest& by, const Texts& members) {
  const std::vector<Column> columns = ColumnsOf(by);
  const bool isSet = fSource.FindSet(by.first.text) != nullptr;
  Flags tested = PresentIn(by);
  double n = 0;
  for (std::size_t one = 0; one < fCases; ++one) {
    tested[one] = tested[one] && fBase[one];
    n += tested[one] ? 1 : 0;
  }
  const double whole = Sum(tested, tested);
  const auto isProper = [&](const Flags& flags) {
    const auto number = static_cast<double>(Number(flags, tested));
    return number > 0 && number < n;
  };
  TabulationTest test;
  test.by = NameOf(by);
  std::vector<Entry> entries;
  const auto proper = static_cast<int>(
      std::count_if(columns.begin(), columns.end(), [&](const Column& column) { return isProper(column.isIn); }));
  for (std::size_t j = 0; j < members.size(); ++j) {
    const Flags chose = Chose({members[j]});
    const double p = Sum(chose, tested) / whole;
    std::vector<MemberTest> ofMember;
    double sum = 0;
    for (std::size_t c = 0; c < columns.size(); ++c) {
      const double q = Sum(columns[c].isIn, tested) / whole;
      Flags both = chose;
      for (std::size_t one = 0; one < fCases; ++one) {
        both[one] = both[one] && columns[c].isIn[one];
      }
      const double excess = Sum(both, tested) / whole - p * q;
      const double nominal = (isSet ? q * (1 - q) : q) * p * (1 - p);
      MemberTest one{members[j], isSet ? columns[c].values[0] : "", std::nullopt, 1, std::nullopt, std::nullopt};
      if (isProper(chose) && isProper(columns[c].isIn)) {
        Entry entry{j, c, nominal, {}};
        for (std::size_t i = 0; i < fCases; ++i) {
          entry.deviations.push_back(((columns[c].isIn[i] ? 1 : 0) - q) * ((chose[i] ? 1 : 0) - p) - excess);
        }
        entries.push_back(entry);
        one.statistic = n * excess * excess / nominal;
        sum += *one.statistic;
      }
      ofMember.push_back(one);
    }
    if (!isSet) {
      ofMember = {{members[j], "", isProper(chose) && proper > 1 ? Figure(sum) : std::nullopt, proper - 1, std::nullopt,
                   std::nullopt}};
    }
    test.members.insert(test.members.end(), ofMember.begin(), ofMember.end());
  }
  double k = 0;
  std::vector<std::size_t> withP;
  for (std::size_t index = 0; index < test.members.size(); ++index) {
    MemberTest& member = test.members[index];
    if (member.statistic) {
      member.p = boost::math::cdf(
          boost::math::complement(boost::math::chi_squared(member.degreesOfFreedom), *member.statistic));
      test.statistic = test.statistic.value_or(0) + *member.statistic;
      k += member.degreesOfFreedom;
      withP.push_back(index);
    }
  }
  for (const std::size_t index : withP) {
    double adjusted = 0;
    for (const std::size_t other : withP) {
      if (*test.members[other].p <= *test.members[index].p) {
        const auto notBelow = std::count_if(withP.begin(), withP.end(), [&](std::size_t one) {
          return *test.members[one].p >= *test.members[other].p;
        });
        const auto factor = static_cast<double>(
            fRequest.test == Adjustment::kHolm ? notBelow : static_cast<std::ptrdiff_t>(withP.size()));
        adjusted = std::max(adjusted, std::min(1.0, *test.members[other].p * factor));
      }
    }
    test.members[index].adjustedP = adjusted;
  }
  double q = 0;
  for (const Entry& a : entries) {
    for (const Entry& b : entries) {
      double covariance = 0;
      for (std::size_t one = 0; one < fCases; ++one) {
        covariance += tested[one] ? n * fWeights[one] * fWeights[one] * a.deviations[one] * b.deviations[one] : 0;
      }
      covariance /= whole * whole;
      q += covariance * covariance / (a.nominal * b.nominal);
    }
  }
  if (test.statistic && q > 0) {
    test.corrected = k * *test.statistic / q;
    test.degreesOfFreedom = k * k / q;
    test.p =
        boost::math::cdf(boost::math::complement(boost::math::chi_squared(*test.degreesOfFreedom), *test.corrected));
  }
  return test;
}

Tabulation NaiveCount::Table() {
  const StoredSet set = *fSource.FindSet(fRequest.sets[0].text);
  ReadCases(set);
  std::vector<Column> columns = {{"", {}, fSelected}};
  for (const ByRequest& by : fRequest.by) {
    const std::vector<Column> some = ColumnsOf(by);
    columns.insert(columns.end(), some.begin(), some.end());
  }
  std::set<std::string> members;
  for (std::size_t one = 0; one < fCases; ++one) {
    if (fSelected[one]) {
      members.insert(fAnswers[one].chosen.begin(), fAnswers[one].chosen.end());
    }
  }
  if (set.type == SetType::kDichotomy) {
    members = {set.variables.begin(), set.variables.end()};
  }
  Tabulation table;
  for (const Column& column : columns) {
    table.columns.push_back(Figures(column));
  }
  const auto addRow = [&](const std::string& name, const Texts& chosen, bool isNet) {
    TabulationRow row{name, "", isNet, {}};
    for (std::size_t column = 0; column < columns.size(); ++column) {
      row.cells.push_back(Cell(Chose(chosen), columns[column], table.columns[column].responses, isNet));
    }
    table.rows.push_back(row);
  };
  for (const std::string& member : members) {
    addRow(member, {member}, false);
  }
  for (const NetRequest& net : fRequest.nets) {
    Texts chosen;
    std::transform(net.members.begin(), net.members.end(), std::back_inserter(chosen),
                   [](const Spoken& member) { return member.text; });
    addRow(net.label.text, chosen, true);
  }
  for (const ByRequest& by : fRequest.test ? fRequest.by : std::vector<ByRequest>()) {
    table.tests.push_back(Test(by, {members.begin(), members.end()}));
  }
  return table;
}

}  // namespace

Tabulation CountNaively(const TabulationRequest& request, MemorySource& source) {
  return NaiveCount(request, source).Table();
}

}  // namespace standalone
