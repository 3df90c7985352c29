#ifndef STANDALONE_TABULATION_READING_VALUES_H
#define STANDALONE_TABULATION_READING_VALUES_H

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "standalone/dataset/variable.h"

namespace standalone {

/// A text as it is compared: without blanks at its ends. One that is empty then is missing.
std::string_view ComparedText(std::string_view text);

/// Different values in the order in which they came.
class Values {
 public:
  explicit Values(bool isNumeric) : fIsNumeric(isNumeric) {}
  Values(Values&& other) = default;  // no copies: the keys of texts point into the texts
  Values& operator=(Values&& other) = default;

  bool IsNumeric() const { return fIsNumeric; }
  std::size_t Size() const { return fIsNumeric ? fNumbers.size() : fTexts.size(); }

  /// The index of a value, which is made where it is new.
  std::size_t IndexOf(double number);
  std::size_t IndexOf(std::string_view text);

  /// The index of a value as it is written in a command or as a label's, made where it is new; nothing for what is no
  /// number where numbers are wanted.
  std::optional<std::size_t> IndexOfWritten(const std::string& written);

  /// As those above, but nothing for a value that is not there.
  std::optional<std::size_t> Find(double number) const;
  std::optional<std::size_t> Find(std::string_view text) const;
  std::optional<std::size_t> FindWritten(const std::string& written) const;

  /// As the value is written.
  std::string TextOf(std::size_t index) const;

  /// Numbers by value, texts by bytes.
  bool IsLess(std::size_t first, std::size_t second) const;

 private:
  bool fIsNumeric;
  std::vector<double> fNumbers;
  std::unordered_map<double, std::size_t> fIndexOfNumber;
  std::deque<std::string> fTexts;  // which stay where they are
  std::unordered_map<std::string_view, std::size_t> fIndexOfText;
};

/// Labels of values, those of the first variables first.
class ValueLabels {
 public:
  explicit ValueLabels(bool isNumeric) : fValues(isNumeric) {}

  /// Adds the labels of values that have none yet.
  void Add(const std::vector<ValueLabel>& labels);

  bool HasValue(const std::string& written) const { return fValues.FindWritten(written).has_value(); }

  template <class Visit>
  void VisitValues(Visit visit) const {
    for (std::size_t index = 0; index < fValues.Size(); ++index) {
      visit(fValues.TextOf(index));
    }
  }

  /// The label of a value, or the value.
  std::string LabelOf(const std::string& value) const;

  /// The values in the order of the labels, then those that have none, ascending; indexes of `values`.
  std::vector<std::size_t> Ordered(const std::vector<std::size_t>& indexes, const Values& values) const;

 private:
  Values fValues;
  std::vector<std::string> fLabels;
};

}  // namespace standalone

#endif  // STANDALONE_TABULATION_READING_VALUES_H
