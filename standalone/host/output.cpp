#include "host/output.h"

#include <memory>
#include <utility>
#include <vector>

#include "standalone/host/command_context.h"
#include "standalone/host/pivot.h"
#include "standalone/host/records.h"
#include "standalone/output/message_template.h"

using standalone::Argument;
using standalone::Cell;
using standalone::CommandContext;
using standalone::Level;
using standalone::Pivot;

namespace {

constexpr std::intptr_t kEmptyHandle = -1;

/// A text as it stands, or a pattern with what fills it.
struct TextRecord {
  std::string text;
  bool isPattern = false;
  bool inSublist = false;
  std::vector<Argument> arguments;
};

struct DimensionRecord {
  Pivot& pivot;
  std::size_t dimension;
};

struct CategoryRecord {
  Pivot& pivot;
  std::size_t dimension;
  std::size_t category;
};

struct AnnotationRecord {
  std::string text;
};

TextRecord& TextOf(const BpCellText& text) {
  return HostAccess::RecordOf<TextRecord>(text);
}

std::string Render(const BpCellText& text) {
  const TextRecord& record = TextOf(text);
  return record.isPattern ? standalone::ExpandTemplate(record.text, record.arguments) : record.text;
}

decltype(Cell::value) RenderCell(const BpCellText& text) {
  const TextRecord& record = TextOf(text);
  if (record.isPattern && standalone::IsListPattern(record.text)) {
    return standalone::ExpandList(record.text, record.arguments);
  }
  return Render(text);
}

std::intptr_t NewText(std::string text, bool isPattern) {
  return reinterpret_cast<std::intptr_t>(new TextRecord{std::move(text), isPattern, false, {}});
}

template <typename Record>
void Release(const BpHandle& handle) {
  delete &HostAccess::RecordOf<Record>(handle);
}

}  // namespace

BpHandle::BpHandle(std::intptr_t handle) : fHandle(handle) {}
BpHandle::~BpHandle() = default;

BpAnnotation::BpAnnotation(std::intptr_t handle) : BpHandle(handle) {}
BpAnnotation::~BpAnnotation() {
  Release<AnnotationRecord>(*this);
}

BpCellText::BpCellText(std::intptr_t handle) : BpHandle(handle) {}
BpCellText::~BpCellText() {
  Release<TextRecord>(*this);
}

BpAnnotation BpCellText::Replicate() const {
  return HostAccess::Make<BpAnnotation>(new AnnotationRecord{Render(*this)});
}

BpString::BpString(std::string text, bool /*fixedText*/) : BpCellText(NewText(std::move(text), false)) {}
BpString::~BpString() = default;

BpComposite::BpComposite(const std::string& pattern, bool /*messageTemplate*/) : BpCellText(NewText(pattern, true)) {}
BpComposite::~BpComposite() = default;

void BpComposite::Add(const BpCellText& text) {
  TextRecord& record = TextOf(*this);
  if (record.inSublist) {
    std::get<std::vector<std::string>>(record.arguments.back()).push_back(Render(text));
  } else {
    record.arguments.emplace_back(Render(text));
  }
}

void BpComposite::Sublist() {
  TextRecord& record = TextOf(*this);
  record.arguments.emplace_back(std::vector<std::string>());
  record.inSublist = true;
}

void BpComposite::EndSublist() {
  TextOf(*this).inSublist = false;
}

void BpComposite::Finish() {}

BpCategory::BpCategory(std::intptr_t handle) : BpHandle(handle) {}

BpCategory::~BpCategory() {
  const auto& record = HostAccess::RecordOf<CategoryRecord>(*this);
  record.pivot.ReleaseCategory(record.dimension, record.category);
  Release<CategoryRecord>(*this);
}

void BpCategory::Cell(const BpCellText& text) {
  const auto& record = HostAccess::RecordOf<CategoryRecord>(*this);
  record.pivot.CellAt(record.dimension, record.category).value = RenderCell(text);
}

void BpCategory::CellNote(const BpAnnotation& note) {
  const auto& record = HostAccess::RecordOf<CategoryRecord>(*this);
  record.pivot.CellAt(record.dimension, record.category).note = HostAccess::RecordOf<AnnotationRecord>(note).text;
}

BpGroup::BpGroup(std::intptr_t handle) : BpHandle(handle) {}
BpGroup::~BpGroup() = default;

BpCategory BpGroup::Category(const BpCellText& heading) {
  const auto& record = HostAccess::RecordOf<DimensionRecord>(*this);
  const std::size_t category = record.pivot.AddCategory(record.dimension, Render(heading));
  return HostAccess::Make<BpCategory>(new CategoryRecord{record.pivot, record.dimension, category});
}

BpDimension::BpDimension(std::intptr_t handle) : BpGroup(handle) {}
BpDimension::~BpDimension() {
  Release<DimensionRecord>(*this);
}

void BpDimension::Position(Place place, int /*level*/, bool /*visible*/, bool /*hidden*/) {
  if (place == kColumns) {
    const auto& record = HostAccess::RecordOf<DimensionRecord>(*this);
    record.pivot.PlaceOnColumns(record.dimension);
  }
}

BpPivotTable::BpPivotTable(std::intptr_t handle) : BpHandle(handle) {}

// A table is put out when it is complete.
BpPivotTable::~BpPivotTable() {
  const std::unique_ptr<Pivot> pivot(&HostAccess::RecordOf<Pivot>(*this));
  CommandContext::Current().Issue(pivot->ToTable());
}

BpDimension BpPivotTable::Dimension(const BpCellText& title, Sort /*sort*/) {
  auto& pivot = HostAccess::RecordOf<Pivot>(*this);
  return HostAccess::Make<BpDimension>(new DimensionRecord{pivot, pivot.AddDimension(Render(title))});
}

BpHeading::BpHeading(std::intptr_t handle) : BpHandle(handle) {}
BpHeading::~BpHeading() = default;

BpPivotTable BpHeading::PivotTable(const BpCellText& title, const BpCellText& /*second*/, bool /*flag*/) {
  return HostAccess::Make<BpPivotTable>(new Pivot(Render(title)));
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the signature is given
BpProcedure::BpProcedure(std::string title, int /*kind*/) : BpHeading(kEmptyHandle) {
  CommandContext::Current().OpenProcedure(title);
}
BpProcedure::~BpProcedure() = default;

void BpError(const BpCellText& text, BpErrorShow /*show*/, BpErrorLevel level) {
  const Level shown = level == kBpErrorLevelError ? Level::kError : Level::kWarning;
  CommandContext::Current().IssueMessage(shown, Render(text), TextOf(text).arguments);
}
