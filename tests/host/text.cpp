#include "host/text.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "tests/host/call.h"
#include "tests/host/letters.h"
#include "tests/host/lies.h"
#include "tests/host/names.h"

using scripted::Call;
using scripted::Core;
using scripted::InstalledCore;
using scripted::Lie;
using scripted::Quote;
using scripted::Tells;

namespace {

constexpr int kValidName = 2;

/// The part of a text that a caller names by its length; a text that is shorter than that is a violation.
std::string_view Part(Core* core, const char* text, int length) {
  const std::string_view whole(text);
  if (core != nullptr && (length < 0 || static_cast<std::size_t>(length) > whole.size())) {
    core->Violate("a text of " + std::to_string(whole.size()) + " bytes was compared for " + std::to_string(length));
  }
  return whole.substr(0, static_cast<std::size_t>(std::max(length, 0)));
}

/// Whether the answer on a beginning of a text is the wrong one.
bool LiesOn(std::string_view part) {
  const bool endsInLetter = !part.empty() && static_cast<unsigned char>(part.back()) >= 0x80;
  return Tells(endsInLetter ? Lie::kCutLetterAgrees : Lie::kOrderForTruth);
}

int DefaultAnswer(const char* name) {
  const bool isRefused = Tells(Lie::kRefusesCapitals) && std::strpbrk(name, "ABCDEFGHIJKLMNOPQRSTUVWXYZ") != nullptr;
  const bool isValid = Tells(Lie::kTakesEveryName) || scripted::IsValidName(name);
  return isValid && !isRefused ? kValidName : 0;
}

}  // namespace

int ZEVAMBstricmp_A(const char* first, const char* second) {
  Call call(InstalledCore(), "ZEVAMBstricmp_A(", Quote(first), ", ", Quote(second), ")");
  const int result = Tells(Lie::kCaseMatters) ? std::strcmp(first, second) : scripted::CompareNoCase(first, second);
  call.Returns(result < 0 ? "less" : result > 0 ? "greater" : "equal");
  return result;
}

int ZEVAMBqstricmp_A(const char* first, int firstLength, const char* second, int secondLength, int flags) {
  Core* core = InstalledCore();
  Call call(core, "ZEVAMBqstricmp_A(", Quote(first), ", ", firstLength, ", ", Quote(second), ", ", secondLength, ", ",
            flags, ")");
  const std::string_view part = Part(core, first, firstLength);
  const bool agree = (scripted::CompareNoCase(part, Part(core, second, secondLength)) == 0) != LiesOn(part);
  const int yes = core == nullptr ? 1 : core->hooks.truth;
  const int result = agree ? yes : 0;
  call.Returns(result);
  return result;
}

void ZEVAMBstrupr_A(char* text) {
  Call call(InstalledCore(), "ZEVAMBstrupr_A(", Quote(text), ")");
  scripted::UpperCase(text, Tells(Lie::kUpperCaseUpToUnderscore) ? std::strcspn(text, "_") : std::strlen(text));
  call.Returns(Quote(text));
}

void ZEVAMBzstncpy_A(char* target, const char* source, int size, int flags) {
  Core* core = InstalledCore();
  Call call(core, "ZEVAMBzstncpy_A(target, ", Quote(source), ", ", size, ", ", flags, ")");
  if (size < 1) {
    if (core != nullptr) {
      core->Violate("a text was copied to a target of " + std::to_string(size) + " bytes");
    }
    return;
  }
  const auto room = static_cast<std::size_t>(size) - 1;
  const std::string_view copied =
      Tells(Lie::kCutsLetters) ? std::string_view(source).substr(0, room) : scripted::WholeCharacters(source, room);
  std::memcpy(target, copied.data(), copied.size());
  target[copied.size()] = '\0';
  call.Returns(Quote(target));
}

int ValidateZEVAName(const char* name) {
  Core* core = InstalledCore();
  Call call(core, "ValidateZEVAName(", Quote(name), ")");
  const bool isScripted = core != nullptr && core->hooks.validateName;
  const int result = isScripted ? core->hooks.validateName(name) : DefaultAnswer(name);
  call.Returns(result);
  return result;
}
