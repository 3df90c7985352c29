#include "tests/properties/sentences.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "tests/properties/dictionaries.h"

namespace properties {
namespace {

using scripted::Number;
using scripted::Quoted;
using scripted::Symbol;
using scripted::Token;
using scripted::Word;

class SentenceWriter {
 public:
  SentenceWriter(Dice& dice, const Variables& dictionary, const Sets& sets, Flaws flaws)
      : fDice(dice), fDictionary(dictionary), fSets(sets), fFlaws(flaws) {
    fSentence.emplace_back();
    Keyword("MRSET");
  }

  void AnySubcommand() {
    Begin();
    const std::size_t choice = fDice.Below(100);
    if (Flaw(40)) {
      Put(fDice.Pick<Token>({Word("GROUP"), Word("MD"), Number("1"), Symbol("ALL"), Quoted("x"), Symbol("/")}));
    } else if (choice < 40) {
      MDGroup();
    } else if (choice < 60) {
      MCGroup();
    } else if (choice < 83) {
      Listing("DISPLAY", 35);
    } else {
      Listing("DELETE", 15);
    }
  }

  void Definition() {
    Begin();
    fDice.Percent(60) ? MDGroup() : MCGroup();
  }

  Sentence Take() { return std::move(fSentence); }

 private:
  bool Flaw(std::size_t oneIn) { return fFlaws != Flaws::kNone && fDice.OneIn(oneIn); }

  void Put(Token token) { fSentence.back().push_back({std::move(token), ""}); }
  void Keyword(const std::string& keyword) { fSentence.back().push_back({Word(keyword), keyword}); }

  /// Begins a subcommand.
  void Begin() {
    const bool canBeLeftOut = fSentence.size() == 1;
    fSentence.emplace_back();
    if (!(canBeLeftOut ? fDice.Percent(40) : fFlaws == Flaws::kAny && fDice.OneIn(40))) {
      Put(Symbol("/"));
    }
  }

  /// Puts a keyword and its "="; false when the value is to be left out.
  bool Assignment(const std::string& keyword) {
    Keyword(keyword);
    if (fFlaws != Flaws::kAny || !fDice.OneIn(60)) {
      Put(Symbol("="));
    }
    return fFlaws != Flaws::kAny || !fDice.OneIn(100);
  }

  // --- the values ---

  Token AnyName() {
    static const std::vector<Token> kBad = {Word("likes"),
                                            Word("$" + std::string(64, 'x')),
                                            Word(std::string(70, 'x')),
                                            Word("$1"),
                                            Word("$a."),
                                            Word("$"),
                                            Number("1"),
                                            Quoted("$a"),
                                            Symbol("ALL")};
    if (Flaw(12)) {
      return fDice.Pick(kBad);
    }
    return fDice.OneIn(40) ? Word("$" + std::string(63, 'y')) : Word(KnownName());
  }

  std::string KnownName() {
    return !fSets.empty() && fDice.Percent(40) ? InAnyCase(fDice.Pick(fSets).name, fDice) : SetName(fDice);
  }

  Token AnyLabel() {
    static const std::vector<Token> kLabels = {Quoted("Likes"), Quoted("It's"), Quoted("/"),    Quoted("="),
                                               Quoted(""),      Quoted("^2^1"), Quoted("\"x\"")};
    if (Flaw(25)) {
      return fDice.Pick<Token>({Word("Likes"), Number("1"), Symbol("["), Symbol("/")});
    }
    return fDice.OneIn(12) ? Quoted(LongLabel()) : fDice.Pick(kLabels);
  }

  /// Around 255 bytes, where a character of two bytes can stand on the border.
  std::string LongLabel() {
    std::string label(fDice.Between(252, 255), 'l');
    for (std::size_t count = fDice.Below(3); count > 0; --count) {
      label += "\xC3\xB1";
    }
    return label;
  }

