#include "standalone/tabulation/tabulate.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <utility>

#include "standalone/tabulation/counting/set_count.h"
#include "standalone/tabulation/interruption.h"
#include "standalone/tabulation/reading/by_reader.h"
#include "standalone/tabulation/reading/known_words.h"
#include "standalone/tabulation/reading/unknown_member.h"
#include "standalone/tabulation/reading/weight_reader.h"
#include "standalone/tabulation/reading/where_reader.h"
#include "standalone/tabulation/statistics/figures.h"
#include "standalone/tabulation/table/notes.h"
#include "standalone/tabulation/table/table_builder.h"
#include "standalone/tabulation/tabulation_error.h"

namespace standalone {
namespace {

/// One TABULATE command, from the names to the tables.
class Tabulator {
 public:
  Tabulator(const TabulationRequest& request, TabulationSource& source);

  void Count(const TabulationProgress& progress);
  std::vector<Tabulation> Tables();

 private:
  SetReader& ReaderOf(const Spoken& name);
  std::vector<SetReader*> CountedSets() const;
  void RequireFittingNone() const;
  void RequireKnownBefore() const;
  void RequireKnownAfter() const;
  void StartBlock();
  void CountChunk(const Chunk& chunk);
  void CountCases(const Bits& cases, const Chunk& chunk);
  void RequireFewCategories() const;
  void RequireFewCells() const;
  [[noreturn]] void RefuseCells(std::size_t set, std::size_t by) const;
  void EndBlock();

