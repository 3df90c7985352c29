#ifndef STANDALONE_OUTPUT_JSON_JSON_WRITER_H
#define STANDALONE_OUTPUT_JSON_JSON_WRITER_H

#include <algorithm>
#include <nlohmann/json.hpp>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

namespace standalone {

/// JSON objects with their members in the documented order.
using Json = nlohmann::ordered_json;

/// The JSON on one line, with characters that would act on a terminal escaped; text that is not valid UTF-8 is shown
/// with U+FFFD in its place.
std::string OneLine(const Json& json);

/// Writes JSON to a stream, on one line, as it is told: what it says may be large. An array or object of the library
/// would take memory even while it is destroyed, where a lack of it ends the program.
class JsonWriter {
 public:
  explicit JsonWriter(std::ostream& stream) : fStream(stream) {}

  /// An entry of the array that is being written: no array or object.
  void Value(const Json& scalar);

  /// A member of the object that is being written. Its name needs no escaping.
  void Member(const char* name, const Json& scalar);

  /// The same, null where there is nothing.
  template <typename Scalar>
  void Member(const char* name, const std::optional<Scalar>& scalar) {
    Member(name, scalar ? Json(*scalar) : Json());
  }

  /// The name of a member whose value comes next.
  void Name(const char* name);

  /// An object, whose members a function writes.
  template <typename WriteMembers>
  void Object(WriteMembers writeMembers) {
    Begin('{');
    writeMembers();
    End('}');
  }

  /// An array, whose entries a function writes.
  template <typename WriteEntries>
  void Array(WriteEntries writeEntries) {
    Begin('[');
    writeEntries();
    End(']');
  }

  /// A member that is an array; a function writes each entry.
  template <typename List, typename WriteEntry>
  void Array(const char* name, const List& list, WriteEntry writeEntry) {
    Name(name);
    Array([&] { std::for_each(list.begin(), list.end(), writeEntry); });
  }

  /// A member that is an array of texts.
  void Array(const char* name, const std::vector<std::string>& texts);

 private:
  void Separate();
  void Begin(char bracket);
  void End(char bracket);

  std::ostream& fStream;
  bool fFollowsAnother = false;  // in the array or object that is being written
};

}  // namespace standalone

#endif  // STANDALONE_OUTPUT_JSON_JSON_WRITER_H
