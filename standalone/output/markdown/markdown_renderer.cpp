#include <fmt/format.h>

#include <memory>
#include <ostream>
#include <utility>

#include "standalone/output/markdown/markdown_tabulation.h"
#include "standalone/output/markdown/markdown_text.h"
#include "standalone/output/message_text.h"
#include "standalone/output/plain/excerpt.h"
#include "standalone/output/renderer.h"
#include "standalone/output/table_writer.h"

namespace standalone {
namespace {

/// Columns of the line that shows a place.
constexpr std::size_t kExcerptWidth = 100;

class MarkdownRenderer final : public Renderer {
 public:
  MarkdownRenderer(std::ostream& stream, bool showsCommands)
      : fStream(stream), fShowsCommands(showsCommands), fTables(MakeMarkdownTableWriter(stream, {})) {}

  void Write(const CommandResult& result) override {
    if (fShowsCommands) {
      SetApart();
      fStream << fmt::format("## Command {}\n\n{}", result.number, MarkdownCode(result.text));
    }
    fLastMessage.Forget();
    for (const Item& item : result.items) {
      SetApart();
      std::visit([&](const auto& one) { WriteItem(result, one); }, item);
    }
    for (const std::string& hint : result.hints) {
      WriteHint(hint);
    }
    if (result.dryRun) {
      fStream << '\n' << MarkdownText(*result.dryRun) << '\n';
    }
    if (result.status == Status::kAborted) {
      fStream << '\n' << AbortedSentence(result) << '\n';
    }
  }

 private:
  void SetApart() {
    if (!std::exchange(fIsFirst, false)) {
      fStream << '\n';
    }
  }

  void WriteItem(const CommandResult& result, const Message& message) {
    fStream << fmt::format("**{}:** {}\n", LevelName(message.level), MarkdownText(TrimmedText(message)));
    if (!fLastMessage.IsRepeatedBy(message)) {
      WriteAdditions(result, message);
    }
  }

  void WriteAdditions(const CommandResult& result, const Message& message) {
    if (message.place) {
      WritePlace(result, *message.place);
    }
    if (message.hint) {
      WriteHint(*message.hint);
    }
  }

  void WriteItem(const CommandResult& /*result*/, const Table& table) {
    fTables->Write(table);
    fLastMessage.Forget();
  }

  void WriteItem(const CommandResult& /*result*/, const Tabulation& tabulation) {
    WriteMarkdown(fStream, tabulation, *fTables);
    fLastMessage.Forget();
  }

  void WritePlace(const CommandResult& result, const Place& place) {
    const Excerpt excerpt = ExcerptAt(result, place, kExcerptWidth);
    const std::string marked =
        fmt::format("{}\n{}{}", excerpt.line, std::string(excerpt.caretColumn, ' '), Carets(excerpt));
    fStream << fmt::format("\n{}:\n\n{}", MarkdownText(PlaceInWords(result, place)), MarkdownCode(marked));
  }

  void WriteHint(const std::string& hint) { fStream << "\n*hint:* " << MarkdownText(hint) << '\n'; }

  std::ostream& fStream;
  bool fShowsCommands;
  std::unique_ptr<TableWriter> fTables;
  bool fIsFirst = true;
  LastMessage fLastMessage;
};

}  // namespace

std::unique_ptr<Renderer> MakeMarkdownRenderer(std::ostream& stream, const OutputLook& look) {
  return std::make_unique<MarkdownRenderer>(stream, look.showsCommands);
}

}  // namespace standalone
