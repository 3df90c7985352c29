#ifndef STANDALONE_OPTIONS_DATASET_OPTIONS_H
#define STANDALONE_OPTIONS_DATASET_OPTIONS_H

#include <CLI/App.hpp>
#include <string>

#include "standalone/storage/dataset_options.h"

namespace standalone {

/// Adds a required argument that names a dataset to a subcommand.
void AddDatasetArgument(CLI::App& app, std::string& path, const std::string& description = "Dataset file",
                        const std::string& name = "DATASET");

/// Writes sentences to standard error, each of them once, though several connections to one dataset may wait.
std::function<void(const std::string& sentence)> NoticesOnce();

/// Adds --lock-timeout to a subcommand. What a user should know goes to standard error as it happens.
void AddLockTimeoutOption(CLI::App& app, DatasetOptions& options);

}  // namespace standalone

#endif  // STANDALONE_OPTIONS_DATASET_OPTIONS_H
