#include "tests/properties/traps.h"

#include <string_view>

#include "tests/properties/sentences.h"

namespace properties {
namespace {

void Append(Tokens& tokens, std::string_view text) {
  const Tokens more = scripted::Tokenize(text);
  tokens.insert(tokens.end(), more.begin(), more.end());
}

/// A category set without a name, over two variables of one kind where there are such.
void AppendNamelessGroup(Case& example) {
  Append(example.tokens, "/MCGROUP VARIABLES=");
  const Variables& dictionary = example.dictionary;
  for (const scripted::Variable& variable : dictionary) {
    if ((variable.type == 0) == (dictionary.front().type == 0)) {
      example.tokens.push_back(scripted::Word(variable.name));
    }
  }
}

void AppendEmptyName(Case& example) {
  Append(example.tokens, "/DISPLAY NAME=[$a");
  example.tokens.push_back(scripted::Word(""));
  Append(example.tokens, "]");
}

/// Two sets of one name, as no dataset has them.
void DeleteOneOfTwo(Case& example) {
  example.sets.push_back(scripted::Categories("$twin", {"q1"}));
  example.sets.push_back(scripted::Categories("$TWIN", {"q2"}));
  Append(example.tokens, "/DELETE NAME=[$Twin]");
}

/// A set that is no multiple response set, as no dataset has it among them.
void DisplayPlainSet(Case& example) {
  scripted::SetData plain = scripted::Categories("$plain", {"q1"});
  plain.type = VariableSet::kVarSet;
  example.sets.push_back(plain);
  Append(example.tokens, "/DISPLAY NAME=[$plain]");
}

void SpoilCommandName(Case& example, Dice& dice) {
  static const Tokens kNames = {scripted::Quoted("MRSET"), scripted::Symbol("/"), scripted::Word("MR"),
                                scripted::Word("MRSETS"), scripted::Number("1")};
  example.tokens.front() = dice.Pick(kNames);
}

}  // namespace

void SetTrap(Case& example, Dice& dice) {
  Sentence sentence = MakeSentence(dice, example.dictionary, example.sets, Flaws::kNone);
  sentence.resize(1 + dice.Below(sentence.size()));
  example.tokens = TokensOf(Respelled(sentence, dice));
  switch (dice.Below(8)) {
    case 0:
      return AppendNamelessGroup(example);
    case 1:
      return AppendEmptyName(example);
    case 2:
      return DeleteOneOfTwo(example);
    case 3:
      return DisplayPlainSet(example);
    case 4:
      return SpoilCommandName(example, dice);
    case 5:
      return example.tokens.clear();
    case 6:
      return Append(example.tokens, "/DELETE NAME=[]");
    default:
      return Append(example.tokens, "/DELETE NAME=[$a likes]");
  }
}

}  // namespace properties
