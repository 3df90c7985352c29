#ifndef BACKEND_MRSET_MRSETSUBCOMMAND_H
#define BACKEND_MRSET_MRSETSUBCOMMAND_H

#include <cstdint>
#include <string>
#include <vector>

/// One parsed subcommand: all that passes from the parse phase to the apply phase. Fields that a subcommand does not
/// use keep their defaults. Texts are in the host's multibyte encoding.
struct MRSetSubcommand {
  enum Type : std::int32_t { kNONE = 0, kMDGROUP = 1, kMCGROUP = 2, kDISPLAY = 3, kDELETE = 4 };

  Type fType = kNONE;
  std::string fName;                          ///< MDGROUP, MCGROUP: the set's name as written, with its "$"
  std::string fLabel;                         ///< MDGROUP, MCGROUP: the set's label; empty when none was given
  std::vector<std::string> fVariables;        ///< MDGROUP, MCGROUP: the dictionary's names, in the order given
  std::string fValue;                         ///< MDGROUP: the counted value as the token's text
  bool fValueIsNumber = false;                ///< MDGROUP: the counted value was written as a number
  std::vector<std::string> fNames;            ///< DISPLAY, DELETE: the sets' names as written
  bool fAll = false;                          ///< DISPLAY, DELETE: every set; MDGROUP, MCGROUP: every variable
  bool fLabelSourceVarLabel = false;          ///< MDGROUP: the set's label comes from the variable labels
  bool fCategoryLabelsCountedValues = false;  ///< MDGROUP: the categories are labelled by the counted value's labels
};

/// The accepted subcommands in command order.
using MRSETSUBCOMMANDS = std::vector<MRSetSubcommand>;

#endif  // BACKEND_MRSET_MRSETSUBCOMMAND_H
