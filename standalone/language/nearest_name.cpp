#include "standalone/language/nearest_name.h"

#include <algorithm>
#include <iterator>
#include <utility>
#include <vector>

#include "standalone/text/unicode.h"

namespace standalone {
namespace {

constexpr std::size_t kMaxErrors = 2;
constexpr std::size_t kMaxNameBytes = 256;  // in bytes; longer than any valid name

std::u32string UpperCharacters(std::string_view text) {
  const std::string upper = ToUpper(text);
  std::u32string characters;
  for (std::size_t offset = 0; offset < upper.size(); offset += CharacterLength(upper, offset)) {
    characters.push_back(CodePointAt(upper, offset));
  }
  return characters;
}

std::string DigitsOf(std::string_view text) {
  std::string digits;
  std::copy_if(text.begin(), text.end(), std::back_inserter(digits), [](char c) { return c >= '0' && c <= '9'; });
  return digits;
}

/// How many typing errors are let pass between two names.
std::size_t ErrorsLetPass(std::size_t lengthOfLonger) {
  return lengthOfLonger >= 8 ? kMaxErrors : lengthOfLonger >= 4 ? 1 : 0;
}

/// The least number of typing errors that turn one text into the other, no character being touched twice.
std::size_t TypingErrors(const std::u32string& first, const std::u32string& second) {
  std::vector<std::size_t> beforeLast;
  std::vector<std::size_t> last(second.size() + 1);
  for (std::size_t j = 0; j < last.size(); ++j) {
    last[j] = j;
  }
  for (std::size_t i = 1; i <= first.size(); ++i) {
    std::vector<std::size_t> row(second.size() + 1, i);
    for (std::size_t j = 1; j <= second.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (first[i - 1] == second[j - 1] ? 0 : 1);
      row[j] = std::min({replaced, last[j] + 1, row[j - 1] + 1});
      if (i > 1 && j > 1 && first[i - 1] == second[j - 2] && first[i - 2] == second[j - 1]) {
        row[j] = std::min(row[j], beforeLast[j - 2] + 1);
      }
    }
    beforeLast = std::exchange(last, std::move(row));
  }
  return last.back();
}

/// The words that are the word but for case, or begin with it.
std::vector<std::string> Continuations(const std::string& word, const std::vector<std::string>& words) {
  constexpr std::size_t kShortest = 2;
  std::vector<std::string> found;
  const std::size_t letters = word.find_first_not_of('-') == std::string::npos ? 0 : word.size();
  if (letters >= kShortest) {
    std::copy_if(words.begin(), words.end(), std::back_inserter(found), [&](const std::string& candidate) {
      return CompareNoCase(candidate.substr(0, word.size()), word) == 0;
    });
  }
  return found;
}

}  // namespace

NearestName::NearestName(std::string_view name) : fErrors(kMaxErrors + 1) {
  if (name.size() <= kMaxNameBytes) {
    fName = UpperCharacters(name);
    fDigits = DigitsOf(name);
  }
}

void NearestName::Offer(std::string_view candidate) {
  if (candidate.size() > kMaxNameBytes || DigitsOf(candidate) != fDigits) {
    return;
  }
  const std::u32string characters = UpperCharacters(candidate);
  const std::size_t longer = std::max(characters.size(), fName.size());
  const std::size_t letPass = std::min(ErrorsLetPass(longer), fErrors);
  if (fName.empty() || longer - std::min(characters.size(), fName.size()) > letPass) {
    return;
  }
  const std::size_t errors = TypingErrors(fName, characters);
  if (errors > letPass || errors == 0) {
    return;
  }
  if (errors < fErrors) {
    fErrors = errors;
    fBest = candidate;
    fHasRival = false;
  } else if (CompareNoCase(*fBest, candidate) != 0) {
    fHasRival = true;
  }
}

std::optional<std::string> NearestName::Result() const {
  return fHasRival ? std::nullopt : fBest;
}

std::optional<std::string> MeantWord(const std::string& word, const std::vector<std::string>& words) {
  const std::vector<std::string> continuations = Continuations(word, words);
  if (continuations.size() == 1) {
    return continuations.front();
  }
  NearestName nearest(word);
  for (const std::string& candidate : words) {
    nearest.Offer(candidate);
  }
  return nearest.Result();
}

}  // namespace standalone
