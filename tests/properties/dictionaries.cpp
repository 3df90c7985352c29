#include "tests/properties/dictionaries.h"

#include <algorithm>
#include <utility>

#include "tests/host/letters.h"

namespace properties {
namespace {

using scripted::ValueLabel;

/// How the value labels of a dictionary go together.
enum class Labelling { kByName, kShared, kAnything };

std::string AnyLabel(Dice& dice) {
  static const Lines kLabels = {"Tea",          "tea",          "TEA",  "Coffee", "Milk",
                                "\xC3\x84pfel", "\xC3\xA4pfel", "Tea ", "",       "^1"};
  return dice.Pick(kLabels);
}

std::string CategoryLabel(Dice& dice, Labelling labelling, const std::string& name) {
  static const Lines kLabels = {"Yes", "yes", "No", "", "Drinks"};
  switch (labelling) {
    case Labelling::kByName:
      return "Drinks " + name;
    case Labelling::kShared:
      return dice.OneIn(4) ? "yes" : "Yes";
    default:
      return dice.Pick(kLabels);
  }
}

void AddValueLabels(scripted::Variable& variable, Dice& dice, Labelling labelling) {
  static const std::vector<double> kNumbers = {1.0, 0.0, 2.0, 2.5, -1.0};
  static const Lines kTexts = {"1", "a", "ab", " a ", ""};
  for (std::size_t index = 0; index < kNumbers.size(); ++index) {
    if (!dice.Percent(labelling == Labelling::kAnything ? 50 : 95)) {
      continue;
    }
    const bool isNumber = (variable.type == 0) != dice.OneIn(50);  // rarely a label for a value of the other type
    ValueLabel label;
    if (isNumber) {
      label.value = kNumbers[index];
    } else {
      label.value = kTexts[index];
    }
    label.label = CategoryLabel(dice, labelling, variable.name);
    variable.valueLabels.push_back(std::move(label));
  }
}

scripted::Variable MakeVariable(std::string name, Dice& dice, Labelling labelling) {
  static const std::vector<int> kTypes = {0, 0, 0, 0, 0, 0, 1, 2, 3, 4, 8, 255};
  scripted::Variable variable;
  variable.name = std::move(name);
  variable.type = dice.Pick(kTypes);
  if (dice.Percent(70)) {
    variable.label = dice.Percent(40) ? "About " + variable.name : AnyLabel(dice);
  }
  AddValueLabels(variable, dice, labelling);
  return variable;
}

scripted::SetData MakeSet(std::string name, Dice& dice, const Variables& dictionary) {
  scripted::SetData set;
  set.name = std::move(name);
  set.type = dice.Percent(50) ? VariableSet::kMDSet : VariableSet::kMCSet;
  set.label = dice.Percent(50) ? AnyLabel(dice) : "";
  if (set.type == VariableSet::kMDSet) {
    set.value = "1";
    set.useVariableCategoryLabels = dice.Percent(30);
    set.labelSetByVariable = dice.Percent(20);
  }
  for (std::size_t count = dice.Below(4); count > 0; --count) {
    const bool exists = !dictionary.empty() && dice.Percent(80);
    set.variables.push_back(exists ? InAnyCase(dice.Pick(dictionary).name, dice) : "gone");
  }
  return set;
}

const Lines& SetNames() {
  static const Lines kNames = {"$a", "$B", "$likes", "$\xC3\x84\x62", "$x_1", "$XY", "$X1", "$zz", "$q1"};
  return kNames;
}

}  // namespace

std::string InAnyCase(std::string text, Dice& dice) {
  const std::size_t manner = dice.Below(4);
  if (manner == 0) {
    return text;
  }
  for (char& character : text) {
    const bool isLetter = (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
    const bool upper = manner == 1 || (manner == 2 && dice.Percent(50));
    if (isLetter) {
      character = static_cast<char>(upper ? character & ~0x20 : character | 0x20);
    }
  }
  return text;
}

std::string SetName(Dice& dice) {
  return InAnyCase(dice.Pick(SetNames()), dice);
}

Variables MakeDictionary(Dice& dice) {
  static const Lines kNames = {"q1", "q2", "q3",    "Q4",   "q10",   "s1",    "S2",          "s3",
                               "@a", "#b", "var.x", "name", "LABEL", "value", "a\xC3\xB1os", "TOTAL"};
  Lines names = kNames;
  if (dice.Percent(60)) {  // else mostly the plain ones, in their order
    dice.Shuffle(names);
  }
  names.resize(dice.OneIn(12) ? dice.Below(4) : dice.Between(4, 10));
  const Labelling labelling = dice.Percent(45)   ? Labelling::kByName
                              : dice.Percent(30) ? Labelling::kShared
                                                 : Labelling::kAnything;
  Variables dictionary;
  for (std::string& name : names) {
    dictionary.push_back(MakeVariable(std::move(name), dice, labelling));
  }
  return dictionary;
}

Sets MakeStoredSets(Dice& dice, const Variables& dictionary) {
  Lines names = SetNames();
  dice.Shuffle(names);
  names.resize(dice.Below(6));
  Sets sets;
  for (const std::string& name : names) {
    sets.push_back(MakeSet(InAnyCase(name, dice), dice, dictionary));
  }
  return sets;
}

}  // namespace properties
