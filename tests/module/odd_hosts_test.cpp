#include "tests/module/parsing.h"

namespace module_test {
namespace {

// What a host may answer that no host should.

TEST(OddHosts, ATokenOfNoKnownTypeIsUnexpectedBehindAValue) {
  for (const int type : {0, 6, -1}) {
    SCOPED_TRACE(type);
    const scripted::Token odd = Odd(static_cast<TokenSequenceBase::TokenType>(type), "what", scripted::kSlash);
    Parsing parsing(Tokens{scripted::Word("NAME"), scripted::Word("$value"), odd});
    const ParseOutcome outcome = parsing.At(1).Run(
        [](ZEVA_TokenSequence& stream, const ZEVA_DataSource&, MRSetSubcommand&) { return CheckNextToken(stream); });
    EXPECT_EQ(outcome, (ParseOutcome{false, "", "2 what", {"error: Unexpected token what in this context"}}));
  }
}

}  // namespace
}  // namespace module_test
