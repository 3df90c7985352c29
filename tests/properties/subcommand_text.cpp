#include "tests/properties/subcommand_text.h"

#include <vector>

namespace properties {
namespace {

using reference::Record;

std::string InQuotes(const std::string& text) {
  std::string quoted = "\"";
  for (const char character : text) {
    quoted.append(character == '"' ? 2 : 1, character);
  }
  return quoted + "\"";
}

std::string Assigned(const std::string& keyword, const std::string& value) {
  return value.empty() ? "" : " " + keyword + "=" + value;
}

std::string Listed(const std::vector<std::string>& words) {
  std::string list;
  for (const std::string& word : words) {
    list += (list.empty() ? "" : " ") + word;
  }
  return list;
}

std::string LabelOf(const Record& record) {
  return record.fLabel.empty() ? "" : Assigned("LABEL", InQuotes(record.fLabel));
}

std::string MDGroupText(const Record& record) {
  return "/MDGROUP" + Assigned("NAME", record.fName) + LabelOf(record) +
         Assigned("LABELSOURCE", record.fLabelSourceVarLabel ? "VARLABEL" : "") +
         Assigned("CATEGORYLABELS", record.fCategoryLabelsCountedValues ? "COUNTEDVALUES" : "") +
         Assigned("VARIABLES", Listed(record.fVariables)) +
         Assigned("VALUE", record.fValueIsNumber ? record.fValue : InQuotes(record.fValue));
}

std::string MCGroupText(const Record& record) {
  return "/MCGROUP" + Assigned("NAME", record.fName) + LabelOf(record) +
         Assigned("VARIABLES", Listed(record.fVariables));
}

std::string ListingText(const std::string& keyword, const Record& record) {
  return "/" + keyword + Assigned("NAME", record.fAll ? "ALL" : "[" + Listed(record.fNames) + "]");
}

}  // namespace

std::string SubcommandText(const Record& record) {
  switch (record.fType) {
    case Record::kMDGROUP:
      return MDGroupText(record);
    case Record::kMCGROUP:
      return MCGroupText(record);
    case Record::kDISPLAY:
      return ListingText("DISPLAY", record);
    case Record::kDELETE:
      return ListingText("DELETE", record);
    default:
      return "/";
  }
}

}  // namespace properties
