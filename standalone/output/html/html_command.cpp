#include "standalone/output/html/html_command.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "standalone/output/html/html_table.h"
#include "standalone/output/html/html_tabulation.h"
#include "standalone/output/html/html_text.h"
#include "standalone/output/message_text.h"
#include "standalone/output/plain/excerpt.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

/// What a heading holds; a longer command stands below one that shows its beginning.
constexpr std::size_t kHeadingBytes = 600;
constexpr int kHeadingLines = 12;
constexpr std::size_t kBeginningBytes = 80;

/// Columns of the line that shows a place; narrow pages break it.
constexpr std::size_t kExcerptWidth = 100;

bool FitsHeading(std::string_view text) {
  return text.size() <= kHeadingBytes && std::count(text.begin(), text.end(), '\n') < kHeadingLines;
}

struct StatusWord {
  std::string_view className;
  std::string_view word;
};

StatusWord WordOf(Status status) {
  switch (status) {
    case Status::kOk:
      return {"ok", "OK"};
    case Status::kError:
      return {"error", "Error"};
    case Status::kAborted:
      break;
  }
  return {"aborted", "Aborted"};
}

std::string_view ClassOf(Level level) {
  return level == Level::kWarning ? "warning" : "error";
}

std::string HeadingHtml(const CommandResult& result) {
  const bool fits = FitsHeading(result.text);
  const std::string heading = fits ? HtmlCode(result.text) : CommandBeginning(result.text, kBeginningBytes);
  const StatusWord status = WordOf(result.status);
  std::string html = fmt::format(
      "<h2 id=\"{0}-heading\"><span class=\"position\">{1}</span> <code>{2}</code></h2>\n"
      "<p class=\"facts\"><span class=\"status {3}\">{4}</span> {5}</p>\n",
      CommandId(result.number), result.number, heading, status.className, status.word,
      HtmlText(CommandInWords(result)));
  return fits ? html : html + fmt::format("<pre class=\"command-text\">{}</pre>\n", HtmlCode(result.text));
}

std::string HintHtml(const std::string& hint) {
  return fmt::format("<p class=\"hint\"><strong>Hint:</strong> {}</p>", HtmlText(hint));
}

/// The line of the script with the place marked; at the end of a command the mark is empty.
std::string PlaceHtml(const CommandResult& result, const Place& place) {
  const Excerpt excerpt = ExcerptAt(result, place, kExcerptWidth);
  const std::string_view line = excerpt.line;
  const std::string_view token = line.substr(excerpt.tokenBegin, excerpt.tokenEnd - excerpt.tokenBegin);
  return fmt::format(R"(<p class="place">{}</p><pre class="excerpt">{}<mark>{}</mark>{}</pre>)",
                     HtmlText(PlaceInWords(result, place)), HtmlText(line.substr(0, excerpt.tokenBegin)),
                     token.empty() ? "&#8203;" : HtmlText(token), HtmlText(line.substr(excerpt.tokenEnd)));
}

/// Writes what a command put out. Messages that follow each other are one list.
class ItemsHtml {
 public:
  explicit ItemsHtml(const CommandResult& result) : fResult(result), fId(CommandId(result.number)) {
    for (const Item& item : result.items) {
      std::visit([this](const auto& one) { Add(one); }, item);
    }
    for (const std::string& hint : result.hints) {
      AddToMessages("hint", HintHtml(hint));
    }
    EndMessages();
  }

  const std::string& Html() const { return fHtml; }

 private:
  void Add(const Message& message);
  void Add(const Table& table);
  void Add(const Tabulation& tabulation);
  std::string AdditionsHtml(const Message& message) const;
  void AddToMessages(std::string_view className, const std::string& html);
  void EndMessages();

  const CommandResult& fResult;
  std::string fId;
  std::string fHtml;
  std::size_t fTables = 0;
  bool fInMessages = false;
  LastMessage fLastMessage;
};

void ItemsHtml::Add(const Message& message) {
  std::string html =
      fmt::format("<p><strong>{}:</strong> {}</p>", LevelName(message.level), HtmlLines(TrimmedText(message)));
  if (!fLastMessage.IsRepeatedBy(message)) {
    html += AdditionsHtml(message);
  }
  AddToMessages(ClassOf(message.level), html);
}

std::string ItemsHtml::AdditionsHtml(const Message& message) const {
  const std::string place = message.place ? PlaceHtml(fResult, *message.place) : "";
  return place + (message.hint ? HintHtml(*message.hint) : "");
}

void ItemsHtml::AddToMessages(std::string_view className, const std::string& html) {
  if (!fInMessages) {
    fHtml += "<ul class=\"messages\">\n";
    fInMessages = true;
  }
  fHtml += fmt::format("<li class=\"{}\">{}</li>\n", className, html);
}

void ItemsHtml::Add(const Table& table) {
  EndMessages();
  fLastMessage.Forget();
  fHtml += HtmlTable(table, fmt::format("{}-table-{}", fId, ++fTables));
}

void ItemsHtml::Add(const Tabulation& tabulation) {
  EndMessages();
  fLastMessage.Forget();
  fHtml += HtmlTabulation(tabulation, fmt::format("{}-table-{}", fId, ++fTables));
}

void ItemsHtml::EndMessages() {
  if (fInMessages) {
    fHtml += "</ul>\n";
    fInMessages = false;
  }
}

}  // namespace

std::string CommandId(std::size_t number) {
  return fmt::format("command-{}", number);
}

std::string CommandBeginning(std::string_view text, std::size_t bytes) {
  const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
  const std::string_view beginning = PrefixOfWholeCharacters(line, bytes);
  return HtmlCode(beginning) + (beginning.size() < text.size() ? " ..." : "");
}

std::string CommandHtml(const CommandResult& result) {
  const std::string id = CommandId(result.number);
  const std::string outcome =
      result.status == Status::kAborted ? std::string(AbortedSentence(result)) : result.dryRun.value_or("");
  const std::string outcomeHtml =
      outcome.empty() ? "" : fmt::format("<p class=\"outcome\">{}</p>\n", HtmlText(outcome));
  return fmt::format("<section class=\"command\" id=\"{0}\" aria-labelledby=\"{0}-heading\">\n{1}{2}{3}</section>\n",
                     id, HeadingHtml(result), ItemsHtml(result).Html(), outcomeHtml);
}

}  // namespace standalone
