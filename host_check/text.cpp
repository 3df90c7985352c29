#include "host/text.h"

#include <cstring>

#include "host_check/sentences.h"

namespace host_check {
namespace {

constexpr const char* kHeader = "text.h";

std::string LetterOf(const HostFactory& factory) {
  std::string letter = factory.LongLetter();
  if (letter.size() < 2) {
    throw NotTried("the encoding has no letter of several bytes");
  }
  return letter;
}

void Compares(HostFactory& factory) {
  const Command command(factory, "MRSET");
  struct Pair {
    const char* first;
    const char* second;
    bool areEqual;
  };
  const std::vector<Pair> rows = {{"$Drinks_1", "$dRINKS_1", true},
                                  {"", "", true},
                                  {"a", "", false},
                                  {"", "a", false},
                                  {"a", "ab", false},
                                  {"ab", "a", false},
                                  {"a", "b", false},
                                  {"a1", "a2", false}};
  for (const Pair& row : rows) {
    Expect((ZEVAMBstricmp_A(row.first, row.second) == 0) == row.areEqual,
           std::string(row.first) + (row.areEqual ? " equals " : " differs from ") + row.second);
  }
}

void ComparesBeginnings(HostFactory& factory) {
  const Command command(factory, "MRSET");
  Expect(ZEVAMBqstricmp_A("LABELSRC", 6, "labelsource", 6, 0) != 0, "LABELS agrees with labels: not 0");
  Expect(ZEVAMBqstricmp_A("LABELX", 6, "LABELSOURCE", 6, 0) == 0, "LABELX differs from LABELS: 0");
  Expect(ZEVAMBqstricmp_A("LABEL", 5, "LABELSOURCE", 6, 0) == 0, "LABEL differs from LABELS: 0");
}

void ComparesCutCharacters(HostFactory& factory) {
  const std::string text = "LABEL" + LetterOf(factory);
  const Command command(factory, "MRSET");
  Expect(ZEVAMBqstricmp_A(text.c_str(), 6, "LABELSOURCE", 6, 0) == 0,
         "LABEL and a part of a letter differ from LABELS");
}

void UpperCases(HostFactory& factory) {
  const Command command(factory, "MRSET");
  std::string text = "$hot_drinks" + factory.LongLetter();
  const std::string behind = "abc";
  const std::size_t size = text.size();
  text += '\0' + behind;
  ZEVAMBstrupr_A(text.data());
  Expect(text.substr(0, 11), "$HOT_DRINKS", "$hot_drinks in upper case");
  Expect(std::strlen(text.c_str()) <= size, "a text that has not grown");
  Expect(text.substr(size + 1), behind, "what comes after the text");
}

void Copies(HostFactory& factory) {
  const std::string text = "abcd" + factory.LongLetter();
  const Command command(factory, "MRSET");
  for (const std::size_t size : {text.size() + 1, text.size(), std::size_t{4}, std::size_t{1}}) {
    std::string target(16, '#');
    ZEVAMBzstncpy_A(target.data(), text.c_str(), static_cast<int>(size));
    const bool cutsLetter = size > 4 && size <= text.size();
    const std::string wanted = text.substr(0, cutsLetter ? 4 : size - 1);
    Expect(target.c_str(), wanted, text + " in " + std::to_string(size) + " bytes");
    Expect(target.substr(size), std::string(16 - size, '#'), "what comes after the target");
  }
}

void RefusesNames(HostFactory& factory) {
  const Command command(factory, "MRSET");
  Expect(ValidateZEVAName("$drinks") == 2, "2 for $drinks");
  for (const char* name : {"", "$a b", "$a/b", "$="}) {
    Expect(ValidateZEVAName(name) != 2, std::string("not 2 for \"") + name + "\"");
  }
}

void TakesNamesOfSets(HostFactory& factory) {
  const Command command(factory, "MRSET");
  for (const char* name : {"$a", "$Drinks_1"}) {
    Expect(ValidateZEVAName(name), 2, std::string("the answer for ") + name);
  }
}

}  // namespace

std::vector<Sentence> TextSentences() {
  return {
      {kHeader, "Compares without regard to case: 0 when equal, else negative or positive.", Compares},
      {kHeader,
       "Whether the first `firstLength` bytes of `first` and the first `secondLength` bytes of `second` agree without "
       "regard to case: non-zero when they do, 0 when they differ. A truth value, not an ordering.",
       ComparesBeginnings},
      {kHeader, "`firstLength` may end within a character, which then agrees with no letter.", ComparesCutCharacters},
      {kHeader, "Upper-cases a buffer in place; the text never grows.", UpperCases},
      {kHeader,
       "Copies at most `size` - 1 bytes of `source` to `target`, never a part of a character, and terminates with a "
       "NUL.",
       Copies},
      {kHeader, "Checks a name against the host's naming rules: 2 when it is valid, any other value when it is not.",
       RefusesNames},
      {kHeader, "The names are those of sets, with their \"$\".", TakesNamesOfSets},
  };
}

}  // namespace host_check
