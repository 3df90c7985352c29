#ifndef STANDALONE_TABULATION_TABULATION_ERROR_H
#define STANDALONE_TABULATION_TABULATION_ERROR_H

#include <cstddef>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>

namespace standalone {

/// Why a TABULATE command cannot be carried out. what() is one sentence for the user; the bytes of the command that it
/// is about begin at Offset().
class TabulationError : public std::runtime_error {
 public:
  TabulationError(const std::string& sentence, std::size_t offset, std::size_t size,
                  std::optional<std::string> nearest = std::nullopt)
      : std::runtime_error(sentence), fOffset(offset), fSize(size), fNearest(std::move(nearest)) {}
  std::size_t Offset() const { return fOffset; }
  std::size_t Size() const { return fSize; }

  /// What was meant, where one word or name is near.
  const std::optional<std::string>& Nearest() const { return fNearest; }

 private:
  std::size_t fOffset;
  std::size_t fSize;
  std::optional<std::string> fNearest;
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_TABULATION_ERROR_H
