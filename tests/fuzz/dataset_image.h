#ifndef TESTS_FUZZ_DATASET_IMAGE_H
#define TESTS_FUZZ_DATASET_IMAGE_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tests/fuzz/scratch_folder.h"

namespace fuzz {

/// The bytes of a sound dataset, made by the program itself.
class DatasetImage {
 public:
  /// `variables` is how many string variables there are beside the numeric q1, q2, q3; with many of them, and long
  /// texts, the file has pages of every kind.
  DatasetImage(const ScratchFolder& folder, int variables, std::size_t longText);

  /// The bytes after edits of four bytes each: a kind, a place (low byte first) and a value. A place counts the bytes
  /// that are not 0, or all, modulo their number. An edit sets the byte, flips one of its bits, or cuts the file off.
  std::string Edited(std::string_view edits) const;

 private:
  std::size_t Offset(unsigned char kind, std::size_t place) const;

  std::string fBytes;
  std::vector<std::size_t> fNotZero;  // offsets
};

}  // namespace fuzz

#endif  // TESTS_FUZZ_DATASET_IMAGE_H
