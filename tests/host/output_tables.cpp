#include <algorithm>

#include "host/output.h"
#include "tests/host/call.h"
#include "tests/host/host_access.h"
#include "tests/host/lies.h"

namespace scripted {
namespace {

Named NameOf(const Core& core, const BpHandle& object) {
  return {core.record->ledger, HostAccess::Handle(object)};
}

std::intptr_t OpenProcedure(const std::string& title, int kind) {
  Core& core = RequiredCore();
  Call call(core, "BpProcedure(", Quote(std::string_view(title)), ", ", kind, ")");
  core.record->procedures.push_back({Tells(Lie::kProcedureHasNoTitle) ? "" : title, kind});
  return call.Made(core.record->ledger.Add(Kind::kProcedure, core.record->procedures.size() - 1));
}

Dimension& DimensionOf(Record& record, std::size_t place) {
  const DimensionRecord& dimension = record.dimensions[place];
  return record.tables[dimension.table].dimensions[dimension.index];
}

/// The first dimension of the table to which a dimension belongs.
std::size_t FirstDimensionBeside(const Record& record, std::size_t dimension) {
  return dimension - record.dimensions[dimension].index;
}

/// The category of a dimension that a cell gets: the given one, or the one added last and alive.
std::optional<std::size_t> CategoryForCell(const Record& record, const DimensionRecord& dimension,
                                           const CategoryRecord& given) {
  if (&record.dimensions[given.dimension] == &dimension) {
    return given.index;
  }
  for (auto handle = dimension.categories.rbegin(); handle != dimension.categories.rend(); ++handle) {
    if (Tells(Lie::kReleasedCategoryCounts)) {
      return dimension.categories.size() - 1;
    }
    if (const Object* category = record.ledger.Live(*handle)) {
      return record.categories[category->data].index;
    }
  }
  return std::nullopt;
}

/// Where the cell of a category is; nothing when another dimension has no live category.
std::optional<std::vector<std::size_t>> CellPlace(const Record& record, const CategoryRecord& given) {
  const std::size_t table = record.dimensions[given.dimension].table;
  std::vector<std::size_t> place;
  for (const DimensionRecord& dimension : record.dimensions) {
    if (dimension.table != table) {
      continue;
    }
    const auto category = CategoryForCell(record, dimension, given);
    if (!category) {
      return std::nullopt;
    }
    place.push_back(*category);
  }
  return place;
}

Cell& CellAt(Table& table, const std::vector<std::size_t>& place) {
  const auto found =
      std::find_if(table.cells.begin(), table.cells.end(), [&place](const Cell& cell) { return cell.at == place; });
  return found == table.cells.end() ? table.cells.emplace_back(Cell{place, std::nullopt, {}}) : *found;
}

bool LosesNote(const Table& table) {
  const auto hasNote = [](const Cell& cell) { return !cell.notes.empty(); };
  return (Tells(Lie::kOnlyCellHasNoNote) && table.cells.size() == 1 && table.cells[0].at[0] == 1) ||
         (Tells(Lie::kOneNote) && std::any_of(table.cells.begin(), table.cells.end(), hasNote));
}

/// The cell that a call on a category means; null after a violation.
Cell* CellOf(Core& core, const BpHandle& category) {
  Record& record = *core.record;
  const Object* object = Use(core, HostAccess::Handle(category), Kind::kCategory);
  if (object == nullptr) {
    return nullptr;
  }
  const CategoryRecord& given = record.categories[object->data];
  const auto place = CellPlace(record, given);
  if (!place) {
    core.Violate("the cell of " + record.ledger.Name(HostAccess::Handle(category)) +
                 " has no live category in another dimension");
    return nullptr;
  }
  return &CellAt(record.tables[record.dimensions[given.dimension].table], *place);
}

}  // namespace
}  // namespace scripted

using scripted::Call;
using scripted::CellOf;
using scripted::Core;
using scripted::DimensionOf;
using scripted::Kind;
using scripted::Lie;
using scripted::NameOf;
using scripted::Record;
using scripted::RequiredCore;
using scripted::Snapshot;
using scripted::Tells;

BpCategory::BpCategory(std::intptr_t handle) : BpHandle(handle) {}

BpCategory::~BpCategory() {
  scripted::Release(HostAccess::Handle(*this));
}

void BpCategory::Cell(const BpCellText& text) {
  Core& core = RequiredCore();
  const Call call(core, NameOf(core, *this), ".Cell(", NameOf(core, text), ")");
  scripted::TextData data = Snapshot(core, HostAccess::Handle(text));
  scripted::Cell* cell = CellOf(core, *this);
  if (cell == nullptr) {
    return;
  }
  if (cell->text) {
    core.Violate("a cell was filled twice: \"" + cell->text->text + "\" and \"" + data.text + "\"");
  }
  cell->text = std::move(data);
}

