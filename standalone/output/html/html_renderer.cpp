#include <fmt/format.h>

#include <algorithm>
#include <ostream>
#include <string>
#include <vector>

#include "standalone/files/spool.h"
#include "standalone/output/html/html_command.h"
#include "standalone/output/html/html_style.h"
#include "standalone/output/html/html_text.h"
#include "standalone/output/message_text.h"
#include "standalone/output/renderer.h"
#include "standalone/text/counted.h"

namespace standalone {
namespace {

/// How many failures the summary links to; more would bury the results.
constexpr std::size_t kLinkedFailures = 100;
constexpr std::size_t kLinkBytes = 70;

/// What the page's top says of all commands.
struct Counts {
  std::size_t commands = 0;
  std::size_t failed = 0;  ///< with an error
  std::size_t aborted = 0;
  std::size_t warnings = 0;
};

bool IsWarning(const Item& item) {
  const auto* message = std::get_if<Message>(&item);
  return message != nullptr && message->level == Level::kWarning;
}

/// The message that tells why the command failed.
std::string ReasonHtml(const CommandResult& result) {
  for (const Item& item : result.items) {
    const auto* message = std::get_if<Message>(&item);
    if (message != nullptr && message->level != Level::kWarning) {
      return HtmlText(TrimmedText(*message));
    }
  }
  return {};
}

std::string FailureHtml(const CommandResult& result) {
  return fmt::format("<li><a href=\"#{}\">{}&ensp;<code>{}</code></a> <span class=\"reason\">{}</span></li>\n",
                     CommandId(result.number), result.number, CommandBeginning(result.text, kLinkBytes),
                     ReasonHtml(result));
}

std::string CountHtml(std::size_t number, std::string_view what, std::string_view className) {
  return fmt::format("<div{}><dt>{}</dt><dd>{}</dd></div>\n",
                     number == 0 ? std::string() : fmt::format(" class=\"{}\"", className), what, number);
}

std::string Title(const std::string& dataset, const Counts& counts) {
  const std::size_t failures = counts.failed + counts.aborted;
  return fmt::format("{}: {}, {}", dataset, Counted(counts.commands, "command"),
                     failures == 0 ? "no failure" : fmt::format("{} failed", failures));
}

class HtmlRenderer final : public Renderer {
 public:
  HtmlRenderer(std::ostream& stream, OutputLook look) : fStream(stream), fLook(std::move(look)) {}

  void Write(const CommandResult& result) override;
  void Finish() override;

 private:
  void Count(const CommandResult& result);
  void WriteHead();
  void WriteSummary();
  void WriteFailures();

  std::ostream& fStream;
  OutputLook fLook;
  Counts fCounts;
  std::vector<std::string> fFailures;  // links to those that are linked to
  Spool fCommands;
};

void HtmlRenderer::Write(const CommandResult& result) {
  Count(result);
  fCommands.Append(CommandHtml(result));
}

void HtmlRenderer::Count(const CommandResult& result) {
  ++fCounts.commands;
  fCounts.failed += result.status == Status::kError ? 1U : 0U;
  fCounts.aborted += result.status == Status::kAborted ? 1U : 0U;
  fCounts.warnings += static_cast<std::size_t>(std::count_if(result.items.begin(), result.items.end(), IsWarning));
  if (result.status != Status::kOk && fFailures.size() < kLinkedFailures) {
    fFailures.push_back(FailureHtml(result));
  }
}

void HtmlRenderer::Finish() {
  WriteHead();
  WriteSummary();
  fStream << "<main>\n";
  fCommands.CopyTo(fStream);
  fStream << "</main>\n</body>\n</html>\n";
}

/// The policy forbids whatever the page does not need: scripts, and everything from elsewhere.
void HtmlRenderer::WriteHead() {
  fStream << "<!DOCTYPE html>\n"
             "<html lang=\"en\">\n"
             "<head>\n"
             "<meta charset=\"utf-8\">\n"
             "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src 'unsafe-inline'; "
             "base-uri 'none'; form-action 'none'\">\n"
             "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
             "<meta name=\"color-scheme\" content=\"light dark\">\n"
          << "<title>" << HtmlText(Title(fLook.dataset, fCounts)) << "</title>\n"
          << "<style>\n"
          << kPageStyle << "</style>\n</head>\n<body>\n";
}

void HtmlRenderer::WriteSummary() {
  fStream << "<header>\n<p class=\"kind\">Multiple response sets</p>\n<h1 dir=\"auto\">" << HtmlText(fLook.dataset)
          << "</h1>\n";
  if (fLook.isDryRun) {
    fStream << "<p class=\"dry-run\">A dry run: the dataset was left as it was.</p>\n";
  }
  fStream << "<dl class=\"counts\">\n"
          << CountHtml(fCounts.commands, "Commands", "commands") << CountHtml(fCounts.failed, "With errors", "error")
          << CountHtml(fCounts.aborted, "Aborted", "aborted") << CountHtml(fCounts.warnings, "Warnings", "warning")
          << "</dl>\n";
  WriteFailures();
  fStream << "</header>\n";
}

void HtmlRenderer::WriteFailures() {
  if (fFailures.empty()) {
    return;
  }
  fStream << "<nav aria-labelledby=\"failures\">\n<h2 id=\"failures\">What failed</h2>\n<ul>\n"
          << fmt::format("{}", fmt::join(fFailures, "")) << "</ul>\n";
  const std::size_t more = fCounts.failed + fCounts.aborted - fFailures.size();
  if (more > 0) {
    fStream << fmt::format("<p>and {} more</p>\n", more);
  }
  fStream << "</nav>\n";
}

}  // namespace

std::unique_ptr<Renderer> MakeHtmlRenderer(std::ostream& stream, const OutputLook& look) {
  return std::make_unique<HtmlRenderer>(stream, look);
}

}  // namespace standalone
