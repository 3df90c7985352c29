#include "standalone/run/codec.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "standalone/output/plain/text_tabulation.h"
#include "standalone/text/error.h"
#include "tests/standalone/output/results.h"
#include "tests/standalone/output/tabulations.h"

namespace standalone {
namespace {

Table OneOfEverything() {
  Table table{"Title", "Name", "Attributes", {"Label", "List", "Nothing", ""}, {}};
  table.rows.push_back({"$a", {}});
  table.rows.back().cells = {{"two\nlines", std::nullopt},
                             {std::vector<std::string>{"text", "", std::string("\0\xFF", 2)}, "a note"},
                             {{}, std::nullopt},
                             {std::vector<std::string>(), ""}};
  return table;
}

void ExpectSame(const Table& actual, const Table& expected) {
  EXPECT_EQ(actual.title, expected.title);
  EXPECT_EQ(actual.rowDimension, expected.rowDimension);
  EXPECT_EQ(actual.columnDimension, expected.columnDimension);
  EXPECT_EQ(actual.columns, expected.columns);
  ASSERT_EQ(actual.rows.size(), expected.rows.size());
  for (std::size_t row = 0; row < expected.rows.size(); ++row) {
    EXPECT_EQ(actual.rows[row].name, expected.rows[row].name);
    ASSERT_EQ(actual.rows[row].cells.size(), expected.rows[row].cells.size());
    for (std::size_t cell = 0; cell < expected.rows[row].cells.size(); ++cell) {
      EXPECT_EQ(actual.rows[row].cells[cell].value, expected.rows[row].cells[cell].value) << cell;
      EXPECT_EQ(actual.rows[row].cells[cell].note, expected.rows[row].cells[cell].note) << cell;
    }
  }
}

Event Sent(const Event& event) {
  const std::string bytes = Encode(event);
  std::string_view rest = bytes;
  const std::optional<Event> received = TakeEvent(rest);
  EXPECT_TRUE(rest.empty());
  return received.value();
}

TEST(Codec, ACommandArrivesWithEveryMember) {
  const std::string bytes = Encode(ScriptCommand{"te\nxt", 7, "be\xFF\fore", std::string("\0", 1), "source"});
  std::string_view rest = bytes;
  const std::optional<ScriptCommand> command = TakeCommand(rest);
  ASSERT_TRUE(command);
  EXPECT_EQ(command->text, "te\nxt");
  EXPECT_EQ(command->line, 7);
  EXPECT_EQ(command->before, "be\xFF\fore");
  EXPECT_EQ(command->after, std::string("\0", 1));
  EXPECT_EQ(command->source, "source");
}

TEST(Codec, AMessageArrivesWithEveryMember) {
  const auto message = std::get<Message>(Sent(Message{Level::kWarning, "No.", Place{3, 14, 2, 30, 4}, "a hint"}));
  EXPECT_EQ(message.level, Level::kWarning);
  EXPECT_EQ(message.text, "No.");
  ASSERT_TRUE(message.place);
  EXPECT_EQ(message.place->line, 3);
  EXPECT_EQ(message.place->column, 14U);
  EXPECT_EQ(message.place->length, 2U);
  EXPECT_EQ(message.place->offset, 30U);
  EXPECT_EQ(message.place->size, 4U);
  EXPECT_EQ(message.hint, "a hint");
  EXPECT_FALSE(std::get<Message>(Sent(Message{Level::kError, ""})).place);
}

TEST(Codec, ATableArrivesWithEveryMember) {
  for (const Table& table : {OneOfEverything(), Table{}, Table{"no rows", "r", "c", {"x"}, {}}}) {
    ExpectSame(std::get<Table>(Sent(table)), table);
  }
}

TEST(Codec, ATabulationArrivesWithEveryMember) {
  Tabulation tabulation = WeightedDrinks();
  tabulation.confidence = 99.5;
  tabulation.minBase = 30;
  tabulation.none = "-1";
  tabulation.adjustment = Adjustment::kBonferroni;
  tabulation.tests.front().members.front().byMember = "food1";
  const auto arrived = std::get<Tabulation>(Sent(tabulation));
  EXPECT_EQ(JsonText(arrived), JsonText(tabulation));
  EXPECT_EQ(TextTabulation(arrived, 80), TextTabulation(tabulation, 80));
  EXPECT_EQ(arrived.tests.front().members.front().byMember, "food1");
  EXPECT_EQ(arrived.columns.back().values, tabulation.columns.back().values);
  EXPECT_EQ(arrived.minBase, 30);
  EXPECT_EQ(arrived.confidence, 99.5);
}

TEST(Codec, EveryKindOfEventArrives) {
  EXPECT_EQ(std::get<ProcedureOpened>(Sent(ProcedureOpened{"title"})).title, "title");
  EXPECT_EQ(std::get<HintGiven>(Sent(HintGiven{"hint"})).hint, "hint");
  EXPECT_EQ(std::get<DryRunTold>(Sent(DryRunTold{"sentence"})).sentence, "sentence");
  EXPECT_TRUE(std::holds_alternative<SaveBegun>(Sent(SaveBegun{})));
}

TEST(Codec, AnErrorArrivesWithItsKindAndSubject) {
  const std::string bytes = Encode(Error(ErrorKind::kNotADataset, "A sentence.", "a path"));
  std::string_view rest = bytes;
  const std::optional<Error> error = TakeError(rest);
  ASSERT_TRUE(error);
  EXPECT_EQ(error->Kind(), ErrorKind::kNotADataset);
  EXPECT_STREQ(error->what(), "A sentence.");
  EXPECT_EQ(error->Subject(), "a path");
}

TEST(Codec, WhatIsNotCompleteStays) {
  const std::string first = Encode(Event(OneOfEverything()));
  for (std::size_t size = 0; size < first.size(); ++size) {
    std::string_view part = std::string_view(first).substr(0, size);
    EXPECT_FALSE(TakeEvent(part)) << size;
    EXPECT_EQ(part.size(), size);
  }
}

TEST(Codec, EventsStandOneAfterTheOther) {
  const std::string bytes = Encode(ProcedureOpened{"one"}) + Encode(HintGiven{"two"});
  std::string_view rest = bytes;
  EXPECT_EQ(std::get<ProcedureOpened>(TakeEvent(rest).value()).title, "one");
  EXPECT_EQ(std::get<HintGiven>(TakeEvent(rest).value()).hint, "two");
  EXPECT_FALSE(TakeEvent(rest));
}

}  // namespace
}  // namespace standalone
