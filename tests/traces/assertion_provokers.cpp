#include "tests/traces/assertion_provokers.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <csignal>
#include <sstream>
#include <string_view>

#include "backend/mrset/mrsetapply.h"
#include "backend/mrset/mrsetparse.h"
#include "tests/host/scripted_host.h"

namespace traces {
namespace {

using Type = MRSetSubcommand::Type;

/// A command of one token.
struct Command {
  explicit Command(scripted::Token token) { host.SetTokens({std::move(token)}); }

  scripted::ScriptedHost host;
};

/// The command, and all that a function of the module is given.
struct Stage : Command {
  using Command::Command;

  ZEVA_TokenSequence stream{true};
  ProcedureDataSource source;
  BpProcedure procedure{"", 0};
  MRSETSUBCOMMANDS subcommands;
  MRSetSubcommand record;
  VARIABLESETS sets;
};

/// The stage on which this process makes an assertion fail.
const Stage* gStage = nullptr;

/// With the command's token before the cursor.
template <class Enter>
std::function<void()> Before(scripted::Token token, Enter enter) {
  return [=] {
    Stage stage(token);
    gStage = &stage;
    enter(stage);
  };
}

/// With the word as the current token.
template <class Enter>
std::function<void()> At(const char* word, Enter enter) {
  return Before(scripted::Word(word), [=](Stage& stage) {
    stage.stream.Next();
    enter(stage);
  });
}

/// With a record that lacks one thing.
template <class Enter>
std::function<void()> With(const MRSetSubcommand& record, Enter enter) {
  return At("MRSET", [=](Stage& stage) {
    stage.record = record;
    enter(stage);
  });
}

MRSetSubcommand Record(Type type, std::string name = {}, std::string value = {}, std::vector<std::string> names = {}) {
  MRSetSubcommand record;
  record.fType = type;
  record.fName = std::move(name);
  record.fValue = std::move(value);
  record.fNames = std::move(names);
  return record;
}

/// What a list parser clears, though not before it asserts.
MRSetSubcommand RecordOfEarlierLists() {
  MRSetSubcommand record;
  record.fVariables = {"an", "earlier", "list"};
  record.fNames = {"$an", "$earlier", "$list"};
  record.fAll = true;
  return record;
}

void Enter(Stage& stage, bool (*parser)(ZEVA_TokenSequence&, const ZEVA_DataSource&, MRSetSubcommand&)) {
  parser(stage.stream, stage.source, stage.record);
}

void Enter(Stage& stage, bool (*parser)(ZEVA_TokenSequence&, MRSetSubcommand&)) {
  parser(stage.stream, stage.record);
}

const auto kParse = [](Stage& stage) { MRSetParse(stage.stream, stage.source, stage.subcommands); };
const auto kAddMDGroup = [](Stage& stage) { AddMDGroup(stage.record, stage.source, stage.sets); };
const auto kAddMCGroup = [](Stage& stage) { AddMCGroup(stage.record, stage.source, stage.sets); };
const auto kDelete = [](Stage& stage) { DeleteMRSets(stage.record, stage.sets); };
const auto kDisplay = [](Stage& stage) {
  stage.record.fAll = true;
  DisplayMRSets(stage.record, stage.source, scripted::ToSets({{"$a", VariableSet::kVarSet, "", "", false, false, {}}}),
                stage.procedure);
};

void CheckBehindAString(Stage& stage) {
  stage.host.SetDictionary({scripted::String("a", 8), {"b", -1, std::nullopt, {}}});
  std::vector<std::string> names = {"a", "b"};
  int narrowestWidth = 0;
  AreValidVariables(names, stage.source, "", false, narrowestWidth);
}

template <class Value, class Parser>
auto IntoA(Parser parser) {
  return [=](Stage& stage) {
    Value value{};
    parser(stage.stream, value);
  };
}

std::vector<AssertionProvoker> OfTheDriver() {
  return {
      {"MRSetParse", "command.Type() == TokenSequenceBase::kString", Before(scripted::Quoted("MRSET"), kParse)},
      {"MRSetParse", R"(IsTokenEqualWith(command, std:: string("MRSET")))", Before(scripted::Word("FROB"), kParse)},
      {"MovePrevious", "pos > 0", At("MRSET", [](Stage& stage) { MovePrevious(stage.stream); })},
  };
}

std::vector<AssertionProvoker> OfTheKeywordParsers() {
  return {
      {"ParseMRName", R"(IsTokenEqualWith(command, std:: string("NAME")))",
       At("FROB", IntoA<std::string>(ParseMRName))},
      {"ParseLabel",
       R"(IsTokenEqualWith(command, std:: string("LABEL")) && )"
       R"(!IsTruncatedTokenEqualWith(command, std:: string("LABELSOURCE"), 6))",
       At("FROB", IntoA<std::string>(ParseLabel))},
      {"ParseLabelSource", R"(IsTruncatedTokenEqualWith(command, std:: string("LABELSOURCE"), 6))",
       At("FROB", IntoA<bool>(ParseLabelSource))},
      {"ParseCategoryLabels", R"(IsTokenEqualWith(command, std:: string("CATEGORYLABELS")))",
       At("FROB", IntoA<bool>(ParseCategoryLabels))},
      {"ParseValue", R"(IsTokenEqualWith(command, std:: string("VALUE")))",
       At("FROB", [](Stage& stage) { ParseValue(stage.stream, stage.record.fValue, stage.record.fValueIsNumber); })},
      {"ParseVariables", R"(IsTokenEqualWith(command, std:: string("VARIABLES")))",
       At("FROB",
          [](Stage& stage) {
            stage.record = RecordOfEarlierLists();
            ParseVariables(stage.stream, stage.source, stage.record.fVariables, stage.record.fAll);
          })},
      {"ParseNames", R"(IsTokenEqualWith(command, std:: string("NAME")))",
       At("FROB",
          [](Stage& stage) {
            stage.record = RecordOfEarlierLists();
            ParseNames(stage.stream, stage.record.fNames, stage.record.fAll);
          })},
  };
}

/// Both assertions of a subcommand's parser.
template <class Parser>
void AddParser(const char* function, const char* keyword, const char* isKeyword, const char* isType, Parser parser,
               std::vector<AssertionProvoker>& all) {
  all.push_back({function, isKeyword, At("FROB", [=](Stage& stage) { Enter(stage, parser); })});
  all.push_back({function, isType, At(keyword, [=](Stage& stage) { Enter(stage, parser); })});
}

std::vector<AssertionProvoker> OfTheSubcommands() {
  std::vector<AssertionProvoker> all;
  AddParser("ParseMDGroup", "MDGROUP", R"(IsTokenEqualWith(command, std:: string("MDGROUP")))",
            "subcmd.fType == MRSetSubcommand::kMDGROUP", ParseMDGroup, all);
  AddParser("ParseMCGroup", "MCGROUP", R"(IsTokenEqualWith(command, std:: string("MCGROUP")))",
            "subcmd.fType == MRSetSubcommand::kMCGROUP", ParseMCGroup, all);
  AddParser("ParseDisplay", "DISPLAY", R"(IsTokenEqualWith(command, std:: string("DISPLAY")))",
            "subcmd.fType == MRSetSubcommand::kDISPLAY", ParseDisplay, all);
  AddParser("ParseDelete", "DELETE", R"(IsTokenEqualWith(command, std:: string("DELETE")))",
            "subcmd.fType == MRSetSubcommand::kDELETE", ParseDelete, all);
  return all;
}

std::vector<AssertionProvoker> OfTheValidators() {
  return {
      {"ValidateMDGroup", "subcmd.fType == MRSetSubcommand::kMDGROUP",
       At("MRSET", [](Stage& stage) { ValidateMDGroup(stage.record, stage.source); })},
      {"ValidateMCGroup", "subcmd.fType == MRSetSubcommand::kMCGROUP",
       At("MRSET", [](Stage& stage) { ValidateMCGroup(stage.record, stage.source); })},
      {"ValidateMRSetName", "(subcmd.fType == MRSetSubcommand::kDISPLAY) || (subcmd.fType == MRSetSubcommand::kDELETE)",
       At("MRSET", [](Stage& stage) { ValidateMRSetName(stage.record, stage.source); })},
      {"FindMRSetName", "!mrSetName.empty()", At("MRSET", [](Stage& stage) { FindMRSetName("", stage.source); })},
      {"AreValidVariables", "var.GetType() > 0", At("MRSET", CheckBehindAString)},
  };
}

std::vector<AssertionProvoker> OfTheEdits() {
  return {
      {"AddMDGroup", "!subcmd.fName.empty()", With(Record(Type::kMDGROUP), kAddMDGroup)},
      {"AddMDGroup", "subcmd.fName[0] == '$'", With(Record(Type::kMDGROUP, "a"), kAddMDGroup)},
      {"AddMDGroup", "subcmd.fType == MRSetSubcommand::kMDGROUP", With(Record(Type::kMCGROUP, "$a"), kAddMDGroup)},
      {"AddMDGroup", "!subcmd.fValue.empty()", With(Record(Type::kMDGROUP, "$a"), kAddMDGroup)},
      {"AddMDGroup", "!subcmd.fVariables.empty()", With(Record(Type::kMDGROUP, "$a", "1"), kAddMDGroup)},
      {"AddMCGroup", "!subcmd.fName.empty()", With(Record(Type::kMCGROUP), kAddMCGroup)},
      {"AddMCGroup", "subcmd.fName[0] == '$'", With(Record(Type::kMCGROUP, "a"), kAddMCGroup)},
      {"AddMCGroup", "subcmd.fType == MRSetSubcommand::kMCGROUP", With(Record(Type::kMDGROUP, "$a"), kAddMCGroup)},
      {"AddMCGroup", "!subcmd.fVariables.empty()", With(Record(Type::kMCGROUP, "$a"), kAddMCGroup)},
      {"DeleteMRSets", "subcmd.fType == MRSetSubcommand::kDELETE", With(Record(Type::kDISPLAY), kDelete)},
      {"DeleteMRSets", "!subcmd.fNames.empty()", With(Record(Type::kDELETE), kDelete)},
      {"DeleteMRSets", "(*namesIter)[0] == '$'", With(Record(Type::kDELETE, "", "", {"a"}), kDelete)},
      {"RemoveVarSet", "(end - 1) == last",
       At("MRSET",
          [](Stage& stage) {
            stage.sets = scripted::ToSets({scripted::Categories("$a", {}), scripted::Categories("$A", {})});
            RemoveVarSet("$a", stage.sets);
          })},
      {"DisplayMRSets", "subcmd.fType == MRSetSubcommand::kDISPLAY", With(Record(Type::kDELETE), kDisplay)},
      {"DisplayMRSets", "iter->GetType() != VariableSet::kVarSet", With(Record(Type::kDISPLAY), kDisplay)},
  };
}

void WriteAll(int pipeEnd, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = write(pipeEnd, text.data(), text.size());
    if (count <= 0) {
      _exit(1);
    }
    text.remove_prefix(static_cast<std::size_t>(count));
  }
}

/// Empty where there are no names.
std::string NamesLine(const char* what, const std::vector<std::string>& names) {
  std::string line;
  for (const std::string& name : names) {
    line += (line.empty() ? "# record: " + std::string(what) + " " : " ") + name;
  }
  return line.empty() ? line : line + "\n";
}

/// Comes between the report, a line, and the end of the process.
void WriteCallsAndData(int) {
  std::string text = gStage->host.TraceText();
  for (const scripted::SetData& set : scripted::ToData(gStage->sets)) {
    text += "# set: " + ToText(set) + "\n";
  }
  text += NamesLine("variables", gStage->record.fVariables) + NamesLine("names", gStage->record.fNames);
  text += gStage->record.fAll ? "# record: all\n" : "";
  WriteAll(STDERR_FILENO, text);
}

/// Runs with standard error in the pipe and leaves no core behind.
[[noreturn]] void Die(const AssertionProvoker& provoker, int pipeEnd) {
  const rlimit none{0, 0};
  setrlimit(RLIMIT_CORE, &none);
  std::signal(SIGABRT, WriteCallsAndData);
  dup2(pipeEnd, STDERR_FILENO);
  provoker.provoke();
  _exit(0);
}

std::string ReadAll(int pipeEnd) {
  std::string text;
  std::array<char, 512> buffer{};
  for (ssize_t count = read(pipeEnd, buffer.data(), buffer.size()); count > 0;
       count = read(pipeEnd, buffer.data(), buffer.size())) {
    text.append(buffer.data(), static_cast<std::size_t>(count));
  }
  return text;
}

/// The report is the first line.
AssertionEnd Divided(const std::string& text) {
  const std::size_t behindReport = text.find('\n') + 1;
  AssertionEnd end{text.substr(0, behindReport), {}};
  std::istringstream calls(text.substr(behindReport));
  for (std::string line; std::getline(calls, line);) {
    end.calls.push_back(line);
  }
  return end;
}

}  // namespace

