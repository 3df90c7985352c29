#include "standalone/storage/commit.h"

#include "standalone/text/error.h"

namespace standalone {

namespace {

/// Whether the counter is that of the transaction, as whoever opens the dataset next finds it; nothing where that
/// cannot be known.
std::optional<bool> IsThere(Database& database, std::int64_t generation) {
  try {
    database.Rollback();
    return GenerationOf(database) == generation;
  } catch (const std::exception&) {
    return database.HasJournal() ? std::make_optional(false) : std::nullopt;
  }
}

}  // namespace

std::int64_t GenerationOf(Database& database) {
  Query query(database, "SELECT generation FROM meta");
  if (!query.Step()) {
    database.FailAsDamaged();
  }
  return query.Integer(0);
}

std::optional<std::string> CommitGeneration(Database& database, std::int64_t generation) {
  try {
    return database.Commit();
  } catch (const std::exception& error) {
    if (database.InTransaction()) {
      throw;  // it waits for others, and nothing of it is in the file
    }
    const std::optional<bool> isThere = IsThere(database, generation);
    if (!isThere) {
      throw Error(ErrorKind::kUnknownOutcome, SentenceOf(error) + " Whether the last change was saved is not known.");
    }
    if (!*isThere) {
      throw;
    }
    return "The change is saved nevertheless: " + SentenceOf(error);
  }
}

}  // namespace standalone
