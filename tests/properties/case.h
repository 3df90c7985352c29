#ifndef TESTS_PROPERTIES_CASE_H
#define TESTS_PROPERTIES_CASE_H

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "tests/host/scripted_host.h"
#include "tests/reference/reference_parser.h"

namespace properties {

using Tokens = std::vector<scripted::Token>;
using Variables = std::vector<scripted::Variable>;
using Sets = std::vector<scripted::SetData>;
using Lines = std::vector<std::string>;

/// One command and all that its run depends on.
struct Case {
  Variables dictionary;
  Sets sets;
  Tokens tokens;  ///< the command name first, without the end
  scripted::Token end = reference::DefaultEnd();
  int truth = 1;                          ///< what the host answers for yes
  std::optional<int> cursorAfterVarList;  ///< see scripted::Hooks
};

/// The tokens as a person types them; tokens that nobody can type come out as something else.
std::string CommandText(const Tokens& tokens);

/// Whether CommandText() gives these very tokens again.
bool CanBeTyped(const Tokens& tokens);

/// The host's setup for the case.
scripted::HostSetup SetupOf(const Case& example);

/// All of it as code of a test, with the command as text where that can be typed.
std::ostream& operator<<(std::ostream& stream, const Case& example);

}  // namespace properties

#endif  // TESTS_PROPERTIES_CASE_H