  const TabulationRequest& fRequest;
  TabulationSource& fSource;
  Columns fColumns;
  std::vector<std::unique_ptr<SetReader>> fSets;
  ByReaders fBy;
  std::optional<WeightReader> fWeight;
  std::optional<WhereReader> fWhere;
  std::vector<SetCount> fCounts;
  std::int64_t fValidCases = 0;
  std::int64_t fWithoutWeight = 0;
};

Tabulator::Tabulator(const TabulationRequest& request, TabulationSource& source)
    : fRequest(request), fSource(source), fColumns(source) {
  std::vector<SetReader*> counted;
  for (const Spoken& set : request.sets) {
    counted.push_back(&ReaderOf(set));
  }
  fBy.push_back(MakeTotalReader());
  for (const ByRequest& by : request.by) {
    fBy.push_back(
        MakeByReader(by, source, fColumns, [this](const Spoken& name) -> SetReader& { return ReaderOf(name); }));
  }
  if (request.weight) {
    fWeight.emplace(*request.weight, source, fColumns);
  }
  if (request.where) {
    fWhere.emplace(*request.where, request, source, fColumns);
  }
  RequireFittingNone();
  FindNamedMembers(request, counted);
  for (SetReader* set : counted) {
    fCounts.emplace_back(*set, fBy, request);
  }
  RequireKnownBefore();
}

SetReader& Tabulator::ReaderOf(const Spoken& name) {
  CountedSet set = FindCountedSet(name, fSource);
  const auto same = std::find_if(fSets.begin(), fSets.end(), [&set](const std::unique_ptr<SetReader>& reader) {
    return reader->Set().name == set.name;
  });
  if (same != fSets.end()) {
    return **same;
  }
  fSets.push_back(MakeSetReader(std::move(set), fRequest, fColumns));
  return *fSets.back();
}

std::vector<SetReader*> Tabulator::CountedSets() const {
  std::vector<SetReader*> sets;
  std::transform(fCounts.begin(), fCounts.end(), std::back_inserter(sets),
                 [](const SetCount& count) { return &count.Set(); });
  return sets;
}

void Tabulator::RequireFittingNone() const {
  if (!fRequest.none) {
    return;
  }
  const Spoken& none = *fRequest.none;
  std::vector<SetReader*> categories;
  for (const std::unique_ptr<SetReader>& set : fSets) {
    if (set->Set().isCategory) {
      categories.push_back(set.get());
    }
  }
  if (fWhere) {
    fWhere->VisitCategories([&](SetReader& set, const Spoken& /*value*/) { categories.push_back(&set); });
  }
  if (categories.empty()) {
    throw TabulationError("NONE is for category sets, and this command has none.", none.offset, none.size);
  }
  const auto canHold = [&](SetReader* set) { return set->Find(none.text).has_value(); };
  if (std::none_of(categories.begin(), categories.end(), canHold)) {
    throw TabulationError(fmt::format("The categories are numbers, and {} is not a number.", none.text), none.offset,
                          none.size);
  }
}

/// The members of dichotomy sets are known at once, so that nobody waits for an error.
void Tabulator::RequireKnownBefore() const {
  const std::vector<SetReader*> sets = CountedSets();
  if (std::none_of(sets.begin(), sets.end(), [](const SetReader* set) { return set->Set().isCategory; })) {
    RequireKnownMembers(fRequest, sets);
  }
}

void Tabulator::RequireKnownAfter() const {
  RequireKnownMembers(fRequest, CountedSets());
  if (fWhere) {
    fWhere->VisitCategories([](SetReader& set, const Spoken& value) {
      if (!HasMember(set, value.text)) {
        throw UnknownMember(value, {&set});
      }
    });
  }
}

void Tabulator::StartBlock() {
  std::for_each(fSets.begin(), fSets.end(), [](const std::unique_ptr<SetReader>& set) { set->StartBlock(); });
  std::for_each(fBy.begin(), fBy.end(), [](const std::unique_ptr<ByReader>& by) { by->StartBlock(); });
  if (fWhere) {
    fWhere->StartBlock();
  }
}

void Tabulator::CountChunk(const Chunk& chunk) {
  const Bits selected = fWhere ? fWhere->Read(chunk) : FirstCases(chunk.cases);
  if (!fWeight) {
    fValidCases += static_cast<std::int64_t>(chunk.cases);
    CountCases(selected, chunk);
    return;
  }
  fWeight->Read(chunk);
  fValidCases += CountOf(fWeight->Valid());
  fWithoutWeight += CountOf(Without(selected, fWeight->Valid()));
  CountCases(Both(selected, fWeight->Valid()), chunk);
}

void Tabulator::CountCases(const Bits& cases, const Chunk& chunk) {
  for (const std::unique_ptr<SetReader>& set : fSets) {
    set->Read(chunk, cases);
  }
  for (const std::unique_ptr<ByReader>& by : fBy) {
    by->Read(chunk, cases);
  }
  RequireFewCategories();
  RequireFewCells();
  for (SetCount& count : fCounts) {
    count.Add(cases, fWeight ? &fWeight->Of() : nullptr);
  }
}

void Tabulator::RequireFewCategories() const {
  for (std::size_t by = 1; by < fBy.size(); ++by) {
    if (fBy[by]->ColumnCount() > kMaxCategories) {
      const Spoken& first = fRequest.by[by - 1].first;
      const Spoken& last = fRequest.by[by - 1].second.value_or(first);
      throw TabulationError(fmt::format("{} has more than 10,000 categories, too many for BY.", fBy[by]->Name()),
                            first.offset, last.offset + last.size - first.offset);
    }
  }
}

/// Of all tables, since all of them are in memory.
void Tabulator::RequireFewCells() const {
  std::size_t cells = 0;
  std::size_t most = 0;
  std::pair<std::size_t, std::size_t> largest;  // a set and a BY
  for (std::size_t set = 0; set < fCounts.size(); ++set) {
    const std::size_t rows = fCounts[set].Set().MemberCount() + fCounts[set].Nets().size();
    for (std::size_t by = 0; by < fBy.size(); ++by) {
      const std::size_t more = rows * fBy[by]->ColumnCount();
      cells += more;
      largest = more > most ? std::pair(set, by) : largest;
      most = std::max(most, more);
    }
  }
  if (cells > kMaxCells) {
    RefuseCells(largest.first, largest.second);
  }
}

void Tabulator::RefuseCells(std::size_t set, std::size_t by) const {
  const std::string& name = fCounts[set].Set().Set().name;
  const Spoken& about = by == 0 ? fRequest.sets[set] : fRequest.by[by - 1].first;
  const Spoken& end = by == 0 ? about : fRequest.by[by - 1].second.value_or(about);
  throw TabulationError(fmt::format("{} has too many members and columns: a command makes 500,000 cells at most.",
                                    by == 0 ? name : fmt::format("{} by {}", name, fBy[by]->Name())),
                        about.offset, end.offset + end.size - about.offset);
}

void Tabulator::EndBlock() {
  std::for_each(fCounts.begin(), fCounts.end(), [](SetCount& count) { count.EndBlock(); });
}

void Tabulator::Count(const TabulationProgress& progress) {
  std::size_t all = 0;
  for (std::size_t number = 0; number < fSource.BlockCount(); ++number) {
    all += fSource.CasesOfBlock(number);
  }
  std::size_t done = 0;
  for (std::size_t number = 0; number < fSource.BlockCount(); ++number) {
    fColumns.Read(number);
    StartBlock();
    const std::size_t cases = fSource.CasesOfBlock(number);
    for (std::size_t begin = 0; begin < cases; begin += kChunkCases) {
      RequireNoInterrupt();
      CountChunk({begin, std::min(kChunkCases, cases - begin)});
    }
    EndBlock();
    done += cases;
    if (progress) {
      progress(done, all);
    }
  }
}

std::vector<Tabulation> Tabulator::Tables() {
  RequireKnownAfter();
  const Figures figures(fRequest, fValidCases);
  std::vector<Tabulation> tables;
  for (const SetCount& count : fCounts) {
    Tabulation table = TableBuilder(count, fRequest, figures).Table();
    if (fWeight) {
      table.weight = fWeight->Name();
    }
    const std::vector<std::string> notes = NotesOn(table, count, fRequest, fWithoutWeight);
    table.notes.insert(table.notes.begin(), notes.begin(), notes.end());
    tables.push_back(std::move(table));
  }
  return tables;
}

}  // namespace

std::vector<Tabulation> Tabulate(const TabulationRequest& request, TabulationSource& source,
                                 const TabulationProgress& progress) {
  Tabulator tabulator(request, source);
  tabulator.Count(progress);
  return tabulator.Tables();
}

}  // namespace standalone
