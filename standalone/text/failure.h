#ifndef STANDALONE_TEXT_FAILURE_H
#define STANDALONE_TEXT_FAILURE_H

#include <exception>
#include <new>
#include <stdexcept>
#include <string>

namespace standalone {

/// What went wrong, as one sentence.
inline std::string SentenceOf(const std::exception& error) {
  const bool lacksMemory = dynamic_cast<const std::bad_alloc*>(&error) != nullptr ||
                           dynamic_cast<const std::length_error*>(&error) != nullptr;
  return lacksMemory ? "There is not enough memory." : error.what();
}

}  // namespace standalone

#endif  // STANDALONE_TEXT_FAILURE_H
