#include "host/variable_sets.h"

#include "host/text.h"
#include "host_check/sentences.h"

namespace host_check {
namespace {

constexpr const char* kHeader = "variable_sets.h";

VariableSet NewSet() {
  return {"$Drinks", VariableSet::kMDSet};
}

std::string Text(const std::string& text) {
  return "\"" + text + "\"";
}

void BeginsEmpty(HostFactory& factory) {
  const Command command(factory, "MRSET");
  const VariableSet set = NewSet();
  Expect(set.GetType(), VariableSet::kMDSet, "the type of a new set");
  Expect(Text(set.GetLabel()) + Text(set.GetValue()), R"("""")", "the label and the value of a new set");
  Expect(!set.qLabelSetByVariable() && !set.qUseVariableCategoryLabels(), "two flags that are false");
  Expect(set.GetVariableNames(VariableSet::kAsStored).empty(), "no variables");
}

void AppendsVariables(HostFactory& factory) {
  const Command command(factory, "MRSET");
  VariableSet set = NewSet();
  for (const char* name : {"q2", "q1", "q2"}) {
    set.AddVariableName(name);
  }
  Expect(Listed(set.GetVariableNames(VariableSet::kAsStored)), "q2, q1, q2", "the variables");
}

void KeepsItsLabel(HostFactory& factory) {
  const Command command(factory, "MRSET");
  VariableSet set = NewSet();
  set.SetLabel("Hot drinks");
  Expect(set.GetLabel(), "Hot drinks", "the label");
}

void KeepsItsValue(HostFactory& factory) {
  const Command command(factory, "MRSET");
  VariableSet set = NewSet();
  for (const char* value : {"1.0", " yes "}) {
    set.SetValue(value);
    Expect(set.GetValue(), value, "the counted value");
  }
}

void KeepsLabelSetByVariable(HostFactory& factory) {
  const Command command(factory, "MRSET");
  VariableSet set = NewSet();
  for (const bool flag : {true, false}) {
    set.LabelSetByVariable(flag);
    Expect(set.qLabelSetByVariable() == flag, "the flag as it was set");
  }
}

void KeepsUseVariableCategoryLabels(HostFactory& factory) {
  const Command command(factory, "MRSET");
  VariableSet set = NewSet();
  for (const bool flag : {true, false}) {
    set.UseVariableCategoryLabels(flag);
    Expect(set.qUseVariableCategoryLabels() == flag, "the flag as it was set");
  }
}

void HasItsName(HostFactory& factory) {
  const Command command(factory, "MRSET");
  Expect(NewSet().GetName(VariableSet::kAsStored), "$Drinks", "the name as stored");
}

void HasItsNameInUpperCase(HostFactory& factory) {
  const Command command(factory, "MRSET");
  const std::string name = "$Drinks" + factory.LongLetter();
  std::string upper = name;
  ZEVAMBstrupr_A(upper.data());
  Expect(VariableSet(name, VariableSet::kMCSet).GetName(VariableSet::kUpperCase), upper.c_str(), "the upper-case name");
}

void HandsOutNamesInBothForms(HostFactory& factory) {
  const Command command(factory, "MRSET");
  VariableSet set = NewSet();
  set.AddVariableName("Age");
  Expect(Listed(set.GetVariableNames(VariableSet::kAsStored)), "Age", "a variable's name as stored");
  Expect(Listed(set.GetVariableNames(VariableSet::kUpperCase)), "AGE", "a variable's name in upper case");
}

Setup TwoSets() {
  return {Survey(),
          {{"$b", VariableSet::kMDSet, "B", "1", true, true, {"q1", "Age"}},
           {"$a", VariableSet::kMCSet, "", "", false, false, {"q2", "q1"}}},
          "MRSET"};
}

std::string Names(const VARIABLESETS& sets) {
  std::vector<std::string> names;
  for (const VariableSet& set : sets) {
    names.push_back(set.GetName(VariableSet::kAsStored));
  }
  return Listed(names);
}

void HandsOutCopies(HostFactory& factory) {
  Command command(factory, TwoSets());
  {
    const ProcedureDataSource source;
    const ZEVA_DataSource& parent = *source.GetParentSource();
    VARIABLESETS sets = VariableSets(parent, kMRSets);
    Expect(Names(sets), "$b, $a", "the stored sets");
    const VariableSet& first = sets.front();
    Expect(first.GetType() == VariableSet::kMDSet && sets.back().GetType() == VariableSet::kMCSet, "their types");
    Expect(Listed(sets.back().GetVariableNames(VariableSet::kAsStored)), "q2, q1", "the variables of $a");
    sets.clear();
    Expect(Names(VariableSets(parent, kMRSets)), "$b, $a", "the stored sets after a copy was changed");
  }
  Expect(command.End().sets.size() == 2, "two sets where nothing was saved");
}

void Saves(HostFactory& factory) {
  Command command(factory, TwoSets());
  {
    const ProcedureDataSource source;
    ZEVA_DataSource& parent = *source.GetParentSource();
    VariableSet added("$new", VariableSet::kMDSet);
    added.SetValue("1");
    const VariableSet old("$a", VariableSet::kMCSet);
    SaveVariableSets({added, old}, parent, kMRSets);
  }
  std::vector<std::string> saved;
  for (const Set& set : command.End().sets) {
    saved.push_back(set.name + " " + std::to_string(set.type) + " " + set.countedValue);
  }
  Expect(Listed(saved), "$new 2 1, $a 1 ", "what the next command would find");
}

}  // namespace

std::vector<Sentence> VariableSetSentences() {
  return {
      {kHeader, "A set with no label, no counted value, both flags false and no variables.", BeginsEmpty},
      {kHeader, "Appends the name of one elementary variable.", AppendsVariables},
      {kHeader, "The label; empty when there is none.", KeepsItsLabel},
      {kHeader, "Sets the counted value of a dichotomy set, as text.", KeepsItsValue},
      {kHeader, "Whether the set's label is taken from its variables' labels.", KeepsLabelSetByVariable},
      {kHeader, "Whether the categories are labelled by the value labels of the counted value.",
       KeepsUseVariableCategoryLabels},
      {kHeader, "The set's name.", HasItsName},
      {kHeader, "The upper-case form is the one that ZEVAMBstrupr_A makes of it.", HasItsNameInUpperCase},
      {kHeader, "The elementary variables' names in the requested form, in order.", HandsOutNamesInBothForms},
      {kHeader, "Copies of the data source's stored sets of one kind, in their order.", HandsOutCopies},
      {kHeader, "Replaces the data source's stored sets of one kind by `sets`, in their order.", Saves},
  };
}

}  // namespace host_check
