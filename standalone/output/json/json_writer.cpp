#include "standalone/output/json/json_writer.h"

#include "standalone/text/visible.h"

namespace standalone {

std::string OneLine(const Json& json) {
  return VisibleJson(json.dump(-1, ' ', false, Json::error_handler_t::replace));
}

void JsonWriter::Value(const Json& scalar) {
  Separate();
  fStream << OneLine(scalar);
}

void JsonWriter::Member(const char* name, const Json& scalar) {
  Name(name);
  Value(scalar);
}

void JsonWriter::Name(const char* name) {
  Separate();
  fStream << '"' << name << "\":";
  fFollowsAnother = false;
}

void JsonWriter::Array(const char* name, const std::vector<std::string>& texts) {
  Array(name, texts, [this](const std::string& text) { Value(text); });
}

void JsonWriter::Separate() {
  fStream << (fFollowsAnother ? "," : "");
  fFollowsAnother = true;
}

void JsonWriter::Begin(char bracket) {
  Separate();
  fStream << bracket;
  fFollowsAnother = false;
}

void JsonWriter::End(char bracket) {
  fStream << bracket;
  fFollowsAnother = true;
}

}  // namespace standalone