void BpCategory::CellNote(const BpAnnotation& note) {
  Core& core = RequiredCore();
  const Call call(core, NameOf(core, *this), ".CellNote(", NameOf(core, note), ")");
  const scripted::Object* object = Use(core, HostAccess::Handle(note), Kind::kNote);
  scripted::Cell* cell = CellOf(core, *this);
  if (object != nullptr && cell != nullptr && !scripted::LosesNote(core.record->tables.back())) {
    cell->notes.push_back(core.record->notes[object->data]);
  }
}

BpGroup::BpGroup(std::intptr_t handle) : BpHandle(handle) {}

BpGroup::~BpGroup() = default;

BpCategory BpGroup::Category(const BpCellText& heading) {
  Core& core = RequiredCore();
  Record& record = *core.record;
  const std::intptr_t headingHandle = HostAccess::Handle(heading);
  Call call(core, NameOf(core, *this), ".Category(", NameOf(core, heading), ")");
  scripted::TextData data = Snapshot(core, headingHandle);
  const scripted::Object* object = Use(core, HostAccess::Handle(*this), Kind::kDimension);
  if (object == nullptr) {
    return HostAccess::Category(-1);
  }
  auto& categories = DimensionOf(record, object->data).categories;
  const bool isFirst = Tells(Lie::kFourthCategoryFirst) && categories.size() == 3;
  categories.insert(isFirst ? categories.begin() : categories.end(), std::move(data));
  record.categories.push_back({object->data, categories.size() - 1});
  const std::size_t dimension = object->data;
  const std::intptr_t handle = record.ledger.Add(Kind::kCategory, record.categories.size() - 1, {headingHandle});
  record.dimensions[dimension].categories.push_back(handle);
  return HostAccess::Category(call.Made(handle));
}

BpDimension::BpDimension(std::intptr_t handle) : BpGroup(handle) {}

BpDimension::~BpDimension() {
  scripted::Release(HostAccess::Handle(*this));
}

void BpDimension::Position(Place place, int level, bool visible, bool hidden) {
  Core& core = RequiredCore();
  const Call call(core, NameOf(core, *this), ".Position(", place, ", ", level, ", ", visible, ", ", hidden, ")");
  if (const scripted::Object* object = Use(core, HostAccess::Handle(*this), Kind::kDimension)) {
    const std::size_t dimension = Tells(Lie::kFirstDimensionIsColumns)
                                      ? scripted::FirstDimensionBeside(*core.record, object->data)
                                      : object->data;
    DimensionOf(*core.record, dimension).position = scripted::Position{place, level, visible, hidden};
  }
}

BpPivotTable::BpPivotTable(std::intptr_t handle) : BpHandle(handle) {}

BpPivotTable::~BpPivotTable() {
  scripted::Release(HostAccess::Handle(*this));
}

BpDimension BpPivotTable::Dimension(const BpCellText& title, Sort sort) {
  Core& core = RequiredCore();
  Record& record = *core.record;
  const std::intptr_t titleHandle = HostAccess::Handle(title);
  Call call(core, NameOf(core, *this), ".Dimension(", NameOf(core, title), ", ", sort, ")");
  scripted::TextData data = Snapshot(core, titleHandle);
  const scripted::Object* object = Use(core, HostAccess::Handle(*this), Kind::kTable);
  if (object == nullptr) {
    return HostAccess::Dimension(-1);
  }
  auto& dimensions = record.tables[object->data].dimensions;
  dimensions.push_back({std::move(data), sort, std::nullopt, {}});
  record.dimensions.push_back({object->data, dimensions.size() - 1, {}});
  return HostAccess::Dimension(
      call.Made(record.ledger.Add(Kind::kDimension, record.dimensions.size() - 1, {titleHandle})));
}

BpHeading::BpHeading(std::intptr_t handle) : BpHandle(handle) {}

BpHeading::~BpHeading() = default;

BpPivotTable BpHeading::PivotTable(const BpCellText& title, const BpCellText& second, bool flag) {
  Core& core = RequiredCore();
  Record& record = *core.record;
  const std::intptr_t titleHandle = HostAccess::Handle(title);
  const std::intptr_t secondHandle = HostAccess::Handle(second);
  Call call(core, NameOf(core, *this), ".PivotTable(", NameOf(core, title), ", ", NameOf(core, second), ", ", flag,
            ")");
  Use(core, HostAccess::Handle(*this), Kind::kProcedure);
  record.tables.push_back({Snapshot(core, titleHandle), Snapshot(core, secondHandle), flag, {}, {}});
  if (Tells(Lie::kTitleIsLost)) {
    record.tables.back().title.text.clear();
  }
  return HostAccess::PivotTable(
      call.Made(record.ledger.Add(Kind::kTable, record.tables.size() - 1, {titleHandle, secondHandle})));
}

BpProcedure::BpProcedure(std::string title, int kind) : BpHeading(scripted::OpenProcedure(title, kind)) {}

BpProcedure::~BpProcedure() {
  Core* core = scripted::InstalledCore();
  if (Tells(Lie::kOneTableStays) && core != nullptr && core->record->tables.size() > 1) {
    core->record->tables.resize(1);
  }
  scripted::Release(HostAccess::Handle(*this));
}
