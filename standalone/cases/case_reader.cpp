#include "standalone/cases/case_reader.h"

#include <nlohmann/json.hpp>

namespace standalone {

namespace {

using Json = nlohmann::json;
using Visit = std::function<bool(std::size_t position, const CaseCell& cell)>;

/// Hands over the elements of one array. Every function returns whether the reading goes on.
class CellHandler final : public nlohmann::json_sax<Json> {
 public:
  explicit CellHandler(const Visit& visit) : fVisit(visit) {}

  /// Whether nothing was wrong with what was read.
  bool IsGood() const { return fIsGood; }

  bool start_array(std::size_t /*elements*/) override { return fDepth++ == 0 || Refuse(); }
  bool end_array() override { return true; }
  bool null() override { return Take({}); }
  bool number_integer(number_integer_t value) override { return Take(static_cast<double>(value)); }
  bool number_unsigned(number_unsigned_t value) override { return Take(static_cast<double>(value)); }
  bool number_float(number_float_t value, const string_t& /*text*/) override { return Take(value); }
  bool string(string_t& value) override { return Take(value); }

  bool boolean(bool /*value*/) override { return Refuse(); }
  bool binary(binary_t& /*value*/) override { return Refuse(); }
  bool start_object(std::size_t /*elements*/) override { return Refuse(); }
  bool key(string_t& /*name*/) override { return Refuse(); }
  bool end_object() override { return Refuse(); }
  bool parse_error(std::size_t /*position*/, const std::string& /*token*/, const Json::exception& /*error*/) override {
    return Refuse();
  }

 private:
  bool Take(const CaseCell& cell) { return fDepth == 1 ? fVisit(fPosition++, cell) : Refuse(); }

  bool Refuse() {
    fIsGood = false;
    return false;
  }

  const Visit& fVisit;
  std::size_t fPosition = 0;
  int fDepth = 0;
  bool fIsGood = true;
};

}  // namespace

bool ReadCase(std::string_view cells, const Visit& visit) {
  CellHandler handler(visit);
  Json::sax_parse(cells.begin(), cells.end(), &handler);
  return handler.IsGood();
}

}  // namespace standalone
