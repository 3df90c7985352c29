#include "standalone/output/xlsx/workbook.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <cmath>
#include <stdexcept>

#include "standalone/output/xlsx/xlsx_functions.h"
#include "standalone/text/unicode.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

constexpr std::size_t kLongestText = 32'767;
constexpr std::size_t kLongestName = 31;
constexpr std::string_view kCut = "...";
constexpr std::string_view kReservedName = "HISTORY";

void Check(lxw_error error) {
  if (error != LXW_NO_ERROR) {
    throw std::runtime_error(fmt::format("The workbook cannot be written: {}.", Xlsx().errorText(error)));
  }
}

/// Characters as spreadsheets count them, in UTF-16.
std::size_t UnitsAt(std::string_view text, std::size_t offset) {
  return CodePointAt(text, offset) > 0xFFFF ? 2 : 1;
}

/// The bytes of the longest beginning of so many characters.
std::size_t FittingBytes(std::string_view text, std::size_t characters) {
  std::size_t offset = 0;
  for (std::size_t units = 0; offset < text.size(); offset += CharacterLength(text, offset)) {
    units += UnitsAt(text, offset);
    if (units > characters) {
      break;
    }
  }
  return offset;
}

std::string CutTo(std::string text, std::size_t characters) {
  if (FittingBytes(text, characters) < text.size()) {
    text.resize(FittingBytes(text, characters - kCut.size()));
    text += kCut;
  }
  return text;
}

void ReplaceAll(std::string& text, std::string_view what, std::string_view by) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size())) {
    text.replace(at, what.size(), by);
  }
}

/// Whether "_x0041_" or the like begins there, which the format takes for the character of that number.
bool IsEscape(std::string_view text, std::size_t at) {
  constexpr std::size_t kSize = 7;
  const std::string_view part = text.substr(at, kSize);
  return part.size() == kSize && part[0] == '_' && part[1] == 'x' && part[6] == '_' &&
         std::all_of(part.begin() + 2, part.begin() + 6, [](unsigned char c) { return std::isxdigit(c) != 0; });
}

std::string WithoutEscapes(std::string_view text) {
  std::string plain;
  for (std::size_t at = 0; at < text.size(); ++at) {
    plain += IsEscape(text, at) ? "_x005F" : "";
    plain += text[at];
  }
  return plain;
}

std::string WithoutForbidden(std::string name) {
  constexpr std::string_view kForbidden = "[]:*?/\\";
  std::replace_if(
      name.begin(), name.end(), [&](char c) { return kForbidden.find(c) != std::string_view::npos; }, '_');
  std::replace(name.begin(), name.end(), '\'', '_');  // forbidden at both ends
  return name.empty() ? "Sheet" : name;
}

std::string NumberFormat(CellStyle style, int decimals) {
  if (style == CellStyle::kProbability) {
    return "[<0.00005]\"<0.0001\";0.0000";
  }
  const std::string fraction = decimals > 0 ? '.' + std::string(static_cast<std::size_t>(decimals), '0') : "";
  return '0' + fraction + (style == CellStyle::kPercentage ? "%" : "");
}

lxw_row_t Row(std::size_t row) {
  return static_cast<lxw_row_t>(row);
}

lxw_col_t Column(std::size_t column) {
  return static_cast<lxw_col_t>(column);
}

lxw_workbook* NewWorkbook(const Spool& spool) {
  std::string folder = Spool::Folder();
  lxw_workbook_options options = {};
  options.tmpdir = folder.data();
  lxw_workbook* workbook = Xlsx().workbookNew(spool.Path().c_str(), &options);
  if (workbook == nullptr) {
    throw std::runtime_error("The workbook cannot be written: not enough memory.");
  }
  return workbook;
}

}  // namespace

std::string CellText(std::string_view text) {
  std::string shown = CutTo(fmt::format("{}", fmt::join(VisibleLines(text), "\n")), kLongestText);
  ReplaceAll(shown, "\uFFFE", "\uFFFD");  // no characters of XML
  ReplaceAll(shown, "\uFFFF", "\uFFFD");
  const std::string plain = WithoutEscapes(shown);
  const bool fits = FittingBytes(plain, kLongestText) == plain.size();
  return fits ? plain : WithoutEscapes(CutTo(shown, kLongestText / 2));  // which is at most twice as long
}

