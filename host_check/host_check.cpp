#include "host_check/host_check.h"

#include <exception>
#include <ostream>

#include "host_check/sentences.h"

namespace host_check {
namespace {

/// Empty where the host keeps the sentence.
std::string WhatIsWrong(const Sentence& sentence, HostFactory& factory) {
  try {
    sentence.tryIt(factory);
    return "";
  } catch (const Broken& broken) {
    return broken.what();
  } catch (const NotTried&) {
    throw;
  } catch (const std::exception& exception) {
    return std::string("an exception: ") + exception.what();
  } catch (...) {
    return "an exception";
  }
}

bool Keeps(const Sentence& sentence, HostFactory& factory, std::ostream& report) {
  report << "host/" << sentence.header << ": " << sentence.text << std::endl;  // written before the host can crash
  try {
    const std::string wrong = WhatIsWrong(sentence, factory);
    report << (wrong.empty() ? "    ok" : "    BROKEN: " + wrong) << '\n';
    return wrong.empty();
  } catch (const NotTried& reason) {
    report << "    not tried: " << reason.what() << '\n';
    return true;
  }
}

}  // namespace

int RunHostCheck(HostFactory& factory, std::ostream& report) {
  int tried = 0;
  int broken = 0;
  for (const auto& sentences :
       {TextSentences(), TokenSentences(), DictionarySentences(), VariableSetSentences(), OutputSentences()}) {
    for (const Sentence& sentence : sentences) {
      ++tried;
      broken += Keeps(sentence, factory, report) ? 0 : 1;
    }
  }
  report << tried << " sentences, " << broken << " broken\n";
  return broken;
}

void Expect(const std::string& found, const std::string& wanted, const std::string& what) {
  if (found != wanted) {
    throw Broken(what + " is \"" + found + "\", not \"" + wanted + "\"");
  }
}

void Expect(int found, int wanted, const std::string& what) {
  Expect(std::to_string(found), std::to_string(wanted), what);
}

void Expect(bool isRight, const std::string& wanted) {
  if (!isRight) {
    throw Broken("wanted: " + wanted);
  }
}

std::string Listed(const std::vector<std::string>& texts) {
  std::string list;
  for (const std::string& text : texts) {
    list += (list.empty() ? "" : ", ") + text;
  }
  return list;
}

std::string Shown(const char* text) {
  return text == nullptr ? "null" : text;
}

std::vector<Variable> Survey() {
  return {{"q1", 0, "Tea", {{1.0, "Drinks tea"}, {0.0, "No"}}},
          {"q2"},
          {"Age", 0, "Age in years", {{1.0, "One"}}},
          {"s8", 8, "Wide", {{std::string("yes"), "Chosen"}}}};
}

Command::Command(HostFactory& factory, const Setup& setup) : fFactory(factory) {
  fFactory.Begin(setup);
}

Command::Command(HostFactory& factory, const std::string& text) : Command(factory, {Survey(), {}, text}) {}

Command::~Command() {
  if (!fIsOver) {
    fFactory.End();
  }
}

Result Command::End() {
  fIsOver = true;
  return fFactory.End();
}

Tokens::Tokens(HostFactory& factory, const std::string& text, int token) : fCommand(factory, text), fStream(true) {
  for (int step = 0; step <= token; ++step) {
    fStream.Next();
  }
}

}  // namespace host_check
