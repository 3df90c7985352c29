#ifndef STANDALONE_STORAGE_COMPANIONS_H
#define STANDALONE_STORAGE_COMPANIONS_H

#include <optional>
#include <string>

namespace standalone {

// The files that SQLite makes beside a database have its name and an ending. Such names belong to the dataset.

/// Why nothing may be written at the path, as a sentence; nothing where it may.
std::optional<std::string> ComplaintOnReservedName(const std::string& path);

/// The path of a companion that lies beside the path of a dataset, if there is one.
std::optional<std::string> FindCompanion(const std::string& path);

}  // namespace standalone

#endif  // STANDALONE_STORAGE_COMPANIONS_H
