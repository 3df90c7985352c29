#ifndef STANDALONE_FILES_DESCRIPTOR_H
#define STANDALONE_FILES_DESCRIPTOR_H

#include <unistd.h>

#include <utility>

namespace standalone {

/// Owns an open file descriptor and closes it in the end.
class Descriptor {
 public:
  explicit Descriptor(int number = -1) : fNumber(number) {}
  Descriptor(Descriptor&& other) noexcept : fNumber(std::exchange(other.fNumber, -1)) {}
  Descriptor& operator=(Descriptor&& other) noexcept {
    std::swap(fNumber, other.fNumber);
    return *this;
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { Close(); }

  /// Negative where nothing is open.
  int Number() const { return fNumber; }

  void Close() {
    if (fNumber >= 0) {
      close(std::exchange(fNumber, -1));
    }
  }

 private:
  int fNumber;
};

}  // namespace standalone

#endif  // STANDALONE_FILES_DESCRIPTOR_H
