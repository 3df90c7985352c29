#include "host/text.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "standalone/text/names.h"
#include "standalone/text/unicode.h"

namespace {

enum NameCheck : int { kInvalidName = 0, kValidName = 2 };

std::string_view FirstBytes(const char* text, int length) {
  return {text, strnlen(text, static_cast<std::size_t>(std::max(length, 0)))};
}

}  // namespace

int ZEVAMBstricmp_A(const char* first, const char* second) {
  return standalone::CompareNoCase(first, second);
}

int ZEVAMBqstricmp_A(const char* first, int firstLength, const char* second, int secondLength, int /*flags*/) {
  return standalone::CompareNoCase(FirstBytes(first, firstLength), FirstBytes(second, secondLength)) == 0 ? 1 : 0;
}

void ZEVAMBstrupr_A(char* text) {
  const std::string upper = standalone::ToUpper(text);  // never longer
  std::memcpy(text, upper.c_str(), upper.size() + 1);
}

void ZEVAMBzstncpy_A(char* target, const char* source, int size, int /*flags*/) {
  if (size <= 0) {
    return;
  }
  const std::string_view copy = standalone::PrefixOfWholeCharacters(source, static_cast<std::size_t>(size) - 1);
  std::memcpy(target, copy.data(), copy.size());
  target[copy.size()] = '\0';
}

int ValidateZEVAName(const char* name) {
  const bool isValid = standalone::IsValidSetName(name) || standalone::IsValidVariableName(name);
  return isValid ? kValidName : kInvalidName;
}
