#ifndef STANDALONE_TABULATION_READING_NAMED_VALUES_H
#define STANDALONE_TABULATION_READING_NAMED_VALUES_H

#include <cstddef>
#include <map>
#include <optional>
#include <string>

#include "standalone/cases/block.h"
#include "standalone/language/nearest_name.h"
#include "standalone/tabulation/reading/values.h"

namespace standalone {

/// The values that a command names of a category set, and whether any case of the dataset holds them: also one that
/// WHERE leaves out.
class NamedValues {
 public:
  /// `index`: of the value among the set's values. What has a label is known without a case.
  void Add(std::size_t index, const std::string& written, const ValueLabels& labels);

  /// Looks for them in a block of a variable of the set.
  void Meet(const Block& block, const Values& values);

  bool IsKnown(std::size_t index) const;
  /// The value that was meant by an unknown one.
  std::optional<std::string> Nearest(std::size_t index) const;

 private:
  struct Named {
    bool isKnown;
    NearestName nearest;
  };

  template <class Value>
  void MeetValue(const Value& value, const Values& values);
  template <class List>
  void MeetAll(const List& list, const Values& values);

  std::map<std::size_t, Named> fNamed;
  std::size_t fUnknown = 0;
  std::size_t fOffers = 0;
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_READING_NAMED_VALUES_H
