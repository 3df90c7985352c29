#include <fmt/format.h>

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "standalone/commands/counting_progress.h"
#include "standalone/commands/subcommands.h"
#include "standalone/console/delivery.h"
#include "standalone/console/terminal.h"
#include "standalone/dataset/dataset.h"
#include "standalone/files/output_file.h"
#include "standalone/files/same_file.h"
#include "standalone/language/slips.h"
#include "standalone/options/dataset_options.h"
#include "standalone/options/format_option.h"
#include "standalone/options/output_option.h"
#include "standalone/options/value_type.h"
#include "standalone/output/json/result_json.h"
#include "standalone/output/plain/text_tabulation.h"
#include "standalone/storage/companions.h"
#include "standalone/tabulation/dataset_source.h"
#include "standalone/tabulation/grammar/tabulate_grammar.h"
#include "standalone/tabulation/tabulate.h"
#include "standalone/tabulation/tabulation_error.h"
#include "standalone/text/error.h"
#include "standalone/text/notice.h"
#include "standalone/text/trim.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

/// What was given for one subcommand of TABULATE.
using Given = std::map<TabulateKey, std::vector<std::string>>;

struct TabulateOptions {
  std::string datasetPath;
  std::vector<std::string> sets;
  Given given;
  FormatOptions format;
  bool chart = false;
  std::optional<std::string> outputPath;
  DatasetOptions datasetOptions;
};

bool TakesSeveral(const TabulateSubcommand& subcommand) {
  switch (subcommand.value) {
    case TabulateValue::kColumns:
    case TabulateValue::kWords:
    case TabulateValue::kMembers:
    case TabulateValue::kNet:
      return true;
    default:
      return false;
  }
}

/// Whether it begins with a text in quotes and ":".
bool HasQuotedLabel(const std::string& net) {
  const std::size_t begin = net.find_first_not_of(' ');
  const bool isOpened = begin != std::string::npos && (net[begin] == '"' || net[begin] == '\'');
  const std::size_t end = isOpened ? net.find(net[begin], begin + 1) : std::string::npos;
  const std::size_t colon = end == std::string::npos ? end : net.find_first_not_of(' ', end + 1);
  return colon != std::string::npos && (net[colon] == ':' || net[colon] == net[begin]);  // or a doubled quote
}

/// "Hot drinks: drink1" with its label in quotes, so that any character may stand in it.
std::string WithQuotedLabel(const std::string& net) {
  const std::size_t colon = net.find(':');
  const std::string label(Trimmed(net.substr(0, colon)));
  return colon == std::string::npos || label.empty() || HasQuotedLabel(net) ? net : Quoted(label) + net.substr(colon);
}

/// The values of an option as they would stand in a command. Words are one list; "count,cases" is one, too.
std::vector<std::string> ValueTexts(const TabulateSubcommand& subcommand, std::vector<std::string> values) {
  constexpr const char* kNoValue = "true";  // of a flag
  if (IsValueOptional(subcommand) && values.front() == kNoValue) {
    return {std::string(subcommand.words.front())};
  }
  if (subcommand.value == TabulateValue::kWords) {
    std::string text = fmt::format("{}", fmt::join(values, " "));
    std::replace(text.begin(), text.end(), ',', ' ');
    return {text};
  }
  if (subcommand.value == TabulateValue::kNet) {
    std::transform(values.begin(), values.end(), values.begin(), WithQuotedLabel);
  }
  return values;
}

/// Makes a request of operands and options. They are read one by one, as if they stood one after the other in one text,
/// so that it is known what an error is about.
class RequestReader {
 public:
  TabulationRequest Read(const TabulateOptions& options);

  /// The same request as a command.
  std::string Command() const { return "TABULATE" + fCommand; }

  /// An error of the request with the option that it is about.
  std::string SentenceOn(const TabulationError& error) const;

 private:
  void ReadSet(const std::string& name);
  void ReadOption(const TabulateSubcommand& subcommand, const std::string& value);

  struct Part {
    std::size_t end;
    std::string option;  // empty for a set
  };

  std::string fText;
  std::string fCommand;
  std::vector<Part> fParts;
  TabulationRequest fRequest;
};

