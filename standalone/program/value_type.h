#ifndef STANDALONE_PROGRAM_VALUE_TYPE_H
#define STANDALONE_PROGRAM_VALUE_TYPE_H

#include <CLI/App.hpp>
#include <string>
#include <vector>

namespace standalone {

// The type of a value, as an option's or operand's declaration gives it to type_name(). Its name is shown after the
// option in the help; an operand has a name of its own. The completions are made of the types.

/// A file. Completion offers folders and the files that fit the pattern.
std::string FileType(const std::string& name, const std::string& pattern = "*");

/// A dataset, as an operand.
std::string DatasetType();

/// A set of the dataset that is the first operand, as an operand.
std::string SetType();

/// One of a few words.
std::string ChoiceType(const std::string& name, const std::vector<std::string>& words);

/// The name of an option's type; empty for a flag. Types for which nothing can be offered are a name alone.
std::string TypeName(const CLI::Option& option);

/// What completion offers for the value: "files PATTERN", "words WORD...", "sets" or nothing.
std::string OfferedValues(const CLI::Option& option);

}  // namespace standalone

#endif  // STANDALONE_PROGRAM_VALUE_TYPE_H
