#ifndef BACKEND_MRSET_MRSETPARSE_H
#define BACKEND_MRSET_MRSETPARSE_H

#include <cstddef>
#include <string>
#include <vector>

#include "backend/mrset/export.h"
#include "backend/mrset/mrsetsubcommand.h"
#include "host/dictionary.h"
#include "host/tokens.h"

// The parse phase: from the tokens of one command to its subcommand records.
//
// A parser or validator that returns false has, as a rule, reported what is wrong, and the parse stops there. A
// subcommand keyword directly followed by "/" is the exception: it fails without a message.
//
// A keyword parser is entered with its keyword as the current token and returns, on true, with the last token that
// belongs to it current, so that the next Next() makes the first unread token current; at the end of the command the
// end itself is current and stays so. A subcommand parser is entered with its keyword current and returns with the
// token before the one that ended it current.

/// Orders names without regard to case: true when the host's comparison of first and second is positive. Only the
/// equivalence matters: names that differ in nothing but letter case are one.
struct MRSetParseLessNoCase {
  bool operator()(const std::string& first, const std::string& second) const;
};

/// Reads a whole command from a stream that stands before the command name. True when every subcommand was accepted and
/// there was at least one; `subcommands`, empty at first, then holds a record for each. On false it holds those
/// accepted before the failure, which must not be applied.
MRSET_EXPORT bool MRSetParse(ZEVA_TokenSequence& command, const ZEVA_DataSource& dataSource,
                             MRSETSUBCOMMANDS& subcommands);

/// Reads and validates one subcommand; entered with the token before its keyword current.
bool ParseSubcommand(ZEVA_TokenSequence& command, const ZEVA_DataSource& dataSource, MRSetSubcommand& subcmd);

// Token tests. They never move the cursor.

/// Whether the current token names `keyword` under the host's rule of abbreviation or, without `useKeywordMatch`, is
/// exactly that text in upper case, whatever the token's type.
bool IsTokenEqualWith(const TokenSequenceBase& command, const std::string& keyword, bool useKeywordMatch = true);

/// Whether the first `length` bytes of the current token are those of `keyword` without regard to case. What follows
/// them does not matter.
bool IsTruncatedTokenEqualWith(const TokenSequenceBase& command, const std::string& keyword, std::size_t length);

// Cursor steps.

/// Steps back one token.
void MovePrevious(ZEVA_TokenSequence& command);

/// Checks what follows an attribute's value, which is the current token: the end of the command, "/", or a word that is
/// not followed by a symbol other than "=". Restores the cursor, except at the end of the command.
bool CheckNextToken(ZEVA_TokenSequence& command);

// Keyword parsers of a set's attributes. The last of repeated keywords wins.

/// NAME = $name. The name is stored as written, before it is checked.
bool ParseMRName(ZEVA_TokenSequence& command, std::string& name);

/// LABEL = "text". A label of more than 255 bytes is cut at a character, with a warning.
bool ParseLabel(ZEVA_TokenSequence& command, std::string& label);

/// LABELSOURCE = VARLABEL.
bool ParseLabelSource(ZEVA_TokenSequence& command, bool& labelByVariable);

/// CATEGORYLABELS = VARLABELS | COUNTEDVALUES.
bool ParseCategoryLabels(ZEVA_TokenSequence& command, bool& countedValues);

/// VALUE = number | "text". The value is stored as written. A number that is no integer is reported and accepted.
bool ParseValue(ZEVA_TokenSequence& command, std::string& value, bool& isNumber);

/// VARIABLES = list. Stores the listed variables' names as the dictionary spells them, also those that the host
/// resolved before it rejected the list. `all` is always cleared.
bool ParseVariables(ZEVA_TokenSequence& command, const ZEVA_DataSource& dataSource, std::vector<std::string>& variables,
                    bool& all);

/// NAME = [$name ...] | ALL. Any other symbol after "=" is accepted as an empty list.
bool ParseNames(ZEVA_TokenSequence& command, std::vector<std::string>& names, bool& all);

// Subcommand parsers.

bool ParseMDGroup(ZEVA_TokenSequence& command, const ZEVA_DataSource& dataSource, MRSetSubcommand& subcmd);
bool ParseMCGroup(ZEVA_TokenSequence& command, const ZEVA_DataSource& dataSource, MRSetSubcommand& subcmd);
bool ParseDisplay(ZEVA_TokenSequence& command, MRSetSubcommand& subcmd);
bool ParseDelete(ZEVA_TokenSequence& command, MRSetSubcommand& subcmd);

// Validators of a whole record.

bool ValidateMDGroup(MRSetSubcommand& subcmd, const ZEVA_DataSource& dataSource);

/// A missing name is reported here but does not make the record invalid.
bool ValidateMCGroup(MRSetSubcommand& subcmd, const ZEVA_DataSource& dataSource);

/// For DISPLAY and DELETE; always true.
bool ValidateMRSetName(MRSetSubcommand& subcmd, const ZEVA_DataSource& dataSource);

/// Whether a listed name is to be warned about while parsing. Never: which sets exist is settled when the command is
/// applied. The sets are fetched all the same, once a name.
bool FindMRSetName(const std::string& mrSetName, const ZEVA_DataSource& dataSource);

/// Checks a set's variables against the dictionary: two at least, all existing, all numeric or all strings. With a
/// counted value, also that it fits the narrowest string variable and that the labels that will name the categories
/// tell them apart: the value's labels with `countedValueLabels`, else the variable labels.
///
/// `narrowestWidth` becomes 0 for numeric variables, else the smallest width in bytes. `variableNames` is only read.
bool AreValidVariables(std::vector<std::string>& variableNames, const ZEVA_DataSource& dataSource,
                       std::string countedValue, bool countedValueLabels, int& narrowestWidth);

#endif  // BACKEND_MRSET_MRSETPARSE_H
