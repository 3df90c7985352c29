#include "bench/module/floor.h"

#include <array>
#include <cstring>
#include <set>

#include "host/dictionary.h"
#include "host/output.h"
#include "host/text.h"
#include "host/tokens.h"
#include "host/variable_sets.h"

namespace bench {
namespace {

// The texts of the tokens in upper case, as they are passed on to the host.
constexpr char kMrset[] = "MRSET";
constexpr char kMdGroup[] = "MDGROUP";
constexpr char kMcGroup[] = "MCGROUP";
constexpr char kDisplay[] = "DISPLAY";
constexpr char kName[] = "NAME";
constexpr char kLabel[] = "LABEL";
constexpr char kLabelSource[] = "LABELSOURCE";
constexpr char kCategoryLabels[] = "CATEGORYLABELS";
constexpr char kVariables[] = "VARIABLES";
constexpr char kValue[] = "VALUE";

constexpr int kLabelSourceBytes = 6;
constexpr char kValueLabel[] = "Yes";

/// The current token against a keyword.
void Match(const TokenSequenceBase& tokens, const char* token, const char* keyword) {
  TokenStringCaps(tokens);
  KeywordMatch(token, keyword);
}

/// The current token against a symbol or against "/".
void Look(const TokenSequenceBase& tokens) {
  TokenStringCaps(tokens);
}

void LookForLabelSource(const TokenSequenceBase& tokens, const char* token) {
  TokenStringCaps(tokens);
  if (std::strlen(token) >= kLabelSourceBytes) {
    ZEVAMBqstricmp_A(token, kLabelSourceBytes, kLabelSource, kLabelSourceBytes, 0);
  }
}

void StepBack(ZEVA_TokenSequence& tokens) {
  tokens.SetPosition(tokens.Position() - 1);
  tokens.Next();
}

/// From the keyword, which is looked at once more, to the value behind its "=".
void ToValue(ZEVA_TokenSequence& tokens, const char* keyword) {
  Match(tokens, keyword, keyword);
  tokens.Next();
  Look(tokens);
  tokens.Next();
}

/// Behind a value, where another keyword follows.
void SeeKeyword(ZEVA_TokenSequence& tokens) {
  tokens.Next();
  tokens.Type();
  tokens.Next();
  tokens.Type();
  tokens.Symbol();
  StepBack(tokens);
  StepBack(tokens);
}

/// Behind the last value of a subcommand.
void SeeEnd(ZEVA_TokenSequence& tokens, bool isLast) {
  tokens.Next();
  tokens.Type();
  if (!isLast) {
    tokens.Symbol();
    StepBack(tokens);
  }
}

/// To the next keyword of a subcommand.
void ToKeyword(ZEVA_TokenSequence& tokens) {
  tokens.Next();
  Look(tokens);
  tokens.Type();
}

/// To the first keyword of a subcommand, or its end.
void EnterKeywords(ZEVA_TokenSequence& tokens) {
  tokens.Next();
  tokens.Type();
  Look(tokens);
  tokens.Type();
}

/// From the last token of a subcommand to its end.
void LeaveSubcommand(ZEVA_TokenSequence& tokens, bool isLast) {
  tokens.Next();
  Look(tokens);
  if (isLast) {
    tokens.Type();
  }
  StepBack(tokens);
}

void EnterSubcommand(ZEVA_TokenSequence& tokens) {
  tokens.Next();
  Look(tokens);
  tokens.Next();
}

}  // namespace

/// The calls of one run.
class Floor::Calls {
 public:
  explicit Calls(const Floor& floor) : fFloor(floor) {}

  void Parse(ZEVA_TokenSequence& tokens, const ProcedureDataSource& source) const;
  void Apply(ZEVA_DataSource& source, BpProcedure& procedure) const;

