#ifndef STANDALONE_OUTPUT_JSON_RESULT_JSON_H
#define STANDALONE_OUTPUT_JSON_RESULT_JSON_H

#include <nlohmann/json.hpp>

#include "standalone/output/items.h"

namespace standalone {

/// JSON objects with their members in the documented order.
using Json = nlohmann::ordered_json;

/// An item in the documented form. Of a place, the bytes in the command's text are not part of it.
Json ToJson(const Item& item);

/// A command's result in the documented form.
Json ToJson(const CommandResult& result);

/// The JSON on one line, with characters that would act on a terminal escaped; text that is not valid UTF-8 is shown
/// with U+FFFD in its place.
std::string OneLine(const Json& json);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_JSON_RESULT_JSON_H
