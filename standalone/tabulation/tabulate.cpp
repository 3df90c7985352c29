#include "standalone/tabulation/tabulate.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <utility>

#include "standalone/storage/interrupt.h"
#include "standalone/tabulation/counting/set_count.h"
#include "standalone/tabulation/reading/by_reader.h"
#include "standalone/tabulation/reading/known_words.h"
#include "standalone/tabulation/reading/weight_reader.h"
#include "standalone/tabulation/reading/where_reader.h"
#include "standalone/tabulation/statistics/figures.h"
#include "standalone/tabulation/table/notes.h"
#include "standalone/tabulation/table/table_builder.h"
#include "standalone/tabulation/tabulation_error.h"
#include "standalone/text/error.h"

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
  void StartBlock();
  void CountChunk(const Chunk& chunk);
  void CountCases(const Bits& cases, const Chunk& chunk);
  void RequireFewCategories() const;
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
  const auto isCategory = [](const std::unique_ptr<SetReader>& set) { return set->Set().isCategory; };
  if (std::none_of(fSets.begin(), fSets.end(), isCategory)) {
    throw TabulationError("NONE is for category sets, and this command has none.", none.offset, none.size);
  }
  const auto canHold = [&](const std::unique_ptr<SetReader>& set) {
    return set->Set().isCategory && set->Find(none.text).has_value();
  };
  if (std::none_of(fSets.begin(), fSets.end(), canHold)) {
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
    if (IsInterrupted()) {
      throw Error(ErrorKind::kInterrupted, "The count was interrupted.");
    }
    fColumns.Read(number);
    StartBlock();
    const std::size_t cases = fSource.CasesOfBlock(number);
    for (std::size_t begin = 0; begin < cases; begin += kChunkCases) {
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
  RequireKnownMembers(fRequest, CountedSets());
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
