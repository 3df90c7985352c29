#include "host/dictionary.h"

#include "host/output.h"
#include "host_check/sentences.h"

namespace host_check {
namespace {

constexpr const char* kHeader = "dictionary.h";

/// Looks one value up in the labels of a variable of Survey().
template <class Value>
std::string LabelOf(HostFactory& factory, int variable, const Value& value) {
  const Command command(factory, "MRSET");
  const ProcedureDataSource source;
  ZEVA_ValueLabelMap labels(source.GetVariable(variable)->GetValueLabels());
  labels.Reset();
  return Shown(labels.GetLabel(value));
}

void KeepsVariables(HostFactory& factory) {
  const Command command(factory, "MRSET");
  const ProcedureDataSource source;
  const ZEVA_Variable* first = source.GetVariable(0);
  const char* name = first->GetName();
  const char* label = first->GetLabel();
  for (int index = 1; index < 4; ++index) {
    source.GetVariable(index)->GetName();
    source.GetVariable(index)->GetLabel();
  }
  Expect(name, "q1", "the name of q1 when others have been asked for");
  Expect(label, "Tea", "the label of q1 when others have been asked for");
}

void NamesVariables(HostFactory& factory) {
  const Command command(factory, "MRSET");
  const ProcedureDataSource source;
  Expect(Shown(source.GetVariable(2)->GetName()), "Age", "the name of Age");
}

void TypesVariables(HostFactory& factory) {
  const Command command(factory, "MRSET");
  const ProcedureDataSource source;
  Expect(source.GetVariable(2)->GetType(), 0, "the type of a numeric variable");
  Expect(source.GetVariable(3)->GetType(), 8, "the type of a string variable of 8 bytes");
}

void LabelsVariables(HostFactory& factory) {
  const Command command(factory, "MRSET");
  const ProcedureDataSource source;
  Expect(Shown(source.GetVariable(2)->GetLabel()), "Age in years", "the label of Age");
  const char* none = source.GetVariable(1)->GetLabel();
  Expect(none == nullptr || *none == '\0', "null or nothing as the label of q2, not " + Shown(none));
}

void KeepsValueLabels(HostFactory& factory) {
  const Command command(factory, "MRSET");
  const ProcedureDataSource source;
  const char* label = nullptr;
  for (const auto& [variable, value] : {std::pair(0, 1.0), std::pair(2, 1.0), std::pair(0, 0.0)}) {
    ZEVA_ValueLabelMap labels(source.GetVariable(variable)->GetValueLabels());
    labels.Reset();
    const char* found = labels.GetLabel(value);
    label = label == nullptr ? found : label;
  }
  Expect(Shown(label), "Drinks tea", "the first label when others have been looked up");
}

void LooksUpNumbers(HostFactory& factory) {
  Expect(LabelOf(factory, 0, 0.0), "No", "the label of 0");
  Expect(LabelOf(factory, 0, 2.0), "null", "the label of 2");
  Expect(LabelOf(factory, 1, 1.0), "null", "the label of 1 where no value has any");
}

void LooksUpStrings(HostFactory& factory) {
  Expect(LabelOf(factory, 3, std::string("yes")), "Chosen", "the label of yes");
  Expect(LabelOf(factory, 3, std::string("no")), "null", "the label of no");
}

void TakesStringsAsTheyCome(HostFactory& factory) {
  for (const char* value : {"yes ", "yes     "}) {
    const std::string label = LabelOf(factory, 3, std::string(value));
    Expect(label == "Chosen" || label == "null", "a label or null for yes with blanks");
  }
  Expect(LabelOf(factory, 3, std::string(200, 'y')), "null", "the label of a value wider than the variable");
}

void HasAParent(HostFactory& factory) {
  const Command command(factory, {{{"only"}}, {}, "MRSET"});
  const ProcedureDataSource source;
  Expect(source.GetParentSource() != nullptr, "a parent source");
}

void ParentHasTheDictionary(HostFactory& factory) {
  const Command command(factory, "MRSET");
  const ProcedureDataSource source;
  const ZEVA_DataSource& parent = *source.GetParentSource();
  const int index = parent.FindVarIndex("Age", 0);
  Expect(index >= 0, "Age in the dictionary of the parent");
  Expect(parent.GetVariable(index) != nullptr, "the variable Age from the parent");
}

void CountsVariables(HostFactory& factory) {
  const Command command(factory, "MRSET");
  const ProcedureDataSource source;
  Expect(source.ColumnCount(), 4, "the number of variables");
}

void HandsOutVariables(HostFactory& factory) {
  const Command command(factory, {{{"first"}, {"last"}}, {}, "MRSET"});
  const ProcedureDataSource source;
  Expect(source.GetVariable(0)->GetName(), "first", "the variable at 0");
  Expect(source.GetVariable(1)->GetName(), "last", "the variable at 1");
}

void FindsVariables(HostFactory& factory) {
  const Command command(factory, "MRSET");
  const ProcedureDataSource source;
  Expect(source.FindVarIndex("q2", 0), 1, "the index of q2");
  Expect(source.FindVarIndex("aGe", 0), 2, "the index of aGe");
  Expect(source.FindVarIndex("q3", 0), -1, "the index of q3, which there is not");
  Expect(source.FindVarIndex("q", 0), -1, "the index of q, which there is not");
}

void KnowsWhenNoDatasetIsOpen(HostFactory& factory) {
  if (!factory.RunsWithoutDataset()) {
    throw NotTried("the host runs no command without a dataset");
  }
  const Command command(factory, {{}, {}, "MRSET", false});
  Expect(CmnDic == nullptr || CmnDic->fActiveDataset == nullptr, "null without a dataset");
}

void OpensBeforeItLooks(HostFactory& factory) {
  if (!factory.RunsWithoutDataset()) {
    throw NotTried("the host runs no command without a dataset");
  }
  const Command command(factory, {{}, {}, "MRSET", false});
  const BpProcedure procedure("Multiple Response Set", 2);
  ZEVA_TokenSequence stream(true);
  Expect(stream.Next(), "the command name without a dataset");
}

void HasACommonDictionary(HostFactory& factory) {
  const Command command(factory, "MRSET");
  Expect(CmnDic != nullptr, "a common dictionary");
}

}  // namespace

std::vector<Sentence> DictionarySentences() {
  return {
      {kHeader, "Owned by its data source and valid as long as that; the texts it hands out live as long as it does.",
       KeepsVariables},
      {kHeader, "The name as defined; never null.", NamesVariables},
      {kHeader, "0 for a numeric variable, else the width in bytes of a string variable.", TypesVariables},
      {kHeader, "The variable label; null or empty when there is none.", LabelsVariables},
      {kHeader, "The texts it hands out belong to the host and live as long as the variable.", KeepsValueLabels},
      {kHeader, "Label of a numeric value; null when the value has none.", LooksUpNumbers},
      {kHeader, "Label of a string value; null when the value has none.", LooksUpStrings},
      {kHeader, "The value comes as the command has it: with its blanks, and not padded to the variable's width.",
       TakesStringsAsTheyCome},
      {kHeader,
       "The source with which the variable sets are kept; never null, owned by the host, alive as long as this source.",
       HasAParent},
      {kHeader, "The variables of sets are looked up in its dictionary when a command is applied.",
       ParentHasTheDictionary},
      {kHeader, "Number of variables in the dictionary.", CountsVariables},
      {kHeader, "The variable at `index`, 0 to ColumnCount() - 1; owned by the source.", HandsOutVariables},
      {kHeader, "Index of the variable of that name, without regard to case; -1 when there is none.", FindsVariables},
      {kHeader, "null when no dataset is open", KnowsWhenNoDatasetIsOpen},
      {kHeader,
       "It looks after it has opened the procedure and the tokens, so these must be available without a dataset, too.",
       OpensBeforeItLooks},
      {kHeader, "The host's common dictionary; never null while a command runs.", HasACommonDictionary},
  };
}

}  // namespace host_check
