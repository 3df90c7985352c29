#include <fmt/format.h>

#include <ostream>
#include <string>

#include "standalone/output/csv/csv_table_writer.h"
#include "standalone/output/csv/csv_tabulation.h"
#include "standalone/output/message_text.h"
#include "standalone/output/plain/excerpt.h"
#include "standalone/output/renderer.h"
#include "standalone/output/tabulation_view.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

class CsvRenderer final : public Renderer {
 public:
  CsvRenderer(std::ostream& stream, const OutputLook& look)
      : fTables(stream, look), fMessages(*look.messages), fShowsCommands(look.showsCommands) {}

  void Write(const CommandResult& result) override {
    std::size_t table = 0;
    for (const Item& item : result.items) {
      if (const auto* message = std::get_if<Message>(&item)) {
        Tell(result, *message);
      } else if (const auto* tabulation = std::get_if<Tabulation>(&item)) {
        WriteTabulation(result, *tabulation);
      } else {
        WriteTable(result.number, ++table, std::get<Table>(item));
      }
    }
    for (const std::string& hint : result.hints) {
      TellHint(hint);
    }
    if (result.dryRun) {
      Tell(CommandInWords(result), *result.dryRun);
    }
    if (result.status == Status::kAborted) {
      Tell(CommandInWords(result), AbortedSentence(result));
    }
  }

 private:
  void WriteTable(std::size_t command, std::size_t number, const Table& table) {
    fTables.Place({"Command", "Table", "Title"}, {std::to_string(command), std::to_string(number), table.title});
    fTables.Write(table);
  }

  void WriteTabulation(const CommandResult& result, const Tabulation& tabulation) {
    fTables.Place({}, {});
    WriteCsv(fTables, tabulation);
    for (const std::string& note : NotesOf(tabulation)) {
      Tell(fShowsCommands ? CommandInWords(result) + ": " + tabulation.set : tabulation.set, note);
    }
  }

  void Tell(const CommandResult& result, const Message& message) {
    Tell(message.place ? PlaceInWords(result, *message.place) : CommandInWords(result),
         fmt::format("{}: {}", LevelName(message.level), TrimmedText(message)));
    if (message.hint) {
      TellHint(*message.hint);
    }
  }

  void TellHint(const std::string& hint) { Tell("hint", hint); }

  /// Each on one line, with where it belongs in front.
  void Tell(const std::string& where, std::string_view sentence) {
    fMessages << where << ": " << Visible(sentence) << '\n';
  }

  CsvTableWriter fTables;
  std::ostream& fMessages;
  bool fShowsCommands;
};

}  // namespace

std::unique_ptr<Renderer> MakeCsvRenderer(std::ostream& stream, const OutputLook& look) {
  return std::make_unique<CsvRenderer>(stream, look);
}

}  // namespace standalone
