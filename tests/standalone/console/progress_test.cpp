#include "standalone/console/progress.h"

#include <gmock/gmock.h>

#include <vector>

namespace standalone {
namespace {

using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;

/// A screen whose time a test makes pass.
class TestScreen {
 public:
  explicit TestScreen(std::size_t width = 80) : fWidth(width) {}

  ProgressScreen Screen() {
    return {[this](std::string_view text) { fWritten.emplace_back(text); }, fWidth, [this] { return fNow; }};
  }

  void Pass(milliseconds time) { fNow += time; }
  const std::vector<std::string>& Written() const { return fWritten; }

 private:
  std::size_t fWidth;
  ProgressScreen::Clock::time_point fNow;
  std::vector<std::string> fWritten;
};

/// What is drawn when so much was done after that time.
std::string LineOf(const LongWork& work, std::uint64_t done, milliseconds time, std::size_t width = 80) {
  TestScreen screen(width);
  Progress progress(screen.Screen());
  progress.Begin(work);
  screen.Pass(time);
  progress.Update(done);
  if (screen.Written().empty()) {
    return "";
  }
  const std::string line = screen.Written().front();
  EXPECT_EQ(line.back(), '\r') << "the cursor is not at the beginning of the line";
  return line.substr(0, line.size() - 1);
}

TEST(Progress, OfBytesShowsShareRateAndRest) {
  const LongWork work{"Importing s.csv", "", 400'000'000};
  EXPECT_EQ(LineOf(work, 100'000'000, milliseconds(2000)), "\rImporting s.csv: 25% of 400.0 MB, 50.0 MB/s, 6 s left");
  EXPECT_EQ(LineOf(work, 4'000'000, milliseconds(2000)),
            "\rImporting s.csv: 1% of 400.0 MB, 2.0 MB/s, 3 min 18 s left");
  EXPECT_EQ(LineOf(work, 40'000, milliseconds(1000)), "\rImporting s.csv: 0% of 400.0 MB, 40.0 kB/s, 2 h 46 min left");
  EXPECT_EQ(LineOf(work, 0, milliseconds(1000)), "\rImporting s.csv: 0% of 400.0 MB, 0.0 kB/s");
}

TEST(Progress, OfBytesWithoutATotalShowsWhatIsDone) {
  EXPECT_EQ(LineOf({"Importing -", ""}, 3'000'000'000, milliseconds(1000)), "\rImporting -: 3.0 GB, 3.0 GB/s");
  EXPECT_EQ(LineOf({"Importing -", ""}, 999'960, milliseconds(1000)), "\rImporting -: 1.0 MB, 1.0 MB/s");
}

TEST(Progress, OfThingsCountsThem) {
  EXPECT_EQ(LineOf({"Running", "commands", 1000}, 250, milliseconds(500)),
            "\rRunning: 250 of 1000 commands, 500/s, 2 s left");
  EXPECT_EQ(LineOf({"Checking", "cases"}, 250, milliseconds(500)), "\rChecking: 250 cases, 500/s");
}

TEST(Progress, OfAFileThatGrewOrIsEmptyClaimsNoRest) {
  EXPECT_EQ(LineOf({"I", "", 100}, 200, milliseconds(1000)), "\rI: 200% of 0.1 kB, 0.2 kB/s");
  EXPECT_EQ(LineOf({"I", "", 0}, 0, milliseconds(1000)), "\rI: 0% of 0.0 kB, 0.0 kB/s");
}

TEST(Progress, StaysWithinTheLine) {
  const LongWork work{"Importing s.csv", "", 400'000'000};
  const std::string figures = "25% of 400.0 MB, 50.0 MB/s, 6 s left";  // 36 columns
  EXPECT_EQ(LineOf(work, 100'000'000, milliseconds(2000), 54), "\rImporting s.csv: " + figures);
  EXPECT_EQ(LineOf(work, 100'000'000, milliseconds(2000), 53), "\r" + figures);
  EXPECT_EQ(LineOf(work, 100'000'000, milliseconds(2000), 37), "\r" + figures);
  EXPECT_EQ(LineOf(work, 100'000'000, milliseconds(2000), 36), "");
  EXPECT_EQ(LineOf({"\xE5\xAD\x97", "x"}, 1, milliseconds(1000), 13), "\r\xE5\xAD\x97: 1 x, 1/s");
  EXPECT_EQ(LineOf({"\xE5\xAD\x97", "x"}, 1, milliseconds(1000), 12), "\r1 x, 1/s");
}

TEST(Progress, AppearsAfterAWhileAndIsDrawnAFewTimesASecond) {
  TestScreen screen;
  Progress progress(screen.Screen());
  progress.Begin({"W", "x"});
  for (std::uint64_t done = 1; done <= 100; ++done) {
    screen.Pass(milliseconds(10));
    progress.Update(done);
  }
  EXPECT_THAT(screen.Written(), ElementsAre("\rW: 50 x, 100/s\r", "\rW: 75 x, 100/s\r", "\rW: 100 x, 100/s\r"));
}

TEST(Progress, OverwritesALongerLineWhole) {
  TestScreen screen;
  Progress progress(screen.Screen());
  progress.Begin({"W", "x", 100});
  screen.Pass(milliseconds(1000));
  progress.Update(50);
  screen.Pass(milliseconds(99000));
  progress.Update(101);
  progress.Clear();
  EXPECT_THAT(screen.Written(), ElementsAre("\rW: 50 of 100 x, 50/s, 1 s left\r", "\rW: 101 of 100 x, 1/s          \r",
                                            "\r                              \r"));
}

TEST(Progress, DisappearsInTheEndAndBeforeOtherWork) {
  TestScreen screen;
  {
    Progress progress(screen.Screen());
    progress.Begin({"A", "x"});
    screen.Pass(milliseconds(500));
    progress.Update(1);
    progress.Begin({"B", "x"});
    progress.Update(1);
    screen.Pass(milliseconds(500));
    progress.Update(1);
  }
  EXPECT_THAT(screen.Written(),
              ElementsAre("\rA: 1 x, 2/s\r", "\r           \r", "\rB: 1 x, 2/s\r", "\r           \r"));
}

TEST(Progress, OfShortWorkIsNotShown) {
  TestScreen screen;
  {
    Progress progress(screen.Screen());
    progress.Begin({"A", "x"});
    screen.Pass(milliseconds(499));
    progress.Update(1);
  }
  EXPECT_THAT(screen.Written(), IsEmpty());
}

TEST(Progress, WithoutAScreenDoesNothing) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  {
    Progress progress(std::nullopt);
    progress.Begin({"A", "x"});
    progress.Update(1);
    progress.Clear();
  }
  EXPECT_EQ(testing::internal::GetCapturedStdout() + testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace standalone
