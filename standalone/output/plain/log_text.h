#ifndef STANDALONE_OUTPUT_PLAIN_LOG_TEXT_H
#define STANDALONE_OUTPUT_PLAIN_LOG_TEXT_H

#include <cstddef>
#include <string>

#include "standalone/dataset/change.h"
#include "standalone/output/json/json_writer.h"

namespace standalone {

/// A change as two lines of text, each ending in "\n": number, local time and what became of which sets; under it the
/// command on one line, cut so that it takes no more than `width` terminal columns. Harmless to a terminal.
std::string ChangeText(const Change& change, std::size_t width);

/// An import likewise; it has no number.
std::string ImportText(const LoggedImport& import, std::size_t width);

// In the documented form.

void WriteJson(JsonWriter& json, const Change& change);
void WriteJson(JsonWriter& json, const LoggedImport& import);

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_PLAIN_LOG_TEXT_H
