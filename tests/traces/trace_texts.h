#ifndef TESTS_TRACES_TRACE_TEXTS_H
#define TESTS_TRACES_TRACE_TEXTS_H

#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "tests/traces/line_diff.h"

namespace traces {

/// A message as a trace shows it.
struct IssuedMessage {
  std::string level;  ///< "error" or "warning"
  std::string pattern;
  std::vector<std::string> arguments;  ///< also the entries of a list
};

/// The texts of the module's own that a trace shows.
struct TraceTexts {
  std::vector<IssuedMessage> messages;
  std::set<std::string> fixedTexts;       ///< of BpString(text, true)
  std::set<std::string> dataTexts;        ///< of BpString(text, false)
  std::set<std::string> displayPatterns;  ///< of BpComposite(text, false)
  std::set<std::string> procedureTitles;
  std::set<std::string> matchedKeywords;    ///< of KeywordMatch(token, text) that answered yes
  std::set<std::string> truncatedKeywords;  ///< of ZEVAMBqstricmp_A(token, n, text, n, 0) that answered yes
};

/// Adds what the lines of one trace show.
void ReadTrace(const Lines& trace, TraceTexts& texts);

/// What the goldens of all scenarios show.
TraceTexts TextsOfAllGoldens();

}  // namespace traces

#endif  // TESTS_TRACES_TRACE_TEXTS_H
