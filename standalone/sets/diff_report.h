#ifndef STANDALONE_SETS_DIFF_REPORT_H
#define STANDALONE_SETS_DIFF_REPORT_H

#include <cstddef>
#include <string>

#include "standalone/output/json/json_writer.h"
#include "standalone/sets/set_diff.h"

namespace standalone {

/// The difference as lines of text, each ending in "\n"; `a` and `b` say what was compared. Lists of names are wrapped
/// to `width` terminal columns. Characters that would act on a terminal are shown in a harmless form.
std::string DiffText(const SetsDifference& difference, const std::string& a, const std::string& b, std::size_t width);

/// The difference in its documented JSON form.
void WriteDiffJson(JsonWriter& json, const SetsDifference& difference, const std::string& a, const std::string& b);

}  // namespace standalone

#endif  // STANDALONE_SETS_DIFF_REPORT_H
