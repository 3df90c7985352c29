#include "tests/traces/source_scan.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "tests/traces/golden.h"

namespace traces {
namespace {

bool IsBlank(char character) {
  return std::isspace(static_cast<unsigned char>(character)) != 0;
}

bool IsWordCharacter(char character) {
  return std::isalnum(static_cast<unsigned char>(character)) != 0 || character == '_';
}

bool IsKeyword(const std::string& word) {
  static const std::array<const char*, 10> kKeywords = {"return", "else", "throw", "new",  "case",
                                                        "if",     "for",  "while", "auto", "const"};
  return std::find(kKeywords.begin(), kKeywords.end(), word) != kKeywords.end();
}

char Unescaped(char character) {
  switch (character) {
    case 'n':
      return '\n';
    case 'r':
      return '\r';
    case 't':
      return '\t';
    case '0':
      return '\0';
    default:
      return character;
  }
}

class Scanner {
 public:
  explicit Scanner(std::string_view text) : fText(text) {}

  Source All() {
    while (fAt < fText.size()) {
      Step();
    }
    return std::move(fSource);
  }

 private:
  /// An open bracket.
  struct Frame {
    char bracket = '\0';
    std::string callee;
    std::size_t argument = 0;
    std::size_t begin = 0;    ///< behind the bracket
    bool declares = false;    ///< of a namespace or a class
    bool isFunction = false;  ///< the body of one
  };

  char Peek(std::size_t ahead) const { return fAt + ahead < fText.size() ? fText[fAt + ahead] : '\0'; }

  void Step() {
    const char character = fText[fAt];
    if (IsBlank(character)) {
      Skip(1);
    } else if (character == '#' && fAtLineStart) {
      SkipPreprocessorLine();
    } else if (character == '/' && (Peek(1) == '/' || Peek(1) == '*')) {
      SkipComment();
    } else if (character == '"' || (character == 'R' && Peek(1) == '"')) {
      Literal();
    } else if (character == '\'') {
      SkipCharacter();
    } else if (IsWordCharacter(character)) {
      Word();
    } else {
      Punctuation(character);
    }
  }

  /// Moves on and keeps count of the lines.
  void Skip(std::size_t length) {
    for (; length > 0 && fAt < fText.size(); --length, ++fAt) {
      const bool endsLine = fText[fAt] == '\n';
      fLine += endsLine ? 1 : 0;
      fAtLineStart = endsLine || (fAtLineStart && IsBlank(fText[fAt]));
    }
  }

  void SkipTo(std::string_view end) {
    const std::size_t found = fText.find(end, fAt);
    Skip(found == std::string_view::npos ? fText.size() : found + end.size() - fAt);
  }

  void SkipPreprocessorLine() {
    while (fAt < fText.size() && fText[fAt] != '\n') {
      Skip(fText[fAt] == '\\' ? 2 : 1);
    }
  }

  void SkipComment() { SkipTo(Peek(1) == '/' ? "\n" : "*/"); }

  void SkipCharacter() {
    Skip(1);
    while (fAt < fText.size() && fText[fAt] != '\'') {
      Skip(fText[fAt] == '\\' ? 2 : 1);
    }
    Skip(1);
    Remember("'");
  }

  void SkipBlanksAndComments() {
    while (IsBlank(Peek(0)) || (Peek(0) == '/' && (Peek(1) == '/' || Peek(1) == '*'))) {
      if (IsBlank(Peek(0))) {
        Skip(1);
      } else {
        SkipComment();
      }
    }
  }

  void Word() {
    std::size_t length = 1;
    while (IsWordCharacter(Peek(length)) || (Peek(length) == '\'' && IsWordCharacter(Peek(length + 1)))) {
      ++length;
    }
    Remember(std::string(fText.substr(fAt, length)));
    Skip(length);
  }

  void Remember(std::string word) {
    fBeforeLast = std::move(fLast);
    fLast = std::move(word);
  }

  void Literal() {
    SourceLiteral literal;
    literal.line = fLine;
    while (Peek(0) == '"' || (Peek(0) == 'R' && Peek(1) == '"')) {
      literal.text += Peek(0) == '"' ? PlainLiteral() : RawLiteral();
      SkipBlanksAndComments();
    }
    Remember("\"");
    if (WithinAssertion()) {
      return;
    }
    Place(literal);
    fSource.literals.push_back(std::move(literal));
  }

  std::string PlainLiteral() {
    std::string text;
    Skip(1);
    while (fAt < fText.size() && fText[fAt] != '"') {
      const bool isEscape = fText[fAt] == '\\';
      text += isEscape ? Unescaped(Peek(1)) : fText[fAt];
      Skip(isEscape ? 2 : 1);
    }
    Skip(1);
    return text;
  }

  std::string RawLiteral() {
    const std::size_t bracket = fText.find('(', fAt);
    const std::string end = ")" + std::string(fText.substr(fAt + 2, bracket - fAt - 2)) + "\"";
    Skip(bracket + 1 - fAt);
    const std::size_t begin = fAt;
    SkipTo(end);
    return std::string(fText.substr(begin, fAt - end.size() - begin));
  }

  bool WithinAssertion() const {
    return std::any_of(fFrames.begin(), fFrames.end(), [](const Frame& frame) { return frame.callee == "assert"; });
  }

