#ifndef STANDALONE_OUTPUT_JSON_SETS_JSON_H
#define STANDALONE_OUTPUT_JSON_SETS_JSON_H

#include "standalone/dataset/stored_set.h"
#include "standalone/dataset/variable.h"
#include "standalone/output/json/json_writer.h"

namespace standalone {

// The members of the object that a set or variable is in the documented form; others may follow.

void WriteMembers(JsonWriter& json, const StoredSet& set);
void WriteMembers(JsonWriter& json, const Variable& variable);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_JSON_SETS_JSON_H
