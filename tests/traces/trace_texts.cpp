#include "tests/traces/trace_texts.h"

#include <map>
#include <regex>

#include "tests/traces/golden.h"

namespace traces {
namespace {

const char kQuoted[] = R"re("((?:[^"\\]|\\.)*)")re";

/// The text of which a trace made this.
std::string Unquoted(const std::string& quoted) {
  static const std::map<char, char> kEscapes = {{'n', '\n'}, {'r', '\r'}, {'t', '\t'}};
  std::string text;
  for (std::size_t at = 0; at < quoted.size(); ++at) {
    if (quoted[at] != '\\') {
      text += quoted[at];
      continue;
    }
    const auto escape = kEscapes.find(quoted[++at]);
    text += escape == kEscapes.end() ? quoted[at] : escape->second;
  }
  return text;
}

/// The texts and messages of one trace by the names of their objects.
class Reader {
 public:
  explicit Reader(TraceTexts& texts) : fTexts(texts) {}

  void Read(const std::string& line) {
    static const std::string quoted = kQuoted;
    static const std::regex string(R"((text#\d+) = BpString\()" + quoted + R"(, (true|false)\))");
    static const std::regex composite(R"((composite#\d+) = BpComposite\()" + quoted + R"(, (true|false)\))");
    static const std::regex add(R"((composite#\d+)\.Add\((text#\d+)\))");
    static const std::regex error(R"(BpError\((composite#\d+), kBpErrorShow, kBpErrorLevel(Error|Warning)\))");
    static const std::regex procedure(R"(procedure#\d+ = BpProcedure\()" + quoted + R"(, \d+\))");
    static const std::regex keyword("KeywordMatch\\(" + quoted + ", " + quoted + "\\) -> (-?[1-9]\\d*)");
    static const std::regex truncated("ZEVAMBqstricmp_A\\(" + quoted + ", \\d+, " + quoted +
                                      ", .*\\) -> (-?[1-9]\\d*)");
    if (Matches(line, string)) {
      const std::string text = Unquoted(fMatch[2]);
      fStrings[fMatch[1]] = text;
      (fMatch[3] == "true" ? fTexts.fixedTexts : fTexts.dataTexts).insert(text);
    } else if (Matches(line, composite)) {
      Compose(fMatch[1], Unquoted(fMatch[2]), fMatch[3] == "true");
    } else if (Matches(line, add)) {
      fComposites[fMatch[1]].arguments.push_back(fStrings[fMatch[2]]);
    } else if (Matches(line, error)) {
      Issue(fMatch[1], fMatch[2] == "Error" ? "error" : "warning");
    } else if (Matches(line, procedure)) {
      fTexts.procedureTitles.insert(Unquoted(fMatch[1]));
    } else if (Matches(line, keyword)) {
      fTexts.matchedKeywords.insert(Unquoted(fMatch[2]));
    } else if (Matches(line, truncated)) {
      fTexts.truncatedKeywords.insert(Unquoted(fMatch[2]));
    }
  }

 private:
  bool Matches(const std::string& line, const std::regex& pattern) { return std::regex_match(line, fMatch, pattern); }

  void Compose(const std::string& name, const std::string& pattern, bool isMessage) {
    fComposites[name] = {"", pattern, {}};
    if (!isMessage) {
      fTexts.displayPatterns.insert(pattern);
    }
  }

  void Issue(const std::string& name, const std::string& level) {
    IssuedMessage message = fComposites[name];
    message.level = level;
    fTexts.messages.push_back(message);
  }

  TraceTexts& fTexts;
  std::smatch fMatch;
  std::map<std::string, std::string> fStrings;
  std::map<std::string, IssuedMessage> fComposites;
};

}  // namespace

void ReadTrace(const Lines& trace, TraceTexts& texts) {
  Reader reader(texts);
  for (const std::string& line : trace) {
    reader.Read(line);
  }
}

TraceTexts TextsOfAllGoldens() {
  TraceTexts texts;
  for (const Scenario& scenario : Scenarios()) {
    ReadTrace(TraceOf(ReadLines(GoldenPath(scenario))), texts);
  }
  return texts;
}

}  // namespace traces
