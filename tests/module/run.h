#ifndef TESTS_MODULE_RUN_H
#define TESTS_MODULE_RUN_H

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/host/scripted_host.h"

namespace module_test {

using Lines = std::vector<std::string>;

/// What a person sees of one command and what it leaves behind.
struct Outcome {
  Lines messages;              ///< as in "error: Square bracket expected.", in order
  Lines tables;                ///< the lines of every table, in order
  std::optional<Lines> saved;  ///< the sets that were saved, one a line; none when nothing was saved
};

bool operator==(const Outcome& first, const Outcome& second);
std::ostream& operator<<(std::ostream& stream, const Outcome& outcome);

/// A dictionary with some of everything: numeric q1 to q4 with labels Tea, Coffee, Milk, none and value labels of 1 and
/// 0; string s8 and s3 of those widths; unlabelled numeric n1, n2.
std::vector<scripted::Variable> SurveyDictionary();

/// Runs a whole command through the entry point on the host, and expects that every object was released, in order.
Outcome RunCommand(scripted::ScriptedHost& host, std::string_view command);

/// The same on a new host with SurveyDictionary() and these stored sets.
Outcome RunOnSurvey(std::string_view command, const std::vector<scripted::SetData>& storedSets = {});

/// The number of the first call in a trace whose line holds this text, as ScriptedHost::FailAtCall() counts; 0 when
/// there is none.
std::size_t CallNumber(const Lines& trace, std::string_view text);

}  // namespace module_test

#endif  // TESTS_MODULE_RUN_H
