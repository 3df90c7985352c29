#include <fmt/format.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <iostream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "standalone/check/dataset_check.h"
#include "standalone/commands/subcommands.h"
#include "standalone/console/progress.h"
#include "standalone/options/dataset_options.h"
#include "standalone/text/counted.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

struct CheckRequest {
  std::string datasetPath;
  DatasetOptions datasetOptions;
};

/// Sentences of a check, a few of each kind and the number of the others. They are kept until the check is over: who
/// reads the output may pause, and a dataset that is being read cannot be written by anyone.
class Sentences {
 public:
  void Add(std::string_view kind, const std::string& sentence);

  std::size_t Count() const { return fCount; }

  /// Writes them by kinds, each after `mark`; `what` is what one is called.
  void Write(const char* mark, const char* what) const;

 private:
  static constexpr std::size_t kMaxOfAKind = 10;

  struct Kind {
    std::string name;
    std::vector<std::string> sentences;
    std::size_t others = 0;
  };

  Kind& KindNamed(std::string_view name);

  std::vector<Kind> fKinds;
  std::size_t fCount = 0;
};

void Sentences::Add(std::string_view kind, const std::string& sentence) {
  ++fCount;
  Kind& known = KindNamed(kind);
  if (known.sentences.size() < kMaxOfAKind) {
    known.sentences.push_back(sentence);
  } else {
    ++known.others;
  }
}

Sentences::Kind& Sentences::KindNamed(std::string_view name) {
  const auto known = std::find_if(fKinds.begin(), fKinds.end(), [&](const Kind& kind) { return kind.name == name; });
  return known != fKinds.end() ? *known : fKinds.emplace_back(Kind{std::string(name), {}});
}

void Sentences::Write(const char* mark, const char* what) const {
  for (const Kind& kind : fKinds) {
    for (const std::string& sentence : kind.sentences) {
      std::cout << mark << Visible(sentence) << '\n';
    }
    if (kind.others > 0) {
      std::cout << fmt::format("{}... and {}.\n", mark, Counted(kind.others, std::string("more such ") + what));
    }
  }
}

/// All that a check told.
struct Told {
  Sentences remarks;
  Sentences findings;

  void Write() const {
    remarks.Write("Remark: ", "remark");
    findings.Write("", "finding");
  }
};

/// Where the check cannot come to its end, what it told is written before this throws.
Told TellAll(const CheckRequest& request, const CheckReport::ShowProgress& showProgress) {
  Told told;
  CheckReport report;
  report.remark = [&](std::string_view kind, const std::string& sentence) { told.remarks.Add(kind, sentence); };
  report.finding = [&](std::string_view kind, const std::string& sentence) { told.findings.Add(kind, sentence); };
  report.progress = showProgress;
  try {
    CheckDataset(request.datasetPath, request.datasetOptions, report);
  } catch (...) {
    told.Write();
    throw;
  }
  return told;
}

ExitStatus Check(const CheckRequest& request) {
  const std::string name = Visible(request.datasetPath);
  Progress progress(ErrorScreen());
  const Told told = TellAll(request, [&](std::uint64_t checked, std::uint64_t all) {
    if (checked == 1) {
      progress.Begin({"Checking " + name, "cases", all});
    }
    progress.Update(checked);
  });
  progress.Clear();
  told.Write();
  const std::size_t findings = told.findings.Count();
  std::cout << (findings == 0 ? name + " is sound.\n" : fmt::format("{}: {}.\n", name, Counted(findings, "finding")));
  return findings == 0 ? kSuccess : kErrors;
}

}  // namespace

Action DeclareCheck(CLI::App& options) {
  const auto request = std::make_shared<CheckRequest>();
  AddDatasetArgument(options, request->datasetPath);
  AddLockTimeoutOption(options, request->datasetOptions);
  options.footer(
      "Exit status: 0 sound, 1 something is not as it should be, 2 wrong usage, or not\n"
      "readable as a dataset.\n"
      "Example:\n"
      "  mrset check survey.mrset\n");
  return [request] { return Check(*request); };
}

}  // namespace standalone
