#include "standalone/shell/line_editor.h"

#include <histedit.h>
#include <langinfo.h>
#include <locale.h>
#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <limits>
#include <stdexcept>
#include <utility>

#include "standalone/shell/candidate_list.h"
#include "standalone/shell/input_history.h"

namespace standalone {
namespace {

/// The editor reads characters by the locale; where that knows no UTF-8, which the program speaks, another must do.
void UseUtf8() {
  setlocale(LC_CTYPE, "");
  if (std::strcmp(nl_langinfo(CODESET), "UTF-8") != 0) {
    setlocale(LC_CTYPE, "C.UTF-8");
  }
}

constexpr const char* kAbandonMark = "^C";

/// Keys that the editor is told to press, once the cursor has come to where they are to act.
constexpr const char* kListKeys = "\033\t";
constexpr const char* kEndOfLineKey = "\n";

/// Whether more keys wait after the one that was pressed, as they do in pasted text. The editor reads them one by one.
bool KeysWait() {
  pollfd keys = {STDIN_FILENO, POLLIN, 0};
  return poll(&keys, 1, 0) > 0 && (keys.revents & POLLIN) != 0;
}

/// How many characters of the editor the text is.
int CharacterCount(std::string_view text) {
  return static_cast<int>(
      std::count_if(text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

EditLine* MakeEditor() {
  UseUtf8();  // which the editor asks for when it is made
  return el_init("mrset", stdin, stdout, stderr);
}

}  // namespace

class LineEditor::Implementation {
 public:
  Implementation(const std::vector<std::string>& history, Complete complete);
  Implementation(const Implementation&) = delete;
  Implementation& operator=(const Implementation&) = delete;
  ~Implementation() {
    el_end(fEditor);
    history_end(fHistory);
  }

  Typed Read(const std::string& prompt);
  void Remember(const std::string& entry);

 private:
  static Implementation& Of(EditLine* editor);
  static char* Prompt(EditLine* editor) { return Of(editor).fPrompt.data(); }
  static unsigned char CompleteWord(EditLine* editor, int key);
  static unsigned char ListCandidates(EditLine* editor, int key);
  static unsigned char Abandon(EditLine* editor, int key);
  static unsigned char Stop(EditLine* editor, int key);

  void BindKeys();
  unsigned char CompleteTyped();
  unsigned char InsertTab();
  unsigned char List();
  unsigned char GoToEnd(int& passed, const char* keys);
  void Show(const Completion& completion);

  Complete fComplete;
  std::string fPrompt;
  bool fIsAbandoned = false;
  Completion fListed;    // to be listed when the cursor has come to the end
  int fAfterCursor = 0;  // characters after which it stood
  History* fHistory;
  EditLine* fEditor;
};

LineEditor::Implementation::Implementation(const std::vector<std::string>& history, Complete complete)
    : fComplete(std::move(complete)), fHistory(history_init()), fEditor(MakeEditor()) {
  if (fEditor == nullptr || fHistory == nullptr) {
    throw std::runtime_error("The terminal cannot be used to edit lines.");
  }
  HistEvent event = {};
  ::history(fHistory, &event, H_SETSIZE, static_cast<int>(HistoryFile::kMaxEntries));
  ::history(fHistory, &event, H_SETUNIQUE, 1);
  for (const std::string& entry : history) {
    Remember(entry);
  }
  el_set(fEditor, EL_CLIENTDATA, this);
  el_set(fEditor, EL_PROMPT, Prompt);
  el_set(fEditor, EL_HIST, ::history, fHistory);
  el_set(fEditor, EL_SIGNAL, 1);  // follows the size of the terminal, and restores its state when a signal stops us
  BindKeys();
}

/// While a line is edited no key sends a signal by itself; Ctrl-Z does it here.
void LineEditor::Implementation::BindKeys() {
  el_set(fEditor, EL_EDITOR, "emacs");
  el_set(fEditor, EL_SETTY, "-d", "-isig", nullptr);
  el_set(fEditor, EL_ADDFN, "mrset-complete", "Complete the word before the cursor", CompleteWord);
  el_set(fEditor, EL_ADDFN, "mrset-list", "List what was found for the word", ListCandidates);
  el_set(fEditor, EL_ADDFN, "mrset-abandon", "Discard what was typed", Abandon);
  el_set(fEditor, EL_ADDFN, "mrset-stop", "Stop the shell until it is continued", Stop);
  el_set(fEditor, EL_BIND, "^I", "mrset-complete", nullptr);
  el_set(fEditor, EL_BIND, kListKeys, "mrset-list", nullptr);
  el_set(fEditor, EL_BIND, "^C", "mrset-abandon", nullptr);
  el_set(fEditor, EL_BIND, "^Z", "mrset-stop", nullptr);
  el_set(fEditor, EL_BIND, "^R", "em-inc-search-prev", nullptr);
  el_source(fEditor, nullptr);
}

Typed LineEditor::Implementation::Read(const std::string& prompt) {
  fPrompt = prompt;
  fIsAbandoned = false;
  el_set(fEditor, EL_PREP_TERM, 1);  // before the prompt, so that keys pressed as it comes are not shown twice
  int count = 0;
  const char* line = el_gets(fEditor, &count);
  if (line == nullptr || count <= 0) {
    return {};
  }
  std::string text(line);
  if (text.back() == '\n') {
    text.pop_back();
  }
  if (fIsAbandoned) {
    return {Typed::Kind::kAbandoned, text.substr(0, text.size() - std::strlen(kAbandonMark))};
  }
  return {Typed::Kind::kText, text};
}

void LineEditor::Implementation::Remember(const std::string& entry) {
  HistEvent event = {};
  ::history(fHistory, &event, H_ENTER, entry.c_str());
}

LineEditor::Implementation& LineEditor::Implementation::Of(EditLine* editor) {
  void* data = nullptr;
  el_get(editor, EL_CLIENTDATA, &data);
  return *static_cast<Implementation*>(data);
}

unsigned char LineEditor::Implementation::CompleteWord(EditLine* editor, int /*key*/) {
  return KeysWait() ? Of(editor).InsertTab() : Of(editor).CompleteTyped();
}

unsigned char LineEditor::Implementation::ListCandidates(EditLine* editor, int /*key*/) {
  return Of(editor).List();
}

unsigned char LineEditor::Implementation::CompleteTyped() {
  const LineInfo* line = el_line(fEditor);
  const std::string_view typed(line->buffer, static_cast<std::size_t>(line->cursor - line->buffer));
  const Completion completion = fComplete(typed);
  if (completion.candidates.empty()) {
    return CC_ERROR;
  }
  if (completion.insertion.empty()) {
    fListed = completion;
    return GoToEnd(fAfterCursor, kListKeys);
  }
  el_deletestr(fEditor, CharacterCount(typed.substr(completion.begin)));
  el_insertstr(fEditor, completion.insertion.c_str());
  return CC_REFRESH;
}

/// A tab that was pasted stays what it is.
unsigned char LineEditor::Implementation::InsertTab() {
  el_insertstr(fEditor, "\t");
  return CC_REFRESH;
}

/// Lists below what is typed, which is then shown once more.
unsigned char LineEditor::Implementation::List() {
  if (fListed.candidates.empty()) {
    return CC_ERROR;
  }
  Show(std::exchange(fListed, {}));
  el_cursor(fEditor, -fAfterCursor);
  el_wset(fEditor, EL_REFRESH);  // CC_REDISPLAY would clear as many lines above as the text takes
  return CC_NORM;
}

void LineEditor::Implementation::Show(const Completion& completion) {
  constexpr std::size_t kLeastWidth = 10;
  int width = 0;
  el_get(fEditor, EL_GETTC, "co", &width, nullptr);
  const std::string list =
      CandidateList(completion, std::max(kLeastWidth, static_cast<std::size_t>(std::max(width, 0))));
  std::fputs(("\n" + list).c_str(), stdout);
  std::fflush(stdout);
}

/// The mark shows where it happened.
unsigned char LineEditor::Implementation::Abandon(EditLine* editor, int /*key*/) {
  Implementation& self = Of(editor);
  self.fIsAbandoned = true;
  int passed = 0;
  const unsigned char result = self.GoToEnd(passed, kEndOfLineKey);
  el_insertstr(editor, kAbandonMark);
  return result;
}

/// Moves the cursor after the last character, which is shown when the function that calls this returns its result;
/// then come the keys.
unsigned char LineEditor::Implementation::GoToEnd(int& passed, const char* keys) {
  const LineInfo* line = el_line(fEditor);
  passed = CharacterCount(std::string_view(line->cursor, static_cast<std::size_t>(line->lastchar - line->cursor)));
  el_cursor(fEditor, passed);
  el_push(fEditor, keys);
  return CC_REFRESH;
}

unsigned char LineEditor::Implementation::Stop(EditLine* /*editor*/, int /*key*/) {
  kill(0, SIGTSTP);
  return CC_NORM;
}

LineEditor::LineEditor(const std::vector<std::string>& history, Complete complete)
    : fImplementation(std::make_unique<Implementation>(history, std::move(complete))) {}

LineEditor::~LineEditor() = default;

Typed LineEditor::Read(const std::string& prompt) {
  return fImplementation->Read(prompt);
}

void LineEditor::Remember(const std::string& entry) {
  fImplementation->Remember(entry);
}

}  // namespace standalone
