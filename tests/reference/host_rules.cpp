#include "tests/reference/host_rules.h"

#include "tests/host/letters.h"

namespace reference {
namespace {

bool IsLetter(char character) {
  const bool isAscii = static_cast<unsigned char>(character) < 0x80;
  return !isAscii || (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

bool IsDigit(char character) {
  return character >= '0' && character <= '9';
}

bool BeginsName(char character) {
  return IsLetter(character) || character == '@' || character == '#' || character == '_';
}

bool ContinuesName(char character) {
  return BeginsName(character) || IsDigit(character) || character == '.' || character == '$';
}

bool Fail(Report& report, const std::string& sentence) {
  report.Add("host error: " + sentence);
  return false;
}

bool IsTo(const std::string& word) {
  return scripted::UpperCase(word) == "TO";
}

bool Append(const Variables& dictionary, int index, std::vector<int>& indices, Report& report) {
  for (int listed : indices) {
    if (listed == index) {
      return Fail(report, "Variable " + dictionary[static_cast<std::size_t>(index)].name + " is listed twice.");
    }
  }
  indices.push_back(index);
  return true;
}

}  // namespace

bool NamesKeyword(const std::string& token, const std::string& keyword) {
  if (token == keyword) {
    return true;
  }
  return token.size() >= 3 && token.size() < keyword.size() && keyword.substr(0, token.size()) == token;
}

bool IsValidName(const std::string& name) {
  if (name.size() > 64) {
    return false;
  }
  const std::string stem = !name.empty() && name[0] == '$' ? name.substr(1) : name;
  if (stem.empty() || !BeginsName(stem[0]) || stem[stem.size() - 1] == '.') {
    return false;
  }
  for (char character : stem) {
    if (!ContinuesName(character)) {
      return false;
    }
  }
  const std::string upper = scripted::UpperCase(stem);
  return upper != "ALL" && upper != "TO";
}

int FindVariable(const Variables& dictionary, const std::string& name) {
  for (std::size_t index = 0; index < dictionary.size(); ++index) {
    if (scripted::UpperCase(dictionary[index].name) == scripted::UpperCase(name)) {
      return static_cast<int>(index);
    }
  }
  return -1;
}

const std::string* LabelOfNumber(const scripted::Variable& variable, double value) {
  for (const scripted::ValueLabel& valueLabel : variable.valueLabels) {
    const double* labelled = std::get_if<double>(&valueLabel.value);
    if (labelled != nullptr && *labelled == value) {
      return &valueLabel.label;
    }
  }
  return nullptr;
}

const std::string* LabelOfText(const scripted::Variable& variable, const std::string& value) {
  for (const scripted::ValueLabel& valueLabel : variable.valueLabels) {
    const std::string* labelled = std::get_if<std::string>(&valueLabel.value);
    if (labelled != nullptr && *labelled == value) {
      return &valueLabel.label;
    }
  }
  return nullptr;
}

bool ReadVariableList(const Variables& dictionary, const std::vector<std::string>& words, std::vector<int>& indices,
                      Report& report) {
  std::size_t at = 0;
  while (at < words.size()) {
    const std::string first = words[at];
    if (IsTo(first)) {
      return Fail(report, "TO has no variable before it.");
    }
    const int begin = FindVariable(dictionary, first);
    if (begin == -1) {
      return Fail(report, "Variable " + first + " is not in the dictionary.");
    }
    int end = begin;
    at += 1;
    if (at < words.size() && IsTo(words[at])) {
      if (at + 1 == words.size()) {
        return Fail(report, "The range from " + first + " has no end.");
      }
      const std::string last = words[at + 1];
      end = FindVariable(dictionary, last);
      if (end == -1) {
        return Fail(report, "Variable " + last + " is not in the dictionary.");
      }
      if (end < begin) {
        return Fail(report, "The range from " + first + " to " + last + " is reversed.");
      }
      at += 2;
    }
    for (int index = begin; index <= end; ++index) {
      if (!Append(dictionary, index, indices, report)) {
        return false;
      }
    }
  }
  return true;
}

}  // namespace reference
