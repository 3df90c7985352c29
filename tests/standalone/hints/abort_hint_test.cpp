#include "standalone/hints/abort_hint.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace standalone {
namespace {

TEST(AbortHint, NamesTheCauseInPlainWords) {
  constexpr const char* kEmpty = "the list in the brackets is empty";
  constexpr const char* kNoName = "MCGROUP has no name: add NAME=$name";
  const std::vector<std::pair<std::string, std::string>> rows = {
      {"MRSET /DELETE NAME=[]", kEmpty},
      {"mrs del nam=[]", kEmpty},
      {"MRSET /DELETE NAME=[$a b]", "names of sets begin with $; b does not"},
      {"MRSET /DELETE NAME=/", "put names of sets in brackets: NAME=[$name]"},
      {"MRSET /MCGROUP VARIABLES=q1 q2", kNoName},
      {"MRSET /MCGROUP NAME=$a VARIABLES=q1 q2 /DELETE NAME=ALL /MCGROUP LABEL='NAME=$b'", kNoName},
      {"MRSET /DISPLAY NAME=[$a] /DELETE NAME=[]", kEmpty},
      {"MRSET /DELETE NAME=[$a $b] /DISPLAY NAME=[]", ""},
      {"MRSET /MDGROUP VARIABLES=q1 q2", ""},
      {"MRSET", ""},
      {"MRSET /", ""},
      {"MRSET /DELETE NAME=", "put names of sets in brackets: NAME=[$name]"},
      {"MRSET /DELETE NAME", ""}};
  for (const auto& [command, hint] : rows) {
    EXPECT_EQ(HintOnAbort(command).value_or(""), hint) << command;
  }
}

}  // namespace
}  // namespace standalone
