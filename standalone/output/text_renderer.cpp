#include <algorithm>
#include <ostream>
#include <string>
#include <string_view>

#include "standalone/output/excerpt.h"
#include "standalone/output/renderer.h"
#include "standalone/output/text_table.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

constexpr std::string_view kLineEnds = "\r\n";
constexpr std::string_view kBlanks = " \t\v\f";

std::string_view Trimmed(std::string_view text, std::string_view characters) {
  const std::size_t begin = std::min(text.find_first_not_of(characters), text.size());
  return text.substr(begin, text.find_last_not_of(characters) + 1 - begin);
}

std::string_view Prefix(Level level) {
  switch (level) {
    case Level::kWarning:
      return "Warning: ";
    case Level::kFatal:
      return "Fatal: ";
    case Level::kError:
      break;
  }
  return "Error: ";
}

class TextRenderer final : public Renderer {
 public:
  TextRenderer(std::ostream& stream, std::size_t width) : fStream(stream), fWidth(width) {}

  void Write(const CommandResult& result) override;

 private:
  void WriteCommand(std::size_t number, std::string_view text);
  void WriteCommandLine(std::string_view mark, std::string_view line);
  void WriteItem(const CommandResult& result, const Message& message);
  void WriteItem(const CommandResult& result, const Table& table);
  void WritePlace(const CommandResult& result, const Place& place);
  void WriteHint(const std::string& hint);
  void SetApart(bool fromLineBefore);

  std::ostream& fStream;
  std::size_t fWidth;
  bool fIsFirst = true;
  bool fFollowsTable = false;
};

constexpr const char* kAborted = "The command was aborted; the dataset is as it was before it.";
constexpr const char* kAbortedWhileSaving =
    "The command was aborted while it was being saved; \"mrset log\" shows whether it changed the dataset.";

void TextRenderer::Write(const CommandResult& result) {
  SetApart(!fIsFirst);
  fIsFirst = false;
  WriteCommand(result.number, result.text);
  for (const Item& item : result.items) {
    std::visit([&](const auto& one) { WriteItem(result, one); }, item);
  }
  for (const std::string& hint : result.hints) {
    SetApart(fFollowsTable);
    WriteHint(hint);
  }
  if (result.status == Status::kAborted) {
    SetApart(fFollowsTable);
    fStream << (result.isSaveOpen ? kAbortedWhileSaving : kAborted) << '\n';
  }
}

/// The command's lines without the blanks around them, the first marked with the command's number, the others aligned.
void TextRenderer::WriteCommand(std::size_t number, std::string_view text) {
  std::string mark = std::to_string(number) + "> ";
  while (!text.empty()) {
    const std::size_t end = std::min(text.find_first_of(kLineEnds), text.size());
    WriteCommandLine(mark, Trimmed(text.substr(0, end), kBlanks));
    text = text.substr(std::min(text.find_first_not_of(kLineEnds, end), text.size()));
    mark.assign(mark.size(), ' ');
  }
}

void TextRenderer::WriteCommandLine(std::string_view mark, std::string_view line) {
  std::string shown(line);
  std::replace(shown.begin(), shown.end(), '\t', ' ');
  fStream << mark << Visible(shown) << '\n';
}

void TextRenderer::WriteItem(const CommandResult& result, const Message& message) {
  SetApart(fFollowsTable);
  fStream << Prefix(message.level) << Visible(Trimmed(message.text, kLineEnds)) << '\n';
  if (message.place) {
    WritePlace(result, *message.place);
  }
  if (message.hint) {
    WriteHint(*message.hint);
  }
}

void TextRenderer::WritePlace(const CommandResult& result, const Place& place) {
  constexpr std::string_view kMargin = "    ";
  const Excerpt excerpt = ExcerptAt(result, place, fWidth - std::min(fWidth, kMargin.size()));
  fStream << "  " << PlaceInWords(result, place) << ":\n"
          << kMargin << excerpt.line << '\n'
          << kMargin << std::string(excerpt.caretColumn, ' ') << std::string(excerpt.caretWidth, '^') << '\n';
}

void TextRenderer::WriteHint(const std::string& hint) {
  fStream << "hint: " << Visible(hint) << '\n';
}

void TextRenderer::WriteItem(const CommandResult& /*result*/, const Table& table) {
  SetApart(true);
  fStream << TextTable(table, fWidth);
  fFollowsTable = true;
}

void TextRenderer::SetApart(bool fromLineBefore) {
  if (fromLineBefore) {
    fStream << '\n';
  }
  fFollowsTable = false;
}

}  // namespace

std::unique_ptr<Renderer> MakeTextRenderer(std::ostream& stream, std::size_t width) {
  return std::make_unique<TextRenderer>(stream, width);
}

}  // namespace standalone
