#include "host/tokens.h"

#include "host_check/sentences.h"

namespace host_check {
namespace {

constexpr const char* kHeader = "tokens.h";

using Type = TokenSequenceBase::TokenType;

void ExpectType(HostFactory& factory, const std::string& command, int token, Type type) {
  Tokens tokens(factory, command, token);
  Expect(tokens->Type(), type, "the type of token " + std::to_string(token) + " of " + command);
}

void ExpectCode(HostFactory& factory, const std::string& command, int token, int code) {
  Tokens tokens(factory, command, token);
  Expect(tokens->Symbol(), code, "the code of token " + std::to_string(token) + " of " + command);
}

void ExpectText(HostFactory& factory, const std::string& command, int token, const std::string& text) {
  Tokens tokens(factory, command, token);
  Expect(TokenString(*tokens), text, "the text of token " + std::to_string(token) + " of " + command);
}

void NumbersTokens(HostFactory& factory) {
  Tokens tokens(factory, "mrset /DISPLAY", 0);
  Expect(tokens->Position(), 0, "the position of the first token");
  Expect(TokenString(*tokens), "mrset", "the first token");
}

void HasAnEnd(HostFactory& factory) {
  ExpectType(factory, "MRSET", 1, TokenSequenceBase::kEnd);
  ExpectType(factory, "MRSET q1 'a'", 3, TokenSequenceBase::kEnd);
}

void SymbolsHaveTexts(HostFactory& factory) {
  ExpectText(factory, "MRSET /", 1, "/");
  ExpectText(factory, "MRSET =", 1, "=");
}

void MakesTheNextCurrent(HostFactory& factory) {
  Tokens tokens(factory, "MRSET a + b", 0);
  for (const char* text : {"a", "+", "b"}) {
    tokens->Next();
    Expect(TokenString(*tokens), text, "the next token");
  }
}

void StaysAtTheEnd(HostFactory& factory) {
  Tokens tokens(factory, "MRSET", -1);
  Expect(tokens->Next(), "true from Next() at the command name");
  for (int step = 0; step < 3; ++step) {
    Expect(!tokens->Next(), "false from Next() at the end");
    Expect(tokens->Position(), 1, "the position at the end");
  }
}

void KnowsItsPosition(HostFactory& factory) {
  Tokens tokens(factory, "MRSET a b", -1);
  Expect(tokens->Position() < 0, "a negative position before the first Next()");
  tokens->Next();
  tokens->Next();
  tokens->Next();
  Expect(tokens->Position(), 2, "the position of the third token");
}

void SetsItsPosition(HostFactory& factory) {
  Tokens tokens(factory, "MRSET a b c", 3);
  for (const auto& [position, text] : {std::pair(1, "a"), std::pair(3, "c"), std::pair(2, "b")}) {
    tokens->SetPosition(position);
    tokens->Next();
    Expect(TokenString(*tokens), text, "the token after SetPosition(" + std::to_string(position) + ") and Next()");
  }
}

void SetsEveryPosition(HostFactory& factory) {
  Tokens tokens(factory, "MRSET a", 1);
  tokens->SetPosition(0);
  tokens->Next();
  Expect(TokenString(*tokens), "MRSET", "the token at 0");
  tokens->SetPosition(2);
  tokens->Next();
  Expect(tokens->Position(), 2, "the position at the end");
}

void FindsWords(HostFactory& factory) {
  for (const char* word : {"NAME", "q1", "$drinks"}) {
    ExpectType(factory, std::string("MRSET ") + word, 1, TokenSequenceBase::kString);
  }
}

void FindsNumbers(HostFactory& factory) {
  ExpectType(factory, "MRSET VALUE=12", 3, TokenSequenceBase::kNumber);
}

void FindsStrings(HostFactory& factory) {
  ExpectType(factory, "MRSET LABEL='Tea'", 3, TokenSequenceBase::kQuotedString);
  ExpectType(factory, "MRSET VALUE=''", 3, TokenSequenceBase::kQuotedString);
}

void FindsSymbols(HostFactory& factory) {
  for (const std::string& symbol : {std::string("/"), std::string("="), std::string("["), factory.AllSets()}) {
    ExpectType(factory, "MRSET " + symbol, 1, TokenSequenceBase::kSymbol);
  }
  ExpectType(factory, "MRSET [$a]", 3, TokenSequenceBase::kSymbol);
}

void CodesSymbols(HostFactory& factory) {
  ExpectCode(factory, "MRSET =", 1, 3);
  ExpectCode(factory, "MRSET /", 1, 11);
  ExpectCode(factory, "MRSET " + factory.AllSets(), 1, 35);
  ExpectCode(factory, "MRSET [$a]", 1, 36);
  ExpectCode(factory, "MRSET [$a]", 3, 37);
}

void CodesNothingElse(HostFactory& factory) {
  for (const char* text : {"q1", "12", "'='", "'/'", "'['", "','", ""}) {
    Tokens tokens(factory, std::string("MRSET ") + text, 1);
    const int code = tokens->Symbol();
    for (const int taken : {3, 11, 35, 36, 37}) {
      Expect(code != taken, std::string("another code than ") + std::to_string(taken) + " for " + text);
    }
  }
}

void ReadsNumbers(HostFactory& factory) {
  for (const auto& [text, value] : {std::pair("12", 12.0), std::pair("2.50", 2.5)}) {
    Tokens tokens(factory, std::string("MRSET VALUE=") + text, 3);
    Expect(tokens->NumberValue() == value, std::string("the value ") + text);
  }
}

void OpensBeforeTheName(HostFactory& factory) {
  const Command command(factory, "MRSET a");
  for (int opened = 0; opened < 2; ++opened) {
    ZEVA_TokenSequence stream(true);
    stream.Next();
    Expect(TokenString(stream), "MRSET", "the first token of a stream");
  }
}

void KeepsTextsAsWritten(HostFactory& factory) {
  ExpectText(factory, "MRSET Name", 1, "Name");
  ExpectText(factory, "MRSET VALUE=1.0", 3, "1.0");
  ExpectText(factory, "MRSET LABEL=' Tea or \"chai\" '", 3, " Tea or \"chai\" ");
}

void EndIsNoSymbol(HostFactory& factory) {
  Tokens tokens(factory, "MRSET", 1);
  const std::string text = TokenString(*tokens);
  for (const char* taken : {"/", "=", "NAME", "DISPLAY", "VARIABLES"}) {
    Expect(text != taken, std::string("another text of the end than ") + taken);
  }
}

void MakesCaps(HostFactory& factory) {
  Tokens tokens(factory, "MRSET vAriables", 1);
  Expect(TokenStringCaps(*tokens), "VARIABLES", "vAriables in upper case");
}

void MatchesKeywords(HostFactory& factory) {
  const Command command(factory, "MRSET");
  for (const char* keyword : {"NAME", "VALUE", "VARIABLES", "CATEGORYLABELS", "VARLABEL", "MRSET"}) {
    Expect(KeywordMatch(keyword, keyword) != 0, std::string("a match of ") + keyword + " with itself");
    Expect(KeywordMatch("TOTAL", keyword) == 0, std::string("no match of TOTAL with ") + keyword);
  }
  Expect(KeywordMatch("NAMES", "NAME") == 0, "no match of NAMES with NAME");
  Expect(KeywordMatch("VALUE", "VARIABLES") == 0, "no match of VALUE with VARIABLES");
}

void NothingIsNoKeyword(HostFactory& factory) {
  const Command command(factory, "MRSET");
  Expect(KeywordMatch("", "NAME"), 0, "the answer for an empty token");
}

/// What came of a list.
struct ListRead {
  bool result;
  std::vector<int> indices;
  Result left;
};

/// Reads the list between two tokens of a command, appending to `indices`.
ListRead ReadList(HostFactory& factory, const std::string& text, int begin, int end, std::vector<int> indices) {
  Command command(factory, text);
  bool result = false;
  {
    const ProcedureDataSource source;
    ZEVA_TokenSequence stream(true);
    for (int step = 0; step <= begin; ++step) {
      stream.Next();
    }
    result = ExistingVarList(source, stream, indices, end);
  }
  return {result, indices, command.End()};
}

std::string Text(const std::vector<int>& indices) {
  std::string text;
  for (const int index : indices) {
    text += (text.empty() ? "" : " ") + std::to_string(index);
  }
  return text;
}

void ReadsLists(HostFactory& factory) {
  const ListRead read = ReadList(factory, "MRSET VARIABLES=aGe q1 s8 NAME=$a", 3, 5, {7});
  Expect(read.result, "true for a list of variables");
  Expect(Text(read.indices), "7 2 0", "the indices after those that were there");
}

void ReportsBadLists(HostFactory& factory) {
  const ListRead read = ReadList(factory, "MRSET VARIABLES=q2 nosuch q1", 3, 6, {});
  Expect(!read.result, "false for a list with an unknown name");
  Expect(!read.left.messages.empty(), "a message of the host on the unknown name");
  const std::string found = Text(read.indices);
  Expect(found.empty() || found == "1", "the variables before the unknown name, not " + found);
}

void ReadsEmptyLists(HostFactory& factory) {
  struct List {
    const char* command;
    int begin;
    int end;
  };
  const std::vector<List> lists = {
      {"MRSET VARIABLES=1", 3, 3}, {"MRSET VARIABLES = =", 3, 2}, {"MRSET VARIABLES=", 3, 3}};
  for (const List& list : lists) {
    const ListRead read = ReadList(factory, list.command, list.begin, list.end, {7});
    Expect(read.result && Text(read.indices) == "7" && read.left.messages.empty(),
           std::string("true and nothing else for ") + list.command);
  }
}

}  // namespace

std::vector<Sentence> TokenSentences() {
  return {
      {kHeader, "Tokens are numbered from 0, the command name.", NumbersTokens},
      {kHeader, "The end of the command is a token of its own after the last one.", HasAnEnd},
      {kHeader,
       R"(The module tells "/" and "=" by their text in some places and by their code in others: both must be right.)",
       SymbolsHaveTexts},
      {kHeader, "a word: command name, keyword, variable name or set name", FindsWords},
      {kHeader, "a numeric literal", FindsNumbers},
      {kHeader, "a quoted string", FindsStrings},
      {kHeader, "punctuation or a reserved word, told apart by Symbol()", FindsSymbols},
      {kHeader, "Makes the next token current.", MakesTheNextCurrent},
      {kHeader, "False when that is the end of the command, which then is and stays current.", StaysAtTheEnd},
      {kHeader, "Index of the current token; negative before the first Next().", KnowsItsPosition},
      {kHeader, "Moves the cursor so that the following Next() makes the token at `position` current.",
       SetsItsPosition},
      {kHeader, "`position` is 0 to the index of the end.", SetsEveryPosition},
      {kHeader, R"(Code of the current token: 3 "=", 11 "/", 35 the all-sets symbol, 36 "[", 37 "]".)", CodesSymbols},
      {kHeader, "Any other token, whatever its type, has a code of the host's that is none of these.",
       CodesNothingElse},
      {kHeader, "Value of the current token, which must be a kNumber.", ReadsNumbers},
      {kHeader, "Opens the stream with the cursor before the command name.", OpensBeforeTheName},
      {kHeader, "The current token's text as written; of a quoted string, the text between the quotes.",
       KeepsTextsAsWritten},
      {kHeader, R"(At the end of the command, a text of the host's choice that is neither "/" nor "=" nor a keyword.)",
       EndIsNoSymbol},
      {kHeader, "The current token's text in upper case.", MakesCaps},
      {kHeader, "Non-zero when `token`, already in upper case, names `keyword` under the host's rule of abbreviation.",
       MatchesKeywords},
      {kHeader, "`token` may be empty, and then names no keyword.", NothingIsNoKeyword},
      {kHeader,
       "Reads a variable list in the host's syntax from the current token up to, not including, the token at `end`, "
       "and appends the dictionary index of every variable that it names, in order, to `indices`.",
       ReadsLists},
      {kHeader,
       "False after the host has reported what is wrong with the list; `indices` then holds the variables resolved so "
       "far.",
       ReportsBadLists},
      {kHeader,
       "`end` may be the cursor's own position or lie before it, and the cursor may be on the end of the command: that "
       "list is empty, and right.",
       ReadsEmptyLists},
  };
}

}  // namespace host_check
