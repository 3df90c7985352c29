#include "standalone/options/dataset_options.h"

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <chrono>
#include <iostream>
#include <memory>
#include <set>
#include <string>

#include "standalone/options/value_type.h"
#include "standalone/text/notice.h"
#include "standalone/text/number_text.h"
#include "standalone/text/visible.h"

namespace standalone {
namespace {

/// What is wrong with a number of seconds; empty where nothing is.
std::string SecondsComplaint(const std::string& seconds) {
  if (WholeNumber(seconds)) {
    return {};
  }
  return ShownValue(seconds) + (IsDigits(seconds) ? " has more than nine digits; 999999999 seconds is the longest wait"
                                                  : " is not a whole number of seconds");
}

}  // namespace

void AddDatasetArgument(CLI::App& app, std::string& path, const std::string& description, const std::string& name) {
  app.add_option(name, path, description)->required()->type_name(kDatasetType);
}

std::function<void(const std::string& sentence)> NoticesOnce() {
  return [told = std::make_shared<std::set<std::string>>()](const std::string& sentence) {
    if (told->insert(sentence).second) {
      std::cerr << NoticeLine(sentence);
    }
  };
}

void AddLockTimeoutOption(CLI::App& app, DatasetOptions& options) {
  options.notify = NoticesOnce();
  const auto set = [&options](const std::string& value) {
    options.lockTimeout = std::chrono::seconds(*WholeNumber(value));
  };
  app.add_option_function<std::string>("--lock-timeout", set, "How long to wait for a locked dataset; 30 unless given")
      ->check(SecondsComplaint)
      ->type_name("SECONDS");
}

}  // namespace standalone
