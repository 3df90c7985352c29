#ifndef STANDALONE_ADVICE_NEXT_STEPS_H
#define STANDALONE_ADVICE_NEXT_STEPS_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace standalone {

/// What a user can do next, in lines; what is to be typed is indented.
using NextSteps = std::vector<std::string>;

/// The text as one word of a POSIX shell.
std::string ShellWord(const std::string& text);

/// Whether there is such a file, or anything else that is no folder.
bool IsExistingFile(const std::string& path);

/// Whether the path is that of a CSV file by its ending.
bool IsNameOfCsv(std::string_view path);

/// Whether the argument is a command, or a part of one: "MRSET", "/DISPLAY", "NAME=".
bool IsPieceOfCommand(const std::string& argument);

/// Makes a dataset of a survey in CSV, under another name.
NextSteps StepsToImport(const std::string& survey);

/// Gives a command to a dataset.
NextSteps StepsToQuote(const std::string& dataset, const std::string& command = "MRSET /DISPLAY NAME=ALL");

/// "Did you mean ...?" for a word that is none of `words`, where one of them alone begins with it or is near to it.
NextSteps StepsToNearest(const std::string& word, const std::vector<std::string>& words);

}  // namespace standalone

#endif  // STANDALONE_ADVICE_NEXT_STEPS_H
