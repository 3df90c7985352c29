#ifndef HOST_CHECK_SENTENCES_H
#define HOST_CHECK_SENTENCES_H

#include <stdexcept>
#include <string>
#include <vector>

#include "host/dictionary.h"
#include "host/tokens.h"
#include "host_check/host_check.h"

namespace host_check {

/// What a host did against a sentence.
class Broken : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Thrown where the host cannot come into the sentence's situation.
class NotTried : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// One sentence of a header of host/, word for word, and what tries it.
struct Sentence {
  const char* header;
  const char* text;
  void (*tryIt)(HostFactory& factory);
};

std::vector<Sentence> DictionarySentences();
std::vector<Sentence> OutputSentences();
std::vector<Sentence> TextSentences();
std::vector<Sentence> TokenSentences();
std::vector<Sentence> VariableSetSentences();

// What the tries are made of.

/// Throws Broken unless the two are the same.
void Expect(const std::string& found, const std::string& wanted, const std::string& what);
void Expect(int found, int wanted, const std::string& what);
void Expect(bool isRight, const std::string& wanted);

/// As in `"a", "b"`.
std::string Listed(const std::vector<std::string>& texts);

/// A text or "null".
std::string Shown(const char* text);

/// q1 "Tea" with labels of 1 and 0, q2 without labels, Age "Age in years", and the string s8 of 8 bytes with a label
/// of "yes".
std::vector<Variable> Survey();

/// One command of the host, from construction to End() or destruction.
class Command {
 public:
  explicit Command(HostFactory& factory, const Setup& setup);
  Command(HostFactory& factory, const std::string& text);  ///< on Survey(), without sets
  Command(const Command&) = delete;
  Command& operator=(const Command&) = delete;
  ~Command();

  Result End();

 private:
  HostFactory& fFactory;
  bool fIsOver = false;
};

/// A command whose stream has just made the token with that number current.
class Tokens {
 public:
  Tokens(HostFactory& factory, const std::string& text, int token);
  ZEVA_TokenSequence* operator->() { return &fStream; }
  ZEVA_TokenSequence& operator*() { return fStream; }

 private:
  Command fCommand;
  ZEVA_TokenSequence fStream;
};

}  // namespace host_check

#endif  // HOST_CHECK_SENTENCES_H
