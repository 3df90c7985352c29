#include "tests/host/trace.h"

#include <array>
#include <charconv>

#include "tests/host/letters.h"

namespace scripted {
namespace {

void PutByte(std::string& line, char byte) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  const auto value = static_cast<unsigned char>(byte);
  line.append("\\x").append(1, kDigits[value >> 4]).append(1, kDigits[value & 0xF]);
}

bool PutEscape(std::string& line, char character) {
  constexpr std::string_view kEscaped = "\n\r\t\"\\";
  constexpr std::string_view kLetters = "nrt\"\\";
  const std::size_t index = kEscaped.find(character);
  if (index == std::string_view::npos) {
    return false;
  }
  line.append(1, '\\').append(1, kLetters[index]);
  return true;
}

void PutEscaped(std::string& line, std::string_view text) {
  std::size_t length = 0;
  for (std::size_t offset = 0; offset < text.size(); offset += length) {
    const char character = text[offset];
    length = CharacterLength(text, offset);
    const bool isControl = static_cast<unsigned char>(character) < 0x20 || character == 0x7F;
    if (PutEscape(line, character)) {
      continue;
    }
    if (isControl || !IsCharacter(text, offset)) {
      PutByte(line, character);
    } else {
      line.append(text.substr(offset, length));
    }
  }
}

template <class List, class PutOne>
void PutList(std::string& line, const List& list, PutOne putOne) {
  line += '[';
  bool first = true;
  for (const auto& entry : list) {
    line.append(first ? "" : ", ");
    first = false;
    putOne(entry);
  }
  line += ']';
}

/// An enumerator by its name, any other value as its number.
template <class Enumeration>
struct EnumeratorName {
  Enumeration value;
  const char* name;
};

template <class Enumeration, std::size_t kSize>
void PutEnumerator(std::string& line, Enumeration value, const std::array<EnumeratorName<Enumeration>, kSize>& names) {
  for (const auto& entry : names) {
    if (entry.value == value) {
      line += entry.name;
      return;
    }
  }
  Put(line, static_cast<int>(value));
}

}  // namespace

void Put(std::string& line, const char* text) {
  line += text;
}

void Put(std::string& line, bool value) {
  line += value ? "true" : "false";
}

void Put(std::string& line, int value) {
  line += std::to_string(value);
}

void Put(std::string& line, double value) {
  std::array<char, 32> buffer{};
  line.append(buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr);
}

void Put(std::string& line, Quote part) {
  if (part.isNull) {
    line += "null";
    return;
  }
  line += '"';
  PutEscaped(line, part.text);
  line += '"';
}

void Put(std::string& line, Bare part) {
  PutEscaped(line, part.text);
}

void Put(std::string& line, Named part) {
  line += part.ledger.Name(part.handle);
}

void Put(std::string& line, SourceNamed part) {
  line += part.handle == 0 ? "parent" : part.ledger.Name(part.handle);
}

void Put(std::string& line, SetNames part) {
  PutList(line, ToData(part.sets), [&line](const SetData& set) { PutEscaped(line, set.name); });
}

void Put(std::string& line, WholeSets part) {
  PutList(line, ToData(part.sets), [&line](const SetData& set) { line += ToText(set); });
}

void Put(std::string& line, const std::vector<int>& values) {
  PutList(line, values, [&line](int value) { Put(line, value); });
}

void Put(std::string& line, const std::vector<std::string>& texts) {
  PutList(line, texts, [&line](const std::string& text) { Put(line, Quote(std::string_view(text))); });
}

void Put(std::string& line, TokenSequenceBase::TokenType value) {
  using Name = EnumeratorName<TokenSequenceBase::TokenType>;
  PutEnumerator(
      line, value,
      std::array{Name{TokenSequenceBase::kEnd, "kEnd"}, Name{TokenSequenceBase::kString, "kString"},
                 Name{TokenSequenceBase::kNumber, "kNumber"}, Name{TokenSequenceBase::kQuotedString, "kQuotedString"},
                 Name{TokenSequenceBase::kSymbol, "kSymbol"}});
}

void Put(std::string& line, VariableSet::VariableSetType value) {
  using Name = EnumeratorName<VariableSet::VariableSetType>;
  PutEnumerator(line, value,
                std::array{Name{VariableSet::kVarSet, "kVarSet"}, Name{VariableSet::kMCSet, "kMCSet"},
                           Name{VariableSet::kMDSet, "kMDSet"}});
}

void Put(std::string& line, VariableSet::ChangeCase value) {
  using Name = EnumeratorName<VariableSet::ChangeCase>;
  PutEnumerator(line, value,
                std::array{Name{VariableSet::kUpperCase, "kUpperCase"}, Name{VariableSet::kAsStored, "kAsStored"}});
}

void Put(std::string& line, VarSetsType value) {
  PutEnumerator(line, value, std::array{EnumeratorName<VarSetsType>{kMRSets, "kMRSets"}});
}

void Put(std::string& line, BpDimension::Place value) {
  PutEnumerator(line, value, std::array{EnumeratorName<BpDimension::Place>{BpDimension::kColumns, "kColumns"}});
}

void Put(std::string& line, BpPivotTable::Sort value) {
  PutEnumerator(line, value, std::array{EnumeratorName<BpPivotTable::Sort>{BpPivotTable::kAsAdded, "kAsAdded"}});
}

void Put(std::string& line, BpErrorShow value) {
  PutEnumerator(line, value, std::array{EnumeratorName<BpErrorShow>{kBpErrorShow, "kBpErrorShow"}});
}

void Put(std::string& line, BpErrorLevel value) {
  using Name = EnumeratorName<BpErrorLevel>;
  PutEnumerator(
      line, value,
      std::array{Name{kBpErrorLevelWarning, "kBpErrorLevelWarning"}, Name{kBpErrorLevelError, "kBpErrorLevelError"}});
}

}  // namespace scripted