 private:
  void ParseGroup(ZEVA_TokenSequence& tokens, const ProcedureDataSource& source, bool isLast) const;
  static void ParseName(ZEVA_TokenSequence& tokens);
  static void ParseLabel(ZEVA_TokenSequence& tokens);
  void ParseVariables(ZEVA_TokenSequence& tokens, const ProcedureDataSource& source) const;
  static void ParseValue(ZEVA_TokenSequence& tokens, bool isLast);
  void Validate(const ProcedureDataSource& source) const;
  void ValidateLabel(std::size_t index, const ZEVA_Variable& variable) const;
  static void ParseDisplay(ZEVA_TokenSequence& tokens, const ProcedureDataSource& source);
  void Define(std::size_t index, bool isStored, VARIABLESETS& sets) const;
  static void Display(const ZEVA_DataSource& source, const VariableSet& set, BpProcedure& procedure);
  static void WriteDataType(const ZEVA_DataSource& source, const VariableSet& set, BpCategory& column);
  static void WriteVariables(const ZEVA_DataSource& source, const VariableSet& set, BpCategory& column);

  std::size_t Variables() const { return fFloor.fWorkload.variables; }

  /// The words of the variable list, and the keyword behind it.
  std::size_t ListWords() const { return (fFloor.fWorkload.asRange ? 3 : Variables()) + 1; }

