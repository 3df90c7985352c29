#ifndef TESTS_STANDALONE_TABULATION_REQUEST_WORDS_H
#define TESTS_STANDALONE_TABULATION_REQUEST_WORDS_H

#include <string>
#include <vector>

#include "standalone/tabulation/request.h"
#include "standalone/tabulation/tabulation.h"

namespace standalone {

// Requests in few words. A word in single quotes is a quoted one.

Spoken Say(const std::string& word, std::size_t offset = 0);
std::vector<Spoken> SayAll(const std::vector<std::string>& words);

/// For each set, and each BY: "region", "$food" or "region*vegetarian".
TabulationRequest Ask(const std::vector<std::string>& sets, const std::vector<std::string>& by = {});

Condition Comparison(const std::string& variable, const std::string& compare, const std::string& value);
Condition IsIn(const std::string& variable, const std::vector<std::string>& values);
Condition IsMissing(const std::string& variable);
Condition Has(const std::string& set, const std::string& member);
Condition Not(const Condition& part);
Condition All(const std::vector<Condition>& parts);
Condition Any(const std::vector<Condition>& parts);

/// All values of a table as lines; figures with six digits, those that are none as "-".
std::string Described(const Tabulation& table);

/// Its lines that begin with the word, without it.
std::string Described(const Tabulation& table, const std::string& word);

}  // namespace standalone

#endif  // TESTS_STANDALONE_TABULATION_REQUEST_WORDS_H
