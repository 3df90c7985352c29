#ifndef STANDALONE_LANGUAGE_NEAREST_NAME_H
#define STANDALONE_LANGUAGE_NEAREST_NAME_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace standalone {

/// Finds among the names that are offered the one that was meant by a name that is none of them. Letter case does not
/// matter. A typing error is a character too many, one missing, one replaced, or two neighbours swapped. A name is near
/// when one error leads to it, or two where the longer name has eight characters; below four characters none is, and
/// none that has other digits, since v12 is no slip for v13.
class NearestName {
 public:
  explicit NearestName(std::string_view name);

  void Offer(std::string_view candidate);

  /// The name that is nearer than all others; nothing when there is none. As it was offered.
  std::optional<std::string> Result() const;

 private:
  std::u32string fName;  // in upper case
  std::string fDigits;
  std::size_t fErrors;  // of the best so far
  std::optional<std::string> fBest;
  bool fHasRival = false;
};

/// The one of `words` that was meant by a word that is none of them: the only one that begins with it, else the
/// nearest. Without regard to case.
std::optional<std::string> MeantWord(const std::string& word, const std::vector<std::string>& words);

}  // namespace standalone

#endif  // STANDALONE_LANGUAGE_NEAREST_NAME_H