TabulationRequest RequestReader::Read(const TabulateOptions& options) {
  for (const std::string& set : options.sets) {
    ReadSet(set);
  }
  for (const TabulateSubcommand& subcommand : TabulateSubcommands()) {
    const auto given = options.given.find(subcommand.key);
    if (given == options.given.end() || given->second.empty()) {
      continue;
    }
    const char* separator = nullptr;  // between the values of one subcommand
    for (const std::string& value : ValueTexts(subcommand, given->second)) {
      fCommand += separator != nullptr ? separator : fmt::format("\n  /{}=", subcommand.name);
      separator = Repeats(subcommand) ? nullptr : " ";
      ReadOption(subcommand, value);
    }
  }
  RequireColumnsToTest(fRequest, Spoken(), "--test", "--by");
  return fRequest;
}

void RequestReader::ReadSet(const std::string& name) {
  if (name.empty()) {
    throw Error(ErrorKind::kUsage, "The name of a set is empty: put it in single quotes, as in '$drinks'.");
  }
  if (name[0] != '$') {
    throw Error(ErrorKind::kUsage, fmt::format("The name of a set begins with $, in single quotes: '${}'.", name));
  }
  fRequest.sets.push_back({name, false, fText.size(), name.size()});
  fText += name + '\n';
  fCommand += ' ' + name;
  fParts.push_back({fText.size(), ""});
}

void RequestReader::ReadOption(const TabulateSubcommand& subcommand, const std::string& value) {
  const std::size_t begin = fText.size();
  fText += value;
  fCommand += value;
  fParts.push_back({fText.size() + 1, OptionOf(subcommand)});
  try {
    std::vector<Token> tokens = Tokenize(value);
    for (Token& token : tokens) {
      token.offset += begin;
    }
    ParseTabulateOption(subcommand, tokens, fText, fRequest);
  } catch (const TokenizerError& error) {
    throw TabulationError(error.what(), begin + error.Offset(), error.Size());
  }
  fText += '\n';
}

std::string RequestReader::SentenceOn(const TabulationError& error) const {
  const auto part =
      std::find_if(fParts.begin(), fParts.end(), [&](const Part& one) { return error.Offset() < one.end; });
  const std::string option = part == fParts.end() ? "" : part->option;
  const std::string sentence = error.what();
  return option.empty() || sentence.find(option) != std::string::npos ? sentence
                                                                      : fmt::format("{}: {}", option, sentence);
}

void Complain(const std::string& sentence, const std::optional<std::string>& nearest) {
  std::cerr << NoticeLine(sentence);
  if (nearest) {
    std::cerr << Visible(fmt::format("Did you mean {}?", *nearest)) << '\n';
  }
}

struct Results {
  std::vector<Tabulation> tables;
  std::string command;  ///< that makes them; a page shows it
};

std::vector<Tabulation> Count(const TabulateOptions& options, const TabulationRequest& request) {
  Dataset dataset(options.datasetPath, options.datasetOptions);
  dataset.BeginTransaction(Access::kShared);
  const SetList sets = dataset.SharedSets();
  DatasetSource source(dataset, sets);
  return Tabulate(request, source, ShowCounting()());
}

/// Where bars cannot be drawn in blocks, "#" does.
Chart ChartOf(const TabulateOptions& options) {
  return !options.chart ? Chart::kNone : IsUtf8Expected() ? Chart::kBlocks : Chart::kSigns;
}

void RenderText(const TabulateOptions& options, const Results& results, std::ostream& stream, const OutputLook& look) {
  const char* separator = "";
  for (const Tabulation& table : results.tables) {
    stream << separator << TextTabulation(table, look.width, look.colour, ChartOf(options));
    separator = "\n";
  }
}

void RenderJson(const Results& results, std::ostream& stream) {
  for (const Tabulation& table : results.tables) {
    stream << OneLine(ToJson(Item(table))) << '\n';
  }
}

