#ifndef TESTS_REFERENCE_REFERENCE_APPLY_H
#define TESTS_REFERENCE_REFERENCE_APPLY_H

#include <optional>
#include <string>
#include <vector>

#include "tests/host/scripted_host.h"
#include "tests/reference/record.h"

namespace reference {

struct ApplyResult {
  std::vector<std::string> messages;                       ///< lines as of scripted::ToText(Message)
  std::vector<std::vector<std::string>> tables;            ///< each as of scripted::Table::Lines()
  std::vector<std::vector<scripted::SetData>> editedSets;  ///< the whole list after each record
  std::optional<std::vector<scripted::SetData>> saved;     ///< none when an assertion failed
  std::optional<std::string> assertion;                    ///< the expression that failed
};

/// Applies the records of one command, in order, to the stored sets.
ApplyResult Apply(const std::vector<Record>& records, const std::vector<scripted::Variable>& dictionary,
                  const std::vector<scripted::SetData>& storedSets);

}  // namespace reference

#endif  // TESTS_REFERENCE_REFERENCE_APPLY_H
