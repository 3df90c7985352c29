#ifndef STANDALONE_OUTPUT_JSON_TABULATION_JSON_H
#define STANDALONE_OUTPUT_JSON_TABULATION_JSON_H

#include "standalone/output/json/json_writer.h"
#include "standalone/tabulation/tabulation.h"

namespace standalone {

/// A tabulation in the documented form, with every figure it has, not rounded.
void WriteJson(JsonWriter& json, const Tabulation& tabulation);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_JSON_TABULATION_JSON_H
