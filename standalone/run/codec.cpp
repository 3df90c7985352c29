#include "standalone/run/codec.h"

#include <cereal/archives/binary.hpp>
#include <cereal/types/optional.hpp>
#include <cereal/types/string.hpp>
#include <cereal/types/variant.hpp>
#include <cereal/types/vector.hpp>
#include <cstdint>
#include <cstring>
#include <sstream>
#include <streambuf>

#include "standalone/text/error.h"

namespace standalone {

// The members of each type. The library finds these functions by their name and their first parameter.

template <typename Archive>
void serialize(Archive& archive, ScriptCommand& command) {
  archive(command.text, command.line, command.before, command.after, command.source);
}

template <typename Archive>
void serialize(Archive& archive, Place& place) {
  archive(place.line, place.column, place.length, place.offset, place.size);
}

template <typename Archive>
void serialize(Archive& archive, Message& message) {
  archive(message.level, message.text, message.place, message.hint);
}

template <typename Archive>
void serialize(Archive& archive, Cell& cell) {
  archive(cell.value, cell.note);
}

template <typename Archive>
void serialize(Archive& archive, TableRow& row) {
  archive(row.name, row.cells);
}

template <typename Archive>
void serialize(Archive& archive, Table& table) {
  archive(table.title, table.rowDimension, table.columnDimension, table.columns, table.rows);
}

template <typename Archive>
void serialize(Archive& archive, TabulationFigures& figures) {
  archive(figures.count, figures.percentOfCases, figures.percentOfResponses, figures.standardError, figures.interval);
}

template <typename Archive>
void serialize(Archive& archive, TabulatedCases& cases) {
  archive(cases.all, cases.answered, cases.noneChosen, cases.missing, cases.base);
}

template <typename Archive>
void serialize(Archive& archive, TabulationColumn& column) {
  archive(column.by, column.values, column.labels, column.cases, column.weightedBase, column.effectiveBase,
          column.responses, column.responsesPerCase);
}

template <typename Archive>
void serialize(Archive& archive, TabulationCell& cell) {
  archive(cell.cases, cell.count, cell.percentOfCases, cell.percentOfResponses, cell.standardError, cell.low, cell.high,
          cell.designEffect);
}

template <typename Archive>
void serialize(Archive& archive, TabulationRow& row) {
  archive(row.member, row.label, row.isNet, row.cells);
}

template <typename Archive>
void serialize(Archive& archive, MemberTest& test) {
  archive(test.member, test.byMember, test.statistic, test.degreesOfFreedom, test.p, test.adjustedP);
}

template <typename Archive>
void serialize(Archive& archive, TabulationTest& test) {
  archive(test.by, test.statistic, test.corrected, test.degreesOfFreedom, test.p, test.members);
}

template <typename Archive>
void serialize(Archive& archive, Tabulation& tabulation) {
  archive(tabulation.set, tabulation.label, tabulation.base, tabulation.weight, tabulation.where, tabulation.none,
          tabulation.hasErrors, tabulation.hasTests, tabulation.adjustment, tabulation.figures, tabulation.confidence,
          tabulation.minBase, tabulation.decimals, tabulation.columns, tabulation.rows, tabulation.tests,
          tabulation.notes);
}

template <typename Archive>
void serialize(Archive& archive, ProcedureOpened& event) {
  archive(event.title);
}

template <typename Archive>
void serialize(Archive& archive, HintGiven& event) {
  archive(event.hint);
}

template <typename Archive>
void serialize(Archive& archive, DryRunTold& event) {
  archive(event.sentence);
}

template <typename Archive>
void serialize(Archive& /*archive*/, SaveBegun& /*event*/) {}

template <typename Archive>
void serialize(Archive& /*archive*/, CommandRestarted& /*event*/) {}

namespace {

using FrameSize = std::uint64_t;

template <typename Value>
std::string EncodeFrame(const Value& value) {
  std::ostringstream stream(std::string(sizeof(FrameSize), '\0'), std::ios::binary | std::ios::ate);
  cereal::BinaryOutputArchive archive(stream);
  archive(value);
  std::string frame = stream.str();
  const FrameSize size = frame.size() - sizeof size;
  std::memcpy(frame.data(), &size, sizeof size);
  return frame;
}

/// Reads bytes where they stand.
class ViewBuffer : public std::streambuf {
 public:
  explicit ViewBuffer(std::string_view bytes) {
    char* begin = const_cast<char*>(bytes.data());  // NOLINT(*-const-cast): the base class reads by it, too
    setg(begin, begin, begin + bytes.size());
  }
};

/// The members of an error, which cannot be set one by one.
struct ErrorMembers {
  ErrorKind kind = ErrorKind::kFailed;
  std::string sentence;
  std::string subject;

  template <typename Archive>
  void serialize(Archive& archive) {
    archive(kind, sentence, subject);
  }
};

template <typename Value>
std::optional<Value> TakeFrame(std::string_view& bytes) {
  FrameSize size = 0;
  if (bytes.size() < sizeof size) {
    return std::nullopt;
  }
  std::memcpy(&size, bytes.data(), sizeof size);
  if (bytes.size() - sizeof size < size) {
    return std::nullopt;
  }
  ViewBuffer buffer(bytes.substr(sizeof size, size));
  std::istream stream(&buffer);
  cereal::BinaryInputArchive archive(stream);
  Value value;
  archive(value);
  bytes.remove_prefix(sizeof size + size);
  return value;
}

}  // namespace

std::string Encode(const ScriptCommand& command) {
  return EncodeFrame(command);
}

std::string Encode(const Event& event) {
  return EncodeFrame(event);
}

std::string Encode(const Error& error) {
  return EncodeFrame(ErrorMembers{error.Kind(), error.what(), error.Subject()});
}

std::optional<ScriptCommand> TakeCommand(std::string_view& bytes) {
  return TakeFrame<ScriptCommand>(bytes);
}

std::optional<Event> TakeEvent(std::string_view& bytes) {
  return TakeFrame<Event>(bytes);
}

std::optional<Error> TakeError(std::string_view& bytes) {
  const std::optional<ErrorMembers> members = TakeFrame<ErrorMembers>(bytes);
  return members ? std::make_optional<Error>(members->kind, members->sentence, members->subject) : std::nullopt;
}

}  // namespace standalone
