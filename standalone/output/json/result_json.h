#ifndef STANDALONE_OUTPUT_JSON_RESULT_JSON_H
#define STANDALONE_OUTPUT_JSON_RESULT_JSON_H

#include "standalone/output/items.h"
#include "standalone/output/json/json_writer.h"

namespace standalone {

/// An item in the documented form. Of a place, the bytes in the command's text are not part of it.
void WriteJson(JsonWriter& json, const Item& item);

/// A command's result in the documented form.
void WriteJson(JsonWriter& json, const CommandResult& result);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_JSON_RESULT_JSON_H
