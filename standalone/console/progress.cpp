#include "standalone/console/progress.h"

#include <fmt/format.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "standalone/console/terminal.h"
#include "standalone/files/io.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

using Clock = ProgressScreen::Clock;

constexpr auto kFirstDraw = std::chrono::milliseconds(500);
constexpr auto kBetweenDraws = std::chrono::milliseconds(250);

std::string Bytes(double bytes) {
  double amount = bytes / 1000;
  for (const char* unit : {"kB", "MB"}) {
    if (amount < 999.95) {
      return fmt::format("{:.1f} {}", amount, unit);
    }
    amount /= 1000;
  }
  return fmt::format("{:.1f} GB", amount);
}

std::string Duration(double seconds) {
  const auto whole = static_cast<std::uint64_t>(std::ceil(seconds));
  if (whole < 60) {
    return fmt::format("{} s", whole);
  }
  if (whole < 3600) {
    return fmt::format("{} min {} s", whole / 60, whole % 60);
  }
  return fmt::format("{} h {} min", whole / 3600, whole % 3600 / 60);
}

std::string Done(const LongWork& work, std::uint64_t done) {
  if (!work.unit.empty()) {
    return work.total ? fmt::format("{} of {} {}", done, *work.total, work.unit)
                      : fmt::format("{} {}", done, work.unit);
  }
  const std::string bytes = Bytes(static_cast<double>(done));
  return work.total ? fmt::format("{}% of {}", 100 * done / std::max<std::uint64_t>(*work.total, 1),
                                  Bytes(static_cast<double>(*work.total)))
                    : bytes;
}

/// What is written after the title.
std::string Figures(const LongWork& work, std::uint64_t done, double seconds) {
  const double rate = static_cast<double>(done) / std::max(seconds, 1e-9);
  std::string text = Done(work, done);
  text += work.unit.empty() ? fmt::format(", {}/s", Bytes(rate)) : fmt::format(", {:.0f}/s", rate);
  if (work.total && done > 0 && done <= *work.total) {
    text += fmt::format(", {} left", Duration(static_cast<double>(*work.total - done) / rate));
  }
  return text;
}

}  // namespace

std::optional<ProgressScreen> ErrorScreen() {
  const std::optional<std::size_t> width = TerminalWidth(STDERR_FILENO);
  if (!width) {
    return std::nullopt;
  }
  const auto terminal = std::make_shared<Descriptor>(Duplicate(STDERR_FILENO));
  return ProgressScreen{[terminal](std::string_view text) {
                          WriteAll(terminal->Number(), text);  // a terminal that is gone shows no progress
                        },
                        *width, Clock::now};
}

void Progress::Begin(LongWork work) {
  if (!fScreen) {
    return;
  }
  Clear();
  fWork = std::move(work);
  fBegin = fScreen->now();
  fNextDraw = fBegin + kFirstDraw;
}

void Progress::Update(std::uint64_t done) {
  if (!fScreen) {
    return;
  }
  const Clock::time_point now = fScreen->now();
  if (now < fNextDraw) {
    return;
  }
  Draw(done, std::chrono::duration<double>(now - fBegin).count());
  fNextDraw = now + kBetweenDraws;
}

void Progress::Clear() {
  if (fDrawnWidth > 0) {
    fScreen->write('\r' + std::string(fDrawnWidth, ' ') + '\r');
    fDrawnWidth = 0;
  }
}

// The last column stays free: some terminals go on to the next line after it. The cursor goes back, so that what
// another process writes meanwhile begins a line.
void Progress::Draw(std::uint64_t done, double seconds) {
  const std::string figures = Figures(fWork, done, seconds);
  std::string line = fWork.title + ": " + figures;
  if (DisplayWidth(line) >= fScreen->width) {
    line = figures;
  }
  if (DisplayWidth(line) >= fScreen->width) {
    return;
  }
  const std::size_t width = DisplayWidth(line);
  fScreen->write('\r' + line + std::string(fDrawnWidth - std::min(width, fDrawnWidth), ' ') + '\r');
  fDrawnWidth = std::max(width, fDrawnWidth);
}

}  // namespace standalone
