#ifndef STANDALONE_CASES_BLOCK_BYTES_H
#define STANDALONE_CASES_BLOCK_BYTES_H

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>

#include "standalone/text/error.h"

namespace standalone {

// What a block is made of. Numbers lie on the disk as they do in memory.

static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "blocks are little-endian");

[[noreturn]] inline void FailAsDamagedBlock(const char* what) {
  throw Error(ErrorKind::kDamaged, what);
}

template <typename Number>
void AppendNumbers(const Number* numbers, std::size_t count, std::string& out) {
  static_assert(std::is_arithmetic_v<Number>);
  if (count != 0) {
    out.append(reinterpret_cast<const char*>(numbers), count * sizeof(Number));
  }
}

template <typename Number>
void AppendNumber(Number number, std::string& out) {
  AppendNumbers(&number, 1, out);
}

/// Takes bytes from the front, and never more than there are.
class ByteReader {
 public:
  explicit ByteReader(std::string_view bytes) : fRest(bytes) {}

  std::string_view Take(std::size_t size) {
    if (size > fRest.size()) {
      FailAsDamagedBlock("it is too short");
    }
    const std::string_view taken = fRest.substr(0, size);
    fRest.remove_prefix(size);
    return taken;
  }

  template <typename Number>
  Number Take() {
    Number number;
    std::memcpy(&number, Take(sizeof number).data(), sizeof number);
    return number;
  }

  /// `numbers` is any vector; it gets room only for what is there.
  template <typename Vector>
  void TakeAll(std::size_t count, Vector& numbers) {
    if (count > fRest.size() / sizeof(typename Vector::value_type)) {
      FailAsDamagedBlock("it is too short");
    }
    numbers.resize(count);
    if (count != 0) {
      std::memcpy(numbers.data(), Take(count * sizeof(typename Vector::value_type)).data(),
                  count * sizeof(typename Vector::value_type));
    }
  }

  std::string_view TakeRest() { return Take(fRest.size()); }
  std::size_t Left() const { return fRest.size(); }

 private:
  std::string_view fRest;
};

}  // namespace standalone

#endif  // STANDALONE_CASES_BLOCK_BYTES_H