  const Floor& fFloor;
};

void Floor::Calls::Parse(ZEVA_TokenSequence& tokens, const ProcedureDataSource& source) const {
  tokens.Next();
  tokens.Type();
  Match(tokens, kMrset, kMrset);
  const bool display = fFloor.fWorkload.display;
  for (std::size_t set = 0; set < fFloor.fWorkload.sets; ++set) {
    ParseGroup(tokens, source, set + 1 == fFloor.fWorkload.sets && !display);
  }
  if (display) {
    ParseDisplay(tokens, source);
  }
  tokens.Next();
}

void Floor::Calls::ParseGroup(ZEVA_TokenSequence& tokens, const ProcedureDataSource& source, bool isLast) const {
  EnterSubcommand(tokens);
  Match(tokens, kMdGroup, kMdGroup);
  Match(tokens, kMdGroup, kMdGroup);
  EnterKeywords(tokens);
  ParseName(tokens);
  ToKeyword(tokens);
  ParseLabel(tokens);
  ToKeyword(tokens);
  ParseVariables(tokens, source);
  ToKeyword(tokens);
  ParseValue(tokens, isLast);
  LeaveSubcommand(tokens, isLast);
  Validate(source);
}

void Floor::Calls::ParseName(ZEVA_TokenSequence& tokens) {
  Match(tokens, kName, kName);
  ToValue(tokens, kName);
  tokens.Type();
  ValidateZEVAName(TokenString(tokens).c_str());
  SeeKeyword(tokens);
}

void Floor::Calls::ParseLabel(ZEVA_TokenSequence& tokens) {
  Match(tokens, kLabel, kName);
  LookForLabelSource(tokens, kLabel);
  Match(tokens, kLabel, kLabel);
  Match(tokens, kLabel, kLabel);
  LookForLabelSource(tokens, kLabel);
  tokens.Next();
  Look(tokens);
  tokens.Next();
  tokens.Type();
  TokenString(tokens);
  SeeKeyword(tokens);
}

void Floor::Calls::ParseVariables(ZEVA_TokenSequence& tokens, const ProcedureDataSource& source) const {
  Match(tokens, kVariables, kName);
  LookForLabelSource(tokens, kVariables);
  Match(tokens, kVariables, kLabel);
  Match(tokens, kVariables, kCategoryLabels);
  Match(tokens, kVariables, kVariables);
  ToValue(tokens, kVariables);
  const int start = tokens.Position();
  for (std::size_t word = 0; word < ListWords(); ++word) {
    tokens.Type();
    tokens.Next();
  }
  tokens.Type();
  tokens.Symbol();
  StepBack(tokens);
  const int end = tokens.Position();
  tokens.SetPosition(start);
  tokens.Next();
  std::vector<int> indices;
  ExistingVarList(source, tokens, indices, end);
  for (std::size_t index = 0; index < Variables(); ++index) {
    source.GetVariable(static_cast<int>(index))->GetName();
  }
  tokens.SetPosition(end - 1);
  tokens.Next();
}

void Floor::Calls::ParseValue(ZEVA_TokenSequence& tokens, bool isLast) {
  Match(tokens, kValue, kName);
  LookForLabelSource(tokens, kValue);
  Match(tokens, kValue, kLabel);
  Match(tokens, kValue, kCategoryLabels);
  Match(tokens, kValue, kVariables);
  Match(tokens, kValue, kValue);
  ToValue(tokens, kValue);
  tokens.Type();
  TokenString(tokens);
  tokens.NumberValue();
  SeeEnd(tokens, isLast);
}

void Floor::Calls::Validate(const ProcedureDataSource& source) const {
  const double value = 1;
  for (std::size_t index = 0; index < Variables(); ++index) {
    source.FindVarIndex(fFloor.fVariableNames[index].c_str(), 0);
    const ZEVA_Variable& variable = *source.GetVariable(static_cast<int>(index));
    variable.GetType();
    ValidateLabel(index, variable);
    ZEVA_ValueLabelMap valueLabels(variable.GetValueLabels());
    valueLabels.Reset();
    const char* label = valueLabels.GetLabel(value);
    if (index != 0 && label != nullptr) {
      ZEVAMBstricmp_A(kValueLabel, label);
    }
  }
}

void Floor::Calls::ValidateLabel(std::size_t index, const ZEVA_Variable& variable) const {
  variable.GetLabel();
  for (const Comparison& comparison : fFloor.fComparisons[index]) {
    ZEVAMBstricmp_A(fFloor.fLabels[comparison.first].c_str(), fFloor.fLabels[comparison.second].c_str());
  }
}

void Floor::Calls::ParseDisplay(ZEVA_TokenSequence& tokens, const ProcedureDataSource& source) {
  EnterSubcommand(tokens);
  Match(tokens, kDisplay, kMdGroup);
  Match(tokens, kDisplay, kMcGroup);
  Match(tokens, kDisplay, kDisplay);
  Match(tokens, kDisplay, kDisplay);
  EnterKeywords(tokens);
  Match(tokens, kName, kName);
  ToValue(tokens, kName);
  tokens.Type();
  tokens.Symbol();
  tokens.Next();
  tokens.Type();
  TokenString(tokens);
  tokens.Next();
  tokens.Type();
  tokens.Type();
  tokens.Symbol();
  LeaveSubcommand(tokens, true);
  VariableSets(source, kMRSets);
}

void Floor::Calls::Apply(ZEVA_DataSource& source, BpProcedure& procedure) const {
  VARIABLESETS sets = VariableSets(source, kMRSets);
  const bool areStored = !sets.empty();
  for (std::size_t index = 0; index < fFloor.fSetNames.size(); ++index) {
    Define(index, areStored, sets);
  }
  if (fFloor.fWorkload.display) {
    Display(source, sets.front(), procedure);
  }
  SaveVariableSets(sets, source, kMRSets);
}

void Floor::Calls::Define(std::size_t index, bool isStored, VARIABLESETS& sets) const {
  const std::string& name = fFloor.fSetNames[index];
  VariableSet set(name, VariableSet::kMDSet);
  set.SetLabel(kSetLabel);
  set.SetValue(kCountedValue);
  set.UseVariableCategoryLabels(false);
  set.LabelSetByVariable(false);
  for (const std::string& variable : fFloor.fVariableNames) {
    set.AddVariableName(variable);
  }
  std::array<char, 32> upperCaseName{};
  std::strcpy(upperCaseName.data(), set.GetName(VariableSet::kAsStored).c_str());
  ZEVAMBstrupr_A(upperCaseName.data());
  for (std::size_t other = 0; other < index; ++other) {
    sets[other].GetName(VariableSet::kUpperCase);
  }
  if (isStored) {
    sets[index].GetName(VariableSet::kUpperCase);
    sets[index] = std::move(set);
  } else {
    sets.push_back(std::move(set));
  }
}

void Floor::Calls::Display(const ZEVA_DataSource& source, const VariableSet& set, BpProcedure& procedure) {
  const std::string setName = set.GetName(VariableSet::kAsStored);
  ZEVAMBstricmp_A(setName.c_str(), setName.c_str());
  ZEVAMBstricmp_A(setName.c_str(), setName.c_str());
  const BpString title("Multiple Response Sets", true);
  BpPivotTable table = procedure.PivotTable(title, title, false);
  BpDimension attributes = table.Dimension(BpString("Attributes", true), BpPivotTable::kAsAdded);
  attributes.Position(BpDimension::kColumns, 1, true, false);
  BpDimension names = table.Dimension(BpString("Name", true), BpPivotTable::kAsAdded);
  BpCategory label = attributes.Category(BpString("Label", true));
  BpCategory codedAs = attributes.Category(BpString("Coded As", true));
  BpCategory countedValue = attributes.Category(BpString("Counted Value", true));
  BpCategory dataType = attributes.Category(BpString("Data Type", true));
  BpCategory variables = attributes.Category(BpString("Elementary Variables", true));
  const BpAnnotation note = BpString("Using variable value labels", true).Replicate();

  set.GetType();
  const BpCategory row = names.Category(BpString(set.GetName(VariableSet::kAsStored), false));
  set.qLabelSetByVariable();
  label.Cell(BpString(set.GetLabel(), false));
  set.GetType();
  codedAs.Cell(BpString("Dichotomies", true));
  countedValue.Cell(BpString(set.GetValue(), false));
  set.qUseVariableCategoryLabels();
  WriteDataType(source, set, dataType);
  WriteVariables(source, set, variables);
}

void Floor::Calls::WriteDataType(const ZEVA_DataSource& source, const VariableSet& set, BpCategory& column) {
  const std::vector<std::string> variables = set.GetVariableNames(VariableSet::kUpperCase);
  source.FindVarIndex(variables.front().c_str(), 0);
  source.GetVariable(0)->GetType();
  column.Cell(BpString("Numeric", true));
}

void Floor::Calls::WriteVariables(const ZEVA_DataSource& source, const VariableSet& set, BpCategory& column) {
  BpComposite lines("[:^1\r:$1]1", false);
  lines.Sublist();
  const std::vector<std::string> variables = set.GetVariableNames(VariableSet::kAsStored);
  for (std::size_t index = 0; index < variables.size(); ++index) {
    source.FindVarIndex(variables[index].c_str(), 0);
    lines.Add(BpString(source.GetVariable(static_cast<int>(index))->GetLabel(), false));
  }
  lines.EndSublist();
  column.Cell(lines);
}

Floor::Floor(const Workload& workload) : fWorkload(workload), fComparisons(workload.variables) {
  for (std::size_t set = 0; set < workload.sets; ++set) {
    fSetNames.push_back(SetName(set));
  }
  for (std::size_t variable = 0; variable < workload.variables; ++variable) {
    fVariableNames.push_back(VariableName(variable));
  }
  if (workload.labels == Labels::kEach) {
    Compare();
  }
}

// The labels differ in their numbers alone. A set asks its ordering for the very comparisons that a set of texts would.
void Floor::Compare() {
  for (const scripted::Variable& variable : DictionaryOf(fWorkload)) {
    fLabels.push_back(*variable.label);
  }
  std::size_t current = 0;
  const auto isBehind = [this, &current](std::size_t first, std::size_t second) {
    fComparisons[current].emplace_back(first, second);
    const scripted::Quiet quiet;
    return ZEVAMBstricmp_A(fLabels[first].c_str(), fLabels[second].c_str()) > 0;
  };
  std::set<std::size_t, decltype(isBehind)> known(isBehind);
  for (; current < fLabels.size(); ++current) {
    known.insert(current);
  }
}

void Floor::Run() const {
  BpProcedure procedure("Multiple Response Set", 2);
  ZEVA_TokenSequence tokens(true);
  const ProcedureDataSource source;
  const Calls calls(*this);
  calls.Parse(tokens, source);
  calls.Apply(*source.GetParentSource(), procedure);
}

}  // namespace bench
