#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <ostream>
#include <string>
#include <string_view>

#include "standalone/output/message_text.h"
#include "standalone/output/plain/excerpt.h"
#include "standalone/output/plain/paint.h"
#include "standalone/output/plain/text_tabulation.h"
#include "standalone/output/renderer.h"
#include "standalone/output/table_writer.h"
#include "standalone/text/trim.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

constexpr std::string_view kLineEnds = "\r\n";
constexpr std::string_view kBlanks = " \t\v\f";

class TextRenderer final : public Renderer {
 public:
  TextRenderer(std::ostream& stream, const OutputLook& look)
      : fStream(stream),
        fWidth(look.width),
        fColour(look.colour),
        fChart(look.chart),
        fShowsCommands(look.showsCommands),
        fTables(MakeTextTableWriter(stream, look)) {}

  void Write(const CommandResult& result) override;

 private:
  void WriteCommand(std::size_t number, std::string_view text);
  void WriteCommandLine(const std::string& mark, std::string_view line);
  void WriteItem(const CommandResult& result, const Message& message);
  void WriteItem(const CommandResult& result, const Table& table);
  void WriteItem(const CommandResult& result, const Tabulation& tabulation);
  void WriteAdditions(const CommandResult& result, const Message& message);
  void WritePlace(const CommandResult& result, const Message& message);
  void WriteHint(const std::string& hint);
  void SetApart(bool fromLineBefore);

  std::ostream& fStream;
  std::size_t fWidth;
  Colour fColour;
  Chart fChart;
  bool fShowsCommands;
  std::unique_ptr<TableWriter> fTables;
  bool fIsFirst = true;
  bool fFollowsTable = false;
  LastMessage fLastMessage;
};

void TextRenderer::Write(const CommandResult& result) {
  SetApart(!fIsFirst);
  fIsFirst = false;
  if (fShowsCommands) {
    WriteCommand(result.number, result.text);
  }
  fLastMessage.Forget();
  for (const Item& item : result.items) {
    std::visit([&](const auto& one) { WriteItem(result, one); }, item);
  }
  for (const std::string& hint : result.hints) {
    SetApart(fFollowsTable);
    WriteHint(hint);
  }
  if (result.dryRun) {
    SetApart(fFollowsTable);
    fStream << Visible(*result.dryRun) << '\n';
  }
  if (result.status == Status::kAborted) {
    SetApart(fFollowsTable);
    fStream << AbortedSentence(result) << '\n';
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

void TextRenderer::WriteCommandLine(const std::string& mark, std::string_view line) {
  std::string shown(line);
  std::replace(shown.begin(), shown.end(), '\t', ' ');
  fStream << Painted(mark + Visible(shown), Style::kHeading, fColour) << '\n';
}

void TextRenderer::WriteItem(const CommandResult& result, const Message& message) {
  SetApart(fFollowsTable);
  const std::string prefix = fmt::format("{}:", LevelName(message.level));
  fStream << Painted(prefix, StyleOf(message.level), fColour) << ' ' << Visible(TrimmedText(message)) << '\n';
  if (!fLastMessage.IsRepeatedBy(message)) {
    WriteAdditions(result, message);
  }
}

void TextRenderer::WriteAdditions(const CommandResult& result, const Message& message) {
  if (message.place) {
    WritePlace(result, message);
  }
  if (message.hint) {
    WriteHint(*message.hint);
  }
}

void TextRenderer::WritePlace(const CommandResult& result, const Message& message) {
  constexpr std::string_view kMargin = "    ";
  const Excerpt excerpt = ExcerptAt(result, *message.place, fWidth - std::min(fWidth, kMargin.size()));
  fStream << "  " << PlaceInWords(result, *message.place) << ":\n"
          << kMargin << excerpt.line << '\n'
          << kMargin << std::string(excerpt.caretColumn, ' ')
          << Painted(Carets(excerpt), StyleOf(message.level), fColour) << '\n';
}

void TextRenderer::WriteHint(const std::string& hint) {
  fStream << Painted("hint:", Style::kHint, fColour) << ' ' << Visible(hint) << '\n';
}

void TextRenderer::WriteItem(const CommandResult& /*result*/, const Table& table) {
  SetApart(true);
  fTables->Write(table);
  fFollowsTable = true;
  fLastMessage.Forget();
}

void TextRenderer::WriteItem(const CommandResult& /*result*/, const Tabulation& tabulation) {
  SetApart(true);
  fStream << TextTabulation(tabulation, fWidth, fColour, fChart);
  fFollowsTable = true;
  fLastMessage.Forget();
}

void TextRenderer::SetApart(bool fromLineBefore) {
  if (fromLineBefore) {
    fStream << '\n';
  }
  fFollowsTable = false;
}

}  // namespace

std::unique_ptr<Renderer> MakeTextRenderer(std::ostream& stream, const OutputLook& look) {
  return std::make_unique<TextRenderer>(stream, look);
}

}  // namespace standalone
