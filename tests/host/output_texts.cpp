#include "host/output.h"

#include <algorithm>
#include <optional>

#include "tests/host/call.h"
#include "tests/host/host_access.h"
#include "tests/host/lies.h"
#include "tests/host/rendering.h"

namespace scripted {
namespace {

std::intptr_t AddText(Core& core, Call& call, Kind kind, TextData data) {
  core.record->texts.push_back({std::move(data), false});
  return call.Made(core.record->ledger.Add(kind, core.record->texts.size() - 1));
}

std::intptr_t MakeString(const std::string& text, bool fixedText) {
  Core& core = RequiredCore();
  Call call(core, "BpString(", Quote(std::string_view(text)), ", ", fixedText, ")");
  TextData data;
  data.text = text;
  if (Tells(Lie::kTextLosesCarets)) {
    data.text.erase(std::remove(data.text.begin(), data.text.end(), '^'), data.text.end());
  }
  data.pattern = text;
  data.flag = fixedText;
  return AddText(core, call, Kind::kText, std::move(data));
}

std::intptr_t MakeComposite(const std::string& pattern, bool messageTemplate) {
  Core& core = RequiredCore();
  Call call(core, "BpComposite(", Quote(std::string_view(pattern)), ", ", messageTemplate, ")");
  TextData data;
  data.pattern = pattern;
  data.flag = messageTemplate;
  data.isComposite = true;
  return AddText(core, call, Kind::kComposite, std::move(data));
}

bool IsOfTwoTexts(const TextData& data) {
  return data.arguments.size() == 2 && !data.arguments[0].isList && !data.arguments[1].isList;
}

/// The text that a lie makes of a composite; none where no lie is told of it.
std::optional<std::string> RenderLie(const TextData& data) {
  if (Tells(Lie::kUnfinishedIsEmpty) && !data.finished) {
    return "";
  }
  if (Tells(Lie::kArgumentsReversed) && IsOfTwoTexts(data)) {
    return RenderTemplate(data.pattern, {data.arguments[1], data.arguments[0]});
  }
  if (Tells(Lie::kListIsDropped) && data.pattern.find('^') == std::string::npos) {
    return data.pattern;
  }
  return std::nullopt;
}

std::string Render(const Core& core, const TextData& data) {
  if (const auto lie = RenderLie(data)) {
    return *lie;
  }
  return core.hooks.render ? core.hooks.render(data.pattern, data.arguments)
                           : RenderTemplate(data.pattern, data.arguments);
}

void Append(TextRecord& record, std::string text) {
  const bool spreads = Tells(Lie::kEntriesFillPlaceholders) && record.data.pattern.find("^2") != std::string::npos;
  if (record.listOpen && !spreads) {
    std::vector<std::string>& entries = record.data.arguments.back().texts;
    if (Tells(Lie::kLastEntryCounts) && record.data.pattern == "^1") {
      entries.clear();
    }
    entries.push_back(std::move(text));
  } else {
    record.data.arguments.push_back(Text(std::move(text)));
  }
}

void CheckOpen(Core& core, const TextRecord& record, std::intptr_t handle) {
  if (record.data.finished) {
    core.Violate(core.record->ledger.Name(handle) + " was added to after Finish()");
  }
}

void SetList(Core& core, TextRecord& record, std::intptr_t handle, bool open) {
  CheckOpen(core, record, handle);
  if (record.listOpen == open) {
    core.Violate("the list of " + core.record->ledger.Name(handle) + (open ? " was begun twice" : " was not begun"));
    return;
  }
  record.listOpen = open;
  if (open) {
    record.data.arguments.push_back(List({}));
  }
}

}  // namespace

TextData Snapshot(Core& core, std::intptr_t handle) {
  const TextRecord* record = UseText(core, handle);
  if (record == nullptr) {
    return {};
  }
  if (record->listOpen) {
    core.Violate(core.record->ledger.Name(handle) + " was used while its list was open");
  }
  TextData data = record->data;
  if (data.isComposite) {
    data.text = Render(core, data);
  }
  if (IsListPattern(data.pattern) && data.isComposite) {
    data.entries = AllTexts(data.arguments);
    if (Tells(Lie::kLinesInOne)) {
      data.entries = {Join(*data.entries, ", ")};
    }
  }
  return data;
}

}  // namespace scripted

