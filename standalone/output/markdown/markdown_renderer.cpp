#include <fmt/format.h>

#include <memory>
#include <ostream>

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
  explicit MarkdownRenderer(std::ostream& stream) : fStream(stream), fTables(MakeMarkdownTableWriter(stream, {})) {}

  void Write(const CommandResult& result) override {
    fStream << fmt::format("{}## Command {}\n\n{}", fIsFirst ? "" : "\n", result.number, MarkdownCode(result.text));
    fIsFirst = false;
    fLastMessage.Forget();
    for (const Item& item : result.items) {
      fStream << '\n';
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

  void WritePlace(const CommandResult& result, const Place& place) {
    const Excerpt excerpt = ExcerptAt(result, place, kExcerptWidth);
    const std::string marked =
        fmt::format("{}\n{}{}", excerpt.line, std::string(excerpt.caretColumn, ' '), Carets(excerpt));
    fStream << fmt::format("\n{}:\n\n{}", MarkdownText(PlaceInWords(result, place)), MarkdownCode(marked));
  }

  void WriteHint(const std::string& hint) { fStream << "\n*hint:* " << MarkdownText(hint) << '\n'; }

  std::ostream& fStream;
  std::unique_ptr<TableWriter> fTables;
  bool fIsFirst = true;
  LastMessage fLastMessage;
};

}  // namespace

std::unique_ptr<Renderer> MakeMarkdownRenderer(std::ostream& stream, const OutputLook& /*look*/) {
  return std::make_unique<MarkdownRenderer>(stream);
}

}  // namespace standalone
