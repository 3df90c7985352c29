#ifndef TESTS_PROPERTIES_DICE_H
#define TESTS_PROPERTIES_DICE_H

#include <rapidcheck.h>

#include <cstddef>
#include <utility>
#include <vector>

namespace properties {

/// Random choices out of one of RapidCheck's random states.
class Dice {
 public:
  explicit Dice(const rc::Random& random) : fRandom(random) {}

  /// 0 to count - 1; the count is positive.
  std::size_t Below(std::size_t count) { return static_cast<std::size_t>(fRandom.next() % count); }

  std::size_t Between(std::size_t first, std::size_t last) { return first + Below(last - first + 1); }

  bool Percent(std::size_t chance) { return Below(100) < chance; }
  bool OneIn(std::size_t count) { return Below(count) == 0; }

  /// One of a list that is not empty.
  template <class Value>
  const Value& Pick(const std::vector<Value>& list) {
    return list[Below(list.size())];
  }

  template <class Value>
  void Shuffle(std::vector<Value>& list) {
    for (std::size_t count = list.size(); count > 1; --count) {
      std::swap(list[count - 1], list[Below(count)]);
    }
  }

 private:
  rc::Random fRandom;
};

}  // namespace properties

#endif  // TESTS_PROPERTIES_DICE_H
