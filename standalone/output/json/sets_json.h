#ifndef STANDALONE_OUTPUT_JSON_SETS_JSON_H
#define STANDALONE_OUTPUT_JSON_SETS_JSON_H

#include <vector>

#include "standalone/dataset/stored_set.h"
#include "standalone/dataset/variable.h"
#include "standalone/output/json/json_writer.h"

namespace standalone {

/// Sets in the documented form, an array.
Json ToJson(const std::vector<StoredSet>& sets);

/// A variable in the documented form.
Json ToJson(const Variable& variable);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_JSON_SETS_JSON_H
