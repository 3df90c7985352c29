#include "standalone/output/formats.h"

#include <algorithm>
#include <filesystem>

#include "standalone/text/unicode.h"

namespace standalone {
namespace {

/// The default first.
const std::vector<OutputFormat>& Formats() {
  constexpr const char* kForBrowser = "A page is for a browser: give --output FILE, or send standard output to a file.";
  constexpr const char* kForSpreadsheet =
      "A workbook is for a spreadsheet: give --output FILE, or send standard output to a file.";
  static const std::vector<OutputFormat> kFormats = {
      {kTextFormat, {".txt", ".text"}, false, nullptr, MakeTextRenderer, MakeTextTableWriter},
      {kJsonFormat, {".json", ".jsonl"}, false, nullptr, MakeJsonRenderer, nullptr},
      {kHtmlFormat, {".html", ".htm"}, false, kForBrowser, MakeHtmlRenderer, nullptr},
      {"markdown", {".md", ".markdown"}, false, nullptr, MakeMarkdownRenderer, MakeMarkdownTableWriter},
      {"csv", {".csv"}, true, nullptr, MakeCsvRenderer, MakeCsvTableWriter},
      {"xlsx", {".xlsx"}, false, kForSpreadsheet, MakeXlsxRenderer, nullptr},
  };
  return kFormats;
}

template <typename IsWanted>
std::vector<std::string> NamesOf(IsWanted isWanted) {
  std::vector<std::string> names;
  for (const OutputFormat& format : Formats()) {
    if (isWanted(format)) {
      names.emplace_back(format.name);
    }
  }
  return names;
}

}  // namespace

std::vector<std::string> RunFormatNames() {
  return NamesOf([](const OutputFormat&) { return true; });
}

std::vector<std::string> ListFormatNames() {
  return NamesOf([](const OutputFormat& one) {
    return one.makeTableWriter != nullptr || one.name == std::string_view(kJsonFormat);
  });
}

const OutputFormat& FormatNamed(const std::string& name) {
  return *std::find_if(Formats().begin(), Formats().end(), [&](const OutputFormat& one) { return name == one.name; });
}

const OutputFormat& FormatOfFile(const std::string& path) {
  const std::string ending = std::filesystem::path(path).extension().string();
  const auto isOf = [&](std::string_view one) { return CompareNoCase(one, ending) == 0; };
  const auto found = std::find_if(Formats().begin(), Formats().end(), [&](const OutputFormat& format) {
    return std::any_of(format.endings.begin(), format.endings.end(), isOf);
  });
  return found == Formats().end() ? Formats().front() : *found;
}

}  // namespace standalone