  Token AnyValue(bool numeric) {
    static const std::vector<Token> kNumbers = {Number("1"), Number("1"),   Number("1"), Number("0"),
                                                Number("2"), Number("1.0"), Number("+1")};
    static const std::vector<Token> kTexts = {Quoted("1"), Quoted("1"), Quoted("a"), Quoted("ab"), Quoted(" a ")};
    static const std::vector<Token> kOdd = {Number("2.5"), Number("-.5"), Number("1e3"),       Quoted(""),
                                            Quoted("  "),  Quoted("="),   Quoted("abcdefghi"), Word("one"),
                                            Symbol("["),   Quoted("q1"),  Quoted("1.0")};
    if (Flaw(15)) {
      return fDice.Pick(kOdd);
    }
    return fDice.Pick(numeric != Flaw(20) ? kNumbers : kTexts);
  }

  Lines NamesOfKind(bool numeric) {
    Lines names;
    for (const scripted::Variable& variable : fDictionary) {
      if ((variable.type == 0) == numeric) {
        names.push_back(variable.name);
      }
    }
    return names;
  }

  /// The kind of a set's variables, one of which there are some where that is possible.
  bool IsNumeric() {
    const bool numeric = fDice.Percent(60);
    return NamesOfKind(numeric).size() > 1 ? numeric : !numeric;
  }

  void VariableWords(bool numeric) {
    Lines names = NamesOfKind(numeric);
    fDice.Shuffle(names);
    const std::size_t wanted = Flaw(25) ? fDice.Below(2) : fDice.Between(2, 4);
    names.resize(std::min(names.size(), wanted));
    if (Flaw(12)) {
      SpoilList(names);
    }
    for (const std::string& name : names) {
      Put(Word(InAnyCase(name, fDice)));
    }
  }

  void SpoilList(Lines& names) {
    static const Lines kWords = {"nosuch", "TO", "q1", "q2", "s1", "to"};
    const auto at = names.begin() + static_cast<std::ptrdiff_t>(fDice.Below(names.size() + 1));
    names.insert(at, !fDictionary.empty() && fDice.Percent(50) ? fDice.Pick(fDictionary).name : fDice.Pick(kWords));
  }

  /// A range, reversed when flawed; whatever lies between belongs to it.
  void VariableRange() {
    std::size_t first = fDice.Below(fDictionary.size());
    std::size_t last = std::min(fDictionary.size() - 1, first + fDice.Between(1, 3));
    if (Flaw(8)) {
      std::swap(first, last);
    }
    Put(Word(InAnyCase(fDictionary[first].name, fDice)));
    Put(Word(fDice.Percent(50) ? "TO" : "to"));
    Put(Word(InAnyCase(fDictionary[last].name, fDice)));
  }

  // --- the keywords ---

  void Attribute(const std::string& keyword, bool numeric, bool counted) {
    if (!Assignment(keyword)) {
      return;
    }
    if (keyword == "NAME") {
      Put(AnyName());
    } else if (keyword == "LABEL") {
      Put(AnyLabel());
    } else if (keyword == "VALUE") {
      Put(AnyValue(numeric));
    } else if (keyword == "LABELSOURCE") {
      Flaw(15) ? Put(fDice.Pick<Token>({Word("VARLABELS"), Quoted("VARLABEL"), Number("1")})) : Keyword("VARLABEL");
    } else if (keyword == "CATEGORYLABELS") {
      Flaw(15) ? Put(fDice.Pick<Token>({Word("COUNT"), Word("VALUES"), Quoted("VARLABELS"), Symbol("]")}))
               : Keyword(counted ? "COUNTEDVALUES" : "VARLABELS");
    } else if (!fDictionary.empty() && fDice.Percent(20)) {
      VariableRange();
    } else {
      VariableWords(numeric);
    }
  }

  void Attributes(Lines keywords, bool numeric, bool counted) {
    fDice.Shuffle(keywords);
    if (!keywords.empty() && Flaw(15)) {
      keywords.push_back(fDice.Pick(keywords));
    }
    for (const std::string& keyword : keywords) {
      Attribute(keyword, numeric, counted);
    }
    if (Flaw(25)) {
      Attribute(fDice.Pick<std::string>({"FORMAT", "LABELSOURCE", "VALUE", "CATEGORYLABELS", "DISPLAY"}), numeric,
                counted);
    }
    if (Flaw(60)) {
      Put(fDice.Pick<Token>({Number("7"), Quoted("stray"), Symbol(","), Word("stray"), Symbol("]")}));
    }
  }

  /// Each but for a flaw.
  Lines Required(const Lines& keywords) {
    Lines required;
    std::copy_if(keywords.begin(), keywords.end(), std::back_inserter(required),
                 [this](const std::string&) { return !Flaw(30); });
    return required;
  }