std::string SheetName(std::string_view name, SheetNames& taken) {
  const std::string wanted = WithoutForbidden(Visible(name));
  std::string unique = CutTo(wanted, kLongestName);
  const auto [entry, isNew] = taken.emplace(ToUpper(unique), 1);
  for (bool isTaken = !isNew || entry->first == kReservedName; isTaken;) {
    const std::string ending = fmt::format(" ({})", ++entry->second);
    unique = CutTo(wanted, kLongestName - ending.size()) + ending;
    isTaken = !taken.emplace(ToUpper(unique), 1).second;
  }
  return unique;
}

Workbook::Workbook() : fWorkbook(NewWorkbook(fSpool), Xlsx().workbookFree) {}

Workbook::~Workbook() = default;

void Workbook::AddSheet(std::string_view name) {
  fSheet = Xlsx().workbookAddSheet(fWorkbook.get(), SheetName(name, fNames).c_str());
  if (fSheet == nullptr) {
    throw std::runtime_error("The workbook cannot be written: not enough memory.");
  }
}

void Workbook::Text(std::size_t row, std::size_t column, std::string_view text, CellStyle style) {
  constexpr std::size_t kMostBytesOfByte = 6;  // as "&quot;"
  const std::string shown = CellText(text);
  Check(Xlsx().sheetWriteString(fSheet, Row(row), Column(column), shown.c_str(), FormatOf(style, 0)));
  fBytes += 100 + kMostBytesOfByte * shown.size();
}

void Workbook::Heading(std::size_t row, std::size_t first, std::size_t last, std::string_view text) {
  if (first == last) {
    Text(row, first, text, CellStyle::kHeading);
    return;
  }
  Check(Xlsx().sheetMergeRange(fSheet, Row(row), Column(first), Row(row), Column(last), "",
                               FormatOf(CellStyle::kHeading, 0)));
  Text(row, first, text, CellStyle::kHeading);
  fBytes += 100 * (last - first + 1);
}

void Workbook::Number(std::size_t row, std::size_t column, double number, int decimals, CellStyle style) {
  if (std::isfinite(number)) {
    const double shown = style == CellStyle::kPercentage ? number / 100 : number;
    Check(Xlsx().sheetWriteNumber(fSheet, Row(row), Column(column), shown, FormatOf(style, decimals)));
    fBytes += 100;
  }
}

void Workbook::Freeze(std::size_t row, std::size_t column) {
  Xlsx().sheetFreezePanes(fSheet, Row(row), Column(column));
}

void Workbook::SetWidth(std::size_t first, std::size_t last, double characters) {
  Check(Xlsx().sheetSetColumn(fSheet, Column(first), Column(last), characters, nullptr));
}

lxw_format* Workbook::FormatOf(CellStyle style, int decimals) {
  lxw_format*& format = fFormats[{style, decimals}];
  if (format != nullptr || style == CellStyle::kText) {
    return format;
  }
  format = Xlsx().workbookAddFormat(fWorkbook.get());
  if (style >= CellStyle::kNumber) {
    Xlsx().formatSetNumber(format, NumberFormat(style, decimals).c_str());
    return format;
  }
  if (style == CellStyle::kLines || style == CellStyle::kHeading) {
    Xlsx().formatSetWrap(format);
    Xlsx().formatSetAlign(format, LXW_ALIGN_VERTICAL_TOP);
  }
  if (style == CellStyle::kTitle || style == CellStyle::kHeading) {
    Xlsx().formatSetBold(format);
  }
  return format;
}

/// The library does not look whether it could write to the files that it makes beside the workbook.
void Workbook::WriteTo(std::ostream& stream) {
  constexpr std::size_t kEmptyWorkbook = 65'536;
  fSpool.CheckRoom(kEmptyWorkbook + 2 * fBytes);
  Check(Xlsx().workbookClose(fWorkbook.release()));
  fSpool.CopyTo(stream);
}

}  // namespace standalone
