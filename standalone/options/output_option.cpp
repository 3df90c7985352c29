#include "standalone/options/output_option.h"

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

#include "standalone/options/value_type.h"

namespace standalone {
namespace {

/// What is wrong with the path; empty where nothing is.
std::string PathComplaint(const std::string& path) {
  if (path.empty()) {
    return "the name of the file is empty; without --output the results go to standard output";
  }
  if (path == "-") {
    return "- is not a file name; without --output the results go to standard output";
  }
  return path[0] == '-' ? path + " looks like an option; a file of that name is ./" + path : std::string();
}

}  // namespace

void AddOutputOption(CLI::App& app, const std::string& description, std::optional<std::string>& path) {
  app.add_option("--output", path, description)->check(PathComplaint)->type_name(kFileType);
}

}  // namespace standalone