  void MDGroup() {
    Keyword("MDGROUP");
    if (Flaw(50)) {
      return;
    }
    const bool counted = fDice.Percent(40);
    Lines keywords = Required({"NAME", "VARIABLES", "VALUE"});
    if (fDice.Percent(40)) {
      keywords.push_back("LABEL");
    }
    if (counted || fDice.Percent(20)) {
      keywords.push_back("CATEGORYLABELS");
    }
    if (counted ? fDice.Percent(50) : Flaw(12)) {
      keywords.push_back("LABELSOURCE");
    }
    Attributes(std::move(keywords), IsNumeric(), counted);
  }

  void MCGroup() {
    Keyword("MCGROUP");
    if (Flaw(50)) {
      return;
    }
    Lines keywords = Required({"NAME", "VARIABLES"});
    if (fDice.Percent(50)) {
      keywords.push_back("LABEL");
    }
    Attributes(std::move(keywords), IsNumeric(), false);
  }

  void Listing(const std::string& keyword, std::size_t allPercent) {
    Keyword(keyword);
    for (std::size_t count = Flaw(30) ? 2 * fDice.Below(2) : 1; count > 0; --count) {
      if (Assignment("NAME")) {
        fDice.Percent(allPercent) ? Put(Symbol("ALL")) : NameList();
      }
    }
    if (Flaw(30)) {
      Put(fDice.Pick<Token>({Word("VARIABLES"), Number("1"), Symbol("="), Quoted("NAME")}));
    }
  }

  void NameList() {
    static const std::vector<Token> kOdd = {Symbol(","), Number("1"), Quoted("$a"),
                                            Symbol("/"), Symbol("["), Word("q1")};
    if (Flaw(20)) {
      Put(fDice.Pick<Token>({Symbol("("), Word("$a"), Quoted("["), Symbol("]"), Number("1")}));
      return;
    }
    Put(Symbol("["));
    for (std::size_t count = Flaw(15) ? 0 : fDice.Between(1, 3); count > 0; --count) {
      Put(Flaw(25) ? fDice.Pick(kOdd) : Word(KnownName()));
    }
    if (!Flaw(25)) {
      Put(Symbol("]"));
    }
  }

  Dice& fDice;
  const Variables& fDictionary;
  const Sets& fSets;
  const Flaws fFlaws;
  Sentence fSentence;
};

/// The letters at which a keyword is told from the others.
std::size_t ShortestLength(const std::string& keyword) {
  return keyword == "LABELSOURCE" ? 6 : 3;
}

std::string Spelling(const std::string& keyword, Dice& dice) {
  std::string spelling = keyword;
  if (dice.Percent(50)) {
    spelling.resize(dice.Between(std::min(ShortestLength(keyword), keyword.size()), keyword.size()));
  }
  if (keyword == "LABELSOURCE" && dice.OneIn(6)) {
    spelling += "X";  // nothing behind the sixth letter matters
  }
  return InAnyCase(spelling, dice);
}

}  // namespace

Sentence MakeSentence(Dice& dice, const Variables& dictionary, const Sets& sets, Flaws flaws) {
  SentenceWriter writer(dice, dictionary, sets, flaws);
  for (std::size_t count = dice.OneIn(60) ? 0 : dice.Between(1, 3); count > 0; --count) {
    writer.AnySubcommand();
  }
  return writer.Take();
}

Sentence MakeDefinition(Dice& dice, const Variables& dictionary, const Sets& sets) {
  SentenceWriter writer(dice, dictionary, sets, Flaws::kNone);
  writer.Definition();
  return writer.Take();
}

Sentence Respelled(Sentence sentence, Dice& dice) {
  for (std::vector<Piece>& part : sentence) {
    for (Piece& piece : part) {
      if (!piece.keyword.empty()) {
        piece.token = Word(Spelling(piece.keyword, dice));
      }
    }
  }
  return sentence;
}

Tokens TokensOf(const Sentence& sentence) {
  Tokens tokens;
  for (const std::vector<Piece>& part : sentence) {
    for (const Piece& piece : part) {
      tokens.push_back(piece.token);
    }
  }
  return tokens;
}

}  // namespace properties
