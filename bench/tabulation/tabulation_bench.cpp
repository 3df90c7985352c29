// Counting alone, on columns in memory, and the floor: the bytes of these columns read once. An entry's name is what is
// counted and how many cases: "total/1000000". One more column than the dichotomies is read, the region.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <ctime>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "bench/run_benchmarks.h"
#include "standalone/tabulation/tabulate.h"

namespace bench {
namespace {

using standalone::Block;
using standalone::BlockForm;
using standalone::TabulationRequest;

constexpr std::size_t kCases = 1'000'000;
constexpr std::size_t kCasesOfBlock = 65'536;
constexpr int kDichotomies = 20;
constexpr int kRegion = kDichotomies;
constexpr int kWeight = kDichotomies + 1;
constexpr int kVariables = kDichotomies + 2;

double ProcessorSeconds() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return std::chrono::duration<double>(std::chrono::seconds(now.tv_sec) + std::chrono::nanoseconds(now.tv_nsec))
      .count();
}

/// How many values a variable has: 0 and 1, ten regions, weights from 0.5 on.
std::size_t ValueCount(int variable) {
  return variable < kDichotomies ? 2 : variable == kRegion ? 10 : 100;
}

Block RandomBlock(int variable, std::size_t cases, std::mt19937& random) {
  Block block;
  block.form = BlockForm::kByteCodes;
  block.cases = cases;
  for (std::size_t value = 0; value < ValueCount(variable); ++value) {
    block.numbers.push_back(variable == kWeight ? 0.5 + static_cast<double>(value) / 100 : static_cast<double>(value));
  }
  for (std::size_t one = 0; one < cases; ++one) {
    const bool isChosen = random() % 10 < 3;
    const std::size_t any = random() % ValueCount(variable);
    block.byteCodes.push_back(static_cast<std::uint8_t>(variable < kDichotomies ? (random() % 50 == 0 ? 0
                                                                                   : isChosen         ? 2
                                                                                                      : 1)
                                                                                : any + 1));
  }
  return block;
}

/// Hands its blocks over as they are, so that reading them costs nothing: good for one count.
class Survey : public standalone::TabulationSource {
 public:
  Survey() {
    std::mt19937 random(1);
    fSet = {"$drinks", standalone::SetType::kDichotomy, "", "1", false, false, {}};
    for (int variable = 0; variable < kVariables; ++variable) {
      fVariables.push_back({"v" + std::to_string(variable), 0, std::nullopt, {}});
      fBlocks.emplace_back();
      for (std::size_t begin = 0; begin < kCases; begin += kCasesOfBlock) {
        fBlocks.back().push_back(RandomBlock(variable, std::min(kCasesOfBlock, kCases - begin), random));
      }
    }
    for (int variable = 0; variable < kDichotomies; ++variable) {
      fSet.variables.push_back(fVariables[static_cast<std::size_t>(variable)].name);
    }
  }

  const standalone::StoredSet* FindSet(std::string_view /*name*/) override { return &fSet; }
  void VisitSetNames(const std::function<void(std::string_view name)>& /*visit*/) override {}
  int FindVariable(std::string_view name) override { return std::stoi(std::string(name.substr(1))); }
  const standalone::Variable& VariableAt(int position) override {
    return fVariables[static_cast<std::size_t>(position)];
  }
  void VisitVariableNames(const std::function<void(std::string_view name)>& /*visit*/) override {}
  std::size_t BlockCount() override { return fBlocks[0].size(); }
  std::size_t CasesOfBlock(std::size_t number) override {
    return std::min(kCasesOfBlock, kCases - number * kCasesOfBlock);
  }
  void ReadBlock(int variable, std::size_t number, Block& block) override {
    std::swap(block, fBlocks[static_cast<std::size_t>(variable)][number]);
  }

  /// The bytes of the columns up to that one, added up.
  std::uint64_t ReadOnce(int last) const {
    std::uint64_t sum = 0;
    for (int variable = 0; variable <= last; ++variable) {
      for (const Block& block : fBlocks[static_cast<std::size_t>(variable)]) {
        const auto* words = reinterpret_cast<const std::uint64_t*>(block.byteCodes.data());
        for (std::size_t word = 0; word < block.cases / sizeof(std::uint64_t); ++word) {
          sum += words[word];
        }
      }
    }
    return sum;
  }

 private:
  standalone::StoredSet fSet;
  std::vector<standalone::Variable> fVariables;
  std::vector<std::vector<Block>> fBlocks;  // of each variable
};

const Survey& Original() {
  static const Survey survey;
  return survey;
}

template <class Run>
void Measure(benchmark::State& state, Run run) {
  for ([[maybe_unused]] auto iteration : state) {
    Survey survey = Original();
    const double begin = ProcessorSeconds();
    run(survey);
    state.SetIterationTime(ProcessorSeconds() - begin);
  }
}

TabulationRequest Request(bool byRegion, bool isWeighted, bool isTested) {
  TabulationRequest request;
  request.sets = {{"$drinks"}};
  if (byRegion) {
    request.by.push_back({{"v" + std::to_string(kRegion)}, std::nullopt});
  }
  if (isWeighted) {
    request.weight = {"v" + std::to_string(kWeight)};
    request.figures.interval = true;
  }
  if (isTested) {
    request.test = standalone::Adjustment::kHolm;
  }
  return request;
}

void Register(const std::string& name, const TabulationRequest& request) {
  const auto count = [request](benchmark::State& state) {
    Measure(state, [&request](Survey& survey) { benchmark::DoNotOptimize(standalone::Tabulate(request, survey)); });
  };
  benchmark::RegisterBenchmark((name + "/" + std::to_string(kCases)).c_str(), count)
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond);
}

}  // namespace

void RegisterAll() {
  const auto floor = [](benchmark::State& state) {
    Measure(state, [](Survey& survey) { benchmark::DoNotOptimize(survey.ReadOnce(kRegion)); });
  };
  benchmark::RegisterBenchmark(("floor/" + std::to_string(kCases)).c_str(), floor)
      ->UseManualTime()
      ->Unit(benchmark::kMillisecond);
  Register("total", Request(false, false, false));
  Register("region", Request(true, false, false));
  Register("weighted", Request(true, true, false));
  Register("tested", Request(true, false, true));
  Register("weighted_and_tested", Request(true, true, true));
}

}  // namespace bench
