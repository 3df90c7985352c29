#ifndef STANDALONE_CONSOLE_PROGRESS_H
#define STANDALONE_CONSOLE_PROGRESS_H

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace standalone {

/// Work that may take long, and what it is counted in.
struct LongWork {
  std::string title;                                  ///< as in "Importing survey.csv"; harmless on a terminal
  std::string unit;                                   ///< a plural noun; empty for bytes
  std::optional<std::uint64_t> total = std::nullopt;  ///< where it is known
};

/// A terminal on whose last line progress is shown.
struct ProgressScreen {
  using Clock = std::chrono::steady_clock;

  std::function<void(std::string_view text)> write;
  std::size_t width = 80;  ///< in columns
  std::function<Clock::time_point()> now;
};

/// The screen that standard error is, and stays where standard error is then put elsewhere; none where it is no
/// terminal.
std::optional<ProgressScreen> ErrorScreen();

/// Shows how work gets on, on one line: what is done, the rate and, where the total is known, how long the rest will
/// take. The line appears when work has taken a while, is drawn anew a few times a second and disappears in the end.
/// Without a screen nothing is shown.
class Progress {
 public:
  explicit Progress(std::optional<ProgressScreen> screen) : fScreen(std::move(screen)) {}
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress() { Clear(); }

  /// Begins work, after other work as well.
  void Begin(LongWork work);

  /// So much of it is done. May be called as often as one likes.
  void Update(std::uint64_t done);

  /// Takes the line away, so that something else can be written; it is drawn again with a later Update().
  void Clear();

 private:
  void Draw(std::uint64_t done, double seconds);

  std::optional<ProgressScreen> fScreen;
  LongWork fWork;
  ProgressScreen::Clock::time_point fBegin;
  ProgressScreen::Clock::time_point fNextDraw;
  std::size_t fDrawnWidth = 0;
};

}  // namespace standalone

#endif  // STANDALONE_CONSOLE_PROGRESS_H
