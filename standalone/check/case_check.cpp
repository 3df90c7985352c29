#include "standalone/check/case_check.h"

#include <fmt/format.h>

#include <nlohmann/json.hpp>

namespace standalone {

namespace {

/// Takes the parts of a JSON text as they are read, so that no case is kept whole. False ends the reading.
class CellReader : public nlohmann::json_sax<nlohmann::json> {
 public:
  explicit CellReader(const std::vector<bool>& isNumeric) : fIsNumeric(isNumeric) {}

  const std::optional<std::string>& Wrong() const { return fWrong; }

  bool null() override { return Cell(true, "null"); }
  bool boolean(bool) override { return Cell(std::nullopt, "true or false"); }
  bool number_integer(number_integer_t) override { return Cell(true, "a number"); }
  bool number_unsigned(number_unsigned_t) override { return Cell(true, "a number"); }
  bool number_float(number_float_t, const string_t&) override { return Cell(true, "a number"); }
  bool string(string_t&) override { return Cell(false, "a string"); }
  bool binary(binary_t&) override { return Fail("it is not a JSON array"); }
  bool start_object(std::size_t) override { return Cell(std::nullopt, "an object"); }
  bool key(string_t&) override { return Fail("it is not a JSON array"); }
  bool end_object() override { return Fail("it is not a JSON array"); }
  bool start_array(std::size_t) override { return fIsOpen ? Cell(std::nullopt, "an array") : (fIsOpen = true); }

  bool end_array() override {
    return fCount == fIsNumeric.size() ||
           Fail(fmt::format("it has {} cells and the dictionary {} variables", fCount, fIsNumeric.size()));
  }

  bool parse_error(std::size_t, const std::string&, const nlohmann::detail::exception&) override {
    return Fail("it is not a JSON array");
  }

 private:
  bool Fail(std::string wrong) {
    fWrong = std::move(wrong);
    return false;
  }

  /// `isNumeric` is nothing for what no cell can be.
  bool Cell(std::optional<bool> isNumeric, const char* what) {
    if (!fIsOpen) {
      return Fail("it is not a JSON array");
    }
    if (fCount == fIsNumeric.size()) {
      return Fail(fmt::format("it has more cells than the dictionary variables ({})", fCount));
    }
    const bool isNumericVariable = fIsNumeric[fCount++];
    return isNumeric == isNumericVariable || Fail(fmt::format("cell {} is {}, its variable a {}", fCount, what,
                                                              isNumericVariable ? "numeric one" : "string"));
  }

  const std::vector<bool>& fIsNumeric;
  std::size_t fCount = 0;
  bool fIsOpen = false;
  std::optional<std::string> fWrong;
};

}  // namespace

std::optional<std::string> WhatIsWrongWithCells(const std::string& cells, const std::vector<bool>& isNumeric) {
  CellReader reader(isNumeric);
  nlohmann::json::sax_parse(cells, &reader);
  return reader.Wrong();
}

}  // namespace standalone
