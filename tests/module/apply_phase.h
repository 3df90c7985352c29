#ifndef TESTS_MODULE_APPLY_PHASE_H
#define TESTS_MODULE_APPLY_PHASE_H

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "backend/mrset/mrsetapply.h"
#include "tests/host/scripted_host.h"
#include "tests/module/run.h"

namespace module_test {

/// A host with the objects that the apply phase gets from the entry point, made without a trace: procedure#1, and
/// source#1 with its parent.
class ApplyPhase {
 public:
  explicit ApplyPhase(const std::vector<scripted::SetData>& storedSets = {},
                      std::vector<scripted::Variable> dictionary = SurveyDictionary())
      : fHost({std::move(dictionary), storedSets, true, {}}) {
    const scripted::Quiet quiet;
    fProcedure.emplace("Multiple Response Set", 2);
    fDataSource.emplace();
    fParent = fDataSource->GetParentSource();
  }

  scripted::ScriptedHost& Host() { return fHost; }
  BpProcedure& Procedure() { return *fProcedure; }
  const ZEVA_DataSource& Parent() const { return *fParent; }

  void Apply(const MRSETSUBCOMMANDS& records) {
    MRSetApply(records, Parent(), Procedure());
    ExpectNothingWrong();
  }

  /// Apart from the objects of the entry point all are released, each in its order.
  void ExpectNothingWrong() const {
    EXPECT_THAT(fHost.Violations(), testing::IsEmpty());
    EXPECT_THAT(fHost.OutOfOrder(), testing::IsEmpty());
    EXPECT_THAT(fHost.LiveObjects(), testing::ElementsAre("procedure#1", "source#1"));
  }

  /// The names that were saved, in order; none when nothing was saved.
  Lines SavedNames() const {
    Lines names;
    for (const scripted::SetData& set : fHost.SavedSets().value_or(std::vector<scripted::SetData>{})) {
      names.push_back(set.name);
    }
    return names;
  }

 private:
  scripted::ScriptedHost fHost;
  std::optional<BpProcedure> fProcedure;
  std::optional<ProcedureDataSource> fDataSource;
  const ZEVA_DataSource* fParent = nullptr;
};

/// Sets of those names over two variables.
inline std::vector<scripted::SetData> CategorySets(const std::vector<std::string>& names) {
  std::vector<scripted::SetData> sets;
  for (const std::string& name : names) {
    sets.push_back(scripted::Categories(name, {"n1", "n2"}));
  }
  return sets;
}

}  // namespace module_test

#endif  // TESTS_MODULE_APPLY_PHASE_H
