#include "host/text.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <string_view>

#include "tests/host/call.h"
#include "tests/host/letters.h"
#include "tests/host/names.h"

using scripted::Call;
using scripted::Core;
using scripted::InstalledCore;
using scripted::Quote;

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

int DefaultAnswer(const char* name) {
  return scripted::IsValidName(name) ? kValidName : 0;
}

}  // namespace

int ZEVAMBstricmp_A(const char* first, const char* second) {
  Call call(InstalledCore(), "ZEVAMBstricmp_A(", Quote(first), ", ", Quote(second), ")");
  const int result = scripted::CompareNoCase(first, second);
  call.Returns(result < 0 ? "less" : result > 0 ? "greater" : "equal");
  return result;
}

int ZEVAMBqstricmp_A(const char* first, int firstLength, const char* second, int secondLength, int flags) {
  Core* core = InstalledCore();
  Call call(core, "ZEVAMBqstricmp_A(", Quote(first), ", ", firstLength, ", ", Quote(second), ", ", secondLength, ", ",
            flags, ")");
  const bool agree = scripted::CompareNoCase(Part(core, first, firstLength), Part(core, second, secondLength)) == 0;
  const int yes = core == nullptr ? 1 : core->hooks.truth;
  const int result = agree ? yes : 0;
  call.Returns(result);
  return result;
}

void ZEVAMBstrupr_A(char* text) {
  Call call(InstalledCore(), "ZEVAMBstrupr_A(", Quote(text), ")");
  scripted::UpperCase(text, std::strlen(text));
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
  const std::string_view copied = scripted::WholeCharacters(source, static_cast<std::size_t>(size) - 1);
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
