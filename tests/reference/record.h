#ifndef TESTS_REFERENCE_RECORD_H
#define TESTS_REFERENCE_RECORD_H

#include <iosfwd>
#include <string>
#include <vector>

namespace reference {

/// One parsed subcommand as plain data.
struct Record {
  enum Type { kNONE = 0, kMDGROUP = 1, kMCGROUP = 2, kDISPLAY = 3, kDELETE = 4 };

  Type fType = kNONE;
  std::string fName;
  std::string fLabel;
  std::vector<std::string> fVariables;
  std::string fValue;
  bool fValueIsNumber = false;
  std::vector<std::string> fNames;
  bool fAll = false;
  bool fLabelSourceVarLabel = false;
  bool fCategoryLabelsCountedValues = false;
};

bool operator==(const Record& first, const Record& second);
bool operator!=(const Record& first, const Record& second);

/// As in `MDGROUP name "$likes" variables (q1 q2) value "1" number`; what is empty or false is left out.
std::string ToText(const Record& record);
std::ostream& operator<<(std::ostream& stream, const Record& record);

}  // namespace reference

#endif  // TESTS_REFERENCE_RECORD_H
