#include "bench/module/floor.h"

#include <gmock/gmock.h>

#include <ostream>
#include <string>
#include <vector>

#include "backend/mrset/mrset.h"

namespace bench {
static std::string NameOf(const Workload& workload) {
  return std::to_string(workload.sets) + (workload.sets == 1 ? "SetOf" : "SetsOf") +
         std::to_string(workload.variables) + (workload.labels == Labels::kEach ? "Labelled" : "") +
         (workload.asRange ? "InARange" : "") + (workload.display ? "Displayed" : "");
}

// Found by GoogleTest beside the type.
static void PrintTo(const Workload& workload, std::ostream* stream) {
  *stream << NameOf(workload);
}

namespace {

using testing::IsEmpty;

/// What a command did to the host.
struct Effect {
  std::vector<std::string> trace;
  std::vector<std::string> problems;
  std::vector<scripted::SetData> stored;
  std::vector<std::string> messages;
};

/// The effect of a second run too, which finds the sets of the first.
template <class RunCommand>
std::vector<Effect> EffectsOf(const Workload& workload, RunCommand runCommand) {
  scripted::HostSetup setup;
  setup.dictionary = DictionaryOf(workload);
  scripted::ScriptedHost host(setup, CommandOf(workload));
  std::vector<Effect> effects;
  for (int run = 0; run < 2; ++run) {
    runCommand();
    effects.push_back({host.Trace(), host.Problems(), host.StoredSets(), host.MessageLines()});
    host.StartOver();
  }
  return effects;
}

class FloorOf : public testing::TestWithParam<Workload> {};

// Without this, what is measured against the floor means nothing.
TEST_P(FloorOf, MakesTheCallsOfTheModule) {
  const std::vector<Effect> module = EffectsOf(GetParam(), mrset_);
  const Floor floor(GetParam());
  const std::vector<Effect> floors = EffectsOf(GetParam(), [&floor] { floor.Run(); });
  for (std::size_t run = 0; run < module.size(); ++run) {
    EXPECT_THAT(module[run].messages, IsEmpty()) << "the command is not accepted";
    EXPECT_EQ(module[run].stored.size(), GetParam().sets);
    EXPECT_EQ(floors[run].trace, module[run].trace);
    EXPECT_EQ(floors[run].stored, module[run].stored);
    EXPECT_THAT(floors[run].problems, IsEmpty());
  }
}

INSTANTIATE_TEST_SUITE_P(
    Commands, FloorOf,
    testing::Values(Workload{1, 12, Labels::kEach, false, true}, Workload{1, 12, Labels::kEach, false, false},
                    Workload{1, 2, Labels::kEach, true, true}, Workload{1, 12, Labels::kNone, false, false},
                    Workload{1, 100, Labels::kEach, true, false}, Workload{10, 12, Labels::kEach, false, false},
                    Workload{30, 3, Labels::kNone, true, false}),
    [](const auto& row) { return NameOf(row.param); });

}  // namespace
}  // namespace bench
