#include "tests/host/names.h"

#include <algorithm>
#include <string>

#include "tests/host/letters.h"

namespace scripted {
namespace {

constexpr std::size_t kLongestName = 64;
constexpr std::size_t kShortestAbbreviation = 3;

bool IsLetter(char character) {
  return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
         static_cast<unsigned char>(character) >= 0x80;
}

bool BeginsName(char character) {
  return IsLetter(character) || std::string_view("@#_").find(character) != std::string_view::npos;
}

bool ContinuesName(char character) {
  return IsLetter(character) || std::string_view("0123456789_.$@#").find(character) != std::string_view::npos;
}

bool IsReserved(std::string_view name) {
  const std::string upper = UpperCase(name);
  return upper == "ALL" || upper == "TO";
}

}  // namespace

bool IsValidName(std::string_view name) {
  if (name.size() > kLongestName) {
    return false;
  }
  if (!name.empty() && name.front() == '$') {
    name.remove_prefix(1);
  }
  return !name.empty() && BeginsName(name.front()) && std::all_of(name.begin(), name.end(), ContinuesName) &&
         name.back() != '.' && !IsReserved(name);
}

bool NamesKeyword(std::string_view token, std::string_view keyword) {
  return token == keyword || (token.size() >= kShortestAbbreviation && token == keyword.substr(0, token.size()));
}

}  // namespace scripted
