#include "tests/properties/hand_made.h"

#include <ostream>

#include "tests/properties/dice.h"
#include "tests/properties/dictionaries.h"
#include "tests/properties/shrinking.h"

namespace properties {
namespace {

using reference::Record;

std::string VariableName(Dice& dice, const Variables& dictionary) {
  const bool exists = !dictionary.empty() && !dice.OneIn(25);
  return exists ? InAnyCase(dice.Pick(dictionary).name, dice) : "gone";
}

Lines VariableNames(Dice& dice, const Variables& dictionary) {
  Lines names;
  for (std::size_t count = dice.OneIn(12) ? dice.Below(2) : dice.Between(2, 4); count > 0; --count) {
    names.push_back(VariableName(dice, dictionary));
  }
  return names;
}

Lines ListedNames(Dice& dice) {
  Lines names;
  for (std::size_t count = dice.OneIn(15) ? 0 : dice.Between(1, 3); count > 0; --count) {
    names.push_back(dice.OneIn(30) ? "likes" : SetName(dice));
  }
  return names;
}

std::string CountedValue(Dice& dice) {
  static const Lines kValues = {"1", "1", "1.0", "a", "ab", " a ", " \t", "  ", "abcdefghi", "1x", "2.5", ""};
  return dice.Pick(kValues);
}

std::string Name(Dice& dice) {
  static const Lines kOdd = {"", "likes", "$"};
  return dice.OneIn(20) ? dice.Pick(kOdd) : SetName(dice);
}

Record MakeRecord(Dice& dice, const Variables& dictionary) {
  static const std::vector<Record::Type> kTypes = {
      Record::kMDGROUP, Record::kMDGROUP, Record::kMDGROUP, Record::kMDGROUP, Record::kMCGROUP, Record::kMCGROUP,
      Record::kDISPLAY, Record::kDISPLAY, Record::kDELETE,  Record::kDELETE,  Record::kNONE};
  Record record;
  record.fType = dice.Pick(kTypes);
  record.fName = Name(dice);
  record.fLabel = dice.Percent(40) ? "A label" : "";
  record.fVariables = VariableNames(dice, dictionary);
  record.fValue = CountedValue(dice);
  record.fValueIsNumber = dice.Percent(60);
  record.fNames = ListedNames(dice);
  record.fAll = dice.Percent(20);
  record.fLabelSourceVarLabel = dice.Percent(20);
  record.fCategoryLabelsCountedValues = dice.Percent(40);
  return record;
}

HandMade MakeHandMade(Dice& dice) {
  HandMade handMade;
  handMade.example.dictionary = MakeDictionary(dice);
  handMade.example.sets = MakeStoredSets(dice, handMade.example.dictionary);
  for (std::size_t count = dice.Between(1, 4); count > 0; --count) {
    handMade.records.push_back(MakeRecord(dice, handMade.example.dictionary));
  }
  return handMade;
}

rc::Seq<HandMade> SmallerHandMade(const HandMade& handMade) {
  return rc::seq::concat(WithLess(handMade, &HandMade::records),
                         WithMember(handMade, &HandMade::example, SmallerSurroundings(handMade.example)));
}

}  // namespace

rc::Gen<HandMade> HandMadeRecords() {
  return {[](const rc::Random& random, int) {
    Dice dice(random);
    return rc::shrinkable::shrinkRecur(MakeHandMade(dice), &SmallerHandMade);
  }};
}

std::ostream& operator<<(std::ostream& stream, const HandMade& handMade) {
  stream << handMade.example;
  for (const Record& record : handMade.records) {
    stream << record << '\n';
  }
  return stream;
}

}  // namespace properties