const std::vector<AssertionProvoker>& AssertionProvokers() {
  static const std::vector<AssertionProvoker> all = [] {
    std::vector<AssertionProvoker> provokers;
    for (const auto of : {OfTheDriver, OfTheKeywordParsers, OfTheSubcommands, OfTheValidators, OfTheEdits}) {
      const std::vector<AssertionProvoker> more = of();
      provokers.insert(provokers.end(), more.begin(), more.end());
    }
    return provokers;
  }();
  return all;
}

const AssertionProvoker* FindProvoker(const std::string& function, const std::string& expression) {
  const std::vector<AssertionProvoker>& all = AssertionProvokers();
  const auto found = std::find_if(all.begin(), all.end(), [&](const AssertionProvoker& provoker) {
    return provoker.function == function && provoker.expression == expression;
  });
  return found == all.end() ? nullptr : &*found;
}

AssertionEnd EndOf(const AssertionProvoker& provoker) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) {
    return {"there is no pipe", {}};
  }
  const pid_t child = fork();
  if (child < 0) {
    return {"there is no process", {}};
  }
  if (child == 0) {
    Die(provoker, ends[1]);
  }
  close(ends[1]);
  const std::string text = ReadAll(ends[0]);
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  return WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT ? Divided(text)
                                                            : AssertionEnd{"did not abort: " + text, {}};
}

}  // namespace traces