  /// The innermost frame that calls something; a block begins anew.
  void Place(SourceLiteral& literal) const {
    literal.function = Function();
    literal.assignedTo = fAssigned;
    for (auto frame = fFrames.rbegin(); frame != fFrames.rend() && frame->bracket != '{'; ++frame) {
      if (frame->bracket == '(' && !frame->callee.empty() && frame->callee != "string") {
        literal.callee = frame->callee;
        literal.argument = frame->argument;
        return;
      }
    }
  }

  std::string Function() const {
    const auto found =
        std::find_if(fFrames.rbegin(), fFrames.rend(), [](const Frame& frame) { return frame.isFunction; });
    return found == fFrames.rend() ? std::string() : fHead;
  }

  bool BetweenDeclarations() const {
    return std::all_of(fFrames.begin(), fFrames.end(), [](const Frame& frame) { return frame.declares; });
  }

  void Punctuation(char character) {
    const bool declaring = BetweenDeclarations();
    if (character == '(' || character == '[' || character == '{') {
      Open(character, declaring);
    } else if (character == ')' || character == ']' || character == '}') {
      Close();
    } else if (character == ',' && !fFrames.empty()) {
      ++fFrames.back().argument;
    } else if (character == '=' && Peek(1) != '=' && fLast != "=") {
      fAssigned = fLast;
    } else if (character == ';') {
      fAssigned.clear();
    }
    Remember(std::string(1, character));
    Skip(1);
    if (BetweenDeclarations() && (character == ';' || character == '{' || character == '}')) {
      fDeclaration = fAt;
    }
  }

  void Open(char bracket, bool declaring) {
    Frame frame{bracket, {}, 0, fAt + 1, false, false};
    if (bracket == '(') {
      frame.callee = Callee();
    } else if (bracket == '{' && declaring) {
      const std::string head = OnOneLine(WithoutComments(fDeclaration, fAt));
      frame.isFunction = head.find('(') != std::string::npos;
      frame.declares = !frame.isFunction;
      fHead = frame.isFunction ? head : fHead;
    }
    fFrames.push_back(std::move(frame));
  }

  /// What the bracket that follows calls: the word before it or, in the definition of an object, the type.
  std::string Callee() const {
    if (fLast.empty() || !IsWordCharacter(fLast[0]) || IsKeyword(fLast)) {
      return {};
    }
    const bool definesObject = !fBeforeLast.empty() && IsWordCharacter(fBeforeLast[0]) && !IsKeyword(fBeforeLast);
    return definesObject ? fBeforeLast : fLast;
  }

  void Close() {
    if (fFrames.empty()) {
      return;
    }
    const Frame frame = fFrames.back();
    fFrames.pop_back();
    const std::string_view inside = fText.substr(frame.begin, fAt - frame.begin);
    if (frame.callee == "assert") {
      fSource.assertions.push_back({LineOf(frame.begin), OnOneLine(inside), Function()});
    }
    if (frame.isFunction) {
      fSource.functions.push_back({fHead, std::string(inside)});
    }
  }

  std::size_t LineOf(std::size_t offset) const {
    return static_cast<std::size_t>(
               std::count(fText.begin(), fText.begin() + static_cast<std::ptrdiff_t>(offset), '\n')) +
           1;
  }

  /// A declaration's text: its lines that are neither comments nor the preprocessor's.
  std::string WithoutComments(std::size_t begin, std::size_t end) const {
    std::string text;
    while (begin < end) {
      const std::size_t lineEnd = std::min(end, std::min(fText.find('\n', begin), fText.size()));
      const std::string line = OnOneLine(fText.substr(begin, lineEnd - begin));
      text += line.empty() || line[0] == '/' || line[0] == '#' ? "" : line.substr(0, line.find(" //")) + " ";
      begin = lineEnd + 1;
    }
    return text;
  }

  std::string_view fText;
  std::size_t fAt = 0;
  std::size_t fLine = 1;
  bool fAtLineStart = true;
  std::vector<Frame> fFrames;
  std::string fLast;
  std::string fBeforeLast;
  std::string fAssigned;
  std::size_t fDeclaration = 0;  ///< where the current declaration begins
  std::string fHead;             ///< of the function that is open, or was last
  Source fSource;
};

}  // namespace

Source Scan(std::string_view text) {
  return Scanner(text).All();
}

Source ScanFile(const std::string& path) {
  std::string text;
  for (const std::string& line : ReadLines(ProjectPath(path))) {
    text += line + "\n";
  }
  return Scan(text);
}

std::string NameInHead(const std::string& head) {
  const std::size_t end = head.find('(');
  std::size_t begin = std::min(end, head.size());
  while (begin > 0 && (IsWordCharacter(head[begin - 1]) || head[begin - 1] == ':')) {
    --begin;
  }
  return head.substr(begin, end - begin);
}

std::string OnOneLine(std::string_view text) {
  std::string line;
  for (const char character : text) {
    if (!IsBlank(character)) {
      line += character;
    } else if (!line.empty() && line.back() != ' ') {
      line += ' ';
    }
  }
  if (!line.empty() && line.back() == ' ') {
    line.pop_back();
  }
  return line;
}

}  // namespace traces
