#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

#include "standalone/output/plain/wrap.h"
#include "standalone/sets/diff_report.h"
#include "standalone/text/unicode.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

constexpr std::size_t kMinListWidth = 10;

/// How fields are called for people, where their names in JSON are not words.
constexpr std::array<std::pair<std::string_view, std::string_view>, 3> kFieldWords = {{
    {"countedValue", "counted value"},
    {"labelFromVariable", "label from the variables"},
    {"categoryLabelsFromCountedValue", "category labels from the counted value"},
}};

std::string_view WordsOf(std::string_view field) {
  const auto* found =
      std::find_if(kFieldWords.begin(), kFieldWords.end(), [field](const auto& entry) { return entry.first == field; });
  return found == kFieldWords.end() ? field : found->second;
}

struct ValueText {
  std::string operator()(const std::string& text) const {
    return text.empty() ? "none" : fmt::format("\"{}\"", Visible(text));
  }
  std::string operator()(bool flag) const { return flag ? "yes" : "no"; }
};

class DiffWriter {
 public:
  explicit DiffWriter(std::size_t width) : fWidth(width) {}

  void WriteChange(const DifferingSet& change) {
    fText += fmt::format("{}\n", Visible(change.a.name));
    for (const FieldDifference& field : change.fields) {
      fText += fmt::format("  {}\n    A: {}\n    B: {}\n", WordsOf(field.field), std::visit(ValueText(), field.a),
                           std::visit(ValueText(), field.b));
    }
    if (change.variablesDiffer) {
      WriteVariables(change.variables);
    }
  }

  void WriteOnlyIn(const ListDifference& names) {
    WriteList("Only in A: ", names.onlyInA);
    WriteList("Only in B: ", names.onlyInB);
  }

  void WriteOrder(const ListDifference& names) {
    fText += "The sets that both have are in another order.\n";
    WriteList("    A: ", names.commonInA);
    WriteList("    B: ", names.commonInB);
  }

  std::string Text() && { return std::move(fText); }

 private:
  void WriteVariables(const ListDifference& variables) {
    fText += "  variables\n";
    WriteList("    only in A: ", variables.onlyInA);
    WriteList("    only in B: ", variables.onlyInB);
    if (variables.reordered) {
      WriteList("    order in A: ", variables.commonInA);
      WriteList("    order in B: ", variables.commonInB);
    } else if (variables.commonInA != variables.commonInB) {
      WriteSpellings(variables);
    }
  }

  void WriteSpellings(const ListDifference& variables) {
    for (std::size_t index = 0; index < variables.commonInA.size(); ++index) {
      if (variables.commonInA[index] != variables.commonInB[index]) {
        WriteList("    spelled in A: ", {variables.commonInA[index]});
        WriteList("    spelled in B: ", {variables.commonInB[index]});
      }
    }
  }

  /// Nothing for an empty list.
  void WriteList(const std::string& heading, const std::vector<std::string>& names) {
    if (names.empty()) {
      return;
    }
    const std::string list = Visible(fmt::format("{}", fmt::join(names, " ")));
    const std::size_t width = std::max(fWidth, heading.size() + kMinListWidth) - heading.size();
    const std::string indent(heading.size(), ' ');
    fText += heading + fmt::format("{}\n", fmt::join(WrapText(list, width), "\n" + indent));
  }

  std::size_t fWidth;
  std::string fText;
};

}  // namespace

std::string DiffText(const SetsDifference& difference, const std::string& a, const std::string& b, std::size_t width) {
  if (difference.IsNone()) {
    return "The multiple response sets are the same.\n";
  }
  DiffWriter writer(width);
  writer.WriteOnlyIn(difference.names);
  for (const DifferingSet& change : difference.changed) {
    writer.WriteChange(change);
  }
  if (difference.names.reordered) {
    writer.WriteOrder(difference.names);
  }
  return fmt::format("A: {}\nB: {}\n\n{}", Visible(a), Visible(b), std::move(writer).Text());
}

}  // namespace standalone
