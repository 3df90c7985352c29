#ifndef TESTS_MODULE_RECORDS_H
#define TESTS_MODULE_RECORDS_H

#include <string>
#include <utility>
#include <vector>

#include "backend/mrset/mrsetsubcommand.h"

namespace module_test {

// Subcommand records as the parse phase leaves them; a test changes the fields that it is about.

inline MRSetSubcommand MDGroup(std::string name, std::string value, std::vector<std::string> variables) {
  MRSetSubcommand record;
  record.fType = MRSetSubcommand::kMDGROUP;
  record.fName = std::move(name);
  record.fValue = std::move(value);
  record.fVariables = std::move(variables);
  return record;
}

inline MRSetSubcommand MCGroup(std::string name, std::vector<std::string> variables) {
  MRSetSubcommand record;
  record.fType = MRSetSubcommand::kMCGROUP;
  record.fName = std::move(name);
  record.fVariables = std::move(variables);
  return record;
}

inline MRSetSubcommand Listing(MRSetSubcommand::Type type, std::vector<std::string> names) {
  MRSetSubcommand record;
  record.fType = type;
  record.fNames = std::move(names);
  return record;
}

inline MRSetSubcommand Display(std::vector<std::string> names) {
  return Listing(MRSetSubcommand::kDISPLAY, std::move(names));
}

inline MRSetSubcommand Delete(std::vector<std::string> names) {
  return Listing(MRSetSubcommand::kDELETE, std::move(names));
}

/// The record with its flag for everything.
inline MRSetSubcommand All(MRSetSubcommand record) {
  record.fAll = true;
  return record;
}

inline MRSetSubcommand DisplayAll() {
  return All(Display({}));
}

inline MRSetSubcommand DeleteAll() {
  return All(Delete({}));
}

}  // namespace module_test

#endif  // TESTS_MODULE_RECORDS_H
