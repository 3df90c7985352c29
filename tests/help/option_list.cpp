// Prints what the program declares, its subcommands, options, operands and topics of help, as JSON for generated.py.
#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <iostream>
#include <nlohmann/json.hpp>

#include "standalone/program/program.h"
#include "standalone/shell/help.h"

namespace {

using Json = nlohmann::ordered_json;

Json Describe(const CLI::Option& option) {
  return {{"isOperand", option.get_positional()},   {"names", option.get_name(true, true)},
          {"type", option.get_type_name()},         {"takesValue", option.get_items_expected_max() > 0},
          {"required", option.get_required()},      {"repeats", option.get_items_expected_max() > 1},
          {"description", option.get_description()}};
}

Json Describe(const CLI::App& app) {
  Json description = {{"name", app.get_name()}, {"description", app.get_description()}};
  for (const CLI::Option* option : app.get_options()) {
    description["options"].push_back(Describe(*option));
  }
  for (const CLI::App* subcommand : app.get_subcommands([](const CLI::App*) { return true; })) {
    description["subcommands"].push_back(Describe(*subcommand));
  }
  return description;
}

}  // namespace

int main() {
  standalone::Action chosen;
  Json description = Describe(*standalone::DeclareProgram(chosen));
  description["topics"] = standalone::LanguageTopics();
  std::cout << description << '\n';
}
