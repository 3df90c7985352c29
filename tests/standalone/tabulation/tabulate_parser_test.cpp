#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <string>
#include <vector>

#include "standalone/tabulation/grammar/tabulate_grammar.h"
#include "standalone/tabulation/tabulation_error.h"

namespace standalone {
namespace {

std::string ToText(const Spoken& spoken) {
  return spoken.isQuoted ? "'" + spoken.text + "'" : spoken.text;
}

std::string ToText(const std::vector<Spoken>& list) {
  std::string text;
  for (const Spoken& one : list) {
    text += (text.empty() ? "" : " ") + ToText(one);
  }
  return text;
}

/// In prefix form, so that what belongs together shows.
std::string ToText(const Condition& condition) {
  constexpr const char* kOperators[] = {"=", "<>", "<", "<=", ">", ">="};
  const std::string name = ToText(condition.name);
  switch (condition.kind) {
    case Condition::Kind::kComparison:
      return fmt::format("{}{}{}", name, kOperators[static_cast<int>(condition.compare)], ToText(condition.values));
    case Condition::Kind::kIn:
      return fmt::format("{} in [{}]", name, ToText(condition.values));
    case Condition::Kind::kMissing:
      return fmt::format("missing {}", name);
    case Condition::Kind::kHas:
      return fmt::format("{} has {}", name, ToText(condition.values));
    default:
      break;
  }
  constexpr const char* kNames[] = {"not", "and", "or"};
  std::string text = kNames[static_cast<int>(condition.kind)] + std::string("(");
  for (const Condition& part : condition.parts) {
    text += (text.back() == '(' ? "" : ", ") + ToText(part);
  }
  return text + ")";
}

/// What differs from a request that only names sets.
std::string ToText(const TabulationRequest& request) {
  std::string text = ToText(request.sets);
  for (const ByRequest& by : request.by) {
    text += " |by " + ToText(by.first) + (by.second ? "*" + ToText(*by.second) : "");
  }
  text += request.weight ? " |weight " + ToText(*request.weight) : "";
  text += request.base != TabulationBase::kAnswered ? fmt::format(" |base {}", static_cast<int>(request.base)) : "";
  text += request.where ? " |where " + ToText(*request.where) : "";
  text += request.none ? " |none " + ToText(*request.none) : "";
  for (const NetRequest& net : request.nets) {
    text += " |net " + ToText(net.label) + ": " + ToText(net.members);
  }
  const TabulationFigures& figures = request.figures;
  const std::string shown = fmt::format("{:d}{:d}{:d}{:d}{:d}", figures.count, figures.percentOfCases,
                                        figures.percentOfResponses, figures.standardError, figures.interval);
  text += shown != "11000" ? " |show " + shown : "";
  text += request.sort != Sort::kNone ? fmt::format(" |sort {}", static_cast<int>(request.sort)) : "";
  text += !request.last.empty() ? " |last " + ToText(request.last) : "";
  text += request.confidence != 95 ? fmt::format(" |confidence {}", request.confidence) : "";
  text += request.test ? fmt::format(" |test {}", static_cast<int>(*request.test)) : "";
  text += request.minBase != 0 ? fmt::format(" |minbase {}", request.minBase) : "";
  return text + (request.decimals != 1 ? fmt::format(" |decimals {}", request.decimals) : "");
}

TabulationRequest Parsed(const std::string& command) {
  return ParseTabulate(Tokenize(command), command);
}

/// The sentence; what it is about, in brackets; what was meant.
std::string Complaint(const std::string& text, const TabulationError& error) {
  return fmt::format("{} [{}]{}", error.what(), text.substr(error.Offset(), error.Size()),
                     error.Nearest() ? " " + *error.Nearest() : "");
}

std::string ComplaintOn(const std::string& command) {
  try {
    return "read: " + ToText(Parsed(command));
  } catch (const TabulationError& error) {
    return Complaint(command, error);
  }
}

struct Row {
  std::string command;  ///< after "TABULATE "
  std::string result;
};

TEST(TabulateParser, ReadsEverySubcommand) {
  const std::vector<Row> rows = {
      {"$a", "$a"},
      {"$a $B", "$a $B"},
      {"$a BY=x", "$a |by x"},
      {"$a /BY=x y*z $b", "$a |by x |by y*z |by $b"},
      {"$a /BY=x * y z", "$a |by x*y |by z"},
      {"$a /WEIGHT=w", "$a |weight w"},
      {"$a /BASE=ANSWERED", "$a"},
      {"$a /BASE=ASKED", "$a |base 1"},
      {"$a /BASE=COMPLETE", "$a |base 2"},
      {"$a /BASE=ALL", "$a |base 3"},
      {"$a /NONE=-1", "$a |none -1"},
      {"$a /NONE='none of these'", "$a |none 'none of these'"},
      {"$a /NONE=None", "$a |none None"},
      {"$a /NET='Hot drinks': drink1 2 'x y' all", "$a |net 'Hot drinks': drink1 2 'x y' all"},
      {"$a /NET=Hot  drinks : d1 /NET=Cold: d2", "$a |net Hot  drinks: d1 |net Cold: d2"},
      {"$a /SHOW=COUNT", "$a |show 10000"},
      {"$a /SHOW=CASES RESPONSES ERROR INTERVAL", "$a |show 01111"},
      {"$a /SORT=NONE", "$a"},
      {"$a /SORT=DESCENDING", "$a |sort 1"},
      {"$a /SORT=ASCENDING", "$a |sort 2"},
      {"$a /LAST=d5 6 'seven'", "$a |last d5 6 'seven'"},
      {"$a /CONFIDENCE=99.9", "$a |confidence 99.9"},
      {"$a /TEST /BY=x", "$a |by x |test 0"},
      {"$a /BY=x /TEST", "$a |by x |test 0"},
      {"$a /BY=x /TEST=HOLM", "$a |by x |test 0"},
      {"$a /BY=x /TEST=BONFERRONI", "$a |by x |test 1"},
      {"$a /BY=x x*y y*x y $x", "$a |by x |by x*y |by y*x |by y |by $x"},
      {"$a /MINBASE=30", "$a |minbase 30"},
      {"$a /DECIMALS=0", "$a |decimals 0"},
      {"$a /DECIMALS=15", "$a |decimals 15"},
      {"$a /dec=2 /minb=5 /tes=bon /con=90 /las=x /sor=desc /sho=cas /net=n: x /non=9 /whe=x=1 /bas=ask /wei=w /by=y",
       "$a |by y |weight w |base 1 |where x=1 |none 9 |net n: x |show 01000 |sort 1 |last x |confidence 90 |test 1 "
       "|minbase 5 |decimals 2"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(ComplaintOn("TABULATE " + row.command), "read: " + row.result) << row.command;
  }
}

TEST(TabulateParser, ReadsConditions) {
  const std::vector<Row> rows = {
      {"x=1", "x=1"},
      {"x<>-1.5", "x<>-1.5"},
      {"x<1", "x<1"},
      {"x <= 1", "x<=1"},
      {"x>'a'", "x>'a'"},
      {"x>=\"it's\"", "x>='it's'"},
      {"x<-1", "x<-1"},
      {"x IN (1)", "x in [1]"},
      {"x in ('a', 'b','c')", "x in ['a' 'b' 'c']"},
      {"MISSING(x)", "missing x"},
      {"mis ( x )", "missing x"},
      {"missing = 1", "missing=1"},
      {"$s HAS d1", "$s has d1"},
      {"$s HAS 3", "$s has 3"},
      {"$s has 'x'", "$s has 'x'"},
      {"a=1 AND b=2 and c=3", "and(a=1, b=2, c=3)"},
      {"a=1 OR b=2 AND c=3 OR d=4", "or(a=1, and(b=2, c=3), d=4)"},
      {"(a=1 OR b=2) AND c=3", "and(or(a=1, b=2), c=3)"},
      {"NOT a=1 AND b=2", "and(not(a=1), b=2)"},
      {"NOT (a=1 AND b=2)", "not(and(a=1, b=2))"},
      {"NOT NOT MISSING(a)", "not(not(missing a))"},
      {"not IN (1)", "not in [1]"},
      {"NOT IN (1) AND NOT in = 2", "and(NOT in [1], not(in=2))"},
      {"not = 1 AND NOT and = 2", "and(not=1, not(and=2))"},
      {"((a=1))", "a=1"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(ComplaintOn("TABULATE $a /WHERE=" + row.command), "read: $a |where " + row.result) << row.command;
  }
}

TEST(TabulateParser, KeepsTheConditionAsItIsWritten) {
  EXPECT_EQ(Parsed("TABULATE $a /WHERE= region  = \"N\" /* North\n AND NOT (born>=1980) /BY=x").whereText,
            "region  = \"N\" /* North\n AND NOT (born>=1980)");
  EXPECT_EQ(Parsed("TABULATE $a /BY=x").whereText, "");
}

TEST(TabulateParser, KnowsThePlacesOfWhatIsSpoken) {
  const std::string command = "TABULATE $a /BY=region /NONE='x y' /NET=Hot drinks: d1";
  const TabulationRequest request = Parsed(command);
  const auto at = [&](const Spoken& spoken) { return command.substr(spoken.offset, spoken.size); };
  EXPECT_EQ(at(request.sets[0]), "$a");
  EXPECT_EQ(at(request.by[0].first), "region");
  EXPECT_EQ(at(*request.none), "'x y'");
  EXPECT_EQ(at(request.nets[0].label), "Hot drinks");
  EXPECT_EQ(at(request.nets[0].members[0]), "d1");
}

TEST(TabulateParser, SaysWhatIsWrong) {
  const std::string noSet = "TABULATE needs the name of a set, such as $drinks.";
  const std::string noNet = "NET takes a label, \":\" and members, as in \"Hot drinks\": drink1 drink2.";
  const std::vector<Row> rows = {
      {"", noSet + " []"},
      {"/BY=x", noSet + " [/]"},
      {"BY=x", noSet + " [BY]"},
      {"drinks", "The name of a set begins with $: drinks. [drinks]"},
      {"$a, $b", "The name of a set begins with $: ,. [,]"},
      {"ALL", "The name of a set begins with $: ALL. [ALL]"},
      {"$a BYE=x", "Unknown subcommand: BYE. [BYE]"},
      {"$a /WHEIGHT=x", "Unknown subcommand: WHEIGHT. [WHEIGHT] WEIGHT"},
      {"$a /5", "Unknown subcommand: 5. [5]"},
      {"$a /", "A subcommand must follow \"/\". []"},
      {"$a /BY", "BY must be followed by \"=\" and its value. []"},
      {"$a /BY x", "BY must be followed by \"=\" and its value. [x]"},
      {"$a /BY=", "The value of BY is missing. []"},
      {"$a /BY= /TEST", "The value of BY is missing. [/]"},
      {"$a /TEST=", "The value of TEST is missing. []"},
      {"$a /SHOW=", "The value of SHOW is missing. []"},
      {"$a /BY=x /WEIGHT=w /by=y", "BY is given twice. [by]"},
      {"$a /TEST /TEST", "TEST is given twice. [TEST]"},
      {"$a /BY=x WEIGHT=w", "A \"/\" is missing before WEIGHT. [WEIGHT]"},
      {"$a /WEIGHT=w BY=x", "A \"/\" is missing before BY. [BY]"},
      {"$a /LAST=x SORT=NONE", "A \"/\" is missing before SORT. [SORT]"},
      {"$a /TEST", "TEST needs BY, which the set is tested against. [TEST]"},
      {"$a /SHOW=COUNT /tes=HOLM /SORT=NONE", "TEST needs BY, which the set is tested against. [tes]"},
      {"$a /BY=x y X", "X is listed twice. [X]"},
      {"$a /BY=$s $S", "$S is listed twice. [$S]"},
      {"$a /BY=x*y x X * Y z", "X*Y is listed twice. [X * Y]"},
      {"$a /LAST=1a", "Put 1a in quotes: it is neither a number nor a name. [1a]"},
      {"$a /NET=n: x 1a", "Put 1a in quotes: it is neither a number nor a name. [1a]"},
      {"$a /WHERE=$s HAS 1a", "Put 1a in quotes: it is neither a number nor a name. [1a]"},
      {"$a /WHERE=x IN (1, 2b)", "Put 2b in quotes: it is neither a number nor a name. [2b]"},
      {"$a /TEST HOLM", "Unexpected after the value of TEST: HOLM. [HOLM]"},
      {"$a /BY=x, y", "Unexpected after the value of BY: ,. [,]"},
      {"$a /BASE=ASKED x", "Unexpected after the value of BASE: x. [x]"},
      {"$a /BY='x'", "BY takes variables, pairs such as region*sex, and sets: x. ['x']"},
      {"$a /BY=x TO y", "BY takes no range with TO; give each name, and a value \"TO\" in quotes. [TO]"},
      {"$a /LAST=x TO y", "LAST takes no range with TO; give each name, and a value \"TO\" in quotes. [TO]"},
      {"$a /BY=x*$b", "A pair is made of two variables, as in region*sex. [$b]"},
      {"$a /BY=$b*x", "A pair is made of two variables, as in region*sex. [x]"},
      {"$a /BY=x*", "A pair is made of two variables, as in region*sex. []"},
      {"$a /BY=x*y*z", "A pair is made of two variables, not more. [*]"},
      {"$a /WEIGHT=5", "WEIGHT takes the name of a variable: 5. [5]"},
      {"$a /WEIGHT=$b", "WEIGHT takes the name of a variable: $b. [$b]"},
      {"$a /BASE=ASKD", "BASE takes ANSWERED, ASKED, COMPLETE or ALL: ASKD. [ASKD] ASKED"},
      {"$a /BASE=5", "BASE takes ANSWERED, ASKED, COMPLETE or ALL: 5. [5]"},
      {"$a /SHOW=COUNT COLUMNS", "SHOW takes COUNT, CASES, RESPONSES, ERROR or INTERVAL: COLUMNS. [COLUMNS]"},
      {"$a /TEST=HOLMES", "TEST takes HOLM or BONFERRONI: HOLMES. [HOLMES]"},
      {"$a /NONE=(", "A name, a number or a text in quotes must stand here: (. [(]"},
      {"$a /NET='Hot' d1", noNet + " [d1]"},
      {"$a /NET=Hot d1", noNet + " []"},
      {"$a /NET=: d1", noNet + " [:]"},
      {"$a /NET='Hot':", "The value of NET is missing. []"},
      {"$a /CONFIDENCE=0", "CONFIDENCE takes a number above 0 and below 100: 0. [0]"},
      {"$a /CONFIDENCE=100", "CONFIDENCE takes a number above 0 and below 100: 100. [100]"},
      {"$a /CONFIDENCE='5'", "CONFIDENCE takes a number above 0 and below 100: 5. ['5']"},
      {"$a /MINBASE=0", "MINBASE takes a whole number, from 1 to 1,000,000,000,000: 0. [0]"},
      {"$a /MINBASE=1e13", "MINBASE takes a whole number, from 1 to 1,000,000,000,000: 1e13. [1e13]"},
      {"$a /MINBASE=1.5", "MINBASE takes a whole number, from 1 to 1,000,000,000,000: 1.5. [1.5]"},
      {"$a /MINBASE=1e999", "MINBASE takes a whole number, from 1 to 1,000,000,000,000: 1e999. [1e999]"},
      {"$a /DECIMALS=16", "DECIMALS takes a whole number, from 0 to 15: 16. [16]"},
      {"$a /DECIMALS=-1", "DECIMALS takes a whole number, from 0 to 15: -1. [-1]"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(ComplaintOn("TABULATE " + row.command), row.result) << row.command;
  }
}

TEST(TabulateParser, SaysWhatIsWrongWithACondition) {
  const std::string condition =
      "A condition must stand here, such as region = \"N\", MISSING(region) or $drinks HAS tea";
  const std::string comparison = "A comparison (= <> < <= > >= or IN) must follow ";
  const std::vector<Row> rows = {
      {"", "The value of WHERE is missing. []"},
      {"5", condition + ": 5. [5]"},
      {"x=1 AND", condition + ". []"},
      {"x=1 OR )", condition + ": ). [)]"},
      {"NOT", condition + ". []"},
      {"()", condition + ": ). [)]"},
      {"x", comparison + "x. []"},
      {"x != 1", comparison + "x. [!] <>"},
      {"x ~= 1", comparison + "x. [~] <>"},
      {"x NOT IN (1)", comparison + "x. [NOT]"},
      {"x = North", "A number or a text in quotes must follow a comparison. [North]"},
      {"x == 1", "A number or a text in quotes must follow a comparison. [=]"},
      {"x < = 1", "A number or a text in quotes must follow a comparison. [=]"},
      {"x =", "A number or a text in quotes must follow a comparison. []"},
      {"x IN 1", "IN must be followed by values in parentheses, such as (1, 2). [1]"},
      {"x IN ()", "A number or a text in quotes must follow \"(\" or \",\". [)]"},
      {"x IN (1, )", "A number or a text in quotes must follow \"(\" or \",\". [)]"},
      {"x IN (1 2)", "A \")\" is missing, which closes \"IN (\". [2]"},
      {"(x=1", "A \")\" is missing, which closes \"(\". []"},
      {"MISSING(", "MISSING needs the name of a variable in parentheses. []"},
      {"MISSING($a)", "MISSING needs the name of a variable in parentheses. [$a]"},
      {"MISSING(x", "A \")\" is missing, which closes \"MISSING(\". []"},
      {"$a", "HAS and a member must follow the set $a. []"},
      {"$a = 1", "HAS and a member must follow the set $a. [=]"},
      {"$a HAS", "A member of the set must follow HAS: the name of a variable, or a value. []"},
      {"x=1)", "Unexpected after the value of WHERE: ). [)]"},
      {"x=1 & y=2", "Unexpected after the value of WHERE: &. [&]"},
      {"x=1 BY=y", "A \"/\" is missing before BY. [BY]"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(ComplaintOn("TABULATE $a /WHERE=" + row.command), row.result) << row.command;
  }
}

TEST(TabulateParser, NestsConditionsToALimit) {
  const auto nested = [](int depth, const std::string& opening, const std::string& closing) {
    std::string text = "TABULATE $a /WHERE=";
    for (int level = 0; level < depth; ++level) {
      text += opening;
    }
    text += "x=1";
    for (int level = 0; level < depth; ++level) {
      text += closing;
    }
    return ComplaintOn(text);
  };
  const std::string complaint = "Parentheses and NOT can be nested 100 deep at most. ";
  EXPECT_EQ(nested(kMaxConditionDepth, "(", ")"), "read: $a |where x=1");
  EXPECT_EQ(nested(kMaxConditionDepth + 1, "(", ")"), complaint + "[(]");
  EXPECT_EQ(nested(100'000, "(", ")"), complaint + "[(]");
  EXPECT_EQ(nested(100'000, "NOT ", ""), complaint + "[NOT]");
}

TEST(TabulateParser, ReadsALongConditionWithoutNesting) {
  std::string command = "TABULATE $a /WHERE=x=1";
  for (int part = 0; part < 20'000; ++part) {
    command += " OR x=1";
  }
  EXPECT_EQ(Parsed(command).where->parts.size(), 20'001U);
}

TEST(TabulateParser, ReadsTheValuesOfOptions) {
  struct OptionRow {
    TabulateKey key;
    std::string text;
    std::string result;
  };
  const std::vector<OptionRow> rows = {
      {TabulateKey::kBy, "region a*b $s", "read:  |by region |by a*b |by $s"},
      {TabulateKey::kWhere, "a=1", "read:  |where a=1"},
      {TabulateKey::kShow, "count error", "read:  |show 10010"},
      {TabulateKey::kBase, "askd", "--base takes answered, asked, complete or all: askd. [askd] asked"},
      {TabulateKey::kBy, "", "The value of --by is missing. []"},
      {TabulateKey::kBy, "region /WEIGHT=w", "Unexpected after the value of --by: /. [/]"},
      {TabulateKey::kMinBase, "0", "--minbase takes a whole number, from 1 to 1,000,000,000,000: 0. [0]"},
  };
  for (const OptionRow& row : rows) {
    TabulationRequest request;
    std::string result;
    try {
      ParseTabulateOption(TabulateSubcommandOf(row.key), Tokenize(row.text), row.text, request);
      result = "read: " + ToText(request);
    } catch (const TabulationError& error) {
      result = Complaint(row.text, error);
    }
    EXPECT_EQ(result, row.result) << row.text;
  }
}

TEST(TabulateGrammar, NoTwoSubcommandsShareTheirFirstThreeLetters) {
  for (const TabulateSubcommand& subcommand : TabulateSubcommands()) {
    EXPECT_EQ(FindTabulateSubcommand(subcommand.name.substr(0, 3)), &subcommand) << subcommand.name;
    EXPECT_EQ(&TabulateSubcommandOf(subcommand.key), &subcommand) << subcommand.name;
  }
}

/// What the manual's table says of subcommands: the name, and the words that can be its value.
std::multiset<std::string> SubcommandsInManual() {
  const std::regex row(R"(\| `/([A-Z]+)=` \| ([^|]*) \|.*)");
  const std::regex word("`([A-Z]+)`");
  std::multiset<std::string> subcommands;
  std::ifstream manual(MRSET_MANUAL_OF_TABULATE);
  for (std::string line; std::getline(manual, line);) {
    std::smatch found;
    if (std::regex_match(line, found, row)) {
      std::string text = found[1];
      const std::string value = found[2];
      for (std::sregex_iterator at(value.begin(), value.end(), word); at != std::sregex_iterator(); ++at) {
        text += " " + (*at)[1].str();
      }
      subcommands.insert(text);
    }
  }
  return subcommands;
}

TEST(TabulateGrammar, SubcommandsAreThoseOfTheManual) {
  std::multiset<std::string> subcommands;
  for (const TabulateSubcommand& subcommand : TabulateSubcommands()) {
    std::string text(subcommand.name);
    for (const std::string_view word : subcommand.words) {
      text += " " + std::string(word);
    }
    subcommands.insert(text);
  }
  EXPECT_EQ(SubcommandsInManual(), subcommands);
}

TEST(TabulateGrammar, SaysWhatIsExpected) {
  using Expected = TabulateExpected;
  struct ExpectationRow {
    std::string command;
    Expected what;
    std::string name = {};
  };
  const std::vector<ExpectationRow> rows = {
      {"TABULATE", Expected::kSetName},
      {"TABULATE $a", Expected::kSetName},
      {"TABULATE $a x", Expected::kNothing},
      {"TABULATE $a /", Expected::kSubcommand},
      {"TABULATE $a /BY", Expected::kEquals},
      {"TABULATE $a /TEST", Expected::kEquals},
      {"TABULATE $a /BY=", Expected::kColumn},
      {"TABULATE $a /BY=x", Expected::kColumn},
      {"TABULATE $a /BY=x*", Expected::kVariable},
      {"TABULATE $a /BY=x /", Expected::kSubcommand},
      {"TABULATE $a /WEIGHT=", Expected::kVariable},
      {"TABULATE $a /WEIGHT=w", Expected::kNothing},
      {"TABULATE $a /BASE=", Expected::kWord},
      {"TABULATE $a /BASE=ASKED", Expected::kNothing},
      {"TABULATE $a /SHOW=COUNT", Expected::kWord},
      {"TABULATE $a /NONE=", Expected::kMember},
      {"TABULATE $a /NET=", Expected::kNothing},
      {"TABULATE $a /NET='x':", Expected::kMember},
      {"TABULATE $a /NET=x y: z", Expected::kMember},
      {"TABULATE $a /LAST=x", Expected::kMember},
      {"TABULATE $a /CONFIDENCE=", Expected::kNothing},
      {"TABULATE $a /WHERE=", Expected::kCondition},
      {"TABULATE $a /WHERE=NOT (", Expected::kCondition},
      {"TABULATE $a /WHERE=x", Expected::kComparison, "x"},
      {"TABULATE $a /WHERE=x=", Expected::kValueOfVariable, "x"},
      {"TABULATE $a /WHERE=x IN (1,", Expected::kValueOfVariable, "x"},
      {"TABULATE $a /WHERE=x=1", Expected::kConnective},
      {"TABULATE $a /WHERE=(x=1", Expected::kConnective},
      {"TABULATE $a /WHERE=x=1 AND", Expected::kCondition},
      {"TABULATE $a /WHERE=MISSING(", Expected::kVariable},
      {"TABULATE $a /WHERE=$b", Expected::kHas, "$b"},
      {"TABULATE $a /WHERE=$b HAS", Expected::kMemberOfSet, "$b"},
      {"TABULATE $a /WHERE=x=y AND", Expected::kNothing},
  };
  for (const ExpectationRow& row : rows) {
    const std::vector<Token> tokens = Tokenize(row.command);
    const TabulateExpectation expectation = ExpectedInTabulate(tokens, tokens.size() - 1, row.command);
    EXPECT_EQ(expectation.what, row.what) << row.command;
    EXPECT_EQ(expectation.name, row.name) << row.command;
  }
}

}  // namespace
}  // namespace standalone