void Render(const TabulateOptions& options, const Results& results, std::ostream& stream, OutputLook look) {
  const OutputFormat& format = FormatNamed(options.format.format);
  if (look.isTerminal && format.refusalOfTerminal != nullptr) {
    throw Error(format.refusalOfTerminal);
  }
  if (options.format.format == kTextFormat) {
    return RenderText(options, results, stream, look);
  }
  if (options.format.format == kJsonFormat) {
    return RenderJson(results, stream);
  }
  look.showsCommands = false;
  look.dataset = std::filesystem::path(options.datasetPath).filename().string();
  CommandResult result;
  result.number = 1;
  result.text = results.command;
  result.procedure = kTabulateProcedure;
  result.items.assign(results.tables.begin(), results.tables.end());
  const std::unique_ptr<Renderer> renderer = format.makeRenderer(stream, look);
  renderer->Write(result);
  renderer->Finish();
}

void Write(const TabulateOptions& options, const Results& results) {
  if (!options.outputPath) {
    return Render(options, results, std::cout, LookOfOutput(options.format));
  }
  OutputFile file(*options.outputPath, ComplaintOnReservedName);
  Render(options, results, file.Stream(), LookOfFile(options.format));
  file.Commit();
}

/// Wrong options are wrong usage; a request that does not fit the dataset is an error of the request.
ExitStatus Tabulate(const TabulateOptions& options) {
  if (options.outputPath && IsSameFile(*options.outputPath, options.datasetPath)) {
    throw Error(fmt::format("The output file {} is what is counted; give another one.", *options.outputPath));
  }
  RequestReader reader;
  TabulationRequest request;
  try {
    request = reader.Read(options);
  } catch (const TabulationError& error) {
    Complain(reader.SentenceOn(error), error.Nearest());
    std::cerr << "Run \"mrset tabulate --help\" for its options.\n";
    return kUnusable;
  }
  OutliveReader();
  try {
    Write(options, {Count(options, request), reader.Command()});
    return kSuccess;
  } catch (const TabulationError& error) {
    Complain(reader.SentenceOn(error), error.Nearest());
    return kErrors;
  }
}

std::string TypeOf(const TabulateSubcommand& subcommand) {
  std::string type(subcommand.form);
  for (const std::string_view word : subcommand.words) {
    type += type.find(':') == std::string::npos ? ":words " : " ";
    std::transform(word.begin(), word.end(), std::back_inserter(type),
                   [](char c) { return static_cast<char>(c - 'A' + 'a'); });
  }
  return type;
}

void DeclareOption(CLI::App& app, const TabulateSubcommand& subcommand, Given& given) {
  std::vector<std::string>& values = given[subcommand.key];
  const std::string name = OptionOf(subcommand);
  const std::string description(subcommand.purpose);
  if (IsValueOptional(subcommand)) {  // an option would take in an operand that follows it
    app.add_flag(name, values, description)->multi_option_policy(CLI::MultiOptionPolicy::Throw);
    return;
  }
  if (TakesSeveral(subcommand)) {
    app.add_option(name, values, description)->allow_extra_args(false)->type_name(TypeOf(subcommand));
    return;
  }
  app.add_option_function<std::string>(
         name, [&values](const std::string& value) { values = {value}; }, description)
      ->type_name(TypeOf(subcommand));
}

}  // namespace

Action DeclareTabulate(CLI::App& app) {
  const auto options = std::make_shared<TabulateOptions>();
  AddDatasetArgument(app, options->datasetPath);
  app.add_option("SET", options->sets, "Sets to count, each in single quotes")->required()->type_name(kSetType);
  for (const TabulateSubcommand& subcommand : TabulateSubcommands()) {
    DeclareOption(app, subcommand, options->given);
  }
  app.add_flag("--chart", options->chart, "Bars beside the percentages of text");
  AddFormatOptions(app, RunFormatNames(), options->format);
  AddOutputOption(app, "File for the tables; its ending sets the format", options->outputPath);
  AddLockTimeoutOption(app, options->datasetOptions);
  app.footer(
      "Example:\n"
      "  mrset tabulate survey.mrset '$drinks' --by region --where 'born < 1980'\n");
  return [options, &app] {
    if (options->outputPath && app.count("--format") == 0) {
      options->format.format = FormatOfFile(*options->outputPath).name;
    }
    return Tabulate(*options);
  };
}

}  // namespace standalone
