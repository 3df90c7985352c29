#include "standalone/shell/tabulate_candidates.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "standalone/language/grammar.h"
#include "standalone/text/unicode.h"

namespace standalone {
namespace {

constexpr std::size_t kMaxValues = 100;
constexpr std::size_t kMaxMembers = 1000;

/// The values that have a label, as they stand in a command.
void AddValues(const Variable& variable, std::vector<std::string>& values) {
  for (const ValueLabel& entry : variable.valueLabels) {
    const std::string value = variable.width == 0 ? entry.value : Quoted(entry.value);
    if (values.size() < kMaxValues && std::find(values.begin(), values.end(), value) == values.end()) {
      values.push_back(value);
    }
  }
}

void AddValuesOf(const std::string& name, CompletionSource& source, std::vector<std::string>& values) {
  const int position = source.FindVariable(name);
  if (position >= 0) {
    AddValues(source.VariableAt(position), values);
  }
}

/// The members of a set: its variables, or the values of theirs that have a label. NONE takes values alone.
void AddMembers(const std::string& name, CompletionSource& source, bool isNone, std::vector<std::string>& members) {
  const std::optional<StoredSet> set = source.FindSet(name);
  for (const std::string& variable : set ? set->variables : std::vector<std::string>()) {
    if (members.size() >= kMaxMembers) {
      return;
    }
    if (set->type == SetType::kCategory) {
      AddValuesOf(variable, source, members);
    } else if (!isNone) {
      members.push_back(variable);
    }
  }
}

void AddSubcommands(const TabulateExpectation& expectation, std::vector<std::string>& keywords) {
  for (const TabulateSubcommand& subcommand : TabulateSubcommands()) {
    if (std::find(expectation.given.begin(), expectation.given.end(), subcommand.key) == expectation.given.end()) {
      keywords.push_back(std::string(subcommand.name) + (IsValueOptional(subcommand) ? "" : "="));
    }
  }
}

/// The subcommand's words that are not given yet.
void AddWords(const TabulateExpectation& expectation, const std::vector<Token>& tokens,
              std::vector<std::string>& keywords) {
  for (const std::string_view word : expectation.subcommand->words) {
    const auto begin = tokens.begin() + static_cast<std::ptrdiff_t>(std::min(expectation.valueBegin, tokens.size()));
    const bool isGiven =
        std::any_of(begin, tokens.end(), [&](const Token& token) { return NamesKeyword(ToUpper(token.text), word); });
    if (!isGiven) {
      keywords.emplace_back(word);
    }
  }
}

}  // namespace

TabulateCandidates CandidatesFor(const TabulateExpectation& expectation, const std::vector<Token>& tokens,
                                 CompletionSource& source) {
  TabulateCandidates candidates;
  if (expectation.isComplete) {
    candidates.symbols = {"/"};
  }
  switch (expectation.what) {
    case TabulateExpected::kNothing:
      break;
    case TabulateExpected::kSetName:
      candidates.offersSets = true;
      if (!expectation.sets.empty()) {
        candidates.symbols = {"/"};
      }
      break;
    case TabulateExpected::kSubcommand:
      AddSubcommands(expectation, candidates.keywords);
      break;
    case TabulateExpected::kEquals:
      candidates.symbols.emplace_back("=");
      break;
    case TabulateExpected::kColumn:
      candidates.offersSets = candidates.offersVariables = true;
      break;
    case TabulateExpected::kVariable:
      candidates.offersVariables = true;
      break;
    case TabulateExpected::kMember:
      for (const std::string& set : expectation.sets) {
        AddMembers(set, source, expectation.subcommand->key == TabulateKey::kNone, candidates.values);
      }
      break;
    case TabulateExpected::kWord:
      AddWords(expectation, tokens, candidates.keywords);
      break;
    case TabulateExpected::kCondition:
      candidates.keywords = {"MISSING(", "NOT"};
      candidates.offersSets = candidates.offersVariables = true;
      break;
    case TabulateExpected::kComparison:
      candidates.symbols = {"=", "<>", "<", "<=", ">", ">="};
      candidates.keywords = {"IN"};
      break;
    case TabulateExpected::kHas:
      candidates.keywords = {"HAS"};
      break;
    case TabulateExpected::kValueOfVariable:
      AddValuesOf(expectation.name, source, candidates.values);
      break;
    case TabulateExpected::kMemberOfSet:
      AddMembers(expectation.name, source, false, candidates.values);
      break;
    case TabulateExpected::kConnective:
      candidates.keywords = {"AND", "OR"};
      break;
  }
  return candidates;
}

}  // namespace standalone
