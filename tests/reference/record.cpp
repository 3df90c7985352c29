#include "tests/reference/record.h"

#include <ostream>
#include <tuple>

namespace reference {
namespace {

auto Fields(const Record& record) {
  return std::tie(record.fType, record.fName, record.fLabel, record.fVariables, record.fValue, record.fValueIsNumber,
                  record.fNames, record.fAll, record.fLabelSourceVarLabel, record.fCategoryLabelsCountedValues);
}

std::string TextField(const std::string& field, const std::string& text) {
  return text.empty() ? "" : " " + field + " \"" + text + "\"";
}

std::string ListField(const std::string& field, const std::vector<std::string>& texts) {
  std::string list;
  for (const std::string& text : texts) {
    list += (list.empty() ? "" : " ") + text;
  }
  return texts.empty() ? "" : " " + field + " (" + list + ")";
}

std::string Flag(const std::string& name, bool isSet) {
  return isSet ? " " + name : "";
}

const char* KeywordOf(Record::Type type) {
  switch (type) {
    case Record::kMDGROUP:
      return "MDGROUP";
    case Record::kMCGROUP:
      return "MCGROUP";
    case Record::kDISPLAY:
      return "DISPLAY";
    case Record::kDELETE:
      return "DELETE";
    default:
      return "NONE";
  }
}

}  // namespace

bool operator==(const Record& first, const Record& second) {
  return Fields(first) == Fields(second);
}

bool operator!=(const Record& first, const Record& second) {
  return !(first == second);
}

std::string ToText(const Record& record) {
  return KeywordOf(record.fType) + TextField("name", record.fName) + TextField("label", record.fLabel) +
         ListField("variables", record.fVariables) + TextField("value", record.fValue) +
         Flag("number", record.fValueIsNumber) + ListField("names", record.fNames) + Flag("all", record.fAll) +
         Flag("label-by-variable", record.fLabelSourceVarLabel) +
         Flag("counted-value-labels", record.fCategoryLabelsCountedValues);
}

std::ostream& operator<<(std::ostream& stream, const Record& record) {
  return stream << ToText(record);
}

}  // namespace reference
