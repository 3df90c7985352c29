// Prints what the program declares, its options, operands and subcommands, as JSON. generated.py reads it.
#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <iostream>
#include <nlohmann/json.hpp>

#include "standalone/program/declarations.h"
#include "standalone/program/value_type.h"

namespace {

using Json = nlohmann::ordered_json;

Json Describe(const CLI::Option& option) {
  Json names = Json::array();
  for (const std::string& name : option.get_snames()) {
    names.push_back("-" + name);
  }
  for (const std::string& name : option.get_lnames()) {
    names.push_back("--" + name);
  }
  return {{"names", option.get_positional() ? Json::array({option.get_name()}) : names},
          {"type", standalone::TypeName(option)},
          {"offered", standalone::OfferedValues(option)},
          {"takesValue", option.get_items_expected_max() > 0},
          {"required", option.get_required()},
          {"repeats", option.get_items_expected_max() > 1},
          {"description", option.get_description()}};
}

Json Describe(const CLI::App& app) {
  Json options = Json::array();
  Json operands = Json::array();
  for (const CLI::Option* option : app.get_options()) {
    (option->get_positional() ? operands : options).push_back(Describe(*option));
  }
  return {
      {"name", app.get_name()}, {"description", app.get_description()}, {"options", options}, {"operands", operands}};
}

}  // namespace

int main() {
  standalone::Action chosen;
  const auto program = standalone::DeclareProgram(chosen);
  Json list = Describe(*program);
  for (const CLI::App* subcommand : program->get_subcommands([](const CLI::App*) { return true; })) {
    list["subcommands"].push_back(Describe(*subcommand));
  }
  std::cout << list.dump(2) << '\n';
}