using scripted::Append;
using scripted::Call;
using scripted::CheckOpen;
using scripted::Core;
using scripted::Kind;
using scripted::Lie;
using scripted::Named;
using scripted::RequiredCore;
using scripted::SetList;
using scripted::Tells;
using scripted::TextData;

BpHandle::BpHandle(std::intptr_t handle) : fHandle(handle) {}

BpHandle::~BpHandle() = default;

BpCellText::BpCellText(std::intptr_t handle) : BpHandle(handle) {}

BpCellText::~BpCellText() = default;

BpAnnotation BpCellText::Replicate() const {
  Core& core = RequiredCore();
  const std::intptr_t text = HostAccess::Handle(*this);
  Call call(core, Named{core.record->ledger, text}, ".Replicate()");
  core.record->notes.push_back(Snapshot(core, text));
  if (Tells(Lie::kShortNotes)) {
    core.record->notes.back().text.resize(4);
  }
  return HostAccess::Annotation(call.Made(core.record->ledger.Add(Kind::kNote, core.record->notes.size() - 1, {text})));
}

BpAnnotation::BpAnnotation(std::intptr_t handle) : BpHandle(handle) {}

BpAnnotation::~BpAnnotation() {
  scripted::Release(HostAccess::Handle(*this));
}

// The text is copied while the host is at work: its record does not take over what the caller allocated.
BpString::BpString(std::string text, bool fixedText) : BpCellText(scripted::MakeString(text, fixedText)) {}

BpString::~BpString() {
  scripted::Release(HostAccess::Handle(*this));
}

BpComposite::BpComposite(const std::string& pattern, bool messageTemplate)
    : BpCellText(scripted::MakeComposite(pattern, messageTemplate)) {}

BpComposite::~BpComposite() {
  scripted::Release(HostAccess::Handle(*this));
}

void BpComposite::Add(const BpCellText& text) {
  Core& core = RequiredCore();
  const std::intptr_t handle = HostAccess::Handle(*this);
  const std::intptr_t added = HostAccess::Handle(text);
  const Call call(core, Named{core.record->ledger, handle}, ".Add(", Named{core.record->ledger, added}, ")");
  std::string copy = Snapshot(core, added).text;
  if (Tells(Lie::kTextIsNotCopied) && copy == "gone") {
    copy.clear();
  }
  if (scripted::TextRecord* record = UseText(core, handle)) {
    CheckOpen(core, *record, handle);
    Append(*record, std::move(copy));
  }
}

void BpComposite::Sublist() {
  Core& core = RequiredCore();
  const std::intptr_t handle = HostAccess::Handle(*this);
  const Call call(core, Named{core.record->ledger, handle}, ".Sublist()");
  if (scripted::TextRecord* record = UseText(core, handle)) {
    SetList(core, *record, handle, true);
  }
}

void BpComposite::EndSublist() {
  Core& core = RequiredCore();
  const std::intptr_t handle = HostAccess::Handle(*this);
  const Call call(core, Named{core.record->ledger, handle}, ".EndSublist()");
  if (scripted::TextRecord* record = UseText(core, handle)) {
    SetList(core, *record, handle, false);
  }
}

void BpComposite::Finish() {
  Core& core = RequiredCore();
  const std::intptr_t handle = HostAccess::Handle(*this);
  const Call call(core, Named{core.record->ledger, handle}, ".Finish()");
  if (scripted::TextRecord* record = UseText(core, handle)) {
    CheckOpen(core, *record, handle);
    record->data.finished = true;
  }
}

void BpError(const BpCellText& text, BpErrorShow show, BpErrorLevel level) {
  Core& core = RequiredCore();
  const std::intptr_t handle = HostAccess::Handle(text);
  const Call call(core, "BpError(", Named{core.record->ledger, handle}, ", ", show, ", ", level, ")");
  TextData data = Snapshot(core, handle);
  if (Tells(Lie::kOneMessage) && !core.record->messages.empty()) {
    return;
  }
  core.record->messages.push_back({Tells(Lie::kEveryMessageIsAnError) ? kBpErrorLevelError : level, show,
                                   std::move(data.text), std::move(data.pattern), std::move(data.arguments), data.flag,
                                   data.finished, false});
}
